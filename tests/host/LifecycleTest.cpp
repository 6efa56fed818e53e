#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "ScriptHost.h"
#include "host/LibraryScript.h"

namespace {

TEST(Lifecycle, hasNoBuiltInFunctionsBeforeInitialize) {
    KxJsParser host = makeHost();
    std::u16string error;
    EXPECT_EQ(host.execute(host.parse(u"1+1", error), error), u"2");
    EXPECT_EQ(error, u"");
    EXPECT_EQ(host.execute(host.parse(u"LEN('abc')", error), error), u"");
    EXPECT_NE(error.find(u"ReferenceError: LEN is not defined"), std::u16string::npos);
}

TEST(Lifecycle, installsTheBuiltInFunctions) {
    ScriptHost host;
    EXPECT_EQ(host.eval(u"LEN('abc')"), u"3");
    EXPECT_EQ(host.eval(u"ROUND(10.523, 2)"), u"10.52");
    EXPECT_EQ(host.eval(u"IIF(1>2, 'a', 'b')"), u"b");
}

TEST(Lifecycle, installsCompleteRecordsOnly) {
    KxJsFunction complete;
    complete.setName(u"WHOLE");
    complete.setDescription(u"d");
    complete.setReturnDescription(u"r");
    complete.setBody(u"return 1;");
    KxJsFunction incomplete = complete;
    incomplete.setName(u"PARTIAL");
    complete.addExample(u"WHOLE() &rarr; 1");
    for (int list = 0; list < 3; ++list) {
        std::vector<std::vector<KxJsFunction>> lists(3);
        lists[list] = {incomplete, complete};
        std::u16string const text = kx::assembleLibrary(lists[0], lists[1], lists[2]);
        EXPECT_NE(text.find(u"function WHOLE()"), std::u16string::npos);
        EXPECT_EQ(text.find(u"PARTIAL"), std::u16string::npos);
    }
}

TEST(Lifecycle, definesTheBuiltInFunctionsAgain) {
    ScriptHost host;
    EXPECT_EQ(host.eval(u"LEN = function() { return 'mine'; }; LEN('abc')"), u"mine");
    host.eval(u"kept = 5");
    host.host.initialize();
    EXPECT_EQ(host.eval(u"LEN('abc')"), u"3");
    EXPECT_EQ(host.eval(u"kept"), u"5");
}

TEST(Lifecycle, endsWithoutRunningWhatScriptsHaveLeft) {
    auto host = std::make_unique<ScriptHost>();
    host->bind(u"A", 1);
    EXPECT_EQ(host->eval(u"Object.defineProperty(globalThis, String.fromCharCode(65),"
                         u" {set() { for (;;); }}); 1"),
              u"1");
    host.reset();
}

TEST(Lifecycle, survivesAContextWhoseGlobalsAreLocked) {
    ScriptHost host;
    EXPECT_EQ(host.eval(u"Object.defineProperty(this,'mine',{value:1}); Object.freeze(this); 1"),
              u"1");
    host.host.initialize();
    ASSERT_NE(host.host.lastFailure(), nullptr);
    EXPECT_EQ(host.host.lastFailure()->kind, KxJsFailure::Kind::RUN_ERROR);
    EXPECT_EQ(host.eval(u"LEN('abc')"), u"3");
    host.bind(u"A", 1);
    EXPECT_NE(host.run(u"A").error, u"");
    host.host.reset();
    EXPECT_EQ(host.eval(u"1+1"), u"2");
}

TEST(Lifecycle, resetForgetsVariablesAndScripts) {
    ScriptHost host;
    host.bind(u"A", 3);
    EXPECT_EQ(host.parse(u"A"), 0);
    EXPECT_EQ(host.parse(u"A+1"), 1);
    EXPECT_EQ(host.execute(1).result, u"4");
    host.host.reset();
    EXPECT_FALSE(host.host.variableExist(u"A"));
    EXPECT_THROW(host.execute(0), std::out_of_range);
    EXPECT_EQ(host.parse(u"typeof A"), 0);
    EXPECT_EQ(host.execute(0).result, u"undefined");
}

TEST(Lifecycle, resetKeepsTheContext) {
    ScriptHost host;
    host.eval(u"made = 'by a script'");
    host.host.reset();
    EXPECT_EQ(host.eval(u"made"), u"by a script");
    EXPECT_EQ(host.eval(u"LEN('abc')"), u"3");
}

TEST(Lifecycle, keepsHostsApart) {
    ScriptHost one;
    ScriptHost two;
    one.bind(u"A", 1);
    EXPECT_EQ(one.eval(u"A"), u"1");
    EXPECT_NE(two.run(u"A").error.find(u"A is not defined"), std::u16string::npos);
    two.bind(u"A", 2);
    EXPECT_EQ(two.eval(u"A"), u"2");
    EXPECT_EQ(one.eval(u"A"), u"1");
    one.eval(u"Array.prototype.extra = 1");
    EXPECT_EQ(two.eval(u"[].extra"), u"undefined");
}

TEST(Lifecycle, isDestroyedInAnyOrder) {
    auto one = std::make_unique<ScriptHost>();
    auto two = std::make_unique<ScriptHost>();
    auto three = std::make_unique<ScriptHost>();
    two.reset();
    EXPECT_EQ(three->eval(u"1+2"), u"3");
    one.reset();
    EXPECT_EQ(three->eval(u"2+2"), u"4");
    ScriptHost four;
    three.reset();
    EXPECT_EQ(four.eval(u"3+2"), u"5");
}

TEST(Lifecycle, runsPromiseJobsBeforeExecuteReturns) {
    ScriptHost host;
    EXPECT_EQ(host.eval(u"seen = 'no'; Promise.resolve().then(() => { seen = 'yes'; }); seen"),
              u"no");
    EXPECT_EQ(host.eval(u"seen"), u"yes");
}

}  // namespace
