// What texts can do, and the steps that the catalogues' text functions share.
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "native/Conversions.h"
#include "native/FunctionEntries.h"
#include "text/WhiteSpace.h"

namespace kx {

namespace {

/// `number`, not below zero and not above the text's length.
std::size_t clamped(double number, std::u16string_view text) {
    return static_cast<std::size_t>(std::clamp(number, 0.0, sizeOf(text)));
}

/// Counts the work of a search. The worst case of a short part is rare enough not to count.
bool countSearch(std::u16string_view text, std::u16string_view part, TextArena& arena) {
    constexpr std::size_t kShort = 16;
    if (!arena.countWork(text.size() + part.size())) return false;
    return part.size() <= kShort || arena.countWork(text.size() * part.size());
}

/// A place that counts from the end where it is negative.
std::size_t relative(double place, std::u16string_view text) {
    return clamped(place < 0 ? place + sizeOf(text) : place, text);
}

}  // namespace

bool substr(std::u16string_view text, Value const& start, Value const& length, Value& result) {
    auto const from = toWholeNumber(start);
    auto const count = length.isUndefined() ? sizeOf(text) : toWholeNumber(length);
    if (!from || !count) return false;
    std::size_t const first = relative(*from, text);
    return setResult(text.substr(first, clamped(*count, text)), result);
}

bool slice(std::u16string_view text, Value const& start, Value const& end, Value& result) {
    auto const from = toWholeNumber(start);
    auto const to = end.isUndefined() ? sizeOf(text) : toWholeNumber(end);
    if (!from || !to) return false;
    std::size_t const first = relative(*from, text);
    std::size_t const last = relative(*to, text);
    return setResult(text.substr(first, last > first ? last - first : 0), result);
}

bool indexOf(std::u16string_view text, std::u16string_view part, std::size_t start,
             TextArena& arena, double& place) {
    if (!countSearch(text, part, arena)) return false;
    std::size_t const found = text.find(part, start);
    place = found == std::u16string_view::npos ? -1 : static_cast<double>(found);
    return true;
}

bool lastIndexOf(std::u16string_view text, std::u16string_view part, TextArena& arena,
                 double& place) {
    if (!arena.countWork(text.size() * std::max<std::size_t>(part.size(), 1))) return false;
    std::size_t const found = text.rfind(part);
    place = found == std::u16string_view::npos ? -1 : static_cast<double>(found);
    return true;
}

std::optional<std::size_t> countParts(std::u16string_view text, std::u16string_view part,
                                      TextArena& arena) {
    if (!countSearch(text, part, arena)) return std::nullopt;
    std::size_t count = 0;
    for (std::size_t place = text.find(part); place != std::u16string_view::npos;
         place = text.find(part, place + part.size())) {
        ++count;
    }
    return count;
}

std::optional<std::u16string_view> repeated(std::u16string_view text, std::size_t times,
                                            TextArena& arena) {
    char16_t* const units = arena.allocate(text.size() * times);
    if (units == nullptr) return std::nullopt;
    if (text.size() == 1) {
        std::fill_n(units, times, text.front());
    } else {
        for (std::size_t i = 0; i < times; ++i) text.copy(units + i * text.size(), text.size());
    }
    return std::u16string_view(units, text.size() * times);
}

std::optional<std::u16string_view> replacedUnits(std::u16string_view text,
                                                 std::u16string_view sought,
                                                 std::u16string_view replacement,
                                                 TextArena& arena) {
    char16_t* const units = arena.allocate(text.size());
    if (units == nullptr || !arena.countWork(text.size() * sought.size())) return std::nullopt;
    char16_t* end = units;
    for (char16_t const unit : text) {
        std::size_t const place = sought.find(unit);
        if (place == std::u16string_view::npos) {
            *end++ = unit;
        } else if (place < replacement.size()) {
            *end++ = replacement[place];
        }
    }
    return std::u16string_view(units, static_cast<std::size_t>(end - units));
}

bool changeCase(std::u16string_view text, bool isUpper, TextArena& arena, Value& result) {
    char16_t* const units = arena.allocate(text.size());
    if (units == nullptr) return false;
    char16_t const first = isUpper ? u'a' : u'A';
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] >= 128) return false;
        bool const changes = text[i] >= first && text[i] < first + 26;
        units[i] = changes ? static_cast<char16_t>(text[i] ^ 0x20) : text[i];
    }
    return setResult(std::u16string_view(units, text.size()), result);
}

bool trimText(Value const& value, Match::Pattern pattern, Workspace& workspace, Value& result) {
    if (!value.isText()) return false;
    std::u16string_view text = value.text();
    if (pattern != Match::Pattern::trailingBlanks) text = withoutLeadingSpace(text);
    if (pattern != Match::Pattern::leadingBlanks) text = withoutTrailingSpace(text);
    if (text.size() != value.text().size()) workspace.match = {pattern, value.text()};
    return setResult(text, result);
}

