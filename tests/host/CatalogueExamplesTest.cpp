// Every documented example is run, and must give the result that it states.
#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "../library/SplitExample.h"
#include "../library/WrongExamples.h"
#include "ScriptHost.h"
#include "library/Catalogues.h"
#include "support/EngineWords.h"

namespace {

std::string narrow(std::u16string_view text) { return {text.begin(), text.end()}; }

std::vector<std::u16string> allExamples() {
    std::vector<std::u16string> examples;
    for (auto const& catalogue :
         {buildMathFunctions(), buildStringFunctions(), buildMiscFunctions()}) {
        for (KxJsFunction const& function : catalogue) {
            examples.insert(examples.end(), function.getExamples().begin(),
                            function.getExamples().end());
        }
    }
    return examples;
}

bool isKnownAsWrong(std::u16string_view example) {
    return std::any_of(kx::test::wrongExamples.begin(), kx::test::wrongExamples.end(),
                       [example](auto const& wrong) { return wrong.example == example; });
}

TEST(CatalogueExamples, giveWhatTheyState) {
    ScriptHost host;
    int right = 0;
    for (std::u16string const& text : allExamples()) {
        if (isKnownAsWrong(text)) continue;
        auto const example = kx::test::splitExample(text);
        ASSERT_TRUE(example.has_value()) << narrow(text);
        EXPECT_EQ(host.eval(example->call), fromEnginesMath(example->result)) << narrow(text);
        ++right;
    }
    EXPECT_EQ(right + kx::test::wrongExamples.size(), allExamples().size());
}

TEST(CatalogueFunctions, refuseACallWithoutArguments) {
    ScriptHost host;
    int refused = 0;
    for (auto const& catalogue :
         {buildMathFunctions(), buildStringFunctions(), buildMiscFunctions()}) {
        for (KxJsFunction const& function : catalogue) {
            if (function.getParameters().empty()) continue;
            std::u16string const call = function.getName() + u"()";
            std::u16string const message =
                u"ReferenceError: " + function.getName() + u" missing argument";
            EXPECT_NE(host.run(call).error.find(message), std::u16string::npos) << narrow(call);
            ++refused;
        }
    }
    EXPECT_EQ(refused, 62);
}

TEST(CatalogueExamples, areWrongWhereTheyAreKnownToBe) {
    ScriptHost host;
    for (auto const& wrong : kx::test::wrongExamples) {
        SCOPED_TRACE(wrong.reason);
        auto const example = kx::test::splitExample(wrong.example);
        if (!example) continue;  // no call
        EXPECT_EQ(host.eval(example->call), wrong.actual);
        EXPECT_NE(wrong.actual, example->result);
    }
}

}  // namespace
