#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "expression/Operators.h"
#include "expression/Parser.h"
#include "expression/Scanner.h"
#include "expression/TreeBuilder.h"
#include "text/Digit.h"
#include "text/NameUnits.h"
#include "text/ReservedWords.h"

namespace kx {

/// One loop over the source. Operators, open parentheses and calls wait on a stack of their own
/// until their last operand is complete, so depth of nesting costs memory and never stack.
///
/// The bodies are here so that both parsers can inline them: that is faster than to compile them
/// once for both.
class ParserLoop {
  public:
    ParserLoop() = default;
    virtual ~ParserLoop() = default;
    ParserLoop(ParserLoop const&) = delete;
    ParserLoop& operator=(ParserLoop const&) = delete;

    /// Null where the source is refused.
    Expression* parse(std::u16string_view source) {
        scanner_ = Scanner(source);
        tree_.begin(source.size());
        pending_.clear();
        pending_.reserve(kUsualDepth);
        start_ = 0;
        expectsOperand_ = true;
        isComplete_ = false;
        bool goesOn = source.size() <= kLongestSource || refuse(Reason::tooComplex);
        while (goesOn && !isComplete_) {
            goesOn = scanner_.skipBlanks() && (expectsOperand_ ? takeOperand() : takeOperator());
        }
        return goesOn ? &tree_.tree() : nullptr;
    }

    std::optional<Refusal> const& refusal() const { return scanner_.refusal(); }

  protected:
    using Reason = Refusal::Reason;

    static constexpr std::size_t kLongestSource = 65535;
    static constexpr std::size_t kUsualDepth = 8;

    /// What waits for an operand. Those before unary wait for a closing sign; those from array to
    /// block are met in scripts alone.
    enum class Waiting : std::uint8_t {
        parenthesis,
        call,
        index,
        condition,
        array,
        object,
        block,
        unary,
        operation,
    };

    struct Pending {
        Waiting waiting;
        NodeKind kind;  // of the node to be made
        Operation operation;
        Binding binding;
        std::uint32_t start;           // where it begins in the source
        std::uint32_t firstValue;      // of a call: its callee's place among the values
        std::uint32_t firstLabel = 0;  // of a block: its first label's place among the labels
    };

    /// Called where `refuse()` was given a reason and the source may still be a script. Takes the
    /// construct at `start_` and returns true; here, for expressions, it never does.
    virtual bool takeInScript() { return false; }

    bool refuse(Reason reason) { return scanner_.refuse(reason, start_); }
    /// Refuses what only a script may hold.
    bool refuseHere(Reason reason) { return refuse(reason) || takeInScript(); }

