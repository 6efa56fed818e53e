#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "convert/Pattern.h"

namespace kx {

/// Recursive descent over the text of a pattern. Parts of the program are fragments whose jumps
/// are relative, so that they can be put one behind the other; finish() makes them absolute.
class PatternCompiler {
  public:
    enum class Loops : std::uint8_t { keep, giveBack };

    PatternCompiler(std::u16string_view text, Loops loops) : text(text), loops(loops) {}

    /// Throws std::invalid_argument where the text is outside the accepted class.
    std::vector<Instruction> compile();

    std::vector<SymbolSet> takeSets() { return std::move(sets); }

  private:
    using Fragment = std::vector<Instruction>;

    Fragment alternatives();
    Fragment sequence();
    Fragment group();
    Fragment quantified(SymbolSet const& set);
    SymbolSet atom();
    SymbolSet characterClass();
    SymbolSet escape();
    SymbolSet literal();

    Fragment one(SymbolSet const& set);
    Fragment loop(SymbolSet const& set, std::uint16_t minimum);
    Fragment option(SymbolSet const& set);
    Instruction withSet(Instruction::Code code, SymbolSet const& set);
    Instruction split(std::ptrdiff_t target, std::ptrdiff_t other);

    bool atEnd() const { return position == text.size(); }
    bool at(char16_t unit) const { return !atEnd() && text[position] == unit; }
    bool take(char16_t unit);
    [[noreturn]] void refuse(char const* reason) const;

    std::u16string_view text;
    Loops loops;
    std::size_t position = 0;
    std::vector<SymbolSet> sets;
    std::uint16_t groups = 0;
    std::uint16_t runs = 0;
    std::uint16_t splits = 0;
    bool inGroup = false;
};

}  // namespace kx