// Of two decimals that are equally near JavaScript takes the larger, std::to_chars the even one. A
// number lies in the middle between two decimals with n places if, and only if, twice the number
// times 2^n is odd: times 5^n it stays odd.
bool toFixed(double number, double decimals, TextArena& arena, Value& result) {
    constexpr double kTooLarge = 1e15;
    constexpr int kMostDecimals = 20;
    if (!(std::abs(number) < kTooLarge) || !(decimals >= 0 && decimals <= kMostDecimals)) {
        return false;
    }
    int const places = static_cast<int>(decimals);
    double size = std::abs(number);
    double const doubled = std::ldexp(size, places + 1);
    if (std::fmod(doubled, 2) == 1) size = std::nextafter(size, kTooLarge);
    std::array<char, 48> digits;
    char* end = digits.data();
    if (number < 0) *end++ = '-';
    end = std::to_chars(end, digits.data() + digits.size(), size, std::chars_format::fixed, places)
              .ptr;
    return setResult(arena.copy(std::string_view(digits.data(), end)), result);
}

namespace {

std::u16string_view receiver(Arguments arguments) { return arguments[0].text(); }

bool charAt(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    auto const place = toWholeNumber(arguments[1]);
    if (!place) return false;
    bool const isInside = *place >= 0 && *place < sizeOf(receiver(arguments));
    auto const unit = static_cast<std::size_t>(isInside ? *place : 0);
    return setResult(receiver(arguments).substr(unit, isInside ? 1 : 0), result);
}

bool charCodeAt(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    auto const place = toWholeNumber(arguments[1]);
    if (!place) return false;
    bool const isInside = *place >= 0 && *place < sizeOf(receiver(arguments));
    if (!isInside) return setResult(std::numeric_limits<double>::quiet_NaN(), result);
    return setResult(static_cast<double>(receiver(arguments)[static_cast<std::size_t>(*place)]),
                     result);
}

bool substring(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    std::u16string_view const text = receiver(arguments);
    auto const start = toWholeNumber(arguments[1]);
    auto const end = arguments[2].isUndefined() ? sizeOf(text) : toWholeNumber(arguments[2]);
    if (!start || !end) return false;
    auto const [first, last] = std::minmax({clamped(*start, text), clamped(*end, text)});
    return setResult(text.substr(first, last - first), result);
}

bool substrOf(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    return substr(receiver(arguments), arguments[1], arguments[2], result);
}

bool sliceOf(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    return slice(receiver(arguments), arguments[1], arguments[2], result);
}

/// The place of the text `arguments[1]`, from `arguments[2]` on.
bool findPart(Arguments arguments, Workspace& workspace, double& place) {
    auto const part = toText(arguments[1], workspace.arena);
    auto const start = toWholeNumber(arguments[2]);
    if (!part || !start) return false;
    return indexOf(receiver(arguments), *part, clamped(*start, receiver(arguments)),
                   workspace.arena, place);
}

bool indexOfPart(Arguments arguments, Workspace& workspace, Value& result) {
    double place = 0;
    return findPart(arguments, workspace, place) && setResult(place, result);
}

bool includes(Arguments arguments, Workspace& workspace, Value& result) {
    double place = 0;
    return findPart(arguments, workspace, place) && setResult(place >= 0, result);
}

bool lastIndexOfPart(Arguments arguments, Workspace& workspace, Value& result) {
    auto const part = toText(arguments[1], workspace.arena);
    double place = 0;
    return part && arguments[2].isUndefined() &&
           lastIndexOf(receiver(arguments), *part, workspace.arena, place) &&
           setResult(place, result);
}

bool startsWith(Arguments arguments, Workspace& workspace, Value& result) {
    auto const part = toText(arguments[1], workspace.arena);
    return part && arguments[2].isUndefined() &&
           setResult(receiver(arguments).starts_with(*part), result);
}

bool endsWith(Arguments arguments, Workspace& workspace, Value& result) {
    auto const part = toText(arguments[1], workspace.arena);
    return part && arguments[2].isUndefined() &&
           setResult(receiver(arguments).ends_with(*part), result);
}

template <bool kIsUpper>
bool inCase(Arguments arguments, Workspace& workspace, Value& result) {
    return changeCase(receiver(arguments), kIsUpper, workspace.arena, result);
}

constexpr std::array kMembers = {
    Function{u"charAt", charAt, 2},
    Function{u"charCodeAt", charCodeAt, 2},
    Function{u"endsWith", endsWith, 3},
    Function{u"includes", includes, 3},
    Function{u"indexOf", indexOfPart, 3},
    Function{u"lastIndexOf", lastIndexOfPart, 3},
    Function{u"slice", sliceOf, 3},
    Function{u"startsWith", startsWith, 3},
    Function{u"substr", substrOf, 3},
    Function{u"substring", substring, 3},
    Function{u"toLowerCase", inCase<false>, 1},
    Function{u"toUpperCase", inCase<true>, 1},
};

static_assert(isInOrder(kMembers));

}  // namespace

Function const* findTextMember(std::u16string_view name) { return findByName(kMembers, name); }

}  // namespace kx
