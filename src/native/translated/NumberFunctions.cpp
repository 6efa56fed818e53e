// The number functions of translated formulas. Mathematics of which only V8 knows the last digit is
// not here.
#include <algorithm>
#include <array>
#include <charconv>
#include <string>

#include "native/Conversions.h"
#include "native/translated/Arguments.h"
#include "native/translated/Decimals.h"
#include "native/translated/Functions.h"
#include "text/Digit.h"

namespace kx {

namespace {

constexpr double kMostWidth = 10000;

/// What the formula's text tells of a number's decimals.
std::optional<std::size_t> scaleOf(Value const& scale) {
    if (!scale.isNumber()) return std::nullopt;
    return limitedTo(scale.number, static_cast<std::size_t>(kMostWidth));
}

std::optional<std::u16string_view> formatted(Arguments arguments, TextArena& arena) {
    Value const& number = arguments[0];
    if (!number.isNumber() || !std::isfinite(number.number)) return std::nullopt;
    std::optional<std::size_t> places;
    if (!arguments[2].isUndefined()) {
        auto const asked = wholeOf(arguments[2]);
        if (!asked || *asked > kMostWidth) return std::nullopt;
        places = limitedTo(*asked, static_cast<std::size_t>(kMostWidth));
    }
    if (arguments[1].isUndefined()) {
        return plainNumber(number.number, places ? places : scaleOf(arguments[3]), arena);
    }
    auto const width = wholeOf(arguments[1]);
    if (!width || *width > kMostWidth) return std::nullopt;
    constexpr std::size_t kUsualWidth = 10;
    return inWidth(number.number, *width <= 0 ? kUsualWidth : static_cast<std::size_t>(*width),
                   places.value_or(0), arena);
}

bool str(Arguments arguments, Workspace& workspace, Value& result) {
    return setResult(formatted(arguments, workspace.arena), result);
}

/// Leading blanks as zeros, the sign in front.
bool strZero(Arguments arguments, Workspace& workspace, Value& result) {
    auto const text = formatted(arguments, workspace.arena);
    if (!text) return false;
    std::u16string filled(*text);
    std::size_t const start = std::min(filled.find_first_not_of(u' '), filled.size());
    std::fill_n(filled.begin(), start, u'0');
    if (start < filled.size() && filled[start] == u'-') std::swap(filled[0], filled[start]);
    return setResult(workspace.arena.copy(std::u16string_view(filled)), result);
}

bool ntos(Arguments arguments, Workspace& workspace, Value& result) {
    if (!arguments[0].isNumber()) return false;
    auto text = plainNumber(arguments[0].number, scaleOf(arguments[1]), workspace.arena);
    if (!text) return false;
    text->remove_prefix(std::min(text->find_first_not_of(u' '), text->size()));
    return setResult(*text, result);
}

/// Leading white space, a sign, digits with a point among them; what follows does not count.
bool val(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    if (!arguments[0].isText()) return false;
    std::u16string_view text = withoutFirstSpace(arguments[0].text());
    bool const isNegative = text.starts_with(u'-');
    if (isNegative || text.starts_with(u'+')) text.remove_prefix(1);
    std::array<char, 64> units{'0'};
    char* end = units.data() + 1;
    bool hasPoint = false;
    for (char16_t const unit : text) {
        if (!isDigit(unit) && (unit != u'.' || hasPoint)) break;
        if (end == units.data() + units.size()) return false;
        hasPoint = hasPoint || unit == u'.';
        *end++ = static_cast<char>(unit);
    }
    double number = 0;
    std::from_chars(units.data(), end, number);
    return setResult(isNegative ? 0 - number : number, result);
}

/// A function of one finite number. 0 is added where the function may give -0.
template <double (*kCompute)(double)>
bool ofNumber(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    return arguments[0].isNumber() && std::isfinite(arguments[0].number) &&
           setResult(kCompute(arguments[0].number), result);
}

double absolute(double number) { return std::abs(number); }
double ceilingOf(double number) { return std::ceil(number) + 0; }
double floorOf(double number) { return std::floor(number) + 0; }
double wholePartOf(double number) { return std::trunc(number) + 0; }
double signOf(double number) { return number > 0 ? 1 : number < 0 ? -1 : 0; }
double rootOf(double number) { return number > 0 ? std::sqrt(number) : 0; }

/// The sign is the divisor's.
bool mod(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    if (!arguments[0].isNumber() || !arguments[1].isNumber() || arguments[1].number == 0) {
        return false;
    }
    double const divisor = arguments[1].number;
    double const rest = std::fmod(arguments[0].number, divisor);
    bool const isOther = rest != 0 && (rest < 0) != (divisor < 0);
    return giveFinite(isOther ? rest + divisor : rest + 0, result);
}

bool roundFunction(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    auto const places = wholeOf(arguments[1]);
    if (!arguments[0].isNumber() || !places) return false;
    return setResult(roundedAt(arguments[0].number, *places), result);
}

/// Of numbers, or of texts.
template <bool kIsMax>
bool extreme(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    if (arguments.empty()) return false;
    result = arguments[0];
    if (!result.isNumber() && !result.isText()) return false;
    for (Value const& value : arguments.subspan(1)) {
        if (value.type != result.type) return false;
        bool const isLess =
            value.isText() ? value.text() < result.text() : value.number < result.number;
        bool const isMore =
            value.isText() ? value.text() > result.text() : value.number > result.number;
        if (kIsMax ? isMore : isLess) result = value;
    }
    return true;
}

constexpr std::array kFunctions = {
    Function{u"abs", ofNumber<absolute>, 1},
    Function{u"ceiling", ofNumber<ceilingOf>, 1},
    Function{u"floor", ofNumber<floorOf>, 1},
    Function{u"int", ofNumber<wholePartOf>, 1},
    Function{u"max", extreme<true>, Function::kAny},
    Function{u"min", extreme<false>, Function::kAny},
    Function{u"mod", mod, 2},
    Function{u"ntos", ntos, 2},
    Function{u"round", roundFunction, 2},
    Function{u"sign", ofNumber<signOf>, 1},
    Function{u"sqrt", ofNumber<rootOf>, 1},
    Function{u"str", str, 4},
    Function{u"strzero", strZero, 4},
    Function{u"val", val, 1},
};

static_assert(isInOrder(kFunctions));

}  // namespace

std::span<Function const> runTimeNumberFunctions() { return kFunctions; }

}  // namespace kx
