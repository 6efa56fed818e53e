#include <gtest/gtest.h>

#include "library/KxJsFunction.h"
#include "text/WhiteSpace.h"

namespace {

KxJsFunction completeFunction() {
    KxJsFunction function;
    function.setName(u"TWICE");
    function.addParameter({u"x", u"A number"});
    function.setDescription(u"Doubles a number");
    function.setReturnDescription(u"The double");
    function.setBody(u"return 2*x;");
    function.addExample(u"TWICE(2) &rarr; 4");
    return function;
}

TEST(KxJsFunction, IsEmptyWhenNew) {
    KxJsFunction const function;
    EXPECT_EQ(function.getName(), u"");
    EXPECT_EQ(function.getDescription(), u"");
    EXPECT_EQ(function.getReturnDescription(), u"");
    EXPECT_EQ(function.getBody(), u"");
    EXPECT_EQ(function.getCategory(), u"");
    EXPECT_TRUE(function.getParameters().empty());
    EXPECT_TRUE(function.getExamples().empty());
    EXPECT_FALSE(function.isComplete());
}

TEST(KxJsFunction, AcceptsNamesWithoutLowerCaseLettersAndWhiteSpace) {
    for (std::u16string const name :
         {u"LOG10", u"_X1", u"ROUND", u"{", u"42", u"\u00E9T\u00C9", u"A\u0085B", u"A\u200BB"}) {
        KxJsFunction function;
        EXPECT_TRUE(function.setName(name)) << testing::PrintToString(name);
        EXPECT_EQ(function.getName(), name);
    }
}

TEST(KxJsFunction, RefusesOtherNamesAndKeepsTheOldOne) {
    for (std::u16string const name :
         {u"", u"Round", u"round", u"ROUNDz", u"aROUND", u"MY FUNC", u" ROUND", u"ROUND ",
          u"ROUND\n", u"\tROUND", u"A\rB", u"A\u00A0B", u"A\u2028B", u"A\u3000B", u"A\uFEFFB"}) {
        KxJsFunction function;
        function.setName(u"OLD");
        EXPECT_FALSE(function.setName(name)) << testing::PrintToString(name);
        EXPECT_EQ(function.getName(), u"OLD");
    }
}

TEST(KxJsFunction, RefusesANameWithAnyWhiteSpaceOfJavaScript) {
    constexpr std::u16string_view whiteSpace =
        u"\t\n\v\f\r \u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009"
        u"\u200A\u2028\u2029\u202F\u205F\u3000\uFEFF";
    for (int unit = 0; unit <= 0xFFFF; ++unit) {
        auto const c = static_cast<char16_t>(unit);
        EXPECT_EQ(kx::isWhiteSpace(c), whiteSpace.find(c) != whiteSpace.npos) << unit;
    }
}

struct TextField {
    char const* label;
    bool (KxJsFunction::*set)(std::u16string);
    std::u16string const& (KxJsFunction::*get)() const;
};

std::vector<TextField> const documentationFields = {
    {"description", &KxJsFunction::setDescription, &KxJsFunction::getDescription},
    {"return description", &KxJsFunction::setReturnDescription,
     &KxJsFunction::getReturnDescription},
};

TEST(KxJsFunction, DescriptionsRefuseEmptyTextsAndOpeningBraces) {
    for (TextField const& field : documentationFields) {
        SCOPED_TRACE(field.label);
        KxJsFunction function;
        EXPECT_TRUE((function.*field.set)(u"Rounds }a\r\nfloat*/"));
        for (char16_t const* refused : {u"", u"{", u"{x", u"x{", u"a{b}c"}) {
            EXPECT_FALSE((function.*field.set)(refused)) << testing::PrintToString(refused);
            EXPECT_EQ((function.*field.get)(), u"Rounds }a\r\nfloat*/");
        }
        EXPECT_TRUE((function.*field.set)(u" "));
        EXPECT_EQ((function.*field.get)(), u" ");
    }
}

TEST(KxJsFunction, BodyRefusesEmptyTextsAndALeadingBraceOnly) {
    KxJsFunction function;
    EXPECT_TRUE(function.setBody(u"return {a:1};"));
    EXPECT_FALSE(function.setBody(u""));
    EXPECT_FALSE(function.setBody(u"{return 1;}"));
    EXPECT_EQ(function.getBody(), u"return {a:1};");
    EXPECT_TRUE(function.setBody(u" {return 1;}"));
    EXPECT_EQ(function.getBody(), u" {return 1;}");
}

TEST(KxJsFunction, ParametersAreAppendedWhenTheirTextsAreFit) {
    KxJsFunction function;
    EXPECT_TRUE(function.addParameter({u"num", u"The value"}));
    EXPECT_TRUE(function.addParameter({u"{odd name", u"Names are not checked for braces"}));
    EXPECT_FALSE(function.addParameter({u"", u"The value"}));
    EXPECT_FALSE(function.addParameter({u"num", u""}));
    EXPECT_FALSE(function.addParameter({u"num", u"a {brace"}));
    std::vector<KxJsFunction::Parameter> const expected = {
        {u"num", u"The value"}, {u"{odd name", u"Names are not checked for braces"}};
    EXPECT_EQ(function.getParameters(), expected);
}

TEST(KxJsFunction, ExamplesAreAppendedWhenFit) {
    KxJsFunction function;
    EXPECT_TRUE(function.addExample(u"F(1) &rarr; 2"));
    EXPECT_TRUE(function.addExample(u" "));
    EXPECT_FALSE(function.addExample(u""));
    EXPECT_FALSE(function.addExample(u"F({}) &rarr; 2"));
    std::vector<std::u16string> const expected = {u"F(1) &rarr; 2", u" "};
    EXPECT_EQ(function.getExamples(), expected);
}

TEST(KxJsFunction, CategoryTakesAnyText) {
    KxJsFunction function;
    function.setCategory(u"{any text}");
    EXPECT_EQ(function.getCategory(), u"{any text}");
    function.setCategory(u"");
    EXPECT_EQ(function.getCategory(), u"");
}

TEST(KxJsFunction, IsCompleteWithAllTextsAndAnExample) {
    EXPECT_TRUE(completeFunction().isComplete());
}

TEST(KxJsFunction, IsCompleteWithoutParametersAndCategory) {
    KxJsFunction function;
    function.setName(u"F");
    function.setDescription(u"d");
    function.setReturnDescription(u"r");
    function.setBody(u"return 1;");
    EXPECT_FALSE(function.isComplete()) << "an example is still missing";
    function.addExample(u"F()");
    EXPECT_TRUE(function.isComplete());
}

TEST(KxJsFunction, IsIncompleteWithoutAnyOneOfItsTexts) {
    enum Field { Name, Description, ReturnDescription, Body, Example };
    for (Field missing : {Name, Description, ReturnDescription, Body, Example}) {
        KxJsFunction function;
        if (missing != Name) function.setName(u"F");
        if (missing != Description) function.setDescription(u"d");
        if (missing != ReturnDescription) function.setReturnDescription(u"r");
        if (missing != Body) function.setBody(u"return 1;");
        if (missing != Example) function.addExample(u"F()");
        EXPECT_FALSE(function.isComplete()) << missing;
    }
}

TEST(KxJsFunction, CopiesAreIndependentValues) {
    KxJsFunction const original = completeFunction();
    KxJsFunction copy = original;
    copy.setName(u"OTHER");
    copy.addParameter({u"y", u"Another"});
    copy.addExample(u"OTHER(1,2) &rarr; 2");
    EXPECT_EQ(original.getName(), u"TWICE");
    EXPECT_EQ(original.getParameters().size(), 1U);
    EXPECT_EQ(original.getExamples().size(), 1U);
    EXPECT_EQ(copy.getBody(), original.getBody());
}

}  // namespace
