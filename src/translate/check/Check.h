#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "translate/Settings.h"
#include "translate/check/Findings.h"

namespace kx::translate {

/// How a formula fares, from best to worst.
enum class Verdict : std::uint8_t { same, differs, unknown, changed, fails, notAFormula };

struct CheckFinding {
    std::u16string_view code;
    Place place;
    std::u16string written;  // what the conversion makes of the part
    std::u16string text;     // what is wrong, in a sentence
    Place rewritten;         // the part that the rewriting replaces
    std::u16string rewriting;
};

struct CheckResult {
    Verdict verdict = Verdict::same;
    std::u16string javaScript;  // of the exact conversion
    std::vector<CheckFinding> findings;
    std::u16string rewriting;  // of the whole formula, where all findings have one
};

/// Compares a formula with what the exact conversion makes of it.
CheckResult check(std::u16string_view formula, Settings const& settings);

}  // namespace kx::translate
