#pragma once

#include <random>
#include <string>

#include "host/KxJsVariable.h"

/// Makes formulas over the variables A, B, C, S, T and U, mostly of what can be evaluated without
/// V8, and values for those variables that conversions treat differently. The same seed makes the
/// same formulas on every machine.
class FormulaGenerator {
  public:
    explicit FormulaGenerator(std::mt19937_64& random) : random_(random) {}

    std::u16string formula() { return expression(static_cast<int>(random_() % 4)); }
    KxJsVariable value(std::u16string const& key);

  private:
    template <class List>
    std::u16string pick(List const& list) {
        return std::u16string(list[random_() % std::size(list)]);
    }
    std::u16string expression(int depth);
    std::u16string call(int depth);
    std::u16string operand();

    std::mt19937_64& random_;
};
