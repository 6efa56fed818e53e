// The operators of translated formulas.
#include <algorithm>
#include <array>

#include "native/Conversions.h"
#include "native/translated/Arguments.h"
#include "native/translated/Functions.h"

namespace kx {

namespace {

bool areNumbers(Arguments arguments) { return arguments[0].isNumber() && arguments[1].isNumber(); }
bool areTexts(Arguments arguments) { return arguments[0].isText() && arguments[1].isText(); }

bool add(Arguments arguments, Workspace& workspace, Value& result) {
    if (areNumbers(arguments)) {
        return giveFinite(arguments[0].number + arguments[1].number, result);
    }
    if (!areTexts(arguments)) return false;
    return setResult(joined(arguments[0].text(), arguments[1].text(), workspace.arena), result);
}

/// Blanks at the end of the left text go to the end.
bool subtract(Arguments arguments, Workspace& workspace, Value& result) {
    if (areNumbers(arguments)) {
        return giveFinite(arguments[0].number - arguments[1].number, result);
    }
    if (!areTexts(arguments)) return false;
    std::u16string_view const left = arguments[0].text();
    std::u16string_view const right = arguments[1].text();
    std::u16string_view const first = withoutLastBlanks(left);
    char16_t* const units = workspace.arena.allocate(left.size() + right.size());
    if (units == nullptr) return false;
    char16_t* const middle = std::copy(first.begin(), first.end(), units);
    char16_t* const end = std::copy(right.begin(), right.end(), middle);
    std::fill_n(end, left.size() - first.size(), u' ');
    return setResult(std::u16string_view(units, left.size() + right.size()), result);
}

bool multiply(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    return areNumbers(arguments) && giveFinite(arguments[0].number * arguments[1].number, result);
}

bool divide(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    return areNumbers(arguments) && arguments[1].number != 0 &&
           giveFinite(arguments[0].number / arguments[1].number, result);
}

bool remainder(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    return areNumbers(arguments) && arguments[1].number != 0 &&
           giveFinite(std::fmod(arguments[0].number, arguments[1].number), result);
}

bool negate(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    return arguments[0].isNumber() && setResult(-arguments[0].number, result);
}

bool keepNumber(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    result = arguments[0];
    return arguments[0].isNumber();
}

bool invert(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    return arguments[0].isBoolean() && setResult(arguments[0].number == 0, result);
}

bool keepLogical(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    result = arguments[0];
    return arguments[0].isBoolean();
}

bool exclusiveOr(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    return arguments[0].isBoolean() && arguments[1].isBoolean() &&
           setResult(arguments[0].number != arguments[1].number, result);
}

bool identical(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    Value const& left = arguments[0];
    Value const& right = arguments[1];
    if (left.isNullish() || right.isNullish()) {
        return setResult(left.isNullish() && right.isNullish(), result);
    }
    if (left.type != right.type) return false;
    return setResult(areStrictlyEqual(left, right), result);
}

template <bool kIsExact, bool kIsNegated>
bool equal(Arguments arguments, Workspace& workspace, Value& result) {
    bool isEqual = false;
    if (areTexts(arguments)) {
        isEqual = compareTexts(arguments[0].text(), arguments[1].text(), kIsExact) == 0;
    } else {
        if (!identical(arguments, workspace, result)) return false;
        isEqual = result.number != 0;
    }
    return setResult(isEqual != kIsNegated, result);
}

/// The third argument is the operator's sign, for the error text.
template <bool kIsExact>
bool compareSizes(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    Value const& left = arguments[0];
    Value const& right = arguments[1];
    if (left.isNullish() || left.type != right.type) return false;
    double const order = left.isText() ? compareTexts(left.text(), right.text(), kIsExact)
                         : left.number < right.number ? -1
                         : left.number > right.number ? 1
                                                      : 0;
    return setResult(order, result);
}

bool contains(Arguments arguments, Workspace& workspace, Value& result) {
    if (!areTexts(arguments)) return false;
    double place = -1;
    if (!indexOf(arguments[1].text(), arguments[0].text(), 0, workspace.arena, place)) return false;
    return setResult(!arguments[0].text().empty() && place >= 0, result);
}

/// The other arguments are evaluated for their errors only.
bool first(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    if (arguments.empty()) return false;
    result = arguments[0];
    return true;
}

/// It changes dates only, which are left to V8.
bool keep(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    result = arguments[0];
    return true;
}

template <bool kIsExact>
constexpr std::array kOperators = {
    Function{u"add", add, 2},
    Function{u"cmp", compareSizes<kIsExact>, 2},
    Function{u"div", divide, 2},
    Function{u"eq", equal<kIsExact, false>, 2},
    Function{u"first", first, Function::kAny},
    Function{u"l", keepLogical, 1},
    Function{u"mul", multiply, 2},
    Function{u"ne", equal<kIsExact, true>, 2},
    Function{u"neg", negate, 1},
    Function{u"not", invert, 1},
    Function{u"pos", keepNumber, 1},
    Function{u"rem", remainder, 2},
    Function{u"result", keep, 1},
    Function{u"same", identical, 2},
    Function{u"sub", subtract, 2},
    Function{u"within", contains, 2},
    Function{u"xor", exclusiveOr, 2},
};

static_assert(isInOrder(kOperators<false>));

}  // namespace

int compareTexts(std::u16string_view left, std::u16string_view right, bool isExact) {
    int const order = isExact ? withoutLastBlanks(left).compare(withoutLastBlanks(right))
                              : left.substr(0, right.size()).compare(right);
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

std::span<Function const> runTimeOperators(bool isExact) {
    return isExact ? std::span<Function const>(kOperators<true>) : kOperators<false>;
}

}  // namespace kx
