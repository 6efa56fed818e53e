#include "cli/VariableOption.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <system_error>

#include "cli/Errors.h"
#include "cli/FormulaSource.h"

namespace kx {
namespace {

// std::from_chars reads the same text to the same number under every locale.
template <class Number>
std::optional<Number> numberFrom(std::string_view text) {
    // from_chars knows no plus sign, and must not read "+-5" as -5.
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    Number number{};
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

std::optional<std::int32_t> longFrom(std::string_view text) {
    return numberFrom<std::int32_t>(text);
}

std::optional<double> doubleFrom(std::string_view text) {
    // from_chars would also take the names of infinity and not-a-number, in any letter case.
    if (text.find_first_not_of("0123456789.eE+-") != std::string_view::npos) return std::nullopt;
    return numberFrom<double>(text);
}

std::optional<bool> booleanFrom(std::string_view text) {
    if (text == "true") return true;
    if (text == "false") return false;
    return std::nullopt;
}

[[noreturn]] void refuse(std::string const& assignment, std::string const& why) {
    throw UsageError("variable \"" + assignment + "\": " + why);
}

}  // namespace

KxJsVariable parseVariable(VariableOption option, std::string const& assignment) {
    std::size_t const equals = assignment.find('=');
    if (equals == std::string::npos) refuse(assignment, "expected NAME=VALUE");
    if (equals == 0) refuse(assignment, "there is no name before the \"=\"");

    std::string const what = "variable " + assignment.substr(0, equals);
    std::u16string const name = decodeArgument(assignment.substr(0, equals), "name of a variable");
    std::string const value = assignment.substr(equals + 1);
    bool const guess = option == VariableOption::GUESS;

    if (guess || option == VariableOption::LONG) {
        if (auto const number = longFrom(value)) return {name, *number};
        if (!guess) refuse(assignment, "the value is not a whole number of 32 bits");
    }
    if (guess || option == VariableOption::DOUBLE) {
        if (auto const number = doubleFrom(value)) return {name, *number};
        if (!guess)
            refuse(assignment, "the value is not a decimal number in the range of a double");
    }
    if (guess || option == VariableOption::BOOLEAN) {
        if (auto const boolean = booleanFrom(value)) return {name, *boolean};
        if (!guess) refuse(assignment, R"(the value is neither "true" nor "false")");
    }
    return {name, decodeArgument(value, what)};
}

}  // namespace kx
