#include "translate/Parser.h"

#include <algorithm>
#include <utility>

#include "text/Surrogates.h"
#include "translate/Kinds.h"
#include "translate/Letters.h"

namespace kx::translate {
namespace {

constexpr Binding tighter(Binding binding) {
    return static_cast<Binding>(static_cast<int>(binding) + 1);
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
    // "a--b" is a minus and the sign of b; signs behind that one are signs as well.
    if (sign.type == Type::increment) {
        --taken.place.end;
        signsAt_ = taken.place.end;
    }
    take(taken);
    Operand const right = expression(tighter(binding));
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

/// Within a row of signs no two are an increment.
void Parser::splitSigns(Token& token) {
    if (token.type == Type::increment) {
        bool const isPlus = scanner_.source()[token.place.start] == u'+';
        token.type = isPlus ? Type::plus : Type::minus;
        --token.place.end;
    }
    if (token.type == Type::plus || token.type == Type::minus) signsAt_ = token.place.end;
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
    Token token = scanner_.operand();
    if (token.place.start == signsAt_) splitSigns(token);
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
    std::size_t shown = std::min(text.size(), kLongest);
    if (shown < text.size() && isHighSurrogate(text[shown - 1])) --shown;
    std::u16string description = u"\"";
    description.append(text.substr(0, shown));
    if (shown < text.size()) description += u"...";
    return description += u'"';
}

void Parser::failExpected(std::u16string_view what, Token const& found) const {
    std::u16string text(what);
    throw SyntaxError{found.place, text.append(u" expected, found ").append(described(found))};
}

}  // namespace kx::translate