    bool takeOperand() {
        start_ = scanner_.position();
        char16_t const unit = scanner_.at();
        if (isDigit(unit) || (unit == u'.' && isDigit(scanner_.at(1)))) return takeNumber();
        if (scanner_.isAtEnd()) {
            bool const isEmpty = pending_.empty() && tree_.valueCount() == 0;
            return refuseHere(isEmpty ? Reason::empty : Reason::syntaxError);
        }
        switch (unit) {
            case u'\'':
            case u'"':
                return takeText();
            case u'(':
                scanner_.skip();
                return wait(Waiting::parenthesis);
            case u'+':
                return scanner_.at(1) == unit ? refuseHere(Reason::increment)
                                              : takeUnary(Operation::plus);
            case u'-':
                return scanner_.at(1) == unit ? refuseHere(Reason::increment)
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
                return refuseHere(Reason::objectOrArray);
            case u';':
                return refuseHere(Reason::statement);
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
        if (!number) return takeInScript();
        tree_.newNode(NodeKind::number, scanner_.from(start_)).number = *number;
        return addOperand();
    }

    bool takeText() {
        Node& node = tree_.newNode(NodeKind::string);
        if (!scanner_.takeText(tree_.texts())) return false;
        node.textLength = tree_.textEnd() - node.textStart;
        return addOperand();
    }

    bool takeWord() {
        std::u16string_view const name = scanner_.takeName();
        if (name.empty()) return takeInScript();
        ReservedWord const* const word = findReservedWord(name);
        if (word == nullptr) {
            // What begins with it may be a function.
            if (name == u"async") return refuseHere(Reason::function);
            tree_.newNode(NodeKind::name, name);
            return addOperand();
        }
        switch (word->use) {
            case WordUse::unary: {
                auto const operation = name == u"void" ? Operation::voidOf : Operation::typeOf;
                return wait(Waiting::unary, NodeKind::unary, operation, Binding::unary);
            }
            case WordUse::literal: {
                Node& node = tree_.newNode(name == u"null" ? NodeKind::null : NodeKind::boolean);
                node.number = name == u"true" ? 1 : 0;
                return addOperand();
            }
            case WordUse::statement:
                return refuseHere(Reason::statement);
            case WordUse::function:
                return refuseHere(Reason::function);
            default:
                return refuseHere(Reason::unsupported);
        }
    }

    bool takeOperator() {
        start_ = scanner_.position();
        if (scanner_.isAtEnd()) return finish();
        Punctuator const* const sign = scanner_.takePunctuator();
        if (sign == nullptr) return refuseOperator();
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
                return refuseHere(Reason::increment);
            case Role::templateText:
                return refuse(Reason::templateText);
            default:
                return refuse(Reason::unsupported);
        }
    }

    /// Behind an operand: JavaScript ends the statement at a line end.
    bool refuseOperator() {
        if (scanner_.hasLineEnd()) return refuseHere(Reason::statement);
        if (!isLatinNameStart(scanner_.at())) return refuseHere(Reason::syntaxError);
        std::u16string_view const name = scanner_.takeName();
        bool const isOperator = name == u"in" || name == u"instanceof";
        return refuse(isOperator ? Reason::unsupported : Reason::syntaxError);
    }

    bool takeBinary(Punctuator const& sign) {
        bool const isPower = sign.operation == Operation::power;
        // JavaScript wants parentheses in -A**2.
        if (isPower && !pending_.empty() && pending_.back().kind == NodeKind::unary) {
            return refuse(Reason::syntaxError);
        }
        if (!reduceWhile(sign.binding, !isPower)) return false;
        return wait(Waiting::operation, NodeKind::binary, sign.operation, sign.binding);
    }

    static bool isTarget(Node const& node) {
        return node.kind == NodeKind::name || node.kind == NodeKind::member ||
               node.kind == NodeKind::index;
    }
    /// To assign to a call compiles in scripts, and fails when it runs.
    static bool mayChange(Node const& node) {
        return isTarget(node) || node.kind == NodeKind::call;
    }

    /// Whether an assignment or an arrow function may begin with the last value.
    bool mayAssign() const {
        return pending_.empty() || pending_.back().binding <= Binding::conditional;
    }

    bool takeAssignment(Operation operation) {
        if (!isTarget(tree_.lastNode()) || !mayAssign()) return refuseHere(Reason::syntaxError);
        return wait(Waiting::operation, NodeKind::assignment, operation, Binding::assignment);
    }

    bool takeArrow() {
        if (scanner_.hasLineEnd() || !mayAssign()) return refuseHere(Reason::syntaxError);
        if (tree_.lastNode().kind != NodeKind::name || tree_.lastNode().isParenthesized) {
            return refuseHere(Reason::function);
        }
        return wait(Waiting::operation, NodeKind::arrow, Operation::none, Binding::assignment);
    }

