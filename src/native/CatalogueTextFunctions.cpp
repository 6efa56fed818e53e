#include "native/CatalogueTextFunctions.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kx {

namespace {

/// How often `for(var i=0;i<count;i++)` runs. False where that is too often.
bool loops(double count, std::size_t& times) {
    if (count > static_cast<double>(TextArena::kMostWork)) return false;
    times = count > 0 ? static_cast<std::size_t>(std::ceil(count)) : 0;
    return true;
}

bool filled(char16_t unit, double count, Workspace& workspace, std::u16string_view& text) {
    std::size_t times = 0;
    if (!loops(count, times)) return false;
    auto const units = repeated(std::u16string_view(&unit, 1), times, workspace.arena);
    text = units.value_or(std::u16string_view());
    return units.has_value();
}

/// "n1=(n1)?n1:usual", of a number.
bool numberOr(Value const& value, double usual, double& number) {
    if (!value.isNumber() && !value.isUndefined()) return false;
    number = isTrue(value) ? value.number : usual;
    return true;
}

/// The place of the occurrence `which`, or -1. A search that may not end is left to V8: for an
/// empty part, or for an occurrence that counting never reaches.
bool findOccurrence(std::u16string_view text, std::u16string_view part, Value const& which,
                    bool isFromEnd, Workspace& workspace, Value& result) {
    double sought = 0;
    if (!numberOr(which, 1, sought) || part.empty()) return false;
    if (sought < 0) return setResult(-1.0, result);
    double place = -1;
    for (double found = 1;; ++found) {
        if (isFromEnd && text.empty()) return setResult(-1.0, result);
        bool const isSearched =
            isFromEnd
                ? lastIndexOf(text, part, workspace.arena, place)
                : indexOf(text, part, std::min(static_cast<std::size_t>(place + 1), text.size()),
                          workspace.arena, place);
        if (!isSearched) return false;
        if (place == -1 || found == sought) return setResult(place, result);
        if (isFromEnd) text = text.substr(0, static_cast<std::size_t>(place));
    }
}

bool inLowerCase(Value const& value, Workspace& workspace, Value& result) {
    auto const text = toText(value, workspace.arena);
    return text && changeCase(*text, false, workspace.arena, result);
}

bool countOccurrences(std::u16string_view part, std::u16string_view text, Workspace& workspace,
                      Value& result) {
    if (part.empty()) return setResult(sizeOf(text) - 1, result);
    auto const count = countParts(text, part, workspace.arena);
    return count && setResult(static_cast<double>(*count), result);
}

/// TRUNCATE of a number.
bool cut(double number, double decimals, Workspace& workspace, Value& result) {
    auto const text = toText(Value::of(number), workspace.arena);
    if (!text) return false;
    std::size_t const point = text->find(u'.');
    if (point == std::u16string_view::npos) return setResult(number, result);
    Value kept;
    if (!substr(*text, Value::of(0.0), Value::of(sizeOf(text->substr(0, point)) + decimals + 1),
                kept)) {
        return false;
    }
    return setResult(textToNumber(kept.text()), result);
}

}  // namespace

bool firstUnit(Value const& value, Workspace& workspace, std::u16string_view& unit) {
    auto const text = toText(value, workspace.arena);
    if (text) unit = text->substr(0, 1);
    return text.has_value();
}

bool isOfClass(std::u16string_view unit, bool (*isMember)(char16_t), Workspace& workspace) {
    if (unit.empty() || !isMember(unit.front())) return false;
    workspace.match = {Match::Pattern::unit, unit};
    return true;
}

bool isControl(Arguments arguments, Workspace& workspace, Value& result) {
    std::u16string_view unit;
    if (!firstUnit(arguments[0], workspace, unit)) return false;
    return setResult((codeOf(unit) >= 0 && codeOf(unit) < 0x1f) || codeOf(unit) == 0x7f, result);
}

bool isPunctuation(Arguments arguments, Workspace& workspace, Value& result) {
    std::u16string_view unit;
    if (!firstUnit(arguments[0], workspace, unit)) return false;
    bool const isPrintable = codeOf(unit) >= 0x20 && codeOf(unit) <= 0x7e;
    return setResult(isPrintable && !isOfClass(unit, isWhiteSpaceUnit, workspace) &&
                         !isOfClass(unit, isAlphanumeric, workspace),
                     result);
}

bool ascii(Arguments arguments, Workspace& workspace, Value& result) {
    std::u16string_view unit;
    if (!firstUnit(arguments[0], workspace, unit)) return false;
    return setResult(unit.empty() ? std::numeric_limits<double>::quiet_NaN() : unit.front(),
                     result);
}

