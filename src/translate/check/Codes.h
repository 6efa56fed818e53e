#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace kx::translate {

/// What the exact conversion does to a formula, by code.
enum class Code : std::uint8_t {
    equalsAssigns,
    equalsCall,
    equalsInvalid,
    geArrow,
    hash,
    contains,
    dottedLiteral,
    logicBlanks,
    notPlace,
    notTight,
    wordXor,
    powerXor,
    functionBroken,
    typeTypeof,
    argumentCut,
    nameDamaged,
    reservedName,
    textRewritten,
    textBlanks,
    textBackslash,
    textBracket,
    textQuote,
    leadingZero,
    doubleSign,
    aliasArrow,
    memberDot,
    nilName,
    dateLiteral,
    emptyArgument,
    textCompare,
    textMinus,
    functionDiffers,
    functionUnknown,
    untranslatable,  // has the name of what has no translation
    comment,
    continuation,
    other,
};

struct CodeText {
    std::u16string_view name;
    std::u16string_view written;  // what the conversion does
    std::u16string_view meant;
};

/// In the order of Code.
inline constexpr auto kCodeTexts = std::to_array<CodeText>({
    {u"EQUALS_ASSIGNS", u"\"=\" assigns to the variable", u"a comparison"},
    {u"EQUALS_CALL", u"\"=\" assigns to a call, which fails when it runs", u"a comparison"},
    {u"EQUALS_INVALID", u"\"=\" stands where JavaScript allows no assignment", u"a comparison"},
    {u"GE_ARROW", u"\">=\" becomes \"=>\", an arrow function", u"greater or equal"},
    {u"HASH", u"\"#\" stays, which is no operator of JavaScript", u"unequal"},
    {u"CONTAINS", u"\"$\" stays, which is no operator of JavaScript", u"is contained in"},
    {u"DOTTED_LITERAL", u"the word with points stays", u"a logical value or NIL"},
    {u"LOGIC_BLANKS", u"the word stays, since no blanks stand around it", u"a logical operator"},
    {u"NOT_PLACE", u"the word stays, since no blanks stand around it", u"a negation"},
    {u"NOT_TIGHT", u"\"!\" takes only the first operand", u"the negation of the whole comparison"},
    {u"WORD_XOR", u"XOR stays, which is no operator of JavaScript", u"exclusive or"},
    {u"POWER_XOR", u"\"^\" becomes exclusive or, or digits around it are torn apart", u"a power"},
    {u"FUNCTION_BROKEN", u"the function's name is cut or misspelt", u"a call of the function"},
    {u"TYPE_TYPEOF", u"TYPE becomes typeof", u"the kind letter of the text's expression"},
    {u"ARGUMENT_CUT", u"the arguments are cut at the wrong place", u"the function of both"},
    {u"NAME_DAMAGED", u"a part of the name is taken for a word", u"one name"},
    {u"RESERVED_NAME", u"the name is a reserved word of JavaScript", u"a variable"},
    {u"TEXT_REWRITTEN", u"words inside the text are rewritten", u"the text as it is"},
    {u"TEXT_BLANKS", u"white space inside the text becomes one blank", u"the text as it is"},
    {u"TEXT_BACKSLASH", u"the backslash begins an escape", u"a backslash"},
    {u"TEXT_BRACKET", u"the text in brackets becomes an array", u"a text"},
    {u"TEXT_QUOTE", u"the rules take a quote for the end or the beginning of a text",
     u"operators outside of texts, and texts as they are"},
    {u"LEADING_ZERO", u"the number becomes octal", u"a decimal number"},
    {u"DOUBLE_SIGN", u"two signs become an increment or decrement", u"an operator and a sign"},
    {u"ALIAS_ARROW", u"\"->\" stays, which is no operator of JavaScript", u"one variable"},
    {u"MEMBER_DOT", u"the point takes a property of an object", u"one variable"},
    {u"NIL_NAME", u"NIL becomes the name of a variable", u"no value"},
    {u"DATE_LITERAL", u"the date stays, which is no JavaScript", u"a date"},
    {u"EMPTY_ARGUMENT", u"nothing stands between the commas", u"an argument left out"},
    {u"TEXT_COMPARE", u"texts are compared in full",
     u"texts are compared as long as the right one goes on"},
    {u"TEXT_MINUS", u"texts are subtracted, which gives NaN", u"texts are joined"},
    {u"FUNCTION_DIFFERS", u"the installed function means something else",
     u"the function of the language"},
    {u"FUNCTION_UNKNOWN", u"the function is not installed", u"the function of the language"},
    {u"", u"stays as it is", u"has no translation either"},
    {u"COMMENT", u"the comment becomes part of the formula, or takes what follows", u"a comment"},
    {u"CONTINUATION", u"\";\" ends the statement", u"the formula goes on in the next line"},
    {u"OTHER", u"the JavaScript has another meaning", u"the formula"},
});

constexpr CodeText const& textOf(Code code) { return kCodeTexts[static_cast<std::size_t>(code)]; }

}  // namespace kx::translate
