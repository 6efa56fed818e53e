#include "native/Program.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "native/translated/Functions.h"

namespace kx {

namespace {

constexpr Value kUndefined{};
constexpr Value kNaN{Value::Type::number, std::numeric_limits<double>::quiet_NaN()};
constexpr Value kInfinity{Value::Type::number, std::numeric_limits<double>::infinity()};
constexpr std::size_t kMostArguments = 100;

/// A name of JavaScript that stands for a value, or null.
Value const* findConstant(std::u16string_view name) {
    if (name == u"undefined") return &kUndefined;
    if (name == u"NaN") return &kNaN;
    return name == u"Infinity" ? &kInfinity : nullptr;
}

/// Catalogue functions have no lower-case letter in their names.
bool isOfCatalogue(std::u16string_view name) {
    return std::none_of(name.begin(), name.end(),
                        [](char16_t unit) { return unit >= u'a' && unit <= u'z'; });
}

}  // namespace

class ProgramMaker {
  public:
    ProgramMaker(Expression const& expression, Names const& names)
        : expression_(expression), names_(names) {}

    std::optional<Program> make() {
        program_.instructions_.reserve(expression_.nodes().size() + 1);  // enough for most formulas
        if (!add(expression_.root()) || mostValues_ > Evaluator::kMostValues) return std::nullopt;
        return std::move(program_);
    }

  private:
    using Step = Program::Step;

    // The functions below add what puts the value of a node on top of the others. They call one
    // another no deeper than the tree is high.

    bool add(Node const& node) {
        switch (node.kind) {
            case NodeKind::number:
                return addConstant({Value::Type::number, node.number});
            case NodeKind::string:
                return addText(expression_.text(node));
            case NodeKind::boolean:
                return addConstant({Value::Type::boolean, node.number});
            case NodeKind::null:
                return addConstant({Value::Type::null});
            case NodeKind::name:
                return addName(node);
            case NodeKind::unary:
                return addUnary(node);
            case NodeKind::binary:
                return addBinary(node);
            case NodeKind::conditional:
                return addConditional(node);
            case NodeKind::member:
                return addMember(node);
            case NodeKind::call:
                return addCall(node);
            default:
                return false;
        }
    }

    bool addName(Node const& node) {
        std::u16string_view const name = expression_.text(node);
        if (auto const variable = findVariable(name)) {
            emit(Step::variable, *variable);
            return push();
        }
        Value const* const constant = findConstant(name);
        return constant != nullptr && addConstant(*constant);
    }

    bool addUnary(Node const& node) {
        if (node.operation == Operation::typeOf) return false;
        if (!add(expression_.child(node, 0))) return false;
        emit(Step::unary, 0, node.operation);
        return true;
    }

    bool addBinary(Node const& node) {
        if (node.operation == Operation::power) return false;
        if (!add(expression_.child(node, 0))) return false;
        switch (node.operation) {
            case Operation::logicalAnd:
                return addSecond(node, Step::keepIfFalse);
            case Operation::logicalOr:
                return addSecond(node, Step::keepIfTrue);
            case Operation::coalesce:
                return addSecond(node, Step::keepIfThere);
            case Operation::comma:
                return addSecond(node, Step::drop);
            default:
                break;
        }
        if (!add(expression_.child(node, 1))) return false;
        emit(Step::binary, 0, node.operation);
        --values_;
        return true;
    }

    /// The second operand of an operation that gives one of its operands.
    bool addSecond(Node const& node, Step step) {
        std::size_t const choice = emit(step, 0);
        --values_;
        if (!add(expression_.child(node, 1))) return false;
        leadHere(choice);
        return true;
    }

    bool addConditional(Node const& node) {
        if (!add(expression_.child(node, 0))) return false;
        std::size_t const choice = emit(Step::jumpUnlessTrue, 0);
        --values_;
        if (!add(expression_.child(node, 1))) return false;
        std::size_t const end = emit(Step::jump, 0);
        --values_;
        leadHere(choice);
        if (!add(expression_.child(node, 2))) return false;
        leadHere(end);
        return true;
    }

    bool isMath(Node const& node) const {
        return node.kind == NodeKind::name && expression_.text(node) == u"Math" &&
               !findVariable(u"Math");
    }

