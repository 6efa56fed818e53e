#include "expression/Script.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "expression/ParserLoop.h"

namespace kx {
namespace {

/// Takes what expressions refuse. Values of such constructs are opaque nodes: with operation none
/// an array or an object over its parts, otherwise something that cannot be assigned to.
class ScriptParser : public Parser {
  public:
    bool isOther() const { return isOther_; }

  private:
    bool takeInScript() override {
        std::u16string_view const sign = scanner_.from(start_);
        if (expectsOperand_ && isNameInScripts(sign)) {
            tree_.newNode(NodeKind::name, sign);
            return addOperand();
        }
        if (expectsOperand_ && sign.empty() && scanner_.at() == u'0') return takeOldNumber();
        bool const isEmpty = !isOther_;
        isOther_ = true;
        if (!expectsOperand_) return takeOtherOperator(sign);
        if (sign == u"this") return addOpaque(Operation::voidOf);
        if (!sign.empty()) return false;
        if (scanner_.isAtEnd()) return !isEmpty && takeEnd();
        return takeOtherOperand();
    }

    static bool isNameInScripts(std::u16string_view word) {
        ReservedWord const* const reserved = findReservedWord(word);
        return word == u"async" || (reserved != nullptr && reserved->mayBeVariable);
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
        switch (scanner_.at()) {
            case u'+':
            case u'-':
                return takePrefix();
            case u'[':
                scanner_.skip();
                return open(Waiting::array, NodeKind::opaque);
            case u'{':
                scanner_.skip();
                return takeBrace();
            case u',':
                // "[,A]"
                scanner_.skip();
                return isIn(Waiting::array);
            case u']':
                scanner_.skip();
                return isIn(Waiting::array) && closeValue();
            case u')':
                // "F(A,)"
                scanner_.skip();
                expectsOperand_ = false;
                return isIn(Waiting::call) && takeClosing(Role::close);
            case u'}':
                scanner_.skip();
                return isAtStatement() && !isLabelled() && closeBlock();
            case u';':
                scanner_.skip();
                return isAtStatement() && endStatement();
            default:
                return false;
        }
    }

    bool takeOtherOperator(std::u16string_view sign) {
        if (sign.empty()) return takeBehindOperand();
        switch (sign.front()) {
            case u',':
                return takeOtherComma();
            case u':':
                return takeLabel();
            case u';':
                return endStatement();
            case u']':
                return isIn(Waiting::array) && closeValue();
            default:
                break;
        }
        if (sign == u"++" || sign == u"--") return takeIncrement();
        if (sign == u"=>") return takeParameters();
        return sign.ends_with(u'=') && takeOtherTarget(sign);
    }

    /// "}", or a new statement on the next line.
    bool takeBehindOperand() {
        if (scanner_.isAtEnd() || !reduceWhile(Binding::none)) return false;
        if (scanner_.at() != u'}') return scanner_.hasLineEnd() && endStatement();
        scanner_.skip();
        return isIn(Waiting::object) ? closeValue() : closeBlock();
    }

    bool takePrefix() {
        scanner_.skip();
        scanner_.skip();
        return wait(Waiting::unary, NodeKind::opaque, Operation::add, Binding::unary);
    }

    bool takeIncrement() {
        if (scanner_.hasLineEnd()) {
            return reduceWhile(Binding::none) && endStatement() &&
                   wait(Waiting::unary, NodeKind::opaque, Operation::add, Binding::unary);
        }
        if (!mayChange(tree_.lastNode())) return false;
        tree_.newNode(NodeKind::opaque).operation = Operation::add;
        return add(1, tree_.startOf(1)) && !isBefore(u"([.`");
    }

    /// Whether one of the units follows.
    bool isBefore(std::u16string_view units) const {
        Scanner ahead = scanner_;
        return ahead.skipBlanks() && !ahead.isAtEnd() &&
               units.find(ahead.at()) != std::u16string_view::npos;
    }

    bool takeOtherComma() {
        if (isIn(Waiting::object)) return takeKey();
        if (isIn(Waiting::block)) {
            return wait(Waiting::operation, NodeKind::binary, Operation::comma, Binding::comma);
        }
        expectsOperand_ = true;
        return isIn(Waiting::array);
    }

    /// "F(A)=B" or "[A,B]=C".
    bool takeOtherTarget(std::u16string_view sign) {
        Node const& target = tree_.lastNode();
        bool const isCall =
            target.kind == NodeKind::call && sign != u"&&=" && sign != u"||=" && sign != u"\?\?=";
        bool const isPattern = sign == u"=" && !target.isParenthesized && isPatternOf(target);
        return (isCall || isPattern) && mayAssign() &&
               wait(Waiting::operation, NodeKind::assignment, Operation::none, Binding::assignment);
    }

    static bool isList(Node const& node) {
        return node.kind == NodeKind::opaque && node.operation == Operation::none;
    }

