#include "cli/formula/ValueText.h"

#include <charconv>
#include <system_error>

namespace kx {
namespace {

template <class Number>
std::optional<Number> parsed(std::string_view text) {
    // from_chars accepts no plus sign. "+-5" stays invalid.
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    Number number{};
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

}  // namespace

std::optional<std::int32_t> wholeNumberFrom(std::string_view text) {
    return parsed<std::int32_t>(text);
}

std::optional<double> numberFrom(std::string_view text) {
    // from_chars would also accept "inf" and "nan", in any letter case.
    if (text.find_first_not_of("0123456789.eE+-") != std::string_view::npos) return std::nullopt;
    return parsed<double>(text);
}

std::optional<bool> booleanFrom(std::string_view text) {
    if (text == "true") return true;
    if (text == "false") return false;
    return std::nullopt;
}

}  // namespace kx
