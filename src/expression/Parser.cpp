// One loop over the source. Operators, open parentheses and calls wait on a stack of their own
// until their last operand is complete, so depth of nesting costs memory and never stack.
#include "expression/Parser.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "expression/Operators.h"
#include "expression/Scanner.h"
#include "text/Digit.h"
#include "text/NameUnits.h"
#include "text/ReservedWords.h"

namespace kx {

class Parser {
  public:
    static constexpr std::size_t kLongestSource = 65535;

    explicit Parser(std::u16string_view source) : scanner_(source) {
        // Enough for most formulas: growing would allocate again.
        expression_.nodes_.reserve(kUsualNodes);
        expression_.children_.reserve(kUsualNodes);
        expression_.texts_.reserve(source.size());
        pending_.reserve(kUsualDepth);
        values_.reserve(kUsualDepth);
    }

    std::variant<Expression, Refusal> run() {
        while (!isComplete_) {
            bool const goesOn =
                scanner_.skipBlanks() && (expectsOperand_ ? takeOperand() : takeOperator());
            if (!goesOn) return *scanner_.refusal();
        }
        return std::move(expression_);
    }

  private:
    using Reason = Refusal::Reason;

    static constexpr std::size_t kUsualNodes = 16;
    static constexpr std::size_t kUsualDepth = 8;

    /// What waits for an operand. Those before unary wait for a closing sign.
    enum class Waiting : std::uint8_t { parenthesis, call, index, condition, unary, operation };

    struct Pending {
        Waiting waiting;
        NodeKind kind;  // of the node to be made
        Operation operation;
        Binding binding;
        std::uint32_t start;
        std::uint32_t firstValue;  // of a call: its callee's place among the values
    };

    /// An operand, and its place with the parentheses around it.
    struct Value {
        std::uint32_t node;
        Place place;
    };

    bool refuse(Reason reason) { return scanner_.refuse(reason, start_); }

    bool takeOperand() {
        start_ = scanner_.position();
        char16_t const unit = scanner_.at();
        if (isDigit(unit) || (unit == u'.' && isDigit(scanner_.at(1)))) return takeNumber();
        if (scanner_.isAtEnd()) {
            bool const isEmpty = pending_.empty() && values_.empty();
            return refuse(isEmpty ? Reason::empty : Reason::syntaxError);
        }
        switch (unit) {
            case u'\'':
            case u'"':
                return takeText();
            case u'(':
                scanner_.skip();
                return wait(Waiting::parenthesis);
            case u'+':
                return scanner_.at(1) == unit ? refuse(Reason::increment)
                                              : takeUnary(Operation::plus);
            case u'-':
                return scanner_.at(1) == unit ? refuse(Reason::increment)
                                              : takeUnary(Operation::minus);
            case u'!':
                return takeUnary(Operation::logicalNot);
            case u'~':
                return takeUnary(Operation::bitNot);
            case u'/':
                return refuse(Reason::regularExpression);
            case u'`':
                return refuse(Reason::templateText);
            case u'{':
            case u'[':
                return refuse(Reason::objectOrArray);
            case u';':
                return refuse(Reason::statement);
            default:
                return takeWord();
        }
    }

    bool takeUnary(Operation operation) {
        scanner_.skip();
        return wait(Waiting::unary, NodeKind::unary, operation, Binding::unary);
    }

    bool takeNumber() {
        auto const number = scanner_.takeNumber();
        if (!number) return false;
        newTextNode(NodeKind::number, scanner_.from(start_)).number = *number;
        return addOperand();
    }

    bool takeText() {
        Node& node = newNode(NodeKind::string);
        node.textStart = textEnd();
        if (!scanner_.takeText(expression_.texts_)) return false;
        node.textLength = textEnd() - node.textStart;
        return addOperand();
    }

    bool takeWord() {
        std::u16string_view const name = scanner_.takeName();
        if (name.empty()) return false;
        ReservedWord const* const word = findReservedWord(name);
        if (word == nullptr) {
            // What begins with it may be a function.
            if (name == u"async") return refuse(Reason::function);
            newTextNode(NodeKind::name, name);
            return addOperand();
        }
        switch (word->use) {
            case WordUse::unary: {
                auto const operation = name == u"void" ? Operation::voidOf : Operation::typeOf;
                return wait(Waiting::unary, NodeKind::unary, operation, Binding::unary);
            }
            case WordUse::literal: {
                Node& node = newNode(name == u"null" ? NodeKind::null : NodeKind::boolean);
                node.number = name == u"true" ? 1 : 0;
                return addOperand();
            }
            case WordUse::statement:
                return refuse(Reason::statement);
            case WordUse::function:
                return refuse(Reason::function);
            default:
                return refuse(Reason::unsupported);
        }
    }

