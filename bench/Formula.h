#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace bench {

/// A variable of a formula: a number, which changes by `step` from run to run, or a text.
struct Variable {
    std::string name;
    double number = 0;
    double step = 0;
    std::string text = {};

    bool isText() const { return !text.empty(); }
    double numberAt(std::uint64_t run) const { return number + step * static_cast<double>(run); }
};

/// One piece of work in the language of every peer that can do it. All texts are ASCII.
struct Formula {
    std::string javaScript;
    std::string lua = {};       ///< empty where the work cannot be said
    std::string muParser = {};  ///< empty where the work cannot be said
    std::vector<Variable> variables = {};
    bool hasManyDecimals = false;  ///< its results, whose digits not every peer writes exactly
};

/// The text of an unseen formula: `pattern` with its seven # replaced by a number made of `number`.
std::string unseen(std::string const& pattern, std::uint64_t number);

std::u16string widen(std::string const& ascii);
/// Anything but ASCII becomes a question mark.
std::string narrow(std::u16string const& text);

}  // namespace bench
