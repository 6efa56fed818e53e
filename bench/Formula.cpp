#include "Formula.h"

#include <stdexcept>
#include <string_view>

namespace bench {

namespace {

constexpr std::string_view kPlace = "#######";
constexpr std::uint64_t kFirst = 1000000;
constexpr std::uint64_t kNumbers = 9000000;

}  // namespace

std::string unseen(std::string const& pattern, std::uint64_t number) {
    auto const at = pattern.find(kPlace);
    if (at == std::string::npos) throw std::logic_error("no place for a number in: " + pattern);
    if (number >= kNumbers) throw std::length_error("no unseen formula is left: fewer rounds");
    std::string text = pattern;
    return text.replace(at, kPlace.size(), std::to_string(kFirst + number));
}

std::u16string widen(std::string const& ascii) { return {ascii.begin(), ascii.end()}; }

std::string narrow(std::u16string const& text) {
    std::string ascii;
    for (char16_t const unit : text) ascii += unit < 0x80 ? static_cast<char>(unit) : '?';
    return ascii;
}

}  // namespace bench
