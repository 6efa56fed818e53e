#include "convert/PatternCompiler.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace kx {

namespace {

using Code = Instruction::Code;

void append(std::vector<Instruction>& to, std::vector<Instruction> const& from) {
    to.insert(to.end(), from.begin(), from.end());
}

bool isOneOf(char16_t unit, std::u16string_view units) {
    return units.find(unit) != std::u16string_view::npos;
}

/// The first ASCII unit of a set, or 128.
char16_t firstUnitOf(SymbolSet const& set) {
    char16_t unit = 0;
    while (unit < 128 && !set[unit]) ++unit;
    return unit;
}

}  // namespace

std::vector<Instruction> PatternCompiler::compile() {
    Fragment program = alternatives();
    if (!atEnd()) refuse("unmatched )");
    program.push_back({.code = Code::match});
    if (groups > Pattern::maxGroups) refuse("too many groups");
    for (std::size_t i = 0; i < program.size(); ++i) {
        program[i].target += static_cast<std::ptrdiff_t>(i);
        program[i].other += static_cast<std::ptrdiff_t>(i);
    }
    return program;
}

// A|B|C becomes: split A, next; A; jump end; next: split B, next; B; jump end; next: C; end.
PatternCompiler::Fragment PatternCompiler::alternatives() {
    std::uint16_t const groupsBefore = groups;
    std::vector<Fragment> parts{sequence()};
    while (take(u'|')) parts.push_back(sequence());
    if (parts.size() > 1 && groups != groupsBefore) refuse("a group inside an alternative");

    Fragment result = std::move(parts.back());
    for (auto part = parts.rbegin() + 1; part != parts.rend(); ++part) {
        auto const partSize = static_cast<std::ptrdiff_t>(part->size());
        auto const restSize = static_cast<std::ptrdiff_t>(result.size());
        Fragment joined{split(1, partSize + 2)};
        append(joined, *part);
        joined.push_back({.code = Code::jump, .target = restSize + 1});
        append(joined, result);
        result = std::move(joined);
    }
    return result;
}

PatternCompiler::Fragment PatternCompiler::sequence() {
    Fragment result;
    while (!atEnd() && !at(u'|') && !at(u')'))
        append(result, take(u'(') ? group() : quantified(atom()));
    return result;
}

PatternCompiler::Fragment PatternCompiler::group() {
    if (inGroup) refuse("a group in a group");
    if (at(u'?')) refuse("a group that does not capture");
    inGroup = true;
    ++groups;
    auto const slot = static_cast<std::uint16_t>(2 * (groups - 1));
    Fragment result{{.code = Code::save, .slot = slot}};
    std::uint16_t const outer = groups;
    append(result, alternatives());
    if (groups != outer || !take(u')')) refuse("unclosed group");
    result.push_back({.code = Code::save, .slot = static_cast<std::uint16_t>(slot + 1)});
    inGroup = false;
    if (!atEnd() && isOneOf(text[position], u"*+?{")) refuse("a repeated group");
    return result;
}

PatternCompiler::Fragment PatternCompiler::quantified(SymbolSet const& set) {
    Fragment result;
    if (take(u'*'))
        result = loop(set, 0);
    else if (take(u'+'))
        result = loop(set, 1);
    else if (take(u'?'))
        result = option(set);
    else
        return one(set);
    if (!atEnd() && isOneOf(text[position], u"*+?{")) refuse("a quantifier after a quantifier");
    return result;
}

SymbolSet PatternCompiler::atom() {
    if (take(u'.')) return anyButLineEndSet();
    if (take(u'[')) return characterClass();
    if (take(u'\\')) return escape();
    if (isOneOf(text[position], u"*+?{}^$]")) refuse("an unsupported operator");
    return literal();
}

SymbolSet PatternCompiler::characterClass() {
    bool const inverted = take(u'^');
    SymbolSet set;
    while (!atEnd() && !at(u']')) {
        if (at(u'-')) refuse("a range");
        set |= take(u'\\') ? escape() : literal();
    }
    if (!take(u']')) refuse("unclosed class");
    if (inverted) set.flip();
    return set;
}

SymbolSet PatternCompiler::escape() {
    if (take(u's')) return whiteSpaceSet();
    if (take(u'd')) return digitSet();
    if (atEnd() || !isOneOf(text[position], uR"(^$\.*+?()[]{}|/)")) refuse("an unsupported escape");
    return literal();
}

SymbolSet PatternCompiler::literal() {
    if (text[position] >= 128) refuse("a character beyond ASCII");
    return literalSet(text[position++]);
}

PatternCompiler::Fragment PatternCompiler::one(SymbolSet const& set) {
    char16_t const unit = firstUnitOf(set);
    if (unit < 128 && set == literalSet(unit))
        return {{.code = Code::unit, .capital = capitalOf(unit), .small = smallOf(unit)}};
    return {withSet(Code::set, set)};
}

// With giving back, x* becomes: loop: split body, end; body: x; jump loop; end. And x+ is x x*.
PatternCompiler::Fragment PatternCompiler::loop(SymbolSet const& set, std::uint16_t minimum) {
    if (loops == Loops::keep) {
        Instruction run = withSet(Code::run, set);
        char16_t const unit = firstUnitOf(~set);
        if (unit < 128 && set == ~SymbolSet{}.set(unit)) {
            run.code = Code::until;
            run.capital = unit;
        }
        run.minimum = minimum;
        run.slot = runs++;
        return {run};
    }
    Fragment result;
    if (minimum == 1) append(result, one(set));
    result.push_back(split(1, 3));
    append(result, one(set));
    result.push_back({.code = Code::jump, .target = -2});
    return result;
}

PatternCompiler::Fragment PatternCompiler::option(SymbolSet const& set) {
    if (loops == Loops::keep) return {withSet(Code::optional, set)};
    Fragment result{split(1, 2)};
    append(result, one(set));
    return result;
}

Instruction PatternCompiler::withSet(Code code, SymbolSet const& set) {
    Instruction instruction{.code = code};
    auto const known = std::find(sets.begin(), sets.end(), set);
    instruction.set = static_cast<std::uint16_t>(known - sets.begin());
    if (known == sets.end()) sets.push_back(set);
    return instruction;
}

Instruction PatternCompiler::split(std::ptrdiff_t target, std::ptrdiff_t other) {
    return {.code = Code::split, .slot = splits++, .target = target, .other = other};
}

bool PatternCompiler::take(char16_t unit) {
    if (!at(unit)) return false;
    ++position;
    return true;
}

void PatternCompiler::refuse(char const* reason) const {
    throw std::invalid_argument("pattern not supported: " + std::string(reason) + " at position " +
                                std::to_string(position));
}

}  // namespace kx
