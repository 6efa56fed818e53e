#pragma once

#include <span>
#include <string_view>

/// A source and its result where A is 5, B 2.5, S "some text" and T true.
struct Case {
    std::u16string_view source;
    std::u16string_view result;
    std::u16string_view error;  ///< as execute() or parse() gives it, or how it begins
};

/// Formulas of the older language, which are converted first.
std::span<Case const> formulaCases();

/// JavaScript, with every kind of value and of failure.
std::span<Case const> scriptCases();
