// Scripts see no difference between V8's built-in functions and those that a limit can end.
// Each file in data/builtins describes what it sees, in a context of V8's and in a host's.
#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

#include <v8.h>

#include "host/KxJsParser.h"
#include "support/Utf8.h"

namespace {

std::string read(std::string const& name) {
    return kx::test::readBytes(std::string(KXJS_TEST_DATA) + "/builtins/" + name);
}

std::vector<std::string> linesOf(std::u16string_view text) {
    std::istringstream stream(kx::test::toUtf8(text));
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

std::u16string textOf(v8::Isolate* isolate, v8::Local<v8::Value> value) {
    v8::String::Value const units(isolate, value);
    return {reinterpret_cast<char16_t const*>(*units), static_cast<std::size_t>(units.length())};
}

/// What `source` says in a context that has V8's own functions, and a global object of the
/// kind that hosts have.
std::u16string inTheEngine(std::string const& source) {
    v8::Isolate* const isolate = v8::Isolate::GetCurrent();
    v8::HandleScope const handles(isolate);
    v8::Local<v8::Context> const context =
        v8::Context::New(isolate, nullptr, v8::ObjectTemplate::New(isolate));
    v8::Context::Scope const entered(context);
    v8::TryCatch const capture(isolate);
    v8::Local<v8::String> text;
    v8::Local<v8::Script> script;
    v8::Local<v8::Value> result;
    if (v8::String::NewFromUtf8(isolate, source.c_str()).ToLocal(&text) &&
        v8::Script::Compile(context, text).ToLocal(&script) &&
        script->Run(context).ToLocal(&result)) {
        return textOf(isolate, result);
    }
    return u"failed: " + textOf(isolate, capture.Exception());
}

/// Without the library's functions: its prelude replaces one of V8's.
std::u16string inAHost(std::string const& source) {
    KxJsParser host;
    host.setMemoryLimit(std::size_t{2} << 30);
    std::u16string error;
    std::u16string const result = host.evaluate({source.begin(), source.end()}, error);
    return result.empty() ? u"failed: " + error : result;
}

class InterruptibleBuiltins : public testing::TestWithParam<char const*> {};

TEST_P(InterruptibleBuiltins, areLikeTheEnginesOwn) {
    std::string const source = read("describe.js") + read(GetParam());
    KxJsParser const keepsTheIsolate;
    std::vector<std::string> const expected = linesOf(inTheEngine(source));
    std::vector<std::string> const actual = linesOf(inAHost(source));
    ASSERT_GT(expected.size(), 1000U) << expected.front();
    EXPECT_EQ(actual.size(), expected.size()) << actual.back();
    int differences = 0;
    for (std::size_t i = 0; i < std::min(expected.size(), actual.size()); ++i) {
        if (actual[i] == expected[i]) continue;
        ADD_FAILURE() << actual[i] << "\nwhere V8 says\n" << expected[i];
        if (++differences == 20) break;
    }
}

INSTANTIATE_TEST_SUITE_P(Files, InterruptibleBuiltins,
                         testing::Values("arrays.js", "attributes.js", "texts.js"),
                         [](auto const& info) {
                             std::string const name = info.param;
                             return name.substr(0, name.find('.'));
                         });

}  // namespace
