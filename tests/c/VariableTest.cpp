#include <cstdint>
#include <string>

#include "Objects.h"

namespace {

using kx::test::evaluated;
using kx::test::Host;
using kx::test::Text;
using kx::test::Units;

struct Variable {
    explicit Variable(std::string const& key) {
        EXPECT_EQ(kxjs_variable_create(key.data(), key.size(), &handle), KXJS_OK);
    }
    ~Variable() { EXPECT_EQ(kxjs_variable_free(handle), KXJS_OK); }
    Variable(Variable const&) = delete;
    Variable& operator=(Variable const&) = delete;

    std::int32_t type() const {
        std::int32_t type = -1;
        EXPECT_EQ(kxjs_variable_type(handle, &type), KXJS_OK);
        return type;
    }
    std::string text() const {
        Text const text;
        EXPECT_EQ(kxjs_variable_to_text(handle, text), KXJS_OK);
        return text.str();
    }

    kxjs_variable* handle = nullptr;
};

TEST(CVariable, HasNoValueAtFirstAndHostsRefuseIt) {
    Variable const variable("A");
    Host const host;
    EXPECT_EQ(variable.type(), KXJS_TYPE_UNDEFINED);
    EXPECT_EQ(variable.text(), "true");
    EXPECT_EQ(kxjs_host_set_variable(host, variable.handle), KXJS_REFUSED);
    Text const key;
    EXPECT_EQ(kxjs_variable_key(variable.handle, key), KXJS_OK);
    EXPECT_EQ(key.str(), "A");
}

TEST(CVariable, KeepsAValueOfEachType) {
    Variable const variable("A");
    EXPECT_EQ(kxjs_variable_set_int32(variable.handle, -7), KXJS_OK);
    EXPECT_EQ(variable.text(), "-7");
    EXPECT_EQ(kxjs_variable_set_double(variable.handle, 2.5), KXJS_OK);
    EXPECT_EQ(variable.text(), "2.500000");
    EXPECT_EQ(kxjs_variable_set_text(variable.handle, KXJS_LITERAL("\u00e4")), KXJS_OK);
    EXPECT_EQ(variable.type(), KXJS_TYPE_TEXT);
    EXPECT_EQ(variable.text(), "\u00e4");
    EXPECT_EQ(kxjs_variable_set_bool(variable.handle, 0), KXJS_OK);
    EXPECT_EQ(variable.type(), KXJS_TYPE_BOOL);

    std::int32_t whole = 0;
    double number = 0;
    std::int32_t truth = 1;
    Text const text;
    EXPECT_EQ(kxjs_variable_int32(variable.handle, &whole), KXJS_OK);
    EXPECT_EQ(kxjs_variable_double(variable.handle, &number), KXJS_OK);
    EXPECT_EQ(kxjs_variable_bool(variable.handle, &truth), KXJS_OK);
    EXPECT_EQ(kxjs_variable_text(variable.handle, text), KXJS_OK);
    EXPECT_EQ(whole, -7);
    EXPECT_EQ(number, 2.5);
    EXPECT_EQ(truth, 0);
    EXPECT_EQ(text.str(), "\u00e4");
}

TEST(CVariable, HostsHaveCopies) {
    Host const host;
    Units const key(u"\u00dc");
    Units const value(u"one");
    kxjs_variable* variable = nullptr;
    ASSERT_EQ(kxjs_variable_create_utf16(key.data(), key.size(), &variable), KXJS_OK);
    ASSERT_EQ(kxjs_variable_set_text_utf16(variable, value.data(), value.size()), KXJS_OK);
    ASSERT_EQ(kxjs_host_set_variable(host, variable), KXJS_OK);
    ASSERT_EQ(kxjs_variable_set_int32(variable, 2), KXJS_OK);
    EXPECT_EQ(evaluated(host, "\u00dc"), "one");
    ASSERT_EQ(kxjs_host_set_variable(host, variable), KXJS_OK);
    EXPECT_EQ(kxjs_variable_free(variable), KXJS_OK);
    EXPECT_EQ(evaluated(host, "\u00dc"), "2");
}

}  // namespace
