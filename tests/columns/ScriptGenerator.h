#pragma once

#include <cstdint>
#include <random>
#include <string>

/// Makes JavaScript formulas over the variables A, B, C, D and NAME, and E, left and length, which
/// are called like members: expressions, statements, and damaged ones. The same seed makes the same
/// formulas on every machine.
class ScriptGenerator {
  public:
    explicit ScriptGenerator(std::mt19937_64& random) : random_(random) {}

    std::u16string next();

  private:
    template <class List>
    std::u16string pick(List const& list) {
        return list[random_() % std::size(list)];
    }
    std::u16string expression(int depth);
    std::u16string call(int depth);
    std::u16string statement(int depth);
    std::u16string soup();

    std::mt19937_64& random_;
};
