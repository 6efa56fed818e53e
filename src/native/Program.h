#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "expression/Expression.h"
#include "native/Functions.h"
#include "native/Value.h"
#include "text/NumberText.h"

namespace kx {

/// Which names a formula may use beside those of JavaScript.
struct Names {
    std::span<std::u16string_view const> variables;
    bool hasCatalogues = true;    // the functions of the catalogues
    bool hasRunTimePart = false;  // of translated formulas
};

/// A formula made ready to be evaluated without V8, again and again.
///
///     kx::Names const names{variables};
///     if (auto const program = kx::Program::make(expression, names))
///         result = evaluator.run(*program, values);
///
/// Results are those of V8 as long as what the names of JavaScript, of the catalogues and of the
/// members stand for is as a new host has it. Threads: any; one at a time for an Evaluator.
class Program {
  public:
    /// Empty where a part of the formula is left to V8: for good, not just for some values.
    static std::optional<Program> make(Expression const& expression, Names const& names);

  private:
    friend class Evaluator;
    friend class ProgramMaker;

    enum class Step : std::uint8_t {
        constant,        // operand: its type; number
        text,            // operand: its length; start
        variable,        // operand: which one
        unary,           //
        binary,          //
        length,          // of a text
        call,            // function; count: its arguments, the receiver among them
        member,          // the same for a member of a text
        drop,            // the top value
        jump,            // operand: where to
        jumpUnlessTrue,  // drops the condition
        keepIfFalse,     // for "&&", "||" and "??": jumps where the top value is the result, else
        keepIfTrue,      // drops it
        keepIfThere,     //
    };

    struct Instruction {
        Step step;
        Operation operation = Operation::none;
        std::uint16_t count = 0;
        std::uint32_t operand = 0;
        union {
            double number = 0;
            std::size_t start;  // among the texts
            Function const* function;
        };
    };

    std::vector<Instruction> instructions_;
    std::u16string texts_;
};

/// Evaluates formulas, with memory that stays from one to the next.
class Evaluator {
  public:
    /// Values that can be waiting for an operation.
    static constexpr std::size_t kMostValues = 256;

    /// Variables that a formula may have.
    static constexpr std::size_t kMostVariables = 32;

    /// Memory for the values of `count` variables, valid until the next call.
    std::span<Value> variableValues(std::size_t count) {
        return std::span<Value>(variables_).first(count);
    }

    /// The result, or null where the formula needs V8 for these values; nothing has happened then.
    /// `variables` are those of the names that the formula was made with, in that order. The result
    /// is valid until the next run, and as long as the formula and the variables' texts.
    Value const* run(Program const& program, std::span<Value const> variables);

    /// The text of `result` up to a zero, valid until the next call or run; nothing where it is too
    /// long.
    std::optional<std::u16string_view> textOf(Value const& result);

    /// What the last run has matched, if it was not left to V8.
    Match const& match() const { return workspace_.match; }

  private:
    bool execute(Program const& program, std::span<Value const> variables);
    static bool computeUnary(Operation operation, Value& value);
    std::u16string_view textOf(double number);

    std::array<Value, kMostValues + 1> values_;  // from the second on
    std::array<Value, kMostVariables> variables_;
    Workspace workspace_;

    // The last number and its text: the next run often gives the same, and writing digits is slow.
    double lastNumber_ = 0;
    std::array<char16_t, kLongestNumberText> lastText_ = {u'0'};
    std::size_t lastLength_ = 1;
};

}  // namespace kx
