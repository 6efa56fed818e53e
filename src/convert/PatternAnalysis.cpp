#include "convert/PatternAnalysis.h"

#include <algorithm>

#include "convert/NameLetter.h"
namespace kx {

namespace {

using Code = Instruction::Code;

bool isLoop(Instruction const& instruction) {
    return instruction.code == Code::run || instruction.code == Code::until ||
           instruction.code == Code::optional;
}

/// Adds the first places of every way through a program without loops.
void addAlternatives(Pattern const& pattern, std::size_t index, Word soFar, std::size_t maxLength,
                     std::vector<Word>& words) {
    for (; soFar.size() < maxLength; ++index) {
        Instruction const& instruction = pattern.program()[index];
        if (instruction.code == Code::match) break;
        if (instruction.code == Code::unit) soFar.push_back(literalSet(instruction.capital));
        if (instruction.code == Code::set) soFar.push_back(pattern.set(instruction));
        if (instruction.code == Code::jump)
            index = static_cast<std::size_t>(instruction.target) - 1;
        if (instruction.code == Code::split)
            addAlternatives(pattern, static_cast<std::size_t>(instruction.other), soFar, maxLength,
                            words);
    }
    words.push_back(std::move(soFar));
}

/// Whether the end of the program can be reached around one instruction.
bool canAvoid(Pattern const& pattern, std::size_t avoided) {
    std::vector<bool> seen(pattern.program().size());
    seen[avoided] = true;
    std::vector<std::size_t> open{0};
    while (!open.empty()) {
        std::size_t const index = open.back();
        open.pop_back();
        if (seen[index]) continue;
        seen[index] = true;
        Instruction const& instruction = pattern.program()[index];
        if (instruction.code == Code::match) return true;
        if (instruction.code == Code::jump || instruction.code == Code::split)
            open.push_back(static_cast<std::size_t>(instruction.target));
        if (instruction.code == Code::split)
            open.push_back(static_cast<std::size_t>(instruction.other));
        else if (instruction.code != Code::jump)
            open.push_back(index + 1);
    }
    return false;
}

/// Collects the literal texts that lead to a run of white space and "(". False if any way through
/// the program begins otherwise.
bool addNames(Pattern const& pattern, std::size_t index, std::string name,
              std::vector<std::string>& names) {
    for (;; ++index) {
        Instruction const& instruction = pattern.program()[index];
        switch (instruction.code) {
            case Code::unit:
                if (nameLetterOf(instruction.capital) == 0) return false;
                name += static_cast<char>(instruction.capital);
                break;
            case Code::run: {
                Instruction const& next = pattern.program()[index + 1];
                names.push_back(name);
                return !name.empty() && instruction.minimum == 0 &&
                       pattern.set(instruction) == whiteSpaceSet() && next.code == Code::unit &&
                       next.capital == u'(';
            }
            case Code::split:
                if (!addNames(pattern, static_cast<std::size_t>(instruction.other), name, names))
                    return false;
                break;
            case Code::jump:
                index = static_cast<std::size_t>(instruction.target) - 1;
                break;
            case Code::save:
                break;
            default:
                return false;
        }
    }
}

}  // namespace

std::vector<Word> firstPlaces(Pattern const& pattern, std::size_t maxLength) {
    std::vector<Word> words;
    auto const& program = pattern.program();
    if (!pattern.givesBack() && std::none_of(program.begin(), program.end(), isLoop))
        addAlternatives(pattern, 0, {}, maxLength, words);
    return words;
}

std::vector<Word> necessaryWords(Pattern const& pattern, std::size_t maxLength) {
    std::vector<Word> words = firstPlaces(pattern, maxLength);
    if (!words.empty()) return words;
    auto const& program = pattern.program();
    for (std::size_t i = 0; i < program.size(); ++i)
        if (program[i].code == Code::unit && !canAvoid(pattern, i))
            return {{literalSet(program[i].capital)}};
    return {};
}

std::optional<std::vector<std::string>> calledNames(Pattern const& pattern) {
    std::vector<std::string> names;
    if (pattern.givesBack() || !addNames(pattern, 0, {}, names)) return std::nullopt;
    std::sort(names.begin(), names.end(),
              [](auto const& a, auto const& b) { return a.size() > b.size(); });
    return names;
}

}  // namespace kx
