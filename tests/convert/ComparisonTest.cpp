// Compares the converter with the naive one on generated formulas, pass by pass and end to end.
//
// KXJS_COMPARISONS sets how many formulas there are, KXJS_SEED where the generator starts.
#include <cstdlib>
#include <gtest/gtest.h>

#include "ConverterPasses.h"
#include "FormulaGenerator.h"
#include "NaiveConverter.h"
#include "convert/WhiteSpaceFolding.h"

namespace {

using Pass = NaiveConverter::Pass;

std::uint64_t setting(char const* name, std::uint64_t otherwise) {
    char const* const value = std::getenv(name);
    return value == nullptr ? otherwise : std::strtoull(value, nullptr, 10);
}

std::u16string applyPass(Pass pass, std::u16string text) {
    switch (pass) {
        case Pass::operators:
            return ConverterPasses::operators(text);
        case Pass::math:
            return ConverterPasses::math(text);
        case Pass::misc:
            return ConverterPasses::misc(text);
        case Pass::strings:
            return ConverterPasses::strings(text);
        case Pass::spelling:
            return ConverterPasses::spelling(text);
        case Pass::fold:  // Converter has no function for it
            break;
    }
    kx::foldWhiteSpace(text);
    return text;
}

class Comparison : public testing::Test {
  protected:
    /// Returns the result of one pass. The test fails if the two converters differ.
    std::u16string afterPass(int pass, std::u16string const& text) {
        std::u16string result = naive.apply(static_cast<Pass>(pass), text);
        EXPECT_EQ(applyPass(static_cast<Pass>(pass), text), result)
            << "pass " << pass << " of " << testing::PrintToString(text);
        return result;
    }

    NaiveConverter naive;
};

TEST_F(Comparison, AgreesOnGeneratedFormulas) {
    std::uint64_t const count = setting("KXJS_COMPARISONS", 20000);
    FormulaGenerator generator(setting("KXJS_SEED", 1));
    std::uint64_t changed = 0;
    for (std::uint64_t i = 0; i < count && !HasFailure(); ++i) {
        std::u16string const formula = generator.next();
        std::u16string text = formula;
        for (int pass = 0; pass < NaiveConverter::passCount; ++pass) text = afterPass(pass, text);
        EXPECT_EQ(Converter::_convert(formula.c_str()), text)
            << "from " << testing::PrintToString(formula);
        if (text != formula) ++changed;
        // Compare one pass also on a text that the passes before it have not changed.
        afterPass(static_cast<int>(i % NaiveConverter::passCount), formula);
    }
    EXPECT_GT(changed, count / 2);
}

TEST_F(Comparison, AgreesOnOperatorReplacements) {
    std::mt19937_64 random(2);
    auto const textOf = [&random](std::size_t maxLength) {
        std::u16string text;
        for (std::size_t length = random() % (maxLength + 1); length > 0; --length) {
            text += u"ab'\"\\"[random() % 5];
        }
        return text;
    };
    for (int i = 0; i < 100000 && !HasFailure(); ++i) {
        std::u16string const text = textOf(14);
        std::u16string const op = textOf(2) + u"ab\\"[random() % 3];
        // A replacement that is longer by two or more is scanned again, perhaps without end.
        std::u16string const replacement = textOf(op.size() + 1);
        EXPECT_EQ(ConverterPasses::replaceOperator(text, op, replacement),
                  naive.replaceOperator(text, op, replacement))
            << testing::PrintToString(text) << ", " << testing::PrintToString(op) << ", "
            << testing::PrintToString(replacement);
    }
}

}  // namespace