    /// The EXACT of "kx", "kx.exact" and "kx.of(EXACT, date format, epoch)"; empty for others. Date
    /// format and epoch do not matter: dates are left to V8.
    std::optional<bool> exactOfRunTimePart(Node const& node) const {
        if (!names_.hasRunTimePart || findVariable(u"kx")) return std::nullopt;
        if (node.kind == NodeKind::name && expression_.text(node) == u"kx") return false;
        bool const isCall = node.kind == NodeKind::call && node.childCount == 4;
        Node const& member = isCall ? expression_.child(node, 0) : node;
        if (member.kind != NodeKind::member) return std::nullopt;
        Node const& object = expression_.child(member, 0);
        if (object.kind != NodeKind::name || expression_.text(object) != u"kx") return std::nullopt;
        if (!isCall) {
            return expression_.text(member) == u"exact" ? std::optional(true) : std::nullopt;
        }
        bool const isPlain = expression_.text(member) == u"of" &&
                             expression_.child(node, 1).kind == NodeKind::boolean &&
                             expression_.child(node, 2).kind == NodeKind::string &&
                             expression_.child(node, 3).kind == NodeKind::number;
        return isPlain ? std::optional(expression_.child(node, 1).number != 0) : std::nullopt;
    }

    bool addMember(Node const& node) {
        Node const& object = expression_.child(node, 0);
        if (isMath(object)) {
            Value const* const constant = findMathConstant(expression_.text(node));
            return constant != nullptr && addConstant(*constant);
        }
        if (expression_.text(node) != u"length" || !add(object)) return false;
        emit(Step::length, 0);
        return true;
    }

    bool addCall(Node const& node) {
        Node const& callee = expression_.child(node, 0);
        if (callee.kind == NodeKind::name) return addFunction(node, expression_.text(callee));
        if (callee.kind != NodeKind::member) return false;
        std::u16string_view const name = expression_.text(callee);
        Node const& object = expression_.child(callee, 0);
        if (isMath(object)) return addArguments(node, findMathFunction(name), Step::call, 0);
        if (auto const isExact = exactOfRunTimePart(object)) {
            return addArguments(node, findRunTimeFunction(name, *isExact), Step::call, 0);
        }
        Function const* const member = findTextMember(name);
        return member != nullptr && add(object) && addArguments(node, member, Step::member, 1);
    }

    bool addFunction(Node const& node, std::u16string_view name) {
        if (findVariable(name) || (!names_.hasCatalogues && isOfCatalogue(name))) return false;
        // Without an argument the catalogues' functions fail.
        return node.childCount > 1 && addArguments(node, findGlobalFunction(name), Step::call, 0);
    }

    /// The arguments of a call, and the call. `given` values are on top already.
    bool addArguments(Node const& node, Function const* function, Step step, std::size_t given) {
        if (function == nullptr || node.childCount > kMostArguments) return false;
        std::size_t count = given;
        for (std::size_t i = 1; i < node.childCount; ++i) {
            if (!add(expression_.child(node, i))) return false;
            // Surplus arguments are evaluated, and dropped.
            if (count == function->parameters) {
                emit(Step::drop, 0);
                --values_;
            } else {
                ++count;
            }
        }
        while (function->parameters != Function::kAny && count < function->parameters) {
            if (!addConstant(kUndefined)) return false;
            ++count;
        }
        emit(step, 0);
        program_.instructions_.back().function = function;
        program_.instructions_.back().count = static_cast<std::uint16_t>(count);
        values_ -= count;
        return push();
    }

    /// `value` is no text.
    bool addConstant(Value const& value) {
        emit(Step::constant, static_cast<std::size_t>(value.type));
        program_.instructions_.back().number = value.number;
        return push();
    }

    bool addText(std::u16string_view text) {
        emit(Step::text, text.size());
        program_.instructions_.back().start = program_.texts_.size();
        program_.texts_ += text;
        return push();
    }

    std::optional<std::size_t> findVariable(std::u16string_view name) const {
        auto const found = std::find(names_.variables.begin(), names_.variables.end(), name);
        if (found == names_.variables.end()) return std::nullopt;
        return static_cast<std::size_t>(found - names_.variables.begin());
    }

    bool push() {
        mostValues_ = std::max(mostValues_, ++values_);
        return true;
    }

    std::size_t emit(Step step, std::size_t operand, Operation operation = Operation::none) {
        Program::Instruction& added = program_.instructions_.emplace_back();
        added.step = step;
        added.operation = operation;
        added.operand = static_cast<std::uint32_t>(operand);
        return program_.instructions_.size() - 1;
    }

    void leadHere(std::size_t jump) {
        program_.instructions_[jump].operand =
            static_cast<std::uint32_t>(program_.instructions_.size());
    }

    Expression const& expression_;
    Names const& names_;
    Program program_;
    std::size_t values_ = 0;  // waiting at this point of the formula
    std::size_t mostValues_ = 0;
};

std::optional<Program> Program::make(Expression const& expression, Names const& names) {
    return ProgramMaker(expression, names).make();
}

}  // namespace kx