bool charOf(Arguments arguments, Workspace& workspace, Value& result) {
    auto const code = toNumber(arguments[0]);
    if (!code) return false;
    auto const unit = static_cast<char16_t>(toInt32(*code) & 0xFFFF);
    return setResult(workspace.arena.copy(std::u16string_view(&unit, 1)), result);
}

bool len(Arguments arguments, Workspace& workspace, Value& result) {
    auto const text = toText(arguments[0], workspace.arena);
    return text && setResult(sizeOf(*text), result);
}

bool concat(Arguments arguments, Workspace& workspace, Value& result) {
    auto const first = toText(arguments[0], workspace.arena);
    auto const second = toText(arguments[1], workspace.arena);
    if (!first || !second) return false;
    return setResult(joined(*first, *second, workspace.arena), result);
}

bool left(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    return arguments[0].isText() &&
           substr(arguments[0].text(), Value::of(0.0), arguments[1], result);
}

bool right(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    auto const count = toNumber(arguments[1]);
    if (!arguments[0].isText() || !count) return false;
    auto const isNone = areEqual(arguments[1], Value::of(0.0));
    if (!isNone) return false;
    if (*isNone) return setResult(std::u16string_view(), result);
    return substr(arguments[0].text(), Value::of(-*count), {}, result);
}

bool substrOf(Arguments arguments, Workspace& workspace, Value& result) {
    auto const text = toText(arguments[0], workspace.arena);
    return text &&
           substr(*text, arguments[1], isTrue(arguments[2]) ? arguments[2] : Value{}, result);
}

bool locate(Arguments arguments, Workspace& workspace, Value& result) {
    auto const part = toText(arguments[1], workspace.arena);
    auto const start = isTrue(arguments[2]) ? toWholeNumber(arguments[2]) : 0;
    if (!arguments[0].isText() || !part || !start) return false;
    std::u16string_view const text = arguments[0].text();
    double place = 0;
    return indexOf(text, *part, static_cast<std::size_t>(std::clamp(*start, 0.0, sizeOf(text))),
                   workspace.arena, place) &&
           setResult(place, result);
}

bool at(Arguments arguments, Workspace& workspace, Value& result) {
    auto const text = toText(arguments[0], workspace.arena);
    auto const part = toText(arguments[1], workspace.arena);
    return text && part && findOccurrence(*text, *part, arguments[2], false, workspace, result);
}

bool rat(Arguments arguments, Workspace& workspace, Value& result) {
    auto const text = toText(arguments[0], workspace.arena);
    auto const part = toText(arguments[1], workspace.arena);
    return text && part && findOccurrence(*text, *part, arguments[2], true, workspace, result);
}

bool atc(Arguments arguments, Workspace& workspace, Value& result) {
    Value text;
    Value part;
    return inLowerCase(arguments[0], workspace, text) &&
           inLowerCase(arguments[1], workspace, part) &&
           findOccurrence(text.text(), part.text(), arguments[2], false, workspace, result);
}

bool ratc(Arguments arguments, Workspace& workspace, Value& result) {
    Value text;
    Value part;
    return inLowerCase(arguments[0], workspace, text) &&
           inLowerCase(arguments[1], workspace, part) &&
           findOccurrence(text.text(), part.text(), arguments[2], true, workspace, result);
}

bool occurs(Arguments arguments, Workspace& workspace, Value& result) {
    auto const part = toText(arguments[0], workspace.arena);
    auto const text = toText(arguments[1], workspace.arena);
    return part && text && countOccurrences(*part, *text, workspace, result);
}

bool ioccurs(Arguments arguments, Workspace& workspace, Value& result) {
    Value part;
    Value text;
    return inLowerCase(arguments[0], workspace, part) &&
           inLowerCase(arguments[1], workspace, text) &&
           countOccurrences(part.text(), text.text(), workspace, result);
}

bool space(Arguments arguments, Workspace& workspace, Value& result) {
    auto const count = toNumber(arguments[0]);
    std::u16string_view text;
    return count && filled(u' ', *count, workspace, text) && setResult(text, result);
}

bool rpad(Arguments arguments, Workspace& workspace, Value& result) {
    auto const text = toText(arguments[0], workspace.arena);
    auto const size = toNumber(arguments[1]);
    std::u16string_view blanks;
    if (!text || !size || !filled(u' ', *size - sizeOf(*text), workspace, blanks)) return false;
    return setResult(joined(*text, blanks, workspace.arena), result);
}

bool repeat(Arguments arguments, Workspace& workspace, Value& result) {
    if (!arguments[1].isNumber()) {
        result = {};
        return true;
    }
    auto const text = toText(arguments[0], workspace.arena);
    std::size_t times = 0;
    if (!text || !loops(arguments[1].number, times)) return false;
    return setResult(repeated(*text, times, workspace.arena), result);
}

