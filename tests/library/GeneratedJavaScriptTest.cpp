#include <algorithm>
#include <gtest/gtest.h>

#include "library/Catalogues.h"
#include "library/KxJsFunction.h"
#include "library/Prelude.h"
#include "support/Utf8.h"

namespace {

#define GUARD                                                     \
    u"if(arguments.length == 0 && arguments.callee.length != 0) " \
    u"throw ReferenceError(arguments.callee.name + ' missing argument');\r\n"

KxJsFunction find(std::vector<KxJsFunction> const& catalogue, std::u16string const& name) {
    auto const found = std::find_if(catalogue.begin(), catalogue.end(), [&](auto const& function) {
        return function.getName() == name;
    });
    return found == catalogue.end() ? KxJsFunction() : *found;
}

TEST(GeneratedJavaScript, OfRound) {
    EXPECT_EQ(find(buildMathFunctions(), u"ROUND").toJavaScript(),
              u"function ROUND(num, dec)\r\n"
              u"/**\r\n"
              u" * Rounds a float\r\n"
              u" * \\param num The value to round\r\n"
              u" * \\param dec The number of decimal digits to round to.\r\n"
              u" * \\return The rounded value\r\n"
              u" */{" GUARD  //
              u"return num.toFixed(Math.abs(dec));}\n");
}

TEST(GeneratedJavaScript, WithOneParameterHasNoComma) {
    EXPECT_EQ(find(buildMathFunctions(), u"SQRT").toJavaScript(),
              u"function SQRT(x)\r\n"
              u"/**\r\n"
              u" * Return the square root of a number\r\n"
              u" * \\param x A number\r\n"
              u" * \\return Return the square root of a number\r\n"
              u" */{" GUARD  //
              u"return Math.sqrt(x);}\n");
}

TEST(GeneratedJavaScript, WithoutParametersHasAnEmptyListAndNoParameterLine) {
    std::u16string const text = find(buildMiscFunctions(), u"LISTFUNCT").toJavaScript();
    std::u16string const start =
        u"function LISTFUNCT()\r\n"
        u"/**\r\n"
        u" * Show all functions\r\n"
        u" * \\return Return basic text representation for each functions\r\n"
        u" */{" GUARD  //
        u"Function.prototype.toString = oldToStringFunctionProto;";
    EXPECT_EQ(text.substr(0, start.size()), start);
    EXPECT_TRUE(text.ends_with(u"return liste;}\n"));
}

TEST(GeneratedJavaScript, TakesTextsAsTheyAre) {
    KxJsFunction function;
    function.setName(u"F");
    function.addParameter({u"{a", u"ends */ early"});
    function.setDescription(u"two\r\nlines");
    function.setReturnDescription(u"<b>bold</b>");
    function.setBody(u"return {};");
    EXPECT_EQ(function.toJavaScript(),
              u"function F({a)\r\n"
              u"/**\r\n"
              u" * two\r\nlines\r\n"
              u" * \\param {a ends */ early\r\n"
              u" * \\return <b>bold</b>\r\n"
              u" */{" GUARD  //
              u"return {};}\n");
}

TEST(GeneratedJavaScript, DependsOnNeitherExamplesNorCategory) {
    KxJsFunction plain;
    plain.setName(u"F");
    KxJsFunction adorned = plain;
    adorned.addExample(u"F() &rarr; 1");
    adorned.setCategory(u"any");
    EXPECT_EQ(plain.toJavaScript(), adorned.toJavaScript());
}

TEST(GeneratedJavaScript, OfAnEmptyRecordIsItsFrame) {
    EXPECT_EQ(KxJsFunction().toJavaScript(),
              u"function ()\r\n/**\r\n * \r\n * \\return \r\n */{" GUARD u"}\n");
}

// The file is the script that every context runs: mathematical functions, string functions, the
// prelude, miscellaneous functions.
TEST(GeneratedJavaScript, OfAllBuiltInsIsUnchanged) {
    std::u16string script;
    for (KxJsFunction const& function : buildMathFunctions()) script += function.toJavaScript();
    for (KxJsFunction const& function : buildStringFunctions()) script += function.toJavaScript();
    for (std::u16string const& statement : buildPrelude()) script += statement;
    for (KxJsFunction const& function : buildMiscFunctions()) script += function.toJavaScript();
    EXPECT_EQ(kx::test::toUtf8(script), kx::test::readBytes(KXJS_TEST_DATA "/builtins.js"));
}

}  // namespace
