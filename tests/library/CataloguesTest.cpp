#include <gtest/gtest.h>

#include "library/Catalogues.h"

namespace {

struct Catalogue {
    std::u16string title;
    std::vector<KxJsFunction> (*build)();
    std::vector<std::u16string> names;
};

std::vector<Catalogue> const catalogues = {
    {u"mathematical functions",
     buildMathFunctions,
     {u"ROUND", u"LOG", u"TRUNCATE", u"FRAC", u"EVEN", u"ODD", u"SIGN", u"DEGREES", u"RADIANS",
      u"SQRT", u"LOG10", u"ANTILOG", u"POWER", u"EXP"}},
    {u"String functions",
     buildStringFunctions,
     {u"LTRIM",    u"RTRIM",   u"ALLTRIM",   u"STR",       u"STRZ",    u"CONCAT",  u"REPEAT",
      u"SPACE",    u"VAL",     u"CHAR",      u"RPAD",      u"LEFT",    u"RIGHT",   u"SUBSTR",
      u"LOCATE",   u"OCCURS",  u"IOCCURS",   u"ISALPHA",   u"ISUPPER", u"ISLOWER", u"ISDIGIT",
      u"ISXDIGIT", u"ISSPACE", u"ISGRAPH",   u"ISALNUM",   u"ISPRINT", u"ISPUNCT", u"ISCNTRL",
      u"ISASCII",  u"REPLACE", u"AT",        u"ATC",       u"RAT",     u"RATC",    u"INSERT",
      u"CHRTRAN",  u"ASCII",   u"LOWERCASE", u"UPPERCASE", u"LEN"}},
    {u"miscellaneous functions",
     buildMiscFunctions,
     {u"IIF", u"SWITCH", u"COND", u"MIN", u"MAX", u"BETWEEN", u"BUMP", u"INLIST", u"LISTFUNCT"}},
};

TEST(Catalogues, ListTheirFunctionsInOrder) {
    for (Catalogue const& catalogue : catalogues) {
        std::vector<std::u16string> names;
        for (KxJsFunction const& function : catalogue.build()) names.push_back(function.getName());
        EXPECT_EQ(names, catalogue.names);
    }
}

TEST(Catalogues, HoldCompleteRecordsUnderTheirTitle) {
    for (Catalogue const& catalogue : catalogues) {
        for (KxJsFunction const& function : catalogue.build()) {
            SCOPED_TRACE(testing::PrintToString(function.getName()));
            EXPECT_TRUE(function.isComplete());
            EXPECT_EQ(function.getCategory(), catalogue.title);
        }
    }
}

TEST(Catalogues, HaveNoTextThatBreaksTheGeneratedComment) {
    for (Catalogue const& catalogue : catalogues) {
        for (KxJsFunction const& function : catalogue.build()) {
            SCOPED_TRACE(testing::PrintToString(function.getName()));
            std::vector<std::u16string> texts = {function.getDescription(),
                                                 function.getReturnDescription()};
            for (auto const& [name, description] : function.getParameters()) {
                texts.push_back(name);
                texts.push_back(description);
            }
            for (std::u16string const& text : texts) {
                EXPECT_EQ(text.find(u"*/"), std::u16string::npos) << testing::PrintToString(text);
                EXPECT_EQ(text.find(u'{'), std::u16string::npos) << testing::PrintToString(text);
            }
            for (std::u16string const& example : function.getExamples()) {
                EXPECT_EQ(example.find(u'{'), std::u16string::npos)
                    << testing::PrintToString(example);
            }
        }
    }
}

TEST(Catalogues, AreBuiltAnewForEveryCaller) {
    auto first = buildMathFunctions();
    first.front().setName(u"CHANGED");
    EXPECT_EQ(buildMathFunctions().front().getName(), u"ROUND");
}

}  // namespace