    bool takeOperator() {
        start_ = scanner_.position();
        if (scanner_.isAtEnd()) return finish();
        Punctuator const* const sign = scanner_.takePunctuator();
        if (sign == nullptr) return refuseWord();
        switch (sign->role) {
            case Role::binary:
                return takeBinary(*sign);
            case Role::assignment:
                return takeAssignment(sign->operation);
            case Role::arrow:
                return takeArrow();
            case Role::question:
                return reduceWhile(Binding::conditional) && wait(Waiting::condition);
            case Role::colon:
                return takeColon();
            case Role::comma:
                return takeComma(*sign);
            case Role::point:
                return takeMember();
            case Role::open:
                return takeCall();
            case Role::openIndex:
                return wait(Waiting::index, NodeKind::index);
            case Role::close:
            case Role::closeIndex:
                return takeClosing(sign->role);
            case Role::end:
                return finish();
            case Role::increment:
                return refuse(Reason::increment);
            case Role::templateText:
                return refuse(Reason::templateText);
            default:
                return refuse(Reason::unsupported);
        }
    }

    /// Behind an operand: JavaScript ends the statement at a line end.
    bool refuseWord() {
        if (scanner_.hasLineEnd()) return refuse(Reason::statement);
        if (!isLatinNameStart(scanner_.at())) return refuse(Reason::syntaxError);
        std::u16string_view const name = scanner_.takeName();
        bool const isOperator = name == u"in" || name == u"instanceof";
        return refuse(isOperator ? Reason::unsupported : Reason::syntaxError);
    }

    bool takeBinary(Punctuator const& sign) {
        bool const isPower = sign.operation == Operation::power;
        // JavaScript wants parentheses in -A**2.
        if (isPower && !pending_.empty() && pending_.back().waiting == Waiting::unary) {
            return refuse(Reason::syntaxError);
        }
        if (!reduceWhile(sign.binding, !isPower)) return false;
        return wait(Waiting::operation, NodeKind::binary, sign.operation, sign.binding);
    }

    /// Whether an assignment or an arrow function may begin with the last value.
    bool mayAssign() const {
        return pending_.empty() || pending_.back().binding <= Binding::conditional;
    }

    bool takeAssignment(Operation operation) {
        NodeKind const target = lastNode().kind;
        bool const isTarget =
            target == NodeKind::name || target == NodeKind::member || target == NodeKind::index;
        if (!isTarget || !mayAssign()) return refuse(Reason::syntaxError);
        return wait(Waiting::operation, NodeKind::assignment, operation, Binding::assignment);
    }

    bool takeArrow() {
        if (scanner_.hasLineEnd() || !mayAssign()) return refuse(Reason::syntaxError);
        if (lastNode().kind != NodeKind::name || lastNode().isParenthesized) {
            return refuse(Reason::function);
        }
        return wait(Waiting::operation, NodeKind::arrow, Operation::none, Binding::assignment);
    }

    bool takeColon() {
        if (!reduceWhile(Binding::none)) return false;
        if (pending_.empty() || pending_.back().waiting != Waiting::condition) {
            return refuse(Reason::syntaxError);
        }
        pending_.pop_back();
        return wait(Waiting::operation, NodeKind::conditional, Operation::none,
                    Binding::conditional);
    }

    bool takeComma(Punctuator const& sign) {
        if (!reduceWhile(sign.binding)) return false;
        if (pending_.empty() || pending_.back().waiting == Waiting::parenthesis ||
            pending_.back().waiting == Waiting::index) {
            return takeBinary(sign);
        }
        if (pending_.back().waiting != Waiting::call) return refuse(Reason::syntaxError);
        expectsOperand_ = true;
        return true;
    }

    bool takeMember() {
        if (!scanner_.skipBlanks()) return false;
        start_ = scanner_.position();
        std::u16string_view const name = scanner_.takeName();
        if (name.empty()) return false;
        newTextNode(NodeKind::member, name);
        return add(1, values_.back().place.start);
    }

    bool takeCall() {
        auto const callee = static_cast<std::uint32_t>(values_.size() - 1);
        std::uint32_t const start = values_.back().place.start;
        Pending const call{Waiting::call, NodeKind::call, Operation::none,
                           Binding::none, start,          callee};
        if (!wait(call) || !scanner_.skipBlanks()) return false;
        if (scanner_.at() != u')') return true;
        expectsOperand_ = false;
        return true;
    }

    bool takeClosing(Role role) {
        if (!reduceWhile(Binding::none)) return false;
        if (pending_.empty()) return refuse(Reason::syntaxError);
        Pending const opening = pending_.back();
        bool const isIndex = opening.waiting == Waiting::index;
        if (opening.waiting == Waiting::condition || isIndex != (role == Role::closeIndex)) {
            return refuse(Reason::syntaxError);
        }
        pending_.pop_back();
        if (opening.waiting == Waiting::call) {
            newNode(NodeKind::call);
            return add(values_.size() - opening.firstValue, opening.start);
        }
        if (isIndex) {
            newNode(NodeKind::index);
            return add(2, values_[values_.size() - 2].place.start);
        }
        expression_.nodes_[values_.back().node].isParenthesized = true;
        values_.back().place = {opening.start, scanner_.position()};
        return true;
    }