bool truncate(Arguments arguments, Workspace& workspace, Value& result) {
    auto const decimals = toNumber(arguments[1]);
    return arguments[0].isNumber() && decimals &&
           cut(arguments[0].number, std::abs(*decimals), workspace, result);
}

bool frac(Arguments arguments, Workspace& workspace, Value& result) {
    auto const text = toText(arguments[0], workspace.arena);
    if (!text || !arguments[0].isNumber()) return false;
    std::size_t const point = text->find(u'.');
    if (point == std::u16string_view::npos) return setResult(0.0, result);
    // The point, and what stands behind it.
    auto const fraction = textToNumber(text->substr(point));
    if (!fraction) return false;
    return setResult(text->front() == u'-' ? -*fraction : *fraction, result);
}

bool fillUp(Arguments arguments, char16_t filler, Workspace& workspace, Value& result) {
    double size = 0;
    double decimals = 0;
    Value number;
    if (!arguments[0].isNumber() || !numberOr(arguments[1], 10, size) ||
        !numberOr(arguments[2], 0, decimals) ||
        !cut(arguments[0].number, std::abs(decimals), workspace, number)) {
        return false;
    }
    auto const text = toText(number, workspace.arena);
    std::u16string_view front;
    if (!text || !filled(filler, size - sizeOf(*text), workspace, front)) return false;
    return setResult(joined(front, *text, workspace.arena), result);
}

bool insert(Arguments arguments, Workspace& workspace, Value& result) {
    auto const text = toText(arguments[0], workspace.arena);
    auto const inserted = toText(arguments[3], workspace.arena);
    if (!text || !inserted || !arguments[1].isNumber() || !arguments[2].isNumber()) return false;
    Value before;
    Value after;
    if (!slice(*text, Value::of(0.0), arguments[1], before) ||
        !slice(*text, Value::of(arguments[1].number + arguments[2].number), {}, after)) {
        return false;
    }
    auto const front = joined(before.text(), *inserted, workspace.arena);
    if (!front) return false;
    return setResult(joined(*front, after.text(), workspace.arena), result);
}

bool replace(Arguments arguments, Workspace& workspace, Value& result) {
    auto const part = toText(arguments[1], workspace.arena);
    if (!arguments[0].isText() || !part) return false;
    // Without a separator the whole is one piece; between pieces an undefined text is a comma.
    if (arguments[1].isUndefined()) return setResult(arguments[0].text(), result);
    auto const with = toText(arguments[2], workspace.arena);
    std::u16string_view const text = arguments[0].text();
    if (!with || part->empty()) return false;
    std::u16string_view const separator = arguments[2].isUndefined() ? u"," : *with;
    auto const count = countParts(text, *part, workspace.arena);
    if (!count) return false;
    std::size_t const size = text.size() - *count * part->size() + *count * separator.size();
    char16_t* const units = workspace.arena.allocate(size);
    if (units == nullptr) return false;
    char16_t* end = units;
    std::size_t start = 0;
    for (std::size_t i = 0; i < *count; ++i) {
        std::size_t const place = text.find(*part, start);
        end = std::copy(text.begin() + start, text.begin() + place, end);
        end = std::copy(separator.begin(), separator.end(), end);
        start = place + part->size();
    }
    std::copy(text.begin() + start, text.end(), end);
    return setResult(std::u16string_view(units, size), result);
}

bool chrtran(Arguments arguments, Workspace& workspace, Value& result) {
    auto const text = toText(arguments[0], workspace.arena);
    auto const search = toText(arguments[1], workspace.arena);
    auto const replacement = toText(arguments[2], workspace.arena);
    if (!text || !search || !replacement) return false;
    // Without units to look for, the loop that adds units does not run.
    if (search->empty()) return setResult(std::u16string_view(), result);
    return setResult(replacedUnits(*text, *search, *replacement, workspace.arena), result);
}

/// The first match of /-?\d+\.?\d*/, or the whole text.
bool val(Arguments arguments, Workspace& workspace, Value& result) {
    auto const text = toText(arguments[0], workspace.arena);
    if (!text) return false;
    auto const isDigitAt = [&](std::size_t place) {
        return place < text->size() && isDigit((*text)[place]);
    };
    std::size_t start = 0;
    while (start < text->size() && !isDigitAt(start)) ++start;
    if (start == text->size()) return setResult(*text, result);
    std::size_t end = start;
    if (start > 0 && (*text)[start - 1] == u'-') --start;
    while (isDigitAt(end)) ++end;
    if (end < text->size() && (*text)[end] == u'.') ++end;
    while (isDigitAt(end)) ++end;
    auto const number = textToNumber(text->substr(start, end - start));
    workspace.match = {Match::Pattern::number, *text};
    return number && setResult(*number, result);
}

}  // namespace kx
