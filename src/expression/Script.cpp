#include "expression/Script.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "expression/ParserLoop.h"

namespace kx {
namespace {

using namespace std::string_view_literals;

/// Takes what expressions refuse. An opaque node stands for it, of operation kList (an array or
/// object, over its parts) or kValue (anything else; nothing can be assigned to it).
class ScriptParser : public ParserLoop {
  public:
    bool isOther() const { return isOther_; }

  private:
    static constexpr Operation kList = Operation::none;
    static constexpr Operation kValue = Operation::voidOf;

    bool takeInScript() override {
        std::u16string_view const sign = scanner_.from(start_);
        // "let[" begins a declaration.
        if (sign == u"let" && isAtStatement() && next() == u'[') return false;
        if (expectsOperand_ && isNameInScripts(sign)) return addName(sign);
        if (expectsOperand_ && sign.empty() && scanner_.at() == u'0') return takeOldNumber();
        isOther_ = true;
        if (!expectsOperand_) return takeOtherOperator(sign);
        if (sign == u"this") return addOpaque();
        if (!sign.empty()) return false;
        if (!scanner_.isAtEnd()) return takeOtherOperand();
        // An empty script compiles too.
        isComplete_ = pending_.empty() && isAtStatement() && !isLabelled();
        return isComplete_;
    }

    static bool isNameInScripts(std::u16string_view word) {
        ReservedWord const* const reserved = findReservedWord(word);
        return word == u"async" || (reserved != nullptr && reserved->mayBeVariable);
    }

    bool addName(std::u16string_view name) {
        tree_.newNode(NodeKind::name, name);
        return addOperand();
    }

    bool addOpaque() {
        tree_.newNode(NodeKind::opaque).operation = kValue;
        return addOperand();
    }

    /// 017 is octal; 08 and 019.5 are decimal.
    bool takeOldNumber() {
        std::size_t count = 0;
        bool isOctal = true;
        for (; isDigit(scanner_.at(count)); ++count) isOctal = isOctal && scanner_.at(count) < u'8';
        if (count < 2) return false;
        if (!isOctal) {
            while (scanner_.at() == u'0') scanner_.skip();
            return takeNumber();
        }
        double value = 0;
        for (; isDigit(scanner_.at()); scanner_.skip()) value = value * 8 + (scanner_.at() - u'0');
        if (mayBeNamePart(scanner_.at()) || scanner_.at() == u'\\') return false;
        tree_.newNode(NodeKind::number, scanner_.from(start_)).number = value;
        return addOperand();
    }

    bool takeOtherOperand() {
        char16_t const unit = scanner_.at();
        scanner_.skip();
        switch (unit) {
            case u'+':
            case u'-':
                scanner_.skip();
                return wait(Waiting::unary, NodeKind::opaque, kValue, Binding::unary);
            case u'[':
                return open(Waiting::array, NodeKind::opaque);
            case u'{':
                return takeBrace();
            case u',':
                return isIn(Waiting::array);  // "[,A]"
            case u']':
                return isIn(Waiting::array) && closeList();
            case u')':
                expectsOperand_ = false;
                return isIn(Waiting::call) && takeClosing(Role::close);  // "F(A,)"
            case u'}':
                return isAtStatement() && !isLabelled() && closeBlock();
            case u';':
                return isAtStatement() && endStatement();
            default:
                return false;
        }
    }

    bool takeOtherOperator(std::u16string_view sign) {
        if (sign == u"++" || sign == u"--") return takeIncrement();
        if (sign == u"=>") return takeParameters();
        if (sign.ends_with(u'=')) return takeOtherTarget(sign);
        switch (sign.empty() ? scanner_.at() : sign.front()) {
            case u',':
                return takeOtherComma();
            case u':':
                return takeLabel();
            case u';':
                return endStatement();
            case u']':
                return isIn(Waiting::array) && closeList();
            case u'}':
                scanner_.skip();
                if (!reduceWhile(Binding::none)) return false;
                return isIn(Waiting::object) ? closeList() : closeBlock();
            default:
                return false;
        }
    }

