// Parentheses, arguments, members, and what has no translation.
#include <algorithm>

#include "translate/Letters.h"
#include "translate/Parser.h"

namespace kx::translate {
namespace {

bool mayHaveMembers(NodeKind kind) {
    return kind == NodeKind::name || kind == NodeKind::call || kind == NodeKind::untranslatable ||
           kind == NodeKind::choice;
}

}  // namespace

Parser::Operand Parser::parenthesis(Token const& token) {
    take(token);
    Operand inner = expression(Binding::none);
    if (peek().type == Type::comma) inner = list(inner);
    expect(Type::close, u"\")\"");
    node(inner).isParenthesized = true;
    return {inner.node, token.place.start, end_};
}

Parser::Operand Parser::list(Operand first) {
    Children children;
    append(children, first);
    Place const sign = peek().place;
    while (takeIf(Type::comma)) append(children, expression(Binding::none));
    return addUntranslatable(u"LIST", u"several values in parentheses", sign, children,
                             first.start);
}

/// An array or a block: dates in braces are tokens.
Parser::Operand Parser::brace(Token const& token) {
    take(token);
    Token const next = scanner_.operand();
    if (next.type == Type::bar) return block(token);
    std::u16string_view const rest = scanner_.source().substr(scanner_.position());
    Children children;
    if (rest.starts_with(u"=>")) {
        Token arrow = next;
        arrow.place.end = arrow.place.start + 2;
        take(arrow);
        expect(Type::closeBrace, u"\"}\"");
    } else {
        children = arguments(Type::closeBrace);
    }
    return addUntranslatable(u"ARRAY", u"an array", token.place, children, token.place.start);
}

Parser::Operand Parser::block(Token const& opening) {
    take(scanner_.operand());
    Children children;
    while (peek().type != Type::bar) {
        append(children, expression(Binding::none));
        if (!takeIf(Type::comma)) break;
    }
    expect(Type::bar, u"\"|\"");
    if (scanner_.operand().type != Type::closeBrace) {
        do {
            append(children, expression(Binding::none));
        } while (takeIf(Type::comma));
    }
    expect(Type::closeBrace, u"\"}\"");
    return addUntranslatable(u"BLOCK", u"a code block", opening.place, children,
                             opening.place.start);
}

Parser::Operand Parser::macro(Token const& token) {
    take(token);
    Token const next = scanner_.operand();
    Children children;
    if (next.type == Type::open) {
        append(children, parenthesis(next));
    } else {
        take(expectName(u"behind \"&\""));
        // A point ends the name; a word behind it is part of the text that is put together.
        std::u16string_view const rest = scanner_.source().substr(scanner_.position());
        if (rest.starts_with(u".")) {
            std::size_t length = 1;
            scanner_.setPosition(scanner_.position() + 1);
            bool const isOperator = scanner_.operation().type == Type::binary;
            while (!isOperator && length < rest.size() && isNamePart(rest[length])) ++length;
            scanner_.setPosition(scanner_.position() + static_cast<std::uint32_t>(length) - 1);
            end_ = scanner_.position();
            isPeeked_ = false;
        }
    }
    return addUntranslatable(u"MACRO", u"a text that is evaluated at run time", token.place,
                             children, token.place.start);
}

/// ".member" and "::member".
Parser::Operand Parser::object(Token const& token) {
    if (token.type == Type::colon && token.place.end - token.place.start != 2) {
        failExpected(u"an operand", token);
    }
    take(token);
    Children children;
    member(children);
    return addUntranslatable(u"OBJECT", u"a member of an object", token.place, children,
                             token.place.start);
}

/// The name behind ":" or ".", or a macro that stands for it.
void Parser::member(Children& children) {
    Token const next = scanner_.operand();
    if (next.type == Type::macro) {
        append(children, macro(next));
    } else {
        take(expectName(u"of a member"));
    }
}

/// What follows an operand and binds more tightly than every operator.
Parser::Operand Parser::suffixes(Operand operand) {
    for (;;) {
        Token const token = peek();
        bool const hasMembers = mayHaveMembers(node(operand).kind) || node(operand).isParenthesized;
        Children children;
        switch (token.type) {
            case Type::bracket: {
                append(children, operand);
                take(token);
                Children const keys = arguments(Type::closeBracket);
                tree_.nodes[operand.node].nextSibling = keys.first;
                children.last = keys.last;
                children.count += keys.count;
                children.height = std::max(children.height, keys.height);
                operand = addUntranslatable(u"ARRAY", u"an element of an array", token.place,
                                            children, operand.start);
                break;
            }
            case Type::point:
            case Type::colon:
                if (!hasMembers) return operand;
                take(token);
                append(children, operand);
                member(children);
                operand = addUntranslatable(u"OBJECT", u"a member of an object", token.place,
                                            children, operand.start);
                break;
            case Type::arrow:
                if (!hasMembers) return operand;
                take(token);
                append(children, operand);
                append(children, prefix());
                operand = addUntranslatable(u"ALIAS_EXPRESSION", u"an expression of a work area",
                                            token.place, children, operand.start);
                break;
            case Type::open:
                if (node(operand).kind != NodeKind::untranslatable ||
                    node(operand).isParenthesized) {
                    return operand;
                }
                take(token);
                arguments(Type::close);
                operand.end = end_;
                node(operand).place.end = end_;
                break;
            case Type::macro: {
                // "NAME&X": the name is put together at run time.
                bool const isName = hasMembers && !node(operand).isParenthesized &&
                                    node(operand).kind != NodeKind::call &&
                                    node(operand).kind != NodeKind::choice;
                if (!isName || token.place.start != operand.end) return operand;
                Operand const macroName = macro(token);
                node(macroName).place.start = operand.start;
                operand = {macroName.node, operand.start, macroName.end};
                break;
            }
            default:
                return operand;
        }
    }
}

/// The arguments up to and with the closing sign. Omitted ones are nodes too, except in "()".
Parser::Children Parser::arguments(Type closing) {
    Children children;
    isPeeked_ = false;
    if (scanner_.operand().type == closing) {
        take(scanner_.operand());
        return children;
    }
    do {
        Type const next = scanner_.operand().type;
        append(children, next == Type::comma || next == closing ? omittedArgument()
                                                                : expression(Binding::none));
    } while (takeIf(Type::comma));
    closeArguments(closing);
    return children;
}

Parser::Operand Parser::omittedArgument() {
    Node omitted;
    omitted.kind = NodeKind::omitted;
    end_ = scanner_.operand().place.start;
    return add(omitted, {}, end_);
}

void Parser::closeArguments(Type closing) {
    Token const found = peek();
    if (found.type == closing) {
        take(found);
        return;
    }
    std::u16string expected = u"an operator, \",\" or ";
    failExpected(expected.append(closing == Type::close        ? u"\")\""
                                 : closing == Type::closeBrace ? u"\"}\""
                                                               : u"\"]\""),
                 found);
}

}  // namespace kx::translate
