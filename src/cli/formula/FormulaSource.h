#pragma once

#include <functional>
#include <string>
#include <vector>

namespace kx {

/// A formula and its origin for messages: "formula 2" or "standard input, line 7", or empty where
/// there is only one formula.
struct Formula {
    std::u16string text;
    std::string place;
};

/// Calls `use` for each formula of a command, in order. The formulas are the arguments; "-" stands
/// for the lines of standard input, as does an empty list.
///
/// Throws UsageError for text that is not UTF-8, and for a line with a zero byte, which would end
/// the formula there. All arguments are checked before the first call. Standard input is read line
/// by line; the first bad line ends it.
void forEachFormula(std::vector<std::string> const& arguments,
                    std::function<void(Formula const&)> const& use);

/// Decodes an argument from UTF-8. Throws UsageError, which calls the argument `what`.
std::u16string decodeArgument(std::string const& argument, std::string const& what);

}  // namespace kx
