#include <bit>
#include <cstdint>

#include "native/Conversions.h"
#include "native/Program.h"
#include "text/Contains.h"

namespace kx {

namespace {

/// The most frequent operations on two numbers. False for others.
bool calculateInPlace(Operation operation, Value& value, double right) {
    auto const become = [&value](bool answer) {
        value.type = Value::Type::boolean;
        value.number = answer ? 1 : 0;
    };
    switch (operation) {
        case Operation::add:
            value.number += right;
            return true;
        case Operation::subtract:
            value.number -= right;
            return true;
        case Operation::multiply:
            value.number *= right;
            return true;
        case Operation::divide:
            value.number /= right;
            return true;
        case Operation::less:
            become(value.number < right);
            return true;
        case Operation::greater:
            become(value.number > right);
            return true;
        case Operation::lessOrEqual:
            become(value.number <= right);
            return true;
        case Operation::greaterOrEqual:
            become(value.number >= right);
            return true;
        default:
            return false;
    }
}

}  // namespace

Value const* Evaluator::run(Program const& program, std::span<Value const> variables) {
    workspace_.arena.clear();
    workspace_.match = {};
    return execute(program, variables) ? &values_[1] : nullptr;
}

std::u16string_view Evaluator::textOf(double number) {
    if (std::bit_cast<std::uint64_t>(number) != std::bit_cast<std::uint64_t>(lastNumber_)) {
        lastLength_ = writeNumber(number, lastText_.data());
        lastNumber_ = number;
    }
    return {lastText_.data(), lastLength_};
}

std::optional<std::u16string_view> Evaluator::textOf(Value const& result) {
    if (result.isNumber()) return textOf(result.number);
    auto const text = toText(result, workspace_.arena);
    if (!text) return std::nullopt;
    return contains(*text, u'\0') ? text->substr(0, text->find(u'\0')) : text;
}

bool Evaluator::computeUnary(Operation operation, Value& value) {
    if (operation == Operation::logicalNot) {
        value = Value::of(!isTrue(value));
        return true;
    }
    if (operation == Operation::voidOf) {
        value = {};
        return true;
    }
    auto const number = toNumber(value);
    if (!number) return false;
    switch (operation) {
        case Operation::minus:
            value = Value::of(-*number);
            return true;
        case Operation::bitNot:
            value = Value::of(static_cast<double>(~toInt32(*number)));
            return true;
        default:
            value = Value::of(*number);
            return true;
    }
}

bool Evaluator::execute(Program const& program, std::span<Value const> variables) {
    using Step = Program::Step;
    Value* top = values_.data();
    Program::Instruction const* const first = program.instructions_.data();
    Program::Instruction const* const end = first + program.instructions_.size();
    for (Program::Instruction const* at = first; at != end;) {
        Program::Instruction const& step = *at++;
        switch (step.step) {
            case Step::constant:
                ++top;
                top->type = static_cast<Value::Type>(step.operand);
                top->number = step.number;
                break;
            case Step::text:
                ++top;
                top->become({program.texts_.data() + step.start, step.operand});
                break;
            case Step::variable:
                *++top = variables[step.operand];
                break;
            case Step::unary:
                if (!computeUnary(step.operation, *top)) return false;
                break;
            case Step::binary: {
                --top;
                if (top[0].isNumber() && top[1].isNumber() &&
                    calculateInPlace(step.operation, top[0], top[1].number)) {
                    break;
                }
                // Written in place once both operands have been read.
                if (!calculate(step.operation, top[0], top[1], workspace_.arena, top[0])) {
                    return false;
                }
                break;
            }
            case Step::length:
                if (!top->isText()) return false;
                *top = Value::of(static_cast<double>(top->text().size()));
                break;
            case Step::member:
            case Step::call: {
                top -= step.count;
                ++top;
                if (step.step == Step::member && !top->isText()) return false;
                Value result;
                if (!step.function->compute({top, step.count}, workspace_, result)) return false;
                *top = result;
                break;
            }
            case Step::drop:
                --top;
                break;
            case Step::jump:
                at = first + step.operand;
                break;
            case Step::jumpUnlessTrue:
                if (!isTrue(*top)) at = first + step.operand;
                --top;
                break;
            case Step::keepIfFalse:
            case Step::keepIfTrue:
            case Step::keepIfThere: {
                bool const isKept = step.step == Step::keepIfThere
                                        ? !top->isNullish()
                                        : isTrue(*top) == (step.step == Step::keepIfTrue);
                if (isKept) {
                    at = first + step.operand;
                } else {
                    --top;
                }
                break;
            }
        }
    }
    return true;
}

}  // namespace kx
