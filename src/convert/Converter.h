#pragma once

#include <string>
#include <vector>

#include "library/Export.h"

class KxJsFunction;

/// Converts formulas of the older upper-case language into JavaScript.
///
///     std::u16string js = Converter::_convert(u"IIF(A>2 .AND. B<>0, 'OK', 'KO')");
///     // " IIF(A>2 && B!=0, 'OK', 'KO')"
///
/// `KxJsParser` does not convert on its own: convert a formula of the older language first, then
/// parse the result. The result calls built-in functions (here `IIF`), so the host that runs it has
/// to be initialized.
///
/// The formula is not parsed. It is text that a fixed list of rules rewrites, one after the other
/// (`RuleTables.h`):
///
/// 1. Operators: `.AND.` becomes `&&`, `<>` becomes `!=`, `2^3` becomes `Math.pow(2,3)`.
/// 2. Mathematical functions: `SIN(x)` becomes `Math.sin(x)`, `MOD(a,b)` becomes `( a % b )`.
/// 3. Type tests, evaluation, conditions: `IF(` becomes `IIF(`.
/// 4. String functions: `UPPER(s)` becomes `UPPERCASE(s)`.
/// 5. Names of built-in functions get their own spelling: `round (x)` becomes `ROUND(x)`.
/// 6. White space becomes single blanks, also at the start and the end.
///
/// Some results are surprising, and existing formulas depend on them. A few examples; all are in
/// docs/deliberate-behaviour.md:
///
/// - Quoted text is rewritten too: `'SIN(x)'` becomes `' Math.sin(x) '`. Only literal operators
///   such as `<>` are left alone there.
/// - Function names have no word boundary: `PRINT(x)` ends in `INT(x)`.
/// - An argument ends at the first ")", and the first of two arguments at the first ",".
/// - `x >= 1` becomes `x => 1`.
///
/// The time grows linearly with the length of the formula, whatever the formula.
///
/// Errors: std::bad_alloc only. A formula that no rule matches comes back with its white space
/// folded; there is no such thing as a formula that cannot be converted.
///
/// Threads: there is no state. Any number of threads may convert at the same time.
class KXJS_API Converter {
  public:
    /// Converters have no state, so all are alike.
    /// @{
    Converter() = default;
    Converter(Converter const&) = default;
    Converter(Converter&&) = default;
    Converter& operator=(Converter const&) = default;
    Converter& operator=(Converter&&) = default;
    ~Converter() = default;
    /// @}

    /// Returns the JavaScript text for `formula`, which is UTF-16 and ends at its first zero unit.
    /// A null pointer counts as an empty formula. The caller keeps the formula and owns the result.
    ///
    ///     Converter::_convert(u"round (x, 2)");   // "ROUND(x, 2)"
    static std::u16string _convert(char16_t const* formula);

  private:
    // The passes one by one, each in place and without the folding of white space.

    /// Applies the rules for operators and for TRUE and FALSE.
    static void _replaceUnaryOp(std::u16string& text);
    /// Applies the rules for mathematical functions.
    static void _replaceMathFunction(std::u16string& text);
    /// Applies the rules for TYPE, EVAL, IF and SWITCH.
    static void _replaceMiscFunction(std::u16string& text);
    /// Applies the rules for string functions.
    static void _replaceStringFunction(std::u16string& text);
    /// Gives calls of the built-in functions the spelling of the three catalogues.
    static void _uppercaseAllFunctions(std::u16string& text);
    /// Gives calls of the functions of one catalogue its spelling. Incomplete records are left out.
    /// Throws std::invalid_argument if a name, read as a pattern, is not supported.
    static void _uppercaseFunctions(std::u16string& text, std::vector<KxJsFunction>& catalogue);
    /// Replaces an operator outside quoted text. It is compared exactly, with regard to case.
    static void _replaceOperator(std::u16string& text, std::u16string const& op,
                                 std::u16string const& replacement);
    friend struct ConverterPasses;  // opens the single passes to tests
};
