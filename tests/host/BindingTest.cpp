#include <gtest/gtest.h>
#include <limits>
#include <string>

#include "ScriptHost.h"

namespace {

TEST(Binding, refusesReservedAndBlankKeys) {
    ScriptHost host;
    for (std::u16string const key : {u"ouraccessor", u"", u" ", u"  ", u"\t\n\v\f\r "}) {
        EXPECT_FALSE(host.bind(key, 1));
        EXPECT_FALSE(host.host.variableExist(key));
    }
}

TEST(Binding, acceptsEveryOtherKeyAsItStands) {
    ScriptHost host;
    for (std::u16string const key :
         {u"A", u" A", u"OURACCESSOR", u"my var", u"2x", u"\u00A0", u"\u3000", u"été"}) {
        EXPECT_TRUE(host.bind(key, 1));
        EXPECT_TRUE(host.host.variableExist(key));
    }
    EXPECT_FALSE(host.host.variableExist(u"a"));
}

TEST(Binding, tellsTheType) {
    ScriptHost host;
    EXPECT_EQ(host.host.getVariableType(u"A"), KxJsVariable::TYPE_OF_VAR_UNDEFINED);
    host.bind(u"A", 1);
    EXPECT_EQ(host.host.getVariableType(u"A"), KxJsVariable::TYPE_OF_VAR_LONG);
    host.bind(u"A", true);
    EXPECT_EQ(host.host.getVariableType(u"A"), KxJsVariable::TYPE_OF_VAR_BOOLEAN);
    EXPECT_EQ(host.host.getVariableType(u"a"), KxJsVariable::TYPE_OF_VAR_UNDEFINED);
}

TEST(Binding, givesEachTypeToScripts) {
    ScriptHost host;
    host.bind(u"L", std::numeric_limits<std::int32_t>::min());
    host.bind(u"D", 0.1);
    host.bind(u"S", u"text");
    host.bind(u"B", false);
    EXPECT_EQ(host.eval(u"typeof L + L"), u"number-2147483648");
    EXPECT_EQ(host.eval(u"typeof D + D"), u"number0.1");
    EXPECT_EQ(host.eval(u"typeof S + S"), u"stringtext");
    EXPECT_EQ(host.eval(u"typeof B + B"), u"booleanfalse");
}

TEST(Binding, readsSpecialNumbers) {
    ScriptHost host;
    host.bind(u"D", -0.0);
    EXPECT_EQ(host.eval(u"1/D"), u"-Infinity");
    host.bind(u"D", std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(host.eval(u"D!==D"), u"true");
    host.bind(u"D", std::numeric_limits<double>::max());
    EXPECT_EQ(host.eval(u"D"), u"1.7976931348623157e+308");
}

TEST(Binding, cutsATextAt255CodeUnitsAndAtZero) {
    ScriptHost host;
    host.bind(u"S", std::u16string(300, u'x'));
    EXPECT_EQ(host.eval(u"S.length"), u"255");
    host.bind(u"S", std::u16string(u"ab\0cd", 5));
    EXPECT_EQ(host.eval(u"S"), u"ab");
    host.bind(u"S", u"\U0001F600 \xD800");
    EXPECT_EQ(host.eval(u"S"), u"\U0001F600 \xD800");
}

TEST(Binding, showsANewValueToTheNextRun) {
    ScriptHost host;
    host.bind(u"A", 3);
    std::int32_t const script = host.parse(u"A*2");
    EXPECT_EQ(host.execute(script).result, u"6");
    host.bind(u"A", 1.5);
    EXPECT_EQ(host.execute(script).result, u"3");
    host.bind(u"A", u"7");
    EXPECT_EQ(host.execute(script).result, u"14");
    host.bind(u"A", true);
    EXPECT_EQ(host.execute(script).result, u"2");
}

TEST(Binding, bindsOnlyWhatExistedAtParseTime) {
    ScriptHost host;
    std::int32_t const script = host.parse(u"A");
    host.bind(u"A", 3);
    EXPECT_NE(host.execute(script).error.find(u"A is not defined"), std::u16string::npos);
    EXPECT_EQ(host.eval(u"A+1"), u"4");
    // The prologue of the other script has left its global behind.
    EXPECT_EQ(host.execute(script).result, u"3");
}

TEST(Binding, letsNoAssignmentFlowBack) {
    ScriptHost host;
    host.bind(u"x", 5);
    EXPECT_EQ(host.eval(u"x=1"), u"1");
    EXPECT_EQ(host.eval(u"x"), u"5");
    EXPECT_EQ(host.eval(u"x='text'; x"), u"text");
    EXPECT_EQ(host.eval(u"x"), u"5");
}

TEST(Binding, countsPrologueLinesOfEveryKeyThatOccurs) {
    ScriptHost host;
    host.bind(u"a", 1);
    host.bind(u"unused", 1);
    EXPECT_EQ(host.run(u"var abc=1; throw 'x'").error.substr(0, 18), u"Error in line: 2\r\n");
    EXPECT_EQ(host.run(u"'a'; throw 1").error.substr(0, 18), u"Error in line: 2\r\n");
    EXPECT_EQ(host.run(u"/*a*/ throw 1").error.substr(0, 18), u"Error in line: 2\r\n");
    EXPECT_EQ(host.run(u"void 0; null.x").error.substr(0, 18), u"Error in line: 1\r\n");
}

TEST(Binding, failsToParseWithAKeyThatIsNoName) {
    ScriptHost host;
    host.bind(u"my var", 1);
    EXPECT_EQ(host.eval(u"1"), u"1");
    EXPECT_EQ(host.parse(u"'my var'"), -1);
    EXPECT_NE(host.parseError.find(u"SyntaxError"), std::u16string::npos);
    host.host.reset();
    EXPECT_EQ(host.eval(u"'my var'"), u"my var");
}

TEST(Binding, namesCarriersByTheDoubledKey) {
    ScriptHost host;
    host.bind(u"price", 5);
    EXPECT_EQ(host.eval(u"price___price.ouraccessor + price"), u"10");
    EXPECT_EQ(host.eval(u"price; Object.keys(this).includes('price___price')"), u"true");
}

TEST(Binding, givesUndefinedWhereNoVariableIsCarried) {
    ScriptHost host;
    EXPECT_EQ(host.eval(u"typeof ouraccessor"), u"undefined");
    EXPECT_EQ(host.eval(u"String(this.ouraccessor)"), u"undefined");
    EXPECT_EQ(host.eval(u"String(Object.create(this).ouraccessor)"), u"undefined");
    host.bind(u"A", 3);
    EXPECT_EQ(host.eval(u"Object.create(A___A).ouraccessor"), u"3");
    EXPECT_EQ(host.eval(u"A___A.ouraccessor = 5; A___A.ouraccessor"), u"3");
    EXPECT_EQ(host.eval(u"kept = A___A; kept.ouraccessor"), u"3");
    host.host.reset();
    EXPECT_EQ(host.eval(u"String(kept.ouraccessor)"), u"undefined");
    EXPECT_EQ(host.eval(u"String(A___A.ouraccessor)"), u"undefined");
    host.bind(u"A", 4);
    EXPECT_EQ(host.eval(u"A + ':' + kept.ouraccessor"), u"4:undefined");
}

TEST(Binding, keepsEveryCarrierConnectedWhileTheVariableLives) {
    ScriptHost host;
    host.bind(u"A", 3);
    host.eval(u"carriers = []; A");
    for (int i = 0; i < 300; ++i) host.eval(u"carriers.push(A___A); A");
    EXPECT_EQ(host.eval(u"new Set(carriers).size"), u"300");
    host.bind(u"A", 4);
    EXPECT_EQ(host.eval(u"carriers.every(c => c.ouraccessor === 4)"), u"true");
    host.host.reset();
    EXPECT_EQ(host.eval(u"carriers.every(c => c.ouraccessor === undefined)"), u"true");
}

TEST(Binding, replacesACarrierThatAScriptHasChanged) {
    ScriptHost host;
    host.bind(u"A", 3);
    host.eval(u"A; A___A = { ouraccessor: 'forged' }");
    EXPECT_EQ(host.eval(u"A"), u"3");
    host.eval(
        u"Object.defineProperty(this, 'A___A', { get() { return { ouraccessor: 7 }; },"
        u" configurable: true })");
    EXPECT_EQ(host.eval(u"A"), u"3");
}

TEST(Binding, deletesTheGlobalsOnReset) {
    ScriptHost host;
    host.bind(u"A", 1);
    host.bind(u"B", 2);
    EXPECT_EQ(host.eval(u"A+B"), u"3");
    host.host.reset();
    EXPECT_EQ(host.eval(u"typeof A + typeof B"), u"undefinedundefined");
}

TEST(Binding, bindsInKeyOrder) {
    ScriptHost host;
    host.bind(u"b", 2);
    host.bind(u"B", 1);
    host.bind(u"a", 3);
    // Every line of the prologue can be told apart by breaking its variable's carrier name.
    EXPECT_EQ(host.eval(u"[a,b,B]; Object.keys(this).filter(k => k.length == 1).join()"), u"B,a,b");
}

TEST(Binding, breaksTheFunctionListingWithAnUpperCaseKey) {
    ScriptHost host;
    host.bind(u"price", 1);
    EXPECT_EQ(host.run(u"price; LISTFUNCT().length > 0"), (ScriptHost::Run{u"true", u""}));
    host.bind(u"A", 1);
    host.eval(u"A");
    EXPECT_NE(host.run(u"LISTFUNCT()").error.find(u"TypeError"), std::u16string::npos);
}

TEST(Binding, takesManyVariables) {
    ScriptHost host;
    std::u16string sum = u"0";
    for (char16_t first = u'a'; first <= u'z'; ++first) {
        for (char16_t second = u'a'; second <= u'z'; ++second) {
            std::u16string const key = {u'v', u'_', first, second};
            host.bind(key, 1);
            sum += u"+" + key;
        }
    }
    EXPECT_EQ(host.eval(sum), u"676");
    host.host.reset();
    EXPECT_EQ(host.eval(u"typeof v_aa"), u"undefined");
}

TEST(Binding, readsWhateverElseHasTheAccessorAsUndefined) {
    ScriptHost host;
    host.bind(u"A", 5);
    EXPECT_EQ(host.run(u"A").result, u"5");
    // An object that a script makes with a carrier's constructor carries nothing yet.
    EXPECT_EQ(host.run(u"new A___A.constructor().ouraccessor").result, u"undefined");
    EXPECT_EQ(host.run(u"class B extends A___A.constructor{};new B().ouraccessor").result,
              u"undefined");
    EXPECT_EQ(host.run(u"globalThis.ouraccessor").result, u"undefined");
    EXPECT_EQ(host.run(u"Object.getPrototypeOf(globalThis).ouraccessor").result, u"undefined");
    EXPECT_EQ(host.run(u"Object.create(globalThis).ouraccessor").result, u"undefined");
    EXPECT_EQ(host.run(u"Object.create(A___A).ouraccessor").result, u"5");
    EXPECT_EQ(host.run(u"Reflect.get(A___A,'ouraccessor',globalThis)").result, u"5");
    EXPECT_EQ(host.run(u"new Proxy(A___A,{}).ouraccessor").result, u"5");
}

TEST(Binding, seesATextThatChangesAfterItHasStayedTheSame) {
    ScriptHost host;
    host.bind(u"S", u"same");
    std::int32_t const script = host.parse(u"S+S.length");
    for (int i = 0; i < 4; ++i) EXPECT_EQ(host.execute(script).result, u"same4");
    host.bind(u"S", u"sane");
    for (int i = 0; i < 4; ++i) EXPECT_EQ(host.execute(script).result, u"sane4");
    host.bind(u"S", u"");
    for (int i = 0; i < 4; ++i) EXPECT_EQ(host.execute(script).result, u"0");
    // Scripts see a text up to its first zero, and this one differs behind it only.
    host.bind(u"S", std::u16string(u"ab\0c", 4));
    for (int i = 0; i < 4; ++i) EXPECT_EQ(host.execute(script).result, u"ab2");
    host.bind(u"S", std::u16string(u"ab\0d", 4));
    for (int i = 0; i < 4; ++i) EXPECT_EQ(host.execute(script).result, u"ab2");
    host.bind(u"S", 7);
    EXPECT_EQ(host.execute(script).result, u"NaN");
    host.bind(u"S", u"ab");
    for (int i = 0; i < 4; ++i) EXPECT_EQ(host.execute(script).result, u"ab2");
}

}  // namespace