    /// At the end of the source or behind ";".
    bool finish() {
        bool const isEnd = scanner_.isAtEnd();
        if (!reduceWhile(Binding::none)) return false;
        if (!pending_.empty()) return refuse(Reason::syntaxError);
        if (!isEnd) {
            if (!scanner_.skipBlanks()) return false;
            if (!scanner_.isAtEnd()) return refuse(Reason::statement);
        }
        isComplete_ = true;
        return true;
    }

    bool wait(Waiting waiting, NodeKind kind = NodeKind::null,
              Operation operation = Operation::none, Binding binding = Binding::none) {
        return wait(Pending{waiting, kind, operation, binding, start_, 0});
    }

    bool wait(Pending const& pending) {
        if (pending_.size() >= Expression::kMaxHeight) return refuse(Reason::tooComplex);
        pending_.push_back(pending);
        expectsOperand_ = true;
        return true;
    }

    /// Makes the nodes of all operators that bind their last operand more tightly than one of
    /// `binding` behind it does.
    bool reduceWhile(Binding binding, bool isLeftToRight = true) {
        while (!pending_.empty() && pending_.back().waiting >= Waiting::unary) {
            Pending const top = pending_.back();
            bool const isRightToLeft = !isLeftToRight || top.binding <= Binding::conditional;
            if (top.binding < binding) break;
            if (top.binding == binding && isRightToLeft && binding != Binding::comma) break;
            pending_.pop_back();
            bool const isUnary = top.waiting == Waiting::unary;
            std::size_t const count = isUnary ? 1 : top.kind == NodeKind::conditional ? 3 : 2;
            std::uint32_t const start =
                isUnary ? top.start : values_[values_.size() - count].place.start;
            newNode(top.kind).operation = top.operation;
            if (!add(count, start, values_.back().place.end)) return false;
        }
        return true;
    }

    std::uint32_t textEnd() const { return static_cast<std::uint32_t>(expression_.texts_.size()); }

    /// A node that add() completes. Written where it stays: to copy a whole node that was written in
    /// parts just before, the processor waits until they are all in the cache.
    Node& newNode(NodeKind kind) {
        Node& node = expression_.nodes_.emplace_back();
        node.kind = kind;
        return node;
    }

    Node& newTextNode(NodeKind kind, std::u16string_view text) {
        Node& node = newNode(kind);
        node.textStart = textEnd();
        node.textLength = static_cast<std::uint32_t>(text.size());
        expression_.texts_ += text;
        return node;
    }

    Node const& lastNode() const { return expression_.nodes_[values_.back().node]; }

    bool addOperand() {
        expectsOperand_ = false;
        return add(0, start_);
    }

    bool add(std::size_t childCount, std::uint32_t start) {
        return add(childCount, start, scanner_.position());
    }

    /// Puts the new node over the last values, which become its children.
    bool add(std::size_t childCount, std::uint32_t start, std::uint32_t end) {
        Node& node = expression_.nodes_.back();
        node.place = {start, end};
        node.firstChild = static_cast<std::uint32_t>(expression_.children_.size());
        node.childCount = static_cast<std::uint32_t>(childCount);
        std::size_t const first = values_.size() - childCount;
        for (std::size_t i = first; i < values_.size(); ++i) {
            Node const& child = expression_.nodes_[values_[i].node];
            if (!mayStandBelow(child, node)) return refuse(Reason::syntaxError);
            node.height = std::max<std::uint16_t>(node.height, child.height + 1);
            expression_.children_.push_back(values_[i].node);
        }
        if (node.height > Expression::kMaxHeight) return refuse(Reason::tooComplex);
        values_.resize(first);
        auto const number = static_cast<std::uint32_t>(expression_.nodes_.size() - 1);
        values_.push_back({number, node.place});
        return true;
    }

    /// JavaScript wants parentheses where "??" meets "&&" or "||".
    static bool mayStandBelow(Node const& child, Node const& node) {
        auto const isAndOr = [](Operation operation) {
            return operation == Operation::logicalAnd || operation == Operation::logicalOr;
        };
        if (child.isParenthesized || node.kind != NodeKind::binary) return true;
        return !(node.operation == Operation::coalesce && isAndOr(child.operation)) &&
               !(isAndOr(node.operation) && child.operation == Operation::coalesce);
    }

    Scanner scanner_;
    Expression expression_;
    std::vector<Pending> pending_;
    std::vector<Value> values_;
    std::uint32_t start_ = 0;  // of the token that is looked at
    bool expectsOperand_ = true;
    bool isComplete_ = false;
};

std::variant<Expression, Refusal> parseExpression(std::u16string_view source) {
    if (source.size() > Parser::kLongestSource) return Refusal{Refusal::Reason::tooComplex, {0, 1}};
    return Parser(source).run();
}

}  // namespace kx