    /// What is assigned to, in "A=1" its default value aside.
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
        Place const place = tree_.place();
        std::u16string_view const text =
            scanner_.from(place.start).substr(0, list.place.start - place.start);
        bool const isAlone =
            list.isParenthesized && text.find(u'(', 1) == std::u16string_view::npos;
        std::vector<std::u16string_view> names;
        if (!isAlone || scanner_.hasLineEnd() || !mayAssign()) return false;
        if (!addParameters(list, names)) return false;
        std::sort(names.begin(), names.end());
        if (std::adjacent_find(names.begin(), names.end()) != names.end()) return false;
        return wait(Waiting::operation, NodeKind::arrow, Operation::none, Binding::assignment);
    }

    /// Adds the names that parameters have. False for what is none.
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

    // Statements. Their values stand behind those of what the block around them is in, and their
    // labels behind those of the statements that hold the block.

    bool isIn(Waiting waiting) const {
        return !pending_.empty() && pending_.back().waiting == waiting;
    }

    bool isInStatement() const { return pending_.empty() || isIn(Waiting::block); }
    std::size_t firstValue() const { return pending_.empty() ? 0 : pending_.back().firstValue; }
    std::size_t firstLabel() const { return pending_.empty() ? 0 : pending_.back().start; }
    bool isAtStatement() const { return isInStatement() && tree_.valueCount() == firstValue(); }
    bool isLabelled() const { return labels_.size() > firstLabel(); }

    bool open(Waiting waiting, NodeKind kind, std::size_t start) {
        return wait({waiting, kind, Operation::none, Binding::none,
                     static_cast<std::uint32_t>(start),
                     static_cast<std::uint32_t>(tree_.valueCount())});
    }
    bool open(Waiting waiting, NodeKind kind) { return open(waiting, kind, start_); }

    /// A block, the body of a function, or an object.
    bool takeBrace() {
        bool const isBody = isIn(Waiting::operation) && pending_.back().kind == NodeKind::arrow;
        if (!isBody && !isAtStatement())
            return open(Waiting::object, NodeKind::opaque) && takeKey();
        return open(Waiting::block, isBody ? NodeKind::arrow : NodeKind::null, labels_.size());
    }

    /// "A:" or "A" in an object; or its end.
    bool takeKey() {
        if (!scanner_.skipBlanks()) return false;
        start_ = scanner_.position();
        if (scanner_.at() == u'}') {
            scanner_.skip();
            return closeValue();
        }
        std::u16string_view const name = scanner_.takeName();
        if (name.empty() || !scanner_.skipBlanks()) return false;
        expectsOperand_ = true;
        if (scanner_.at() == u':') {
            scanner_.skip();
            return true;
        }
        if (isReservedWord(name) || !isBefore(u",}")) return false;
        tree_.newNode(NodeKind::name, name);
        return addOperand();
    }

    /// Closes an array or an object.
    bool closeValue() {
        Pending const opening = pending_.back();
        pending_.pop_back();
        expectsOperand_ = false;
        tree_.newNode(NodeKind::opaque);
        return add(tree_.valueCount() - opening.firstValue, opening.start);
    }

    bool addOpaque(Operation operation) {
        tree_.newNode(NodeKind::opaque).operation = operation;
        return addOperand();
    }

    bool closeBlock() {
        if (!isIn(Waiting::block)) return false;
        Pending const opening = pending_.back();
        pending_.pop_back();
        tree_.keepValues(opening.firstValue);
        labels_.resize(opening.start);
        if (opening.kind != NodeKind::arrow) return endStatement();
        // A function that ends in a block is no operand.
        Scanner ahead = scanner_;
        return addOpaque(Operation::voidOf) && ahead.skipBlanks() &&
               (ahead.isAtEnd() || isBefore(u",)]}:;"));
    }

    bool endStatement() {
        if (!isInStatement()) return false;
        tree_.keepValues(firstValue());
        labels_.resize(firstLabel());
        expectsOperand_ = true;
        return true;
    }

    /// The end of the source behind statements.
    bool takeEnd() {
        isComplete_ = pending_.empty() && isAtStatement() && !isLabelled();
        return isComplete_;
    }

    /// "A:" begins a statement.
    bool takeLabel() {
        Node const& name = tree_.lastNode();
        bool const isName = isInStatement() && tree_.valueCount() == firstValue() + 1 &&
                            name.kind == NodeKind::name && !name.isParenthesized;
        if (!isName) return false;
        std::u16string label(tree_.tree().text(name));
        bool const isNew = std::find(labels_.begin(), labels_.end(), label) == labels_.end();
        tree_.keepValues(firstValue());
        labels_.push_back(std::move(label));
        expectsOperand_ = true;
        return isNew;
    }

    std::vector<std::u16string> labels_;
    bool isOther_ = false;
};

}  // namespace

std::variant<Expression, OtherScript, Refusal> parseScript(std::u16string_view source) {
    ScriptParser parser;
    Expression* const tree = parser.parse(source);
    if (tree == nullptr) return *parser.refusal();
    if (parser.isOther()) return OtherScript();
    return std::move(*tree);
}

}  // namespace kx
