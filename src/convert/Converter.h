#pragma once

#include <string>
#include <vector>

#include "library/Export.h"

class KxJsFunction;

/// Rewrites a formula of the older upper-case language into JavaScript.
///
///     std::u16string js = Converter::_convert(u"IIF(A>2 .AND. B<>0,'OK','KO')");
///     // " IIF(A>2 && B!=0,'OK','KO')"
///
/// The rewriting is purely textual: an ordered chain of rules over the whole text, quoted text
/// included where a rule does not protect it, then white space folded to single blanks. Formulas
/// written over decades depend on each of its results, the odd ones included:
/// docs/deliberate-behaviour.md lists those.
///
/// Cost grows linearly with the length of the formula, for any text.
/// Errors: std::bad_alloc only. A formula that no rule matches comes back with white space folded.
/// Threads: no state; any number of threads may convert at once.
class KXJS_API Converter {
  public:
    Converter() = default;
    Converter(Converter const&) = default;
    Converter(Converter&&) = default;
    Converter& operator=(Converter const&) = default;
    Converter& operator=(Converter&&) = default;
    ~Converter() = default;

    /// Returns the JavaScript text of `formula`, which ends at its first zero code unit. A null
    /// pointer counts as an empty formula.
    static std::u16string _convert(char16_t const* formula);

  private:
    static void _replaceUnaryOp(std::u16string& text);
    static void _replaceMathFunction(std::u16string& text);
    static void _replaceMiscFunction(std::u16string& text);
    static void _replaceStringFunction(std::u16string& text);
    static void _uppercaseAllFunctions(std::u16string& text);
    static void _uppercaseFunctions(std::u16string& text, std::vector<KxJsFunction>& catalogue);
    static void _replaceOperator(std::u16string& text, std::u16string const& op,
                                 std::u16string const& replacement);
    friend struct ConverterPasses;  // opens the single passes to tests
};
