#include "cli/formula/VariableOption.h"

#include <cstddef>

#include "cli/formula/FormulaSource.h"
#include "cli/formula/ValueText.h"
#include "cli/io/Errors.h"

namespace kx {
namespace {

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
    bool const guess = option == VariableOption::guessed;

    if (guess || option == VariableOption::wholeNumber) {
        if (auto const number = wholeNumberFrom(value)) return {name, *number};
        if (!guess) refuse(assignment, "the value is not a whole number of 32 bits");
    }
    if (guess || option == VariableOption::number) {
        if (auto const number = numberFrom(value)) return {name, *number};
        if (!guess) {
            refuse(assignment, "the value is not a decimal number in the range of a double");
        }
    }
    if (guess || option == VariableOption::boolean) {
        if (auto const boolean = booleanFrom(value)) return {name, *boolean};
        if (!guess) refuse(assignment, R"(the value is neither "true" nor "false")");
    }
    return {name, decodeArgument(value, what)};
}

}  // namespace kx
