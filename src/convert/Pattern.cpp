#include "convert/Pattern.h"

#include <stdexcept>

#include "convert/PatternCompiler.h"

namespace kx {

namespace {

using Code = Instruction::Code;

struct Continuation {
    SymbolSet first;        ///< the symbols that it can begin with
    bool nullable = false;  ///< whether it can match nothing
};

/// What the program can do from an instruction on. Backward jumps do not occur where a program is
/// looked at: it has runs in place of split loops.
Continuation continuationAt(Pattern const& pattern, std::size_t index) {
    Continuation result;
    for (;; ++index) {
        Instruction const& instruction = pattern.program()[index];
        switch (instruction.code) {
            case Code::unit:
                result.first |= literalSet(instruction.capital);
                return result;
            case Code::set:
                result.first |= pattern.set(instruction);
                return result;
            case Code::run:
            case Code::until:
                result.first |= pattern.set(instruction);
                if (instruction.minimum > 0) return result;
                break;
            case Code::optional:
                result.first |= pattern.set(instruction);
                break;
            case Code::split: {
                auto const other = static_cast<std::size_t>(instruction.other);
                Continuation const second = continuationAt(pattern, other);
                result.first |= second.first;
                result.nullable |= second.nullable;
                break;
            }
            case Code::jump:
                index = static_cast<std::size_t>(instruction.target) - 1;
                break;
            case Code::save:
                break;
            case Code::match:
                result.nullable = true;
                return result;
        }
    }
}

/// Whether a loop that has taken all it can may be left with less in a successful match. It cannot
/// if what follows must begin with a symbol outside the loop's set: a shorter loop leaves a symbol
/// of the set there. Nor if what follows can match nothing: then the longest loop succeeds.
bool mayGiveBack(Pattern const& pattern, std::size_t index) {
    Instruction const& instruction = pattern.program()[index];
    bool const isLoop = instruction.code == Code::run || instruction.code == Code::until ||
                        instruction.code == Code::optional;
    if (!isLoop) return false;
    Continuation const rest = continuationAt(pattern, index + 1);
    return !rest.nullable && (rest.first & pattern.set(instruction)).any();
}

}  // namespace

Pattern::Pattern(std::u16string_view text) {
    PatternCompiler compiler(text, PatternCompiler::Loops::keep);
    instructions = compiler.compile();
    sets = compiler.takeSets();

    Continuation const whole = continuationAt(*this, 0);
    if (whole.nullable) throw std::invalid_argument("pattern not supported: matches nothing");
    first = whole.first;

    for (std::size_t i = 0; i < instructions.size(); ++i) loopsGiveBack |= mayGiveBack(*this, i);
    if (loopsGiveBack) {
        PatternCompiler splitting(text, PatternCompiler::Loops::giveBack);
        instructions = splitting.compile();
        sets = splitting.takeSets();
    }
    for (Instruction const& instruction : instructions) {
        bool const isRun = instruction.code == Code::run || instruction.code == Code::until;
        if ((isRun && instruction.slot >= maxRuns) ||
            (loopsGiveBack && instruction.code == Code::split && instruction.slot >= maxSplits))
            throw std::invalid_argument("pattern not supported: too many loops");
    }
}

}  // namespace kx
