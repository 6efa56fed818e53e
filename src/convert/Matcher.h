#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory_resource>
#include <string_view>
#include <vector>

#include "convert/Pattern.h"

/// Runs the program of a pattern over one text, at ascending start positions, with the meaning
/// that ECMAScript gives to the pattern: alternatives in order, loops greedy, giving back one unit
/// at a time. The result is as if every position were tried afresh; the cost is linear in the
/// length of the text, however many positions are tried:
///
/// - A pattern without loops costs at most the length of its program at each position.
///
/// - In a pattern whose loops never have to give back (Pattern.cpp finds that out), a loop is a
///   run to the first unit outside its set, and each loop remembers its last run: entering it
///   again within that costs nothing. Such patterns among the rules are a few names, white space,
///   "(", and then nothing, or one run to the next ")", or one run to the next "," and another to
///   the next ")". White space is entered at its first unit only, as a name ends before it, and
///   by at most one attempt for each name. The runs behind "(" are entered at ascending places,
///   as no name holds a "(" and the "," next to a later place is not an earlier one; so each
///   covers a unit once. Together they look at a unit at most once for each name and run.
///
/// - In a pattern whose loops may have to give back, every choice is a split, and a split is
///   followed only once at each position. There are no back references, so what a split leads to
///   depends on the position alone, and one that has failed fails again. One that has not failed
///   is on the way of a match that ended at or behind it, while later attempts begin at that end
///   or behind it. They could meet it only at the very end; then the rest of the pattern behind
///   it and all of the pattern before it would match nothing, and so would the pattern, which
///   none does. Between two splits lies less than the length of the program.
namespace kx {

inline constexpr std::size_t nowhere = std::numeric_limits<std::size_t>::max();

/// The meter of ordinary builds: nothing is counted and nothing is left of it. Tests pass one that
/// adds up the steps.
struct NoMeter {
    static void count(std::size_t) {}
};

/// A place to go back to.
struct Choice {
    std::size_t instruction;
    std::size_t position;
};

/// Memory that matchers use in turn.
struct MatcherMemory {
    explicit MatcherMemory(std::pmr::memory_resource* memory) : choices(memory), tried(memory) {}

    std::pmr::vector<Choice> choices;
    std::pmr::vector<std::uint8_t> tried;  ///< one bit for each split, for each position
};

template <class Meter>
class Matcher {
  public:
    Matcher(Pattern const& pattern, std::u16string_view text, MatcherMemory& memory, Meter& meter)
        : pattern(pattern), text(text), memory(memory), meter(meter) {
        if (pattern.givesBack()) memory.tried.assign(text.size() + 1, 0);
    }

    /// The end of the match that begins at `start`, or `nowhere`. Starts ascend from call to call,
    /// and after a match the next start is not before its end.
    std::size_t matchAt(std::size_t start);

    /// Where a group of the last match begins and ends; groups are counted from 1.
    std::size_t groupBegin(std::size_t number) const { return saved[2 * number - 2]; }
    std::size_t groupEnd(std::size_t number) const { return saved[2 * number - 1]; }

  private:
    struct Range {
        std::size_t begin = 1, end = 0;
    };

    bool holds(SymbolSet const& set, std::size_t position) const {
        return position < text.size() && set[symbolOf(text[position])];
    }
    std::size_t endOfRun(Instruction const& run, std::size_t position);
    bool triedBefore(Instruction const& split, std::size_t position);

    Pattern const& pattern;
    std::u16string_view text;
    MatcherMemory& memory;
    Meter& meter;
    std::array<std::size_t, 2 * Pattern::maxGroups> saved{};
    std::array<Range, Pattern::maxRuns> lastRuns{};
};

template <class Meter>
std::size_t Matcher<Meter>::matchAt(std::size_t start) {
    using Code = Instruction::Code;
    Instruction const* const program = pattern.program().data();
    std::size_t next = 0;
    std::size_t position = start;
    memory.choices.clear();
    for (;;) {
        meter.count(1);
        Instruction const& instruction = program[next++];
        bool failed = false;
        switch (instruction.code) {
            case Code::unit:
                failed = position >= text.size() || (text[position] != instruction.capital &&
                                                     text[position] != instruction.small);
                ++position;
                break;
            case Code::set:
                failed = !holds(pattern.set(instruction), position);
                ++position;
                break;
            case Code::run:
            case Code::until: {
                std::size_t const end = endOfRun(instruction, position);
                failed = end - position < instruction.minimum;
                position = end;
                break;
            }
            case Code::optional:
                if (holds(pattern.set(instruction), position)) ++position;
                break;
            case Code::split:
                failed = pattern.givesBack() && triedBefore(instruction, position);
                if (failed) break;
                memory.choices.push_back({static_cast<std::size_t>(instruction.other), position});
                next = static_cast<std::size_t>(instruction.target);
                break;
            case Code::jump:
                next = static_cast<std::size_t>(instruction.target);
                break;
            case Code::save:
                saved[instruction.slot] = position;
                break;
            case Code::match:
                return position;
        }
        if (!failed) continue;
        if (memory.choices.empty()) return nowhere;
        next = memory.choices.back().instruction;
        position = memory.choices.back().position;
        memory.choices.pop_back();
    }
}

template <class Meter>
std::size_t Matcher<Meter>::endOfRun(Instruction const& run, std::size_t position) {
    Range& last = lastRuns[run.slot];
    if (position >= last.begin && position <= last.end) return last.end;
    std::size_t end = position;
    if (run.code == Instruction::Code::until)
        while (end < text.size() && text[end] != run.capital) ++end;
    else
        while (holds(pattern.set(run), end)) ++end;
    meter.count(end - position);
    last = {position, end};
    return end;
}

template <class Meter>
bool Matcher<Meter>::triedBefore(Instruction const& split, std::size_t position) {
    auto const bit = static_cast<std::uint8_t>(1U << split.slot);
    std::uint8_t& tried = memory.tried[position];
    if ((tried & bit) != 0) return true;
    tried |= bit;
    return false;
}

}  // namespace kx