    bool takeOtherComma() {
        if (isIn(Waiting::object)) return takeKey();
        if (isIn(Waiting::block)) {
            return wait(Waiting::operation, NodeKind::binary, Operation::comma, Binding::comma);
        }
        expectsOperand_ = true;
        return isIn(Waiting::array);
    }

    bool takeIncrement() {
        if (scanner_.hasLineEnd() || !mayChange(tree_.lastNode())) return false;
        tree_.newNode(NodeKind::opaque).operation = kValue;
        return add(1, tree_.startOf(1)) && u"([.`"sv.find(next()) == std::u16string_view::npos;
    }

    /// What follows; a blank at the end.
    char16_t next() const {
        Scanner ahead = scanner_;
        return ahead.skipBlanks() && !ahead.isAtEnd() ? ahead.at() : u' ';
    }

    // Targets.

    /// "F(A)=B" or "[A,B]=C".
    bool takeOtherTarget(std::u16string_view sign) {
        Node const& target = tree_.lastNode();
        bool const isLogical = sign == u"&&=" || sign == u"||=" || sign == u"\?\?=";
        bool const isCall = target.kind == NodeKind::call && !isLogical;
        bool const isPattern = sign == u"=" && !target.isParenthesized && isPatternOf(target);
        return (isCall || isPattern) && mayAssign() &&
               wait(Waiting::operation, NodeKind::assignment, Operation::none, Binding::assignment);
    }

    static bool isList(Node const& node) {
        return node.kind == NodeKind::opaque && node.operation == kList;
    }

    /// "A" of "A=1", where 1 is what A has by default; otherwise the node itself.
    Node const& targetOf(Node const& node) const {
        bool const hasDefault = node.kind == NodeKind::assignment && !node.isParenthesized &&
                                node.operation == Operation::none;
        return hasDefault ? tree_.tree().child(node, 0) : node;
    }

    /// Whether all parts of an array or object can be assigned to.
    bool isPatternOf(Node const& node) const {
        bool isPattern = isList(node);
        for (std::uint32_t i = 0; i < node.childCount && isPattern; ++i) {
            Node const& target = targetOf(tree_.tree().child(node, i));
            isPattern = isTarget(target) || (!target.isParenthesized && isPatternOf(target));
        }
        return isPattern;
    }

    /// "(A,[B],C=1)=>"
    bool takeParameters() {
        Node const& list = tree_.lastNode();
        std::uint32_t const start = tree_.startOf(1);
        std::u16string_view const opening =
            scanner_.from(start).substr(0, list.place.start - start);
        bool const isOnce =
            list.isParenthesized && opening.find(u'(', 1) == std::u16string_view::npos;
        if (!isOnce || scanner_.hasLineEnd() || !mayAssign()) return false;
        std::vector<std::u16string_view> names;
        if (!addParameters(list, names)) return false;
        std::sort(names.begin(), names.end());
        return std::adjacent_find(names.begin(), names.end()) == names.end() &&
               wait(Waiting::operation, NodeKind::arrow, Operation::none, Binding::assignment);
    }

    /// Adds the names of parameters. False for what is none.
    bool addParameters(Node const& node, std::vector<std::u16string_view>& names) const {
        Node const& target = targetOf(node);
        if (target.kind == NodeKind::name) names.push_back(tree_.tree().text(target));
        bool const hasParts = target.operation == Operation::comma || isList(target);
        for (std::uint32_t i = 0; i < target.childCount && hasParts; ++i) {
            Node const& part = tree_.tree().child(target, i);
            if (part.isParenthesized || !addParameters(part, names)) return false;
        }
        return hasParts || target.kind == NodeKind::name;
    }

    // Brackets.

    bool isIn(Waiting waiting) const {
        return !pending_.empty() && pending_.back().waiting == waiting;
    }

    bool open(Waiting waiting, NodeKind kind) {
        return wait({waiting, kind, Operation::none, Binding::none, start_,
                     static_cast<std::uint32_t>(tree_.valueCount()),
                     static_cast<std::uint32_t>(labels_.size())});
    }

