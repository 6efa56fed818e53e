#pragma once

#include <functional>
#include <string>
#include <vector>

namespace kx {

/// A formula and where it came from, for messages: "formula 2" or "standard input, line 7"; empty
/// for a formula that is the only one.
struct Formula {
    std::u16string text;
    std::string place;
};

/// Hands the formulas of a command to `use`, in order: its arguments, with the lines of standard
/// input in the place of "-", or standard input alone where there are no arguments.
///
/// Throws UsageError for text that is not UTF-8 and for a line with a zero byte, which would end
/// the formula unseen. Arguments are checked before the first is used; standard input is used line
/// by line as it comes and ends at the first bad line.
void forEachFormula(std::vector<std::string> const& arguments,
                    std::function<void(Formula const&)> const& use);

/// Decodes one argument; `what` names it in the UsageError that invalid UTF-8 throws.
std::u16string decodeArgument(std::string const& argument, std::string const& what);

}  // namespace kx
