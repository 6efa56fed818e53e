#pragma once

#include <array>
#include <string_view>

/// The rules of the conversion, one table for each pass, in the order in which they are applied.
///
/// Each rule sees what the rules before it wrote, so the order of the lines matters. Several rules
/// look wrong: names have no word boundary, the dots of `.AND.` match any character, an argument
/// ends at the first closing parenthesis. Formulas in use depend on the results. Do not correct
/// anything here.
namespace kx {

/// Replaces every match of an ECMAScript regular expression, whatever the case of letters. In the
/// replacement, "$1" to "$9" stand for the captured groups.
struct RegexRule {
    std::u16string_view pattern;
    std::u16string_view replacement;
};

/// One step of the operator pass: a regex rule, or a literal operator. A literal operator is
/// compared with regard to case, and quoted text is left alone.
struct OperatorStep {
    enum class Kind : unsigned char { regex, literal } kind;
    std::u16string_view from;
    std::u16string_view to;
};

inline constexpr auto kOperatorSteps = std::to_array<OperatorStep>({
    {OperatorStep::Kind::regex, uR"(\sNOT\s|\s.NOT.\s)", u" ! "},
    {OperatorStep::Kind::regex, uR"(\sAND\s|\s.AND.\s)", u" && "},
    {OperatorStep::Kind::regex, uR"(\sOR\s|\s.OR.\s)", u" || "},
    {OperatorStep::Kind::literal, u">=", u"=>"},
    {OperatorStep::Kind::literal, u"<>", u"!="},
    {OperatorStep::Kind::literal, u"/=", u"!="},
    {OperatorStep::Kind::literal, u"=<", u"<="},
    {OperatorStep::Kind::literal, u"**", u"^"},
    {OperatorStep::Kind::regex, uR"(\sXOR\s|\s.XOR.\s)", u" XOR "},
    {OperatorStep::Kind::regex, uR"((\d+.?\d*)\s*[\^]\s*(\d+.?\d*))", u" Math.pow($1,$2) "},
    {OperatorStep::Kind::regex, uR"(\sDIV\s)", u" / "},
    {OperatorStep::Kind::literal, uR"(\)", u"/"},
    {OperatorStep::Kind::regex, uR"(TRUE)", u" true "},
    {OperatorStep::Kind::regex, uR"(FALSE)", u" false "},
});

inline constexpr auto kMathRules = std::to_array<RegexRule>({
    {uR"(SIN\s*\(([^)]+)\))", u" Math.sin($1) "},
    {uR"(COS\s*\(([^)]+)\))", u" Math.cos($1) "},
    {uR"((TAN|TG)\s*\(([^)]+)\))", u" Math.tan($2) "},
    {uR"(COT\s*\(([^)]+)\))", u" (1/Math.tan($1)) "},
    {uR"((ASIN|ASN)\s*\(([^)]+)\))", u" Math.asin($2) "},
    {uR"((ACOS|ACS)\s*\(([^)]+)\))", u" Math.acos($2) "},
    {uR"((ATAN|ATN|ATG)\s*\(([^)]+)\))", u" Math.atan($2) "},
    {uR"(ATAN2\s*\(([^,]+),([^)]+)\))", u" Math.atan2($1,$2) "},
    {uR"((LOG|LN)\s*\(([^)]+)\))", u" LOG($2) "},
    {uR"(LOG10\s*\(([^)]+)\))", u" LOG($1,10) "},
    {uR"(EXP\s*\(([^)]+)\))", u" Math.exp($1) "},
    {uR"((SQRT|SQR)\s*\(([^)]+)\))", u" Math.sqrt($2) "},
    {uR"(MOD\s*\(([^,]+),([^)]+)\))", u" ( $1 % $2 ) "},
    {uR"(POWER\s*\(([^,]+),([^)]+)\))", u" Math.pow($1,Math.floor($2)) "},
    {uR"(RAND\s*\(([^)]*)\))", u" Math.random($1) "},
    {uR"((FLOOR|INT)\s*\(([^)]+)\))", u" Math.floor($2) "},
    {uR"((CEIL|CEILING)\s*\(([^)]+)\))", u" Math.ceil($2) "},
    {uR"(ABS\s*\(([^)]+)\))", u" Math.abs($1) "},
    {uR"((SIGN|SGN)\s*\(([^)]+)\))", u" SIGN($1) "},
    {uR"((DEGREES|RTOD)\s*\(([^)]+)\))", u" DEGREES($2) "},
    {uR"((RADIANS|DTOR)\s*\(([^)]+)\))", u" RADIANS($2) "},
});

inline constexpr auto kMiscRules = std::to_array<RegexRule>({
    {uR"(TYPE\s*\(([^)]+)\))", u" typeof($1) "},
    {uR"((EVAL|EVALUATE)\s*\(([^)]+)\))", u" eval($2) "},
    {uR"((IF|IIF)\s*\()", u" IIF("},
    {uR"(SWITCH\s*\(([^)]+)\))", u" SWITCH($1) "},
});

inline constexpr auto kStringRules = std::to_array<RegexRule>({
    {uR"(TRIM\s*\(([^)]+)\))", u" RTRIM($1) "},
    {uR"((L|R) RTRIM)", u"$1TRIM"},
    {uR"((REPLICATE|REPL|REPEAT)\s*\(([^,]+),([^)]+)\))", u" REPEAT($2,$3) "},
    {uR"((LEN|LENGTH)\s*\(([^)]+)\))", u" LEN($2) "},
    {uR"((UPPER|UCASE)\s*\(([^)]+)\))", u" UPPERCASE($2) "},
    {uR"((LOWER|LCASE)\s*\(([^)]+)\))", u" LOWERCASE($2) "},
    {uR"((CHAR|CHR)\s*\(([^)]+)\))", u" CHAR($2) "},
    {uR"((ASCII|ASC)\s*\(([^)]+)\))", u" ASCII($2) "},
    {uR"(LEFT\s*\(([^,]+),([^)]+)\))", u" LEFT($1, $2) "},
    {uR"(RIGHT\s*\(([^,]+),([^)]+)\))", u" RIGHT($1, $2) "},
    {uR"((SUBSTR|SUBS|SUBSTRING)\s*\(([^)]+)\))", u" SUBSTR($2) "},
    {uR"((STUFF|INSERT)\s*\(([^)]+)\))", u" INSERT($2) "},
});

/// The rule that spells a built-in function N: the pattern is N and the first text, the replacement
/// is N and the second.
inline constexpr std::u16string_view kCallTailPattern = uR"(\s*\()";
inline constexpr std::u16string_view kCallTail = u"(";

}  // namespace kx
