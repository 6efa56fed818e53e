// The text functions of translated formulas. Positions count from 1.
#include <algorithm>
#include <array>

#include "native/Conversions.h"
#include "native/translated/Arguments.h"
#include "native/translated/Decimals.h"
#include "native/translated/Functions.h"

namespace kx {

namespace {

bool len(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    return arguments[0].isText() && setResult(sizeOf(arguments[0].text()), result);
}

template <bool kAtStart, bool kAtEnd>
bool trim(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    if (!arguments[0].isText()) return false;
    std::u16string_view text = arguments[0].text();
    if (kAtEnd) text = withoutLastBlanks(text);
    if (kAtStart) text = withoutFirstSpace(text);
    return setResult(text, result);
}

template <bool kIsUpper>
bool inCase(Arguments arguments, Workspace& workspace, Value& result) {
    return arguments[0].isText() &&
           changeCase(arguments[0].text(), kIsUpper, workspace.arena, result);
}

bool left(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    auto const count = wholeOf(arguments[1]);
    if (!arguments[0].isText() || !count) return false;
    std::u16string_view const text = arguments[0].text();
    return setResult(text.substr(0, limitedTo(*count, text.size())), result);
}

bool right(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    if (!arguments[0].isText() || !arguments[1].isNumber()) {
        return setResult(std::u16string_view(), result);
    }
    auto const count = wholeOf(arguments[1]);
    if (!count) return false;
    std::u16string_view const text = arguments[0].text();
    return setResult(text.substr(text.size() - limitedTo(*count, text.size())), result);
}

bool substring(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    auto from = wholeOf(arguments[1]);
    if (!arguments[0].isText() || !from) return false;
    std::u16string_view const text = arguments[0].text();
    double const size = sizeOf(text);
    auto const count = wholeOr(arguments[2], size);
    if (!count) return false;
    if (*from < 0) from = std::max(1.0, size + *from + 1);
    std::size_t const first = limitedTo(*from - 1, text.size());
    return setResult(text.substr(first, limitedTo(*count, text.size())), result);
}

/// Where something is of a wrong kind the result is empty.
bool stuff(Arguments arguments, Workspace& workspace, Value& result) {
    bool const isRight = arguments[0].isText() && arguments[1].isNumber() &&
                         arguments[2].isNumber() && arguments[3].isText();
    if (!isRight) return setResult(std::u16string_view(), result);
    auto from = wholeOf(arguments[1]);
    auto const count = wholeOf(arguments[2]);
    if (!from || !count) return false;
    std::u16string_view const text = arguments[0].text();
    std::u16string_view const replacement = arguments[3].text();
    double const size = sizeOf(text);
    if (*from < 0 || *from > size) from = size + 1;
    std::size_t const first = limitedTo(*from - 1, text.size());
    std::u16string_view rest = text.substr(first);
    rest.remove_prefix(*count < 0 ? rest.size() : limitedTo(*count, rest.size()));
    std::size_t const length = first + replacement.size() + rest.size();
    char16_t* const units = workspace.arena.allocate(length);
    if (units == nullptr) return false;
    text.copy(units, first);
    replacement.copy(units + first, replacement.size());
    rest.copy(units + first + replacement.size(), rest.size());
    return setResult(std::u16string_view(units, length), result);
}

bool repeat(std::u16string_view text, Value const& count, TextArena& arena, Value& result) {
    auto const times = wholeOf(count);
    if (!times) return false;
    if (*times <= 0 || text.empty()) return setResult(std::u16string_view(), result);
    if (*times > static_cast<double>(TextArena::kMostWork)) return false;
    return setResult(repeated(text, static_cast<std::size_t>(*times), arena), result);
}

bool space(Arguments arguments, Workspace& workspace, Value& result) {
    return repeat(u" ", arguments[0], workspace.arena, result);
}

bool replicate(Arguments arguments, Workspace& workspace, Value& result) {
    return arguments[0].isText() &&
           repeat(arguments[0].text(), arguments[1], workspace.arena, result);
}

enum class Side : std::uint8_t { left, right, both };

/// A text, or a number's; other values make the result empty. The last argument is the scale.
template <Side kSide>
bool pad(Arguments arguments, Workspace& workspace, Value& result) {
    Value const& value = arguments[0];
    if (value.isNumber() && !std::isfinite(value.number)) return false;
    bool const isShown = value.isText() || value.isNumber();
    if (!isShown || !arguments[1].isNumber()) return setResult(std::u16string_view(), result);
    auto const width = wholeOf(arguments[1]);
    if (!width || *width > static_cast<double>(TextArena::kMostWork)) return false;
    std::array<Value, 2> const shown{value, arguments[3]};
    Value text = value;
    if (value.isNumber() && !findRunTimeFunction(u"ntos", false)->compute(shown, workspace, text)) {
        return false;
    }
    if (*width < 1) return setResult(std::u16string_view(), result);
    auto const size = static_cast<std::size_t>(*width);
    if (text.text().size() >= size) return setResult(text.text().substr(0, size), result);
    std::u16string_view const fill = arguments[2].isText() ? arguments[2].text() : u" ";
    char16_t const unit = fill.empty() ? u'\0' : fill[0];
    std::size_t const missing = size - text.text().size();
    std::size_t const before = kSide == Side::left   ? missing
                               : kSide == Side::both ? missing / 2
                                                     : 0;
    char16_t* const units = workspace.arena.allocate(size);
    if (units == nullptr) return false;
    char16_t* const middle = std::fill_n(units, before, unit);
    text.text().copy(middle, text.text().size());
    std::fill_n(middle + text.text().size(), missing - before, unit);
    return setResult(std::u16string_view(units, size), result);
}

bool chr(Arguments arguments, Workspace& workspace, Value& result) {
    auto const code = wholeOf(arguments[0]);
    if (!code) return false;
    constexpr double kCodes = 256;
    double const rest = std::fmod(*code, kCodes);
    auto const unit = static_cast<char16_t>(rest < 0 ? rest + kCodes : rest);
    return setResult(workspace.arena.copy(std::u16string_view(&unit, 1)), result);
}

bool asc(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    if (!arguments[0].isText()) return false;
    std::u16string_view const text = arguments[0].text();
    return setResult(text.empty() ? 0.0 : text[0], result);
}

/// Whether a text begins with a unit from `kLow` to `kHigh`, or with that of the other range.
template <char16_t kLow, char16_t kHigh, char16_t kOtherLow = kLow, char16_t kOtherHigh = kHigh>
bool beginsWith(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    std::u16string_view const text = arguments[0].isText() ? arguments[0].text() : u"";
    char16_t const unit = text.empty() ? u'\0' : text[0];
    return setResult((unit >= kLow && unit <= kHigh) || (unit >= kOtherLow && unit <= kOtherHigh),
                     result);
}

/// The place of the n-th occurrence from 1, 0 without it. Occurrences may overlap.
bool at(Arguments arguments, Workspace& workspace, Value& result) {
    auto const which = wholeOr(arguments[2], 1);
    if (!arguments[0].isText() || !arguments[1].isText() || !which) return false;
    std::u16string_view const sought = arguments[0].text();
    std::u16string_view const text = arguments[1].text();
    if (sought.empty() || *which < 1) return setResult(0.0, result);
    double place = -1;
    for (std::size_t left = limitedTo(*which, text.size() + 1); left > 0; --left) {
        auto const start = static_cast<std::size_t>(place + 1);
        if (!indexOf(text, sought, start, workspace.arena, place)) return false;
        if (place < 0) return setResult(0.0, result);
    }
    return setResult(place + 1, result);
}

bool rat(Arguments arguments, Workspace& workspace, Value& result) {
    if (!arguments[2].isNullish()) return false;
    if (!arguments[0].isText() || !arguments[1].isText()) return setResult(0.0, result);
    std::u16string_view const sought = arguments[0].text();
    double place = -1;
    if (!lastIndexOf(arguments[1].text(), sought, workspace.arena, place)) return false;
    return setResult(sought.empty() ? 0 : place + 1, result);
}

bool occurs(Arguments arguments, Workspace& workspace, Value& result) {
    if (!arguments[0].isText() || !arguments[1].isText()) return false;
    std::u16string_view const sought = arguments[0].text();
    std::u16string_view const text = arguments[1].text();
    if (sought.empty() || text.empty()) return setResult(0.0, result);
    auto const count = countParts(text, sought, workspace.arena);
    return count && setResult(static_cast<double>(*count), result);
}

bool strtran(Arguments arguments, Workspace& workspace, Value& result) {
    auto const most = wholeOr(arguments[4], -1);
    auto const from = wholeOr(arguments[3], 1);
    bool const isRight = arguments[0].isText() && arguments[1].isText() &&
                         (arguments[2].isText() || arguments[2].isNullish());
    if (!isRight || !most || !from) return false;
    std::u16string_view const text = arguments[0].text();
    std::u16string_view const sought = arguments[1].text();
    if (sought.empty()) return setResult(text, result);
    if (!workspace.arena.countWork(text.size() * sought.size())) return false;
    std::u16string_view const replacement = arguments[2].isText() ? arguments[2].text() : u"";
    double const first = std::max(1.0, *from);
    std::u16string made;
    std::size_t start = 0;
    double number = 0;
    for (std::size_t place = text.find(sought); place != std::u16string_view::npos;
         place = text.find(sought, start)) {
        if (*most >= 0 && number >= first - 1 && number - first + 1 >= *most) break;
        made.append(text.substr(start, place - start));
        made.append(++number >= first ? replacement : sought);
        if (made.size() > TextArena::kMostWork) return false;
        start = place + sought.size();
    }
    made.append(text.substr(start));
    return setResult(workspace.arena.copy(std::u16string_view(made)), result);
}

bool chrtran(Arguments arguments, Workspace& workspace, Value& result) {
    if (!arguments[0].isText() || !arguments[1].isText() || !arguments[2].isText()) return false;
    return setResult(replacedUnits(arguments[0].text(), arguments[1].text(), arguments[2].text(),
                                   workspace.arena),
                     result);
}

constexpr std::array kFunctions = {
    Function{u"alltrim", trim<true, true>, 1},
    Function{u"asc", asc, 1},
    Function{u"at", at, 3},
    Function{u"chr", chr, 1},
    Function{u"chrtran", chrtran, 3},
    Function{u"isalpha", beginsWith<u'A', u'Z', u'a', u'z'>, 1},
    Function{u"isdigit", beginsWith<u'0', u'9'>, 1},
    Function{u"islower", beginsWith<u'a', u'z'>, 1},
    Function{u"isupper", beginsWith<u'A', u'Z'>, 1},
    Function{u"left", left, 2},
    Function{u"len", len, 1},
    Function{u"lower", inCase<false>, 1},
    Function{u"ltrim", trim<true, false>, 1},
    Function{u"occurs", occurs, 2},
    Function{u"padc", pad<Side::both>, 4},
    Function{u"padl", pad<Side::left>, 4},
    Function{u"padr", pad<Side::right>, 4},
    Function{u"rat", rat, 3},
    Function{u"replicate", replicate, 2},
    Function{u"right", right, 2},
    Function{u"space", space, 1},
    Function{u"strtran", strtran, 5},
    Function{u"stuff", stuff, 4},
    Function{u"substr", substring, 3},
    Function{u"trim", trim<false, true>, 1},
    Function{u"upper", inCase<true>, 1},
};

static_assert(isInOrder(kFunctions));

}  // namespace

std::span<Function const> runTimeTextFunctions() { return kFunctions; }

}  // namespace kx