    bool takeColon() {
        if (!reduceWhile(Binding::none)) return false;
        if (pending_.empty() || pending_.back().waiting != Waiting::condition) {
            return refuseHere(Reason::syntaxError);
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
        if (pending_.back().waiting != Waiting::call) return refuseHere(Reason::syntaxError);
        expectsOperand_ = true;
        return true;
    }

    bool takeMember() {
        if (!scanner_.skipBlanks()) return false;
        start_ = scanner_.position();
        std::u16string_view const name = scanner_.takeName();
        if (name.empty()) return false;
        tree_.newNode(NodeKind::member, name);
        return add(1, tree_.startOf(1));
    }

    bool takeCall() {
        auto const callee = static_cast<std::uint32_t>(tree_.valueCount() - 1);
        std::uint32_t const start = tree_.startOf(1);
        Pending const call{Waiting::call, NodeKind::call, Operation::none,
                           Binding::none, start,          callee};
        if (!wait(call) || !scanner_.skipBlanks()) return false;
        if (scanner_.at() != u')') return true;
        expectsOperand_ = false;
        return true;
    }

    bool takeClosing(Role role) {
        if (!reduceWhile(Binding::none)) return false;
        if (pending_.empty()) return refuseHere(Reason::syntaxError);
        Pending const opening = pending_.back();
        bool const isIndex = opening.waiting == Waiting::index;
        if (opening.waiting >= Waiting::condition || isIndex != (role == Role::closeIndex)) {
            return refuseHere(Reason::syntaxError);
        }
        pending_.pop_back();
        if (opening.waiting == Waiting::call) {
            tree_.newNode(NodeKind::call);
            return add(tree_.valueCount() - opening.firstValue, opening.start);
        }
        if (isIndex) {
            tree_.newNode(NodeKind::index);
            return add(2, tree_.startOf(2));
        }
        tree_.parenthesize({opening.start, scanner_.position()});
        return true;
    }

    /// At the end of the source or behind ";".
    bool finish() {
        bool const isEnd = scanner_.isAtEnd();
        if (!reduceWhile(Binding::none)) return false;
        if (!pending_.empty()) return refuseHere(Reason::syntaxError);
        if (!isEnd) {
            if (!scanner_.skipBlanks()) return false;
            if (!scanner_.isAtEnd()) return refuseHere(Reason::statement);
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

    /// Completes each waiting operation whose last operand ends here: that of `-` before `+`, not
    /// before `*`. `binding` is that of the sign that follows.
    bool reduceWhile(Binding binding, bool isLeftToRight = true) {
        while (!pending_.empty() && pending_.back().waiting >= Waiting::unary) {
            Pending const top = pending_.back();
            // Assignments and conditions group to the right; the comma, which binds less tightly,
            // to the left.
            bool const isRightToLeft = !isLeftToRight || top.binding <= Binding::conditional;
            if (top.binding < binding) break;
            if (top.binding == binding && isRightToLeft && binding != Binding::comma) break;
            pending_.pop_back();
            bool const isUnary = top.waiting == Waiting::unary;
            std::size_t const count = isUnary ? 1 : top.kind == NodeKind::conditional ? 3 : 2;
            std::uint32_t const start = isUnary ? top.start : tree_.startOf(count);
            bool const isIncrement = top.kind == NodeKind::opaque;
            if (isIncrement && !mayChange(tree_.lastNode())) return refuse(Reason::syntaxError);
            tree_.newNode(top.kind).operation = top.operation;
            if (!add(count, start, tree_.end())) return false;
        }
        return true;
    }

    bool addOperand() {
        expectsOperand_ = false;
        return add(0, start_);
    }

    bool add(std::size_t childCount, std::uint32_t start) {
        return add(childCount, start, scanner_.position());
    }

    bool add(std::size_t childCount, std::uint32_t start, std::uint32_t end) {
        auto const reason = tree_.add(childCount, {start, end});
        return !reason || refuse(*reason);
    }

    Scanner scanner_{{}};
    TreeBuilder tree_;
    std::vector<Pending> pending_;
    std::uint32_t start_ = 0;  // of the token that is looked at
    bool expectsOperand_ = true;
    bool isComplete_ = false;
};

}  // namespace kx
