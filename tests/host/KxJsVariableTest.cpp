#include <clocale>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <type_traits>

#include "host/KxJsVariable.h"

namespace {

std::u16string const kKey = u"key";

TEST(KxJsVariable, isTrueWithoutAType) {
    KxJsVariable const variable;
    EXPECT_EQ(variable.getType(), KxJsVariable::TYPE_OF_VAR_UNDEFINED);
    EXPECT_EQ(variable.getKey(), u"");
    EXPECT_EQ(variable.getLongValue(), 0);
    EXPECT_EQ(variable.getDoubleValue(), 0.0);
    EXPECT_EQ(variable.getStrValue(), u"");
    EXPECT_TRUE(variable.getBooleanValue());
    EXPECT_EQ(variable.valueToString(), u"true");
}

TEST(KxJsVariable, hasTheTypeOfItsConstructor) {
    EXPECT_EQ(KxJsVariable(kKey, 1).getType(), 1);
    EXPECT_EQ(KxJsVariable(kKey, 1.0).getType(), 2);
    EXPECT_EQ(KxJsVariable(kKey, u"1").getType(), 3);
    EXPECT_EQ(KxJsVariable(kKey, std::u16string(u"1")).getType(), 3);
    EXPECT_EQ(KxJsVariable(kKey, false).getType(), 4);
    EXPECT_EQ(KxJsVariable(kKey, false).getKey(), kKey);
}

template <class Value>
concept SetsValue = requires(KxJsVariable& variable, Value value) {
    variable.setValue(value);
};
template <class Value>
constexpr bool kIsMadeFrom = std::is_constructible_v<KxJsVariable, std::u16string, Value>;
template <class Value>
constexpr bool kIsTaken = SetsValue<Value>&& kIsMadeFrom<Value>;
template <class Value>
constexpr bool kIsRefused = !SetsValue<Value> && !kIsMadeFrom<Value>;

struct Member {
    int field;
};

// Pointers to anything but UTF-16 text would become true.
TEST(KxJsVariable, doesNotCompileWithOtherPointers) {
    // NOLINTBEGIN(modernize-avoid-c-arrays): literals are such arrays
    static_assert(kIsRefused<char const*> && kIsRefused<char*> && kIsRefused<char const(&)[5]>);
    static_assert(kIsRefused<wchar_t const*> && kIsRefused<char8_t const*>);
    static_assert(kIsRefused<void*> && kIsRefused<int*> && kIsRefused<std::u16string*>);
    static_assert(kIsRefused<char16_t const* const*> && kIsRefused<char16_t volatile*>);
    static_assert(kIsRefused<void (*)()> && kIsRefused<int Member::*>);
    static_assert(kIsTaken<char16_t const*> && kIsTaken<char16_t*>);
    static_assert(kIsTaken<char16_t const(&)[5]> && kIsTaken<std::u16string>);
    // NOLINTEND(modernize-avoid-c-arrays)
    static_assert(kIsTaken<std::int32_t> && kIsTaken<double> && kIsTaken<bool>);
    std::u16string text = u"text";
    KxJsVariable variable(kKey, text.data());
    EXPECT_EQ(variable.getStrValue(), u"text");
    variable.setValue(&text[1]);
    EXPECT_EQ(variable.getStrValue(), u"ext");
}

// A character would become the number of its code.
TEST(KxJsVariable, doesNotCompileWithCharacters) {
    static_assert(kIsRefused<char> && kIsRefused<wchar_t> && kIsRefused<char8_t>);
    static_assert(kIsRefused<char16_t> && kIsRefused<char32_t>);
    static_assert(kIsTaken<std::int8_t> && kIsTaken<std::int16_t> && kIsTaken<std::uint16_t>);
    KxJsVariable const variable(kKey, std::int8_t{'5'});
    EXPECT_EQ(variable.getLongValue(), 53);
}

TEST(KxJsVariable, keepsTheOtherFieldsAtTheirDefaults) {
    KxJsVariable const variable(kKey, u"12");
    EXPECT_EQ(variable.getLongValue(), 0);
    EXPECT_EQ(variable.getDoubleValue(), 0.0);
    EXPECT_TRUE(variable.getBooleanValue());
}

TEST(KxJsVariable, convertsToItsFieldsWhateverTheType) {
    KxJsVariable variable(kKey, 7);
    variable.setValue(2.5);
    variable.setValue(u"text");
    variable.setValue(false);
    EXPECT_EQ(static_cast<std::int32_t>(variable), 7);
    EXPECT_EQ(static_cast<double>(variable), 2.5);
    EXPECT_EQ(static_cast<bool>(variable), false);
    EXPECT_EQ(variable.operator std::u16string(), u"text");
}

TEST(KxJsVariable, changesTypeWithTheValueAndKeepsTheOldFields) {
    KxJsVariable variable(kKey, 42);
    variable.setValue(true);
    EXPECT_EQ(variable.getType(), KxJsVariable::TYPE_OF_VAR_BOOLEAN);
    EXPECT_EQ(variable.getLongValue(), 42);
    EXPECT_EQ(variable.getKey(), kKey);
    variable.setValue(u"literal");
    EXPECT_EQ(variable.getType(), KxJsVariable::TYPE_OF_VAR_STRING);
    variable.setValue(std::u16string(u"string"));
    EXPECT_EQ(variable.getStrValue(), u"string");
    variable.setValue(1.5);
    EXPECT_EQ(variable.getType(), KxJsVariable::TYPE_OF_VAR_DOUBLE);
    variable.setValue(3);
    EXPECT_EQ(variable.getType(), KxJsVariable::TYPE_OF_VAR_LONG);
}

TEST(KxJsVariable, copiesAllFields) {
    KxJsVariable source(kKey, u"text");
    source.setValue(7);
    KxJsVariable const copy(source);
    EXPECT_EQ(copy.getStrValue(), u"text");
    EXPECT_EQ(copy.getLongValue(), 7);
    EXPECT_EQ(copy.getType(), KxJsVariable::TYPE_OF_VAR_LONG);
    KxJsVariable assigned;
    assigned = source;
    EXPECT_EQ(assigned.getKey(), kKey);
    EXPECT_EQ(assigned.getStrValue(), u"text");
    KxJsVariable const& itself = assigned;
    assigned = itself;
    EXPECT_EQ(assigned.getKey(), kKey);
    EXPECT_EQ(assigned.getStrValue(), u"text");
}

TEST(KxJsVariable, takesANullPointerAsTheEmptyText) {
    char16_t const* const none = nullptr;
    KxJsVariable variable(kKey, none);
    EXPECT_EQ(variable.getStrValue(), u"");
    variable.setValue(u"text");
    variable.setValue(none);
    EXPECT_EQ(variable.getStrValue(), u"");
}

struct TextCase {
    KxJsVariable variable;
    std::u16string text;
};

class ValueToString : public testing::TestWithParam<TextCase> {};

TEST_P(ValueToString, formats) { EXPECT_EQ(GetParam().variable.valueToString(), GetParam().text); }

INSTANTIATE_TEST_SUITE_P(
    values, ValueToString,
    testing::Values(TextCase{{kKey, -7}, u"-7"},  //
                    TextCase{{kKey, 0}, u"0"},
                    TextCase{{kKey, std::numeric_limits<std::int32_t>::min()}, u"-2147483648"},
                    TextCase{{kKey, 3.0}, u"3.000000"},                                        //
                    TextCase{{kKey, 2.5}, u"2.500000"}, TextCase{{kKey, -0.0}, u"-0.000000"},  //
                    TextCase{{kKey, 1e-7}, u"0.000000"},                                       //
                    TextCase{{kKey, 0.0000005},
                             u"0.000000"},  // below one half: the double is a bit smaller
                    TextCase{{kKey, 0.0000015}, u"0.000002"},
                    TextCase{{kKey, 123456789.125}, u"123456789.125000"},
                    TextCase{{kKey, std::numeric_limits<double>::infinity()}, u"inf"},
                    TextCase{{kKey, -std::numeric_limits<double>::infinity()}, u"-inf"},
                    TextCase{{kKey, true}, u"true"},  //
                    TextCase{{kKey, false}, u"false"}, TextCase{{kKey, u""}, u""},
                    TextCase{{kKey, std::u16string(255, u'x')}, std::u16string(255, u'x')},
                    TextCase{{kKey, std::u16string(300, u'x')}, std::u16string(255, u'x')},
                    TextCase{{kKey, std::u16string(u"ab\0cd", 5)}, u"ab"},
                    TextCase{{kKey, std::u16string(1, u'\0')}, u""}));

TEST(KxJsVariable, formatsADoubleUpToTheLengthOfABuffer) {
    std::u16string const longest = KxJsVariable(kKey, 2e247).valueToString();
    EXPECT_EQ(longest.size(), 255U);
    EXPECT_EQ(longest.substr(248), u".000000");
    EXPECT_EQ(KxJsVariable(kKey, -2e246).valueToString().size(), 255U);
    EXPECT_EQ(KxJsVariable(kKey, -2e247).valueToString(), u"");
    EXPECT_EQ(KxJsVariable(kKey, 2e248).valueToString(), u"");
    EXPECT_EQ(KxJsVariable(kKey, std::numeric_limits<double>::max()).valueToString(), u"");
}

TEST(KxJsVariable, formatsWithAPointInEveryLocale) {
    std::string const before = std::setlocale(LC_ALL, nullptr);
    for (char const* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "C.UTF-8"}) {
        std::setlocale(LC_ALL, name);  // where it is not installed, the locale stays
        EXPECT_EQ(KxJsVariable(kKey, 1234.5).valueToString(), u"1234.500000") << name;
    }
    std::setlocale(LC_ALL, before.c_str());
}

}  // namespace
