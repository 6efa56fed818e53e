#pragma once

#include <cstdint>
#include <random>
#include <string>

/// Generates formulas for comparisons: expressions of the older language, most of them damaged at
/// random places. The same seed generates the same formulas on every machine.
class FormulaGenerator {
  public:
    explicit FormulaGenerator(std::uint64_t seed) : random_(seed) {}

    std::u16string next();

  private:
    std::size_t below(std::size_t bound) { return static_cast<std::size_t>(random_() % bound); }
    bool oneIn(std::size_t bound) { return below(bound) == 0; }
    template <class List>
    auto const& pick(List const& list) {
        return list[below(std::size(list))];
    }

    void expression(int depth);
    void operand(int depth);
    void call(int depth);
    void power();
    void number();
    void quoted();
    void soup();
    void space();
    void maybeSpace();
    void inAnyCase(std::u16string word);
    void mutate();

    std::mt19937_64 random_;
    std::u16string text_;
};
