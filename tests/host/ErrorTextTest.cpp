#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>

#include "ScriptHost.h"
#include "engine/Text.h"
#include "host/ErrorText.h"
#include "support/EngineWords.h"

namespace {

TEST(ErrorText, marksTheColumnsOfTheSourceLine) {
    EXPECT_EQ(kx::composeErrorText({3, 2, 5, u"Error: x", u"a+bcd+e"}),
              u"Error in line: 3\r\nError: x\r\na+bcd+e\r\n  ^^^\r\n");
}

struct ColumnCase {
    int start;
    int end;
    std::u16string marks;
};

class Columns : public testing::TestWithParam<ColumnCase> {};

TEST_P(Columns, marks) {
    auto const& [start, end, marks] = GetParam();
    EXPECT_EQ(kx::composeErrorText({1, start, end, u"", u""}),
              u"Error in line: 1\r\n\r\n\r\n" + marks + u"\r\n");
}

INSTANTIATE_TEST_SUITE_P(all, Columns,
                         testing::Values(ColumnCase{0, 0, u""}, ColumnCase{0, 1, u"^"},
                                         ColumnCase{1, 1, u" "}, ColumnCase{3, 1, u"   "},
                                         ColumnCase{-1, -1, u""}, ColumnCase{-1, 2, u"^^^"}));

TEST(ErrorText, isTheExceptionAloneWithoutAPlace) {
    ScriptHost const host;  // makes an isolate for the thread
    v8::Isolate* const isolate = v8::Isolate::GetCurrent();
    v8::HandleScope const handles(isolate);
    v8::Local<v8::Context> const context = v8::Context::New(isolate);
    v8::Context::Scope const entered(context);
    v8::TryCatch capture(isolate);
    capture.SetCaptureMessage(false);
    isolate->ThrowException(v8::Exception::Error(kx::toV8String(isolate, u"lost")));
    ASSERT_TRUE(capture.HasCaught());
    auto const failure = kx::scriptFailureOf(isolate, context, capture);
    ASSERT_TRUE(failure.has_value());
    EXPECT_EQ(kx::errorTextOf(*failure), u"Error: lost");
}

/// Reads `errors/NAME`: the source, a line "====", and the error text with LF for CR LF.
struct Golden {
    std::u16string source;
    std::u16string error;
};

Golden readGolden(std::string const& name) {
    std::ifstream file(std::string(KXJS_TEST_DATA) + "/errors/" + name, std::ios::binary);
    std::stringstream content;
    content << file.rdbuf();
    std::string const text = content.str();
    std::size_t const border = text.find("====\n");
    EXPECT_NE(border, std::string::npos) << name << " is missing or has no border";
    if (border == std::string::npos) return {};
    Golden golden;
    golden.source.assign(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(border) - 1);
    for (char const c : text.substr(border + 5)) {
        if (c == '\n') golden.error += u'\r';
        golden.error += static_cast<char16_t>(c);
    }
    return golden;
}

class ComposedError : public testing::TestWithParam<char const*> {};

TEST_P(ComposedError, isAsRecorded) {
    Golden const golden = readGolden(GetParam());
    ScriptHost host;
    host.bind(u"price", 5);
    EXPECT_EQ(host.run(golden.source).error, inEnginesWords(golden.error));
}

INSTANTIATE_TEST_SUITE_P(files, ComposedError,
                         testing::Values("missing-name", "missing-argument", "syntax", "unfinished",
                                         "second-line", "bound-variable", "thrown-text",
                                         "inside-eval", "type-error", "tab-before-mistake",
                                         "wide-mistake", "two-lines-long-token"),
                         [](auto const& info) {
                             std::string name = info.param;
                             for (char& c : name) c = c == '-' ? '_' : c;
                             return name;
                         });

}  // namespace
