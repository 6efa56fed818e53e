#include "native/Conversions.h"
#include "native/Program.h"

namespace kx {

bool Evaluator::run(Program const& program, std::span<Value const> variables, Value& result) {
    workspace_.arena.clear();
    workspace_.match = {};
    if (!execute(program, variables)) return false;
    result = values_[1];
    return true;
}

std::optional<std::u16string_view> Evaluator::textOf(Value const& result) {
    return toText(result, workspace_.arena);
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
                *++top = program.constants_[step.operand];
                break;
            case Step::variable:
                *++top = variables[step.operand];
                break;
            case Step::unary:
                if (!computeUnary(step.operation, *top)) return false;
                break;
            case Step::binary: {
                --top;
                Value const left = top[0];
                if (!calculate(step.operation, left, top[1], workspace_.arena, *top)) return false;
                break;
            }
            case Step::length:
                if (!top->isText()) return false;
                *top = Value::of(static_cast<double>(top->text.size()));
                break;
            case Step::member:
            case Step::call: {
                top -= step.count;
                ++top;
                if (step.step == Step::member && !top->isText()) return false;
                Value result;
                if (!program.functions_[step.operand]->compute({top, step.count}, workspace_,
                                                               result)) {
                    return false;
                }
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
                if (isKept)
                    at = first + step.operand;
                else
                    --top;
                break;
            }
        }
    }
    return true;
}

}  // namespace kx
