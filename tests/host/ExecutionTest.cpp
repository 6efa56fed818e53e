#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

#include <v8.h>

#include "ScriptHost.h"

namespace {

using Outcome = ScriptHost::Run;

TEST(Execution, countsIndicesFromZero) {
    KxJsParser host = makeHost();
    std::u16string error;
    EXPECT_EQ(host.parse(u"1+1", error), 0);
    EXPECT_EQ(host.parse(u"2+2", error), 1);
    EXPECT_EQ(host.execute(0, error), u"2");
    EXPECT_EQ(host.execute(1, error), u"4");
    EXPECT_EQ(error, u"");
}

TEST(Execution, storesEqualSourcesAgain) {
    ScriptHost host;
    EXPECT_EQ(host.parse(u"1"), 0);
    EXPECT_EQ(host.parse(u"1"), 1);
}

TEST(Execution, refusesAnIndexOutsideTheStore) {
    ScriptHost host;
    host.parse(u"1");
    for (std::int32_t const index : {-1, 1, 2, INT32_MAX, INT32_MIN}) {
        std::u16string error = u"before";
        try {
            host.host.execute(index, error);
            FAIL() << index;
        } catch (std::out_of_range const& refusal) {
            EXPECT_STREQ(refusal.what(), "invalid vector<T> subscript");
        }
        EXPECT_EQ(error, u"before");
    }
    EXPECT_EQ(host.execute(0), (Outcome{u"1", u""}));
}

TEST(Execution, leavesTheErrorAloneOnSuccess) {
    ScriptHost host;
    std::u16string error = u"before";
    std::int32_t const index = host.host.parse(u"1", error);
    EXPECT_EQ(host.host.execute(index, error), u"1");
    EXPECT_EQ(error, u"before");
}

TEST(Execution, storesNothingForASyntaxError) {
    ScriptHost host;
    EXPECT_EQ(host.parse(u"1+"), -1);
    EXPECT_EQ(host.parseError.substr(0, 18), u"Error in line: 1\r\n");
    EXPECT_EQ(host.parse(u"1"), 0);
}

TEST(Execution, countsPrologueLinesInASyntaxError) {
    ScriptHost host;
    host.bind(u"A", 1);
    host.bind(u"B", 1);
    EXPECT_EQ(host.parse(u"A+B+\n(("), -1);
    EXPECT_EQ(host.parseError.substr(0, 18), u"Error in line: 4\r\n");
}

TEST(Execution, runsAScriptAsOftenAsAsked) {
    ScriptHost host;
    host.eval(u"n = 0");
    std::int32_t const script = host.parse(u"++n");
    for (int i = 1; i <= 1000; ++i) {
        ASSERT_EQ(
            host.execute(script).result, std::u16string(u"") + [i] {
                std::string const digits = std::to_string(i);
                return std::u16string(digits.begin(), digits.end());
            }());
    }
}

TEST(Execution, reportsNotANumber) {
    ScriptHost host;
    EXPECT_EQ(host.run(u"0/0"), (Outcome{u"NaN", u"Not A Number"}));
    EXPECT_EQ(host.run(u"'BaNaNa'"), (Outcome{u"BaNaNa", u"Not A Number"}));
    EXPECT_EQ(host.run(u"'banana'"), (Outcome{u"banana", u""}));
    EXPECT_EQ(host.run(u"'nan'"), (Outcome{u"nan", u""}));
    // What the caller does not receive is not tested either.
    EXPECT_EQ(host.run(u"'a\\0NaN'"), (Outcome{u"a", u""}));
}

TEST(Execution, cutsTheResultAtZero) {
    ScriptHost host;
    EXPECT_EQ(host.eval(u"'ab\\0cd'"), u"ab");
    EXPECT_EQ(host.eval(u"'\\0'"), u"");
}

struct TextCase {
    std::u16string source;
    std::u16string result;
};

class CompletionText : public testing::TestWithParam<TextCase> {};

TEST_P(CompletionText, isTheEnginesOwn) {
    ScriptHost host;
    EXPECT_EQ(host.run(GetParam().source), (Outcome{GetParam().result, u""}));
}

INSTANTIATE_TEST_SUITE_P(
    values, CompletionText,
    testing::Values(TextCase{u"", u"undefined"}, TextCase{u";", u"undefined"},
                    TextCase{u"var a = 1", u"undefined"}, TextCase{u"null", u"null"},
                    TextCase{u"true", u"true"}, TextCase{u"-0", u"0"}, TextCase{u"1e21", u"1e+21"},
                    TextCase{u"0.1+0.2", u"0.30000000000000004"}, TextCase{u"1/0", u"Infinity"},
                    TextCase{u"[1,[2,3]]", u"1,2,3"}, TextCase{u"({})", u"[object Object]"},
                    TextCase{u"''", u""}, TextCase{u"10n**20n", u"100000000000000000000"},
                    TextCase{u"'\\ud800'", u"\xD800"}, TextCase{u"'😀'", u"😀"},
                    TextCase{u"if (true) { 5 }", u"5"}, TextCase{u"'a'+'b'.repeat(3)", u"abbb"},
                    TextCase{u"({ toString() { return 'mine'; } })", u"mine"},
                    TextCase{u"(function() { return 'called'; })", u"called"}));

TEST(Execution, failsWithTheScript) {
    ScriptHost host;
    Outcome const run = host.run(u"throw new Error('no')");
    EXPECT_EQ(run.result, u"");
    EXPECT_EQ(run.error.substr(0, 18), u"Error in line: 1\r\n");
    EXPECT_NE(run.error.find(u"Error: no\r\n"), std::u16string::npos);
}

TEST(Execution, failsWhereTheResultHasNoText) {
    ScriptHost host;
    for (std::u16string const source : {u"({ toString() { throw new Error('no text'); } })",
                                        u"Symbol('s')", u"Object.create(null)", u"ROUND"}) {
        Outcome const run = host.run(source);
        EXPECT_EQ(run.result, u"");
        EXPECT_NE(run.error, u"");
    }
    EXPECT_NE(host.run(u"ROUND").error.find(u"ReferenceError: ROUND missing argument"),
              std::u16string::npos);
}

TEST(Execution, takesAnExceptionWithoutText) {
    ScriptHost host;
    EXPECT_EQ(host.run(u"throw { toString() { throw 1; } }").error.substr(0, 20),
              u"Error in line: 1\r\n\r\n");
    EXPECT_EQ(host.run(u"throw Object.create(null)").error.substr(0, 20),
              u"Error in line: 1\r\n\r\n");
    EXPECT_EQ(host.run(u"throw Symbol('s')").error.substr(0, 20), u"Error in line: 1\r\n\r\n");
    EXPECT_EQ(host.run(u"throw undefined").error.substr(0, 29),
              u"Error in line: 1\r\nundefined\r\n");
}

TEST(Execution, worksOnAfterEndlessRecursion) {
    ScriptHost host;
    for (std::u16string const source :
         {u"(function f() { return f() + 1; })()", u"var o = { toString() { return '' + o; } }; o",
          u"var o = { get x() { return this.x; } }; o.x",
          u"var a = []; a[0] = a; for (var i = 0; i < 200000; ++i) a = [a]; JSON.stringify(a)",
          u"new Proxy({}, { get(t, k, r) { return r[k]; } }).x", u"eval('('.repeat(200000))",
          u"new RegExp('('.repeat(200000) + ')'.repeat(200000))"}) {
        EXPECT_NE(host.run(source).error, u"");
        EXPECT_EQ(host.eval(u"1+1"), u"2");
    }
}

TEST(Execution, takesSourcesOfAnyLength) {
    ScriptHost host;
    std::u16string longSource = u"0";
    for (int i = 0; i < 200000; ++i) longSource += u"+1";
    Outcome const run = host.run(longSource);  // deeper than the parser's stack, or a number
    EXPECT_TRUE(run.result == u"200000" || !run.error.empty());
    EXPECT_EQ(host.run(u"'" + std::u16string(5000000, u'x') + u"'.length").result, u"5000000");
    EXPECT_EQ(host.eval(u"1"), u"1");
}

TEST(Execution, saysThatAScriptHasDeclaredItsNamesAlready) {
    ScriptHost host;
    for (std::u16string const declaration : {u"let", u"const"}) {
        std::u16string const name = u"by_" + declaration;
        std::u16string source = declaration;
        source.append(u" ").append(name).append(u" = 5; ").append(name);
        std::int32_t const index = host.parse(source);
        EXPECT_EQ(host.execute(index), (Outcome{u"5", u""}));
        std::u16string const taken =
            u"SyntaxError: Identifier '" + name + u"' has already been declared";
        for (int i = 0; i < 3; ++i) {
            EXPECT_NE(host.execute(index).error.find(taken), std::u16string::npos);
        }
        EXPECT_EQ(host.eval(name), u"5");
    }
    std::int32_t const shape = host.parse(u"class Shape {} typeof Shape");
    EXPECT_EQ(host.execute(shape).result, u"function");
    EXPECT_NE(host.execute(shape).error, u"");
}

TEST(Execution, takesZeroesAndBrokenSurrogatesInASource) {
    ScriptHost host;
    EXPECT_EQ(host.eval(std::u16string(u"'a\0b'.length", 12)), u"3");
    EXPECT_EQ(host.eval(std::u16string(u"'") + char16_t(0xDC00) + u"'.charCodeAt(0)"), u"56320");
}

TEST(Execution, keepsTheCallersTextConversionsSymmetric) {
    ScriptHost host;
    // Inside a run only: the conversions work in the current isolate, outside of any host.
    EXPECT_EQ(host.eval(u"'\\u00e9\\u4e2d\\ud83d\\ude00'"), u"\u00e9\u4e2d\U0001F600");
}

TEST(Evaluation, givesWhatParsingAndExecutingGive) {
    ScriptHost host;
    host.bind(u"A", 5);
    for (char16_t const* const source : {u"A+1", u"'text'", u"0/0", u"throw new Error('no')",
                                         u"1 +", u"NONE", u"", u"let a = A; a"}) {
        ScriptHost other;
        other.bind(u"A", 5);
        std::u16string error;
        std::u16string const result = host.host.evaluate(source, error);
        EXPECT_EQ((ScriptHost::Run{result, error}), other.run(source));
        EXPECT_EQ(host.host.lastFailure() == nullptr, other.host.lastFailure() == nullptr);
    }
}

TEST(Evaluation, leavesTheStoreOfCompiledScriptsAsItIs) {
    ScriptHost host;
    EXPECT_EQ(host.parse(u"'first'"), 0);
    std::u16string error;
    EXPECT_EQ(host.host.evaluate(u"'between'", error), u"between");
    EXPECT_EQ(host.host.evaluate(u"throw 1", error), u"");
    EXPECT_EQ(host.parse(u"'second'"), 1);
    EXPECT_EQ(host.execute(0).result, u"first");
    EXPECT_EQ(host.execute(1).result, u"second");
}

TEST(Evaluation, keepsNoHandles) {
    ScriptHost host;
    auto const handles = [] {
        v8::HeapStatistics statistics;
        v8::Isolate::GetCurrent()->GetHeapStatistics(&statistics);
        return statistics.used_global_handles_size();
    };
    std::u16string error;
    EXPECT_EQ(host.host.evaluate(u"1", error), u"1");
    std::size_t const before = handles();
    for (int i = 0; i < 100; ++i) EXPECT_EQ(host.host.evaluate(u"2", error), u"2");
    EXPECT_EQ(handles(), before);
}

}  // namespace
