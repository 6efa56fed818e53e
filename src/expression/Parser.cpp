#include "expression/Parser.h"

#include <utility>

#include "expression/ParserLoop.h"

namespace kx {

std::variant<Expression, Refusal> parseExpression(std::u16string_view source) {
    ParserLoop parser;
    if (Expression* const tree = parser.parse(source)) return std::move(*tree);
    return *parser.refusal();
}

ExpressionParser::ExpressionParser() : parser_(std::make_unique<ParserLoop>()) {}
ExpressionParser::~ExpressionParser() = default;

Expression const* ExpressionParser::parse(std::u16string_view source) {
    return parser_->parse(source);
}

}  // namespace kx
