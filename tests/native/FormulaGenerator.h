#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "host/KxJsVariable.h"

/// Where generators get their choices from.
using Choices = std::function<std::uint64_t()>;

/// Makes formulas over the variables A, B, C, S, T and U, mostly of what can be evaluated without
/// V8, and values for those variables that conversions treat differently. The same
/// choices make the same formulas on every machine.
class FormulaGenerator {
  public:
    explicit FormulaGenerator(Choices random) : random_(std::move(random)) {}

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

    Choices random_;
};