    /// An object, a block or the body of a function.
    bool takeBrace() {
        bool const isBody = isIn(Waiting::operation) && pending_.back().kind == NodeKind::arrow;
        if (isBody) return open(Waiting::block, NodeKind::arrow);
        if (isAtStatement()) return open(Waiting::block, NodeKind::null);
        return open(Waiting::object, NodeKind::opaque) && takeKey();
    }

    /// "A:" or "A" in an object; or its end.
    bool takeKey() {
        if (!scanner_.skipBlanks()) return false;
        start_ = scanner_.position();
        if (scanner_.at() == u'}') {
            scanner_.skip();
            return closeList();
        }
        std::u16string_view const name = scanner_.takeName();
        if (name.empty()) return false;
        expectsOperand_ = true;
        if (next() == u':') {
            // An object may set its prototype only once.
            if (name == u"__proto__") return false;
            scanner_.skipBlanks();
            scanner_.skip();
            return true;
        }
        return !isReservedWord(name) && (next() == u',' || next() == u'}') && addName(name);
    }

    /// Closes an array or an object.
    bool closeList() {
        Pending const opening = pending_.back();
        pending_.pop_back();
        expectsOperand_ = false;
        tree_.newNode(NodeKind::opaque).operation = kList;
        return add(tree_.valueCount() - opening.firstValue, opening.start);
    }

    // Statements. The values of a block stand behind those of what is around it, and its labels
    // behind those of the statement that it is.

    bool isInStatement() const { return pending_.empty() || isIn(Waiting::block); }
    std::size_t firstValue() const { return pending_.empty() ? 0 : pending_.back().firstValue; }
    std::size_t firstLabel() const { return pending_.empty() ? 0 : pending_.back().firstLabel; }
    bool isAtStatement() const { return isInStatement() && tree_.valueCount() == firstValue(); }
    bool isLabelled() const { return labels_.size() > firstLabel(); }

    bool closeBlock() {
        if (!isIn(Waiting::block)) return false;
        Pending const opening = pending_.back();
        pending_.pop_back();
        tree_.keepValues(opening.firstValue);
        labels_.resize(opening.firstLabel);
        if (opening.kind != NodeKind::arrow) return endStatement();
        // A function that ends in a block is no operand.
        return addOpaque() && u" ,)]}:;"sv.find(next()) != std::u16string_view::npos;
    }

    bool endStatement() {
        if (!isInStatement()) return false;
        tree_.keepValues(firstValue());
        labels_.resize(firstLabel());
        expectsOperand_ = true;
        return true;
    }

    /// "A:" begins a statement.
    bool takeLabel() {
        Node const& name = tree_.lastNode();
        bool const isName = isInStatement() && tree_.valueCount() == firstValue() + 1 &&
                            name.kind == NodeKind::name && !name.isParenthesized;
        std::u16string_view const label = tree_.tree().text(name);
        if (!isName || std::find(labels_.begin(), labels_.end(), label) != labels_.end()) {
            return false;
        }
        // V8 needs stack for each label; and each is compared with those before it.
        if (labels_.size() >= Expression::kMaxHeight) return refuse(Reason::tooComplex);
        labels_.emplace_back(label);
        tree_.keepValues(firstValue());
        expectsOperand_ = true;
        return true;
    }

    std::vector<std::u16string> labels_;
    bool isOther_ = false;
};

}  // namespace

std::variant<Expression, OtherScript, Refusal> parseScript(std::u16string_view source) {
    ScriptParser parser;
    Expression* const tree = parser.parse(source);
    if (tree == nullptr) return *parser.refusal();
    if (!parser.isOther()) return std::move(*tree);
    // A directive changes the rules. Where it only looks like one, little is lost.
    constexpr std::u16string_view kStrict = u"use strict";
    std::size_t const found = source.find(kStrict);
    if (found == std::u16string_view::npos) return OtherScript();
    auto const start = static_cast<std::uint32_t>(found);
    auto const end = static_cast<std::uint32_t>(found + kStrict.size());
    return Refusal{Refusal::Reason::unsupported, {start, end}};
}

}  // namespace kx
