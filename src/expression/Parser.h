/// @file
/// From the text of a JavaScript expression to its tree.
///
///     auto const parsed = kx::parseExpression(u"IIF(A>2,'OK','KO')");
///     if (auto const* expression = std::get_if<kx::Expression>(&parsed)) use(expression->root());
///
/// What is accepted is a valid script to JavaScript, and means the same there. What is refused may
/// be valid too: statements, functions, templates and the like have no tree here.
#pragma once

#include <memory>
#include <string_view>
#include <variant>

#include "expression/Expression.h"

namespace kx {

/// What the parser met first that has no tree, and where.
struct Refusal {
    enum class Reason : std::uint8_t {
        empty,              // nothing but white space
        syntaxError,        // hardly JavaScript: an operand, operator or parenthesis is missing
        statement,          // a keyword of statements, or ";" with more behind it
        function,           // "function", or an arrow with other parameters than one name
        regularExpression,  //
        templateText,       //
        objectOrArray,      // "{" or "[" where an operand begins
        increment,          // "++" or "--"
        unsupported,        // other JavaScript: "new", "in", "?.", 10n, 017, names beyond U+024F
        tooComplex,         // higher than Expression::kMaxHeight, or very long
    };

    Reason reason = Reason::syntaxError;
    Place place;
};

/// The tree of `source`, which may end in ";". Takes time and memory in proportion to its length.
/// Comments count as white space. Errors: std::bad_alloc. Threads: any.
std::variant<Expression, Refusal> parseExpression(std::u16string_view source);

class ParserLoop;

/// The same for one source after the other, with memory that stays.
class ExpressionParser {
  public:
    ExpressionParser();
    ~ExpressionParser();

    /// Null where the source is refused. Valid until the next call.
    Expression const* parse(std::u16string_view source);

  private:
    std::unique_ptr<ParserLoop> parser_;
};

}  // namespace kx
