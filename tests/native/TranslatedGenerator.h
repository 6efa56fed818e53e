#pragma once

#include <array>
#include <string>

#include "FormulaGenerator.h"
#include "translate/KxJsTranslator.h"

/// Makes translations of formulas of the older language over the variables A, B, C, S, T and U,
/// with kinds that mostly fit where A, B and C are numbers and S, T and U are texts.
class TranslatedGenerator {
  public:
    explicit TranslatedGenerator(Choices random);

    /// A formula's JavaScript.
    std::u16string translation();

    /// The formula that was translated last.
    std::u16string const& formula() const { return formula_; }

  private:
    enum class Kind { number, text, logical };

    std::u16string expression(Kind kind, int depth);
    std::u16string leaf(Kind kind);
    std::u16string call(Kind kind, int depth);
    template <class List>
    std::u16string pick(List const& list) {
        return std::u16string(list[random_() % std::size(list)]);
    }

    Choices random_;
    std::array<KxJsTranslator, 3> translators_;
    std::u16string formula_;
};
