#include "translate/Parser.h"

#include <algorithm>
#include <utility>

#include "translate/Functions.h"
#include "translate/Kinds.h"
#include "translate/Letters.h"
#include "translate/ReservedWords.h"

namespace kx::translate {
namespace {

using Type = Token::Type;

// Together with what a level takes of the stack: less than half a megabyte.
constexpr std::uint32_t kMostNesting = 600;

constexpr Binding tighter(Binding binding) {
    return static_cast<Binding>(static_cast<int>(binding) + 1);
}

bool isReserved(std::u16string_view upperCaseName) {
    return upperCaseName == u"KX" || upperCaseName == u"OURACCESSOR";
}

bool mayHaveMembers(NodeKind kind) {
    return kind == NodeKind::name || kind == NodeKind::call || kind == NodeKind::untranslatable ||
           kind == NodeKind::choice;
}

}  // namespace

Parser::Parser(std::u16string_view source, Settings const& settings, Tree& tree,
               std::vector<Untranslatable>& findings)
    : settings_(settings),
      tree_(tree),
      findings_(findings),
      scanner_(source, {0, static_cast<std::uint32_t>(source.size())}) {}

std::optional<SyntaxError> Parser::parse() {
    tree_.clear();
    // Formulas have about so many nodes; long ones grow as they need.
    constexpr std::size_t kMostReserved = 64;
    tree_.nodes.reserve(std::min(scanner_.source().size() / 2 + 4, kMostReserved));
    try {
        if (scanner_.source().size() >= kNoNode / 2) {
            throw SyntaxError{{0, 0}, u"the formula is too long"};
        }
        whole({0, static_cast<std::uint32_t>(scanner_.source().size())});
        return std::nullopt;
    } catch (SyntaxError& error) {
        tree_.clear();
        return std::move(error);
    }
}

/// The formula in a part of the source.
Parser::Operand Parser::whole(Place part) {
    Scanner const outer = std::exchange(scanner_, Scanner(scanner_.source(), part));
    isPeeked_ = false;
    Operand const root = expression(Binding::none);
    Token const rest = peek();
    if (rest.type != Type::end) failExpected(u"an operator or the end", rest);
    scanner_ = outer;
    isPeeked_ = false;
    return root;
}

Parser::Operand Parser::expression(Binding least) {
    Operand left = prefix();
    for (;;) {
        Token const token = peek();
        if (token.type == Type::increment && isPostfix(token)) {
            take(token);
            Children children;
            append(children, left);
            left = addUntranslatable(u"ASSIGNMENT", u"a variable is changed", token.place, children,
                                     left.start);
            continue;
        }
        if (token.type != Type::binary && token.type != Type::increment) return left;
        if (traits(token.op).binding < least) return left;
        left = binary(left, token);
    }
}

Parser::Operand Parser::binary(Operand const& left, Token const& sign) {
    Binding const binding = traits(sign.op).binding;
    Token taken = sign;
    // "a--b" is a minus and the sign of b.
    if (sign.type == Type::increment) --taken.place.end;
    take(taken);
    Operand const right = expression(sign.op == Operator::assign ? binding : tighter(binding));
    Children children;
    append(children, left);
    append(children, right);
    if (sign.op == Operator::assign) {
        return addUntranslatable(u"ASSIGNMENT", u"a variable is changed", sign.place, children,
                                 left.start);
    }
    Node made;
    made.kind = NodeKind::binary;
    made.op = sign.op;
    made.sign = taken.place;
    return add(made, children, left.start);
}

/// Whether no operand stands behind "++" or "--".
bool Parser::isPostfix(Token const& increment) {
    Scanner ahead = scanner_;
    ahead.setPosition(increment.place.end);
    switch (ahead.operand().type) {
        case Type::end:
        case Type::close:
        case Type::closeBracket:
        case Type::closeBrace:
        case Type::comma:
        case Type::other:
            return true;
        default:
            return false;
    }
}

void Parser::descend() {
    if (depth_ > kMostNesting) {
        throw SyntaxError{{scanner_.position(), scanner_.position()}, u"formula too deeply nested"};
    }
    ++depth_;
}

Parser::Operand Parser::prefix() {
    descend();
    Operand const result = operand();
    --depth_;
    return result;
}

Parser::Operand Parser::operand() {
    Token const token = scanner_.operand();
    switch (token.type) {
        case Type::number:
            return suffixes(leaf(token, NodeKind::number));
        case Type::text:
            return suffixes(leaf(token, NodeKind::text));
        case Type::date:
            return suffixes(leaf(token, NodeKind::date));
        case Type::logical:
            return suffixes(leaf(token, NodeKind::logical));
        case Type::nil:
            return suffixes(leaf(token, NodeKind::nil));
        case Type::dateWithTime:
            take(token);
            return addUntranslatable(u"DATE_TIME", u"a date with a time", token.place, {},
                                     token.place.start);
        case Type::ambiguousDate:
            take(token);
            return addUntranslatable(u"DATE_AMBIGUOUS",
                                     u"a date whose order of day and month depends on a setting",
                                     token.place, {}, token.place.start);
        case Type::word:
            return suffixes(nameOrCall(token));
        case Type::negation:
            return negation(token);
        case Type::plus:
        case Type::minus:
            return sign(token);
        case Type::increment:
            return increment(token);
        case Type::open:
            return suffixes(parenthesis(token));
        case Type::brace:
            return suffixes(brace(token));
        case Type::macro:
            return suffixes(macro(token));
        case Type::reference: {
            take(token);
            Children children;
            append(children, prefix());
            return addUntranslatable(u"REFERENCE", u"a variable passed by reference", token.place,
                                     children, token.place.start);
        }
        case Type::point:
        case Type::colon:
            return suffixes(object(token));
        default:
            failExpected(u"an operand", token);
    }
}

Parser::Operand Parser::leaf(Token const& token, NodeKind kind) {
    take(token);
    Node made;
    made.kind = kind;
    made.number = token.number;
    made.scale = token.scale;
    made.isNegative = kind == NodeKind::logical && !token.isTrue;
    made.isEscaped = token.isEscaped;
    made.sign = token.content;
    return add(made, {}, token.place.start);
}

Parser::Operand Parser::sign(Token const& token) {
    take(token);
    Children children;
    append(children, prefix());
    Node made;
    made.kind = NodeKind::sign;
    made.isNegative = token.type == Type::minus;
    made.sign = token.place;
    return add(made, children, token.place.start);
}

/// Takes a whole comparison, wherever it stands.
Parser::Operand Parser::negation(Token const& token) {
    take(token);
    Children children;
    append(children, expression(Binding::equality));
    Node made;
    made.kind = NodeKind::negation;
    made.sign = token.place;
    return add(made, children, token.place.start);
}

Parser::Operand Parser::increment(Token const& token) {
    take(token);
    Children children;
    append(children, prefix());
    return addUntranslatable(u"ASSIGNMENT", u"a variable is changed", token.place, children,
                             token.place.start);
}

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

/// A variable, with what "->" and "." put in front of it; or a call.
Parser::Operand Parser::name(Token const& first) {
    Node made;
    made.kind = NodeKind::name;
    made.sign = first.place;
    storeUpperCase(made, scanner_.text(first.place));
    bool isFirst = true;
    for (;; isFirst = false) {
        Token const link = peek();
        if (link.type != Type::arrow && link.type != Type::point) break;
        bool const isArrow = link.type == Type::arrow;
        take(link);
        Token const next = scanner_.operand();
        if ((isArrow && next.type == Type::open) || next.type == Type::macro) {
            Children children;
            append(children, prefix());
            return isArrow ? addUntranslatable(u"ALIAS_EXPRESSION", u"an expression of a work area",
                                               link.place, children, first.place.start)
                           : addUntranslatable(u"OBJECT", u"a member of an object", link.place,
                                               children, first.place.start);
        }
        take(expectName(isArrow ? u"behind \"->\"" : u"behind the point"));
        std::u16string_view const prefix = tree_.text(made);
        bool const isDropped =
            isFirst && (prefix == u"M" || (isArrow && (prefix == u"MEMVAR" || prefix == u"FIELD" ||
                                                       prefix == u"_FIELD")));
        if (isDropped) {
            tree_.texts.resize(made.textStart);
            made.textLength = 0;
        } else {
            tree_.texts += u'$';
            ++made.textLength;
        }
        (isArrow ? made.hasArrow : made.hasPoint) = true;
        std::u16string_view const part =
            scanner_.source().substr(next.place.start, end_ - next.place.start);
        for (char16_t const unit : part) tree_.texts += upperCase(unit);
        made.textLength += static_cast<std::uint32_t>(part.size());
    }
    if (peek().type == Type::open) {
        Token const open = peek();
        take(open);
        Children const children = arguments(Type::close);
        bool const isObject = !made.hasArrow;
        return addUntranslatable(isObject ? u"OBJECT" : u"ALIAS_EXPRESSION",
                                 isObject ? u"a method of an object" : u"a function of a work area",
                                 first.place, children, first.place.start);
    }
    if (isReserved(tree_.text(made))) {
        std::u16string text = u"the name ";
        text.append(tree_.text(made)).append(u" is reserved");
        return addUntranslatable(u"RESERVED_NAME", text, first.place, {}, first.place.start);
    }
    auto const known = settings_.variables.find(tree_.text(made));
    if (known != settings_.variables.end()) {
        if (isReservedWord(known->second.key)) {
            std::u16string text = u"the name ";
            text.append(known->second.key).append(u" is a reserved word of JavaScript");
            return addUntranslatable(u"RESERVED_NAME", text, first.place, {}, first.place.start);
        }
        made.valueKind = known->second.kind;
    } else if (settings_.isStrict) {
        std::u16string text = u"unknown name ";
        text.append(tree_.text(made));
        return addUntranslatable(u"NAME_UNKNOWN", text, first.place, {}, first.place.start);
    }
    return add(made, {}, first.place.start);
}

Parser::Operand Parser::call(Token const& name) {
    take(peek());
    Children const children = arguments(Type::close);
    return finishCall(name, children);
}

Parser::Operand Parser::nameOrCall(Token const& word) {
    take(word);
    return peek().type == Type::open ? call(word) : name(word);
}

Parser::Operand Parser::finishCall(Token const& name, Children const& children) {
    Node made;
    made.kind = NodeKind::call;
    made.sign = name.place;
    storeUpperCase(made, scanner_.text(name.place));
    std::u16string const upper(tree_.text(made));
    bool const isChoice = upper == u"IIF" || upper == u"IF";
    FunctionName const meaning = isChoice ? FunctionName{} : findFunction(upper);
    if (isChoice) {
        made.kind = NodeKind::choice;
        return add(made, children, name.place.start);
    }
    if (upper == u"TYPE") return typeOf(name, children);
    std::u16string text;
    switch (meaning.meaning) {
        case FunctionName::Meaning::language:
            made.callee = Callee::language;
            made.function = meaning.function;
            break;
        case FunctionName::Meaning::installed:
            made.callee = Callee::installed;
            break;
        case FunctionName::Meaning::cases:
            made.callee = Callee::cases;
            break;
        case FunctionName::Meaning::evaluation:
            return addUntranslatable(u"MACRO", u"a text that is evaluated at run time", name.place,
                                     children, name.place.start);
        case FunctionName::Meaning::ambiguous:
            text = u"several functions begin with " + upper;
            return addUntranslatable(u"AMBIGUOUS_NAME", text, name.place, children,
                                     name.place.start);
        case FunctionName::Meaning::unknown:
            if (settings_.functions.find(upper) == settings_.functions.end()) {
                text = u"unknown function " + upper;
                findings_.push_back({u"FUNCTION_UNKNOWN", name.place, kNoNode, text});
            } else {
                made.callee = Callee::host;
            }
            break;
    }
    return add(made, children, name.place.start);
}

/// TYPE of a text literal: the expression in the text is parsed where it stands.
Parser::Operand Parser::typeOf(Token const& name, Children const& arguments) {
    bool const isText = arguments.count == 1 &&
                        tree_.nodes[arguments.first].kind == NodeKind::text &&
                        !tree_.nodes[arguments.first].isEscaped;
    if (!isText) {
        return addUntranslatable(u"TYPE_TEXT", u"TYPE of what is no text literal", name.place,
                                 arguments, name.place.start);
    }
    Place const content = tree_.nodes[arguments.first].sign;
    std::uint32_t const end = end_;
    std::uint32_t const depth = depth_;
    Scanner const outer = scanner_;
    std::size_t const findingCount = findings_.size();
    std::size_t const nodeCount = tree_.nodes.size();
    Children children;
    try {
        append(children, whole(content));
    } catch (SyntaxError const& error) {
        if (depth_ > kMostNesting) throw;
        // Its evaluation would fail: the kind is "U", and there is no child.
        scanner_ = outer;
        isPeeked_ = false;
        depth_ = depth;
        findings_.resize(findingCount);
        tree_.nodes.resize(nodeCount);
        children = {};
    }
    end_ = end;
    Node made;
    made.kind = NodeKind::type;
    made.sign = name.place;
    made.valueKind = Kind::text;
    return add(made, children, name.place.start);
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

/// Up to and with the closing sign. Missing ones are nodes too, but for "()".
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

Token Parser::peek() {
    if (!isPeeked_) {
        peeked_ = scanner_.operation();
        isPeeked_ = true;
    }
    return peeked_;
}

void Parser::take(Token const& token) {
    scanner_.setPosition(token.place.end);
    end_ = token.place.end;
    isPeeked_ = false;
}

bool Parser::takeIf(Type type) {
    Token const token = peek();
    if (token.type != type) return false;
    take(token);
    return true;
}

void Parser::expect(Type type, std::u16string_view sign) {
    Token const token = peek();
    if (token.type != type) {
        std::u16string expected = u"an operator or ";
        failExpected(expected.append(sign), token);
    }
    take(token);
}

/// A name that is a member or the like: words with a meaning elsewhere are names here.
Token Parser::expectName(std::u16string_view where) {
    Token token = scanner_.operand();
    std::u16string_view const source = scanner_.source();
    bool const isWord = token.place.start < token.place.end &&
                        isNameStart(source[token.place.start]) && token.type != Type::text &&
                        token.type != Type::date;
    if (!isWord) {
        std::u16string expected = u"a name ";
        failExpected(expected.append(where), token);
    }
    token.type = Type::word;
    return token;
}

void Parser::append(Children& children, Operand const& child) {
    if (children.first == kNoNode) {
        children.first = child.node;
    } else {
        tree_.nodes[children.last].nextSibling = child.node;
    }
    children.last = child.node;
    ++children.count;
    children.height = std::max(children.height, tree_.nodes[child.node].height);
}

Parser::Operand Parser::add(Node node, Children const& children, std::uint32_t start) {
    node.place = {start, end_};
    node.firstChild = children.first;
    node.childCount = children.count;
    if (children.count > 0 || node.kind == NodeKind::call || node.kind == NodeKind::choice) {
        node.height = static_cast<std::uint16_t>(children.height + 1);
    }
    if (node.height > kMostHeight) {
        throw SyntaxError{node.sign, u"formula too deeply nested"};
    }
    inferKind(tree_, node);
    tree_.nodes.push_back(node);
    return {static_cast<NodeIndex>(tree_.nodes.size() - 1), start, end_};
}

Parser::Operand Parser::addUntranslatable(std::u16string_view code, std::u16string_view text,
                                          Place sign, Children const& children,
                                          std::uint32_t start) {
    findings_.push_back(
        {code, sign, static_cast<NodeIndex>(tree_.nodes.size()), std::u16string(text)});
    Node made;
    made.kind = NodeKind::untranslatable;
    made.sign = sign;
    return add(made, children, start);
}

void Parser::storeUpperCase(Node& node, std::u16string_view text) {
    node.textStart = static_cast<std::uint32_t>(tree_.texts.size());
    node.textLength = static_cast<std::uint32_t>(text.size());
    for (char16_t const unit : text) tree_.texts += upperCase(unit);
}

std::u16string Parser::described(Token const& token) const {
    if (token.type == Type::end) return u"the end";
    std::uint32_t end = token.place.end;
    if (token.type == Type::other) {
        while (end < scanner_.source().size() && isNamePart(scanner_.source()[end])) ++end;
        if (!isNamePart(scanner_.source()[token.place.start])) end = token.place.end;
    }
    constexpr std::size_t kLongest = 24;
    std::u16string_view const text = scanner_.text({token.place.start, end});
    std::u16string description = u"\"";
    description.append(text.substr(0, kLongest));
    if (text.size() > kLongest) description += u"...";
    return description += u'"';
}

void Parser::failExpected(std::u16string_view what, Token const& found) const {
    std::u16string text(what);
    throw SyntaxError{found.place, text.append(u" expected, found ").append(described(found))};
}

}  // namespace kx::translate
