// Names of a formula that scripts have given another meaning: results are those of records run one
// by one.
#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "ColumnsFixture.h"

namespace {

using NamesInColumns = ColumnsFixture;

TEST_F(NamesInColumns, noticeThatABuiltInFunctionWasReplaced) {
    std::vector<double> const prices = {1, 2, 3, 4, 5};
    columns.bind(u"PRICE", prices.data());
    texts(u"EVEN(PRICE)", 5);
    EXPECT_EQ(results[3], u"true");
    host.eval(u"EVEN=function(){return 'price '+PRICE;}");
    columns.evaluate(5, results.data());
    EXPECT_EQ(results[3], u"price 4");
}

TEST_F(NamesInColumns, giveWhatNamesThatScriptsHaveTakenGive) {
    host.eval(u"const PRICE=7;1");
    host.eval(u"Object.defineProperty(globalThis,'COST',{set(){},get(){return 9;}});1");
    std::vector<double> const prices = {1, 2, 3, 4};
    columns.bind(u"PRICE", prices.data());
    EXPECT_EQ(texts(u"PRICE*2", 4).failures.size(), 4U);
    columns.bind(u"COST", prices.data());
    columns.bind(u"Math", prices.data());
    std::u16string error;
    KxJsColumns others(host.host);
    others.bind(u"COST", prices.data());
    ASSERT_TRUE(others.compile(u"COST*2", error));
    others.evaluate(4, results.data());
    EXPECT_EQ(results, Texts(4, u"18"));
    KxJsColumns taken(host.host);
    taken.bind(u"Math", prices.data());
    ASSERT_TRUE(taken.compile(u"Math+1", error));
    taken.evaluate(4, results.data());
    EXPECT_EQ(results, (Texts{u"2", u"3", u"4", u"5"}));
}

TEST_F(NamesInColumns, areOutOfReachForScripts) {
    // Everything that could lead from a function to its caller, its caller's arguments, or a
    // typed array.
    host.eval(
        u"var seen='';"
        u"Math.floor=function f(x){"
        u"  try{seen+=f.caller===null?'':typeof f.caller.caller+' ';"
        u"      seen+=f.caller.caller.arguments.length;}catch(e){seen+=e.name;}"
        u"  Error.prepareStackTrace=function(e,sites){"
        u"    for(var s of sites){var g=s.getFunction();if(g&&g.arguments)"
        u"      for(var a of g.arguments)if(typeof a==='object')seen+=' reached ';}return '';};"
        u"  new Error().stack;return x;};"
        u"1");
    std::vector<double> const prices(100, 2.5);
    columns.bind(u"PRICE", prices.data());
    texts(u"Math.floor(PRICE)", 100);
    EXPECT_EQ(results[50], u"2.5");
    std::u16string const seen = host.eval(u"seen");
    EXPECT_EQ(seen.find(u"reached"), std::u16string::npos);
    EXPECT_EQ(prices, std::vector<double>(100, 2.5));
}

TEST_F(NamesInColumns, changeTheirNamesForOneRecordOnly) {
    std::vector<double> const prices = {1, 2, 3, 4};
    columns.bind(u"PRICE", prices.data());
    texts(u"var p=PRICE;PRICE=100;p", 4);
    EXPECT_EQ(results, (Texts{u"1", u"2", u"3", u"4"}));
}

// Each would show where the formula is not run in its place.
TEST_F(NamesInColumns, giveWhatOneByOneGivesWhereBuiltInsWereReplaced) {
    struct Replacement {
        char16_t const* script;
        char16_t const* formula;
    };
    for (auto const& [script, formula] : {
             Replacement{u"let eval=function(c){return !c};", u"IIF(A>1,'y','n')"},
             Replacement{u"const parseInt=function(){return A};", u"parseInt(A)"},
             Replacement{u"let Math={floor:function(){return A}};", u"Math.floor(A)"},
             Replacement{u"Math.floor=function(){return A};", u"Math.floor(A)+''"},
             Replacement{u"Math={floor:function(){return A}};", u"Math.floor(A)+''"},
             Replacement{u"String.prototype.left=function(){return A};", u"LEFT('abc',1)+''"},
             Replacement{u"String.prototype.charAt=function(){return A};", u"'abc'.charAt(1)"},
             Replacement{u"Number.prototype.toFixed=function(){return A};", u"ROUND(A,1)"},
             Replacement{u"EVEN=function(n){return A>2};", u"ODD(A)"},
             Replacement{u"Object.defineProperty(globalThis,'EVAL_COUNT',{value:0,writable:true});"
                         u"let ROUND=function(n){return ++EVAL_COUNT};",
                         u"ROUND(A)"},
         }) {
        ScriptHost replaced;
        replaced.run(script);
        std::vector<double> const values = {0, 1, 2, 3, 4, 5};
        KxJsColumns replacedColumns(replaced.host);
        replacedColumns.bind(u"A", values.data());
        std::u16string error;
        ASSERT_TRUE(replacedColumns.compile(formula, error));
        Texts inColumns(values.size());
        replacedColumns.evaluate(values.size(), inColumns.data());

        ScriptHost oneByOne;
        oneByOne.run(script);
        oneByOne.bind(u"A", 0.0);
        std::int32_t const index = oneByOne.parse(formula);
        for (std::size_t i = 0; i < values.size(); ++i) {
            oneByOne.bind(u"A", values[i]);
            EXPECT_EQ(inColumns[i], oneByOne.execute(index).result)
                << testing::PrintToString(std::u16string(formula)) << " " << i;
        }
    }
}

TEST_F(NamesInColumns, giveWhatOneByOneGivesWhereAKeyIsACarriersName) {
    std::vector<double> const values = {1, 2, 3, 4};
    columns.bind(u"A", values.data());
    columns.bind(u"A___A", values.data());
    texts(u"A+A___A", values.size());
    ScriptHost oneByOne;
    oneByOne.bind(u"A", 1.0);
    oneByOne.bind(u"A___A", 1.0);
    std::int32_t const index = oneByOne.parse(u"A+A___A");
    for (std::size_t i = 0; i < values.size(); ++i) {
        oneByOne.bind(u"A", values[i]);
        oneByOne.bind(u"A___A", values[i]);
        EXPECT_EQ(results[i], oneByOne.execute(index).result) << i;
    }
}

// Behind a point stands a member, but not behind each.
TEST_F(NamesInColumns, giveWhatOneByOneGivesWhereTheyAreCalledLikeMembers) {
    for (char16_t const* formula :
         {u"Math.max(...String(E))", u"Math.max(...E)", u"Math.abs?.(E)", u"Math.abs?. (E)",
          u"Math.E*E", u"Math\n.E*E", u"1..E+E", u"''.concat(...E+'')", u"Math?.[E]",
          u"Math.abs?.(-E)", u"017.E+/'/+E+/'/", u"E>2?.5:E", u"Math.max(E,E?.length)"}) {
        compareWithOneByOne(u"E", formula, u"");
    }
    compareWithOneByOne(u"left", u"'abcdef'.left(left)+''.concat(...left+'x')", u"");
    compareWithOneByOne(u"length", u"'abc'.length+length+Math.abs?.(length)", u"");
    compareWithOneByOne(u"undefined", u"undefined+1", u"");
    compareWithOneByOne(u"arguments", u"arguments+1", u"");
    compareWithOneByOne(u"NaN", u"NaN+1", u"");
    compareWithOneByOne(u"IIF", u"IIF+1", u"");
    compareWithOneByOne(u"Math", u"Math+1", u"");
}

TEST_F(NamesInColumns, giveWhatOneByOneGivesWhereCarriersWereReplaced) {
    for (char16_t const* script :
         {u"A___A={ouraccessor:42}",
          u"let A___A={ouraccessor:42}",
          u"A___A={get ouraccessor(){return 43}}",
          u"A___A=globalThis",
          u"A___A=new Proxy(A___A,{get(){return 44}})",
          u"A___A=new A___A.constructor()",
          u"A___A=Object.create(A___A)",
          u"A___A=[A___A]",
          u"A___A=5",
          u"delete A___A",
          u"Object.defineProperty(A___A,'ouraccessor',{value:45})",
          u"Object.defineProperty(A___A,'ouraccessor',{get(){return 46}})",
          u"delete A___A.ouraccessor;A___A.ouraccessor=47",
          u"Object.setPrototypeOf(A___A,{ouraccessor:48})",
          u"A___A.ouraccessor=49",
          u"Object.defineProperty(globalThis,'A___A',{get(){return {ouraccessor:50}}})",
          u"Object.freeze(A___A)",
          u"Object.freeze(globalThis)",
          u"let A=51",
          u"const A=52"}) {
        compareWithOneByOne(u"A", u"A*2", script);
    }
}

TEST_F(NamesInColumns, giveWhatOneByOneGivesWhereTwoCarriersWereExchanged) {
    std::vector<double> const first = {1, 2, 3, 4, 5};
    std::vector<double> const second = {10, 20, 30, 40, 50};
    columns.bind(u"A", first.data());
    columns.bind(u"B", second.data());
    texts(u"A-B", 5);
    host.run(u"var c=A___A;A___A=B___B;B___B=c");
    columns.evaluate(5, results.data());
    EXPECT_EQ(results, (Texts{u"9", u"18", u"27", u"36", u"45"}));
}

TEST_F(NamesInColumns, giveWhatOneByOneGivesWhereACarriersNameWasDeclaredBefore) {
    host.run(u"let A___A={ouraccessor:42}");
    std::vector<double> const values = {1, 2, 3, 4, 5};
    columns.bind(u"A", values.data());
    texts(u"A*2", 5);
    EXPECT_EQ(results, Texts(5, u"84"));
}

TEST_F(NamesInColumns, seeWhatTheTextsOfEarlierRecordsHaveDone) {
    std::vector<std::u16string> sources(kMany);
    sources[100] = u"IIF=function(c){return c?8:9}";
    sources[3000] = u"A___A={ouraccessor:-1}";
    std::vector<double> const numbers(kMany, 1);
    std::u16string const formula = u"IIF(SOURCE==''?A>0:SOURCE,1,2)";
    columns.bind(u"SOURCE", sources.data());
    columns.bind(u"A", numbers.data());
    texts(formula, kMany);
    Texts expected(kMany, u"8");
    std::fill_n(expected.begin(), 101, u"1");
    EXPECT_TRUE(results == expected);
    texts(u"SOURCE==''?IIF(A>0,1,2):COND(SOURCE,'done')", kMany);
    Texts then(kMany, u"8");
    then[100] = then[3000] = u"done";
    std::fill(then.begin() + 3001, then.end(), u"9");
    EXPECT_TRUE(results == then);
}

}  // namespace
