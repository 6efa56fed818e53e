#include <gtest/gtest.h>

#include "Cases.h"
#include "ConverterPasses.h"

namespace {

auto const misc = ConverterPasses::misc;

TEST(MiscPass, RewritesEveryFunction) {
    expectAll(misc, {
                        {u"type(x)", u" typeof(x) "},
                        {u"EVAL(s)", u" eval(s) "},
                        {u"EVALUATE(s)", u" eval(s) "},
                        {u"IF(a,b,c)", u" IIF(a,b,c)"},
                        {u"iif(a>1,1,0)", u" IIF(a>1,1,0)"},
                        {u"switch(x)", u" SWITCH(x) "},
                        {u"Switch \t(x,1,2)", u" SWITCH(x,1,2) "},
                    });
}

TEST(MiscPass, RewritesOnlyTheHeadOfAConditional) {
    expectAll(misc, {
                        {u"if (a, b, c)", u" IIF(a, b, c)"},
                        {u"IF(f(a),IF(b,c),(d))", u" IIF(f(a), IIF(b,c),(d))"},
                        {u"IF(", u" IIF("},
                        {u"IIF()", u" IIF()"},
                    });
}

TEST(MiscPass, TakesTheTailOfALongerName) {
    expectAll(misc, {
                        {u"ELSEIF(a)", u"ELSE IIF(a)"},
                        {u"PROTOTYPE(a)", u"PROTO typeof(a) "},
                        {u"IIIF(a)", u"I IIF(a)"},
                    });
}

TEST(MiscPass, NeedsAnArgumentExceptForConditionals) {
    expectUnchanged(misc, {u"TYPE()", u"EVAL()", u"SWITCH()", u"SWITCH(x", u"EVALUATED(x)", u"IF"});
}

}  // namespace
