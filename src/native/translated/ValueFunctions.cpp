// The functions of translated formulas that take values of any kind.
#include <algorithm>
#include <array>

#include "native/Conversions.h"
#include "native/translated/Arguments.h"
#include "native/translated/Decimals.h"
#include "native/translated/Functions.h"

namespace kx {

namespace {

bool isEmptyValue(Value const& value) {
    if (!value.isText()) return value.isNullish() || value.number == 0;
    return value.text().find_first_not_of(kWhiteSpace) == std::u16string_view::npos;
}

bool empty(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    return !arguments[0].isUndefined() && setResult(isEmptyValue(arguments[0]), result);
}

bool isNull(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    return !arguments[0].isUndefined() && setResult(arguments[0].isNullish(), result);
}

bool nvl(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    result = arguments[0].isNullish() ? arguments[1] : arguments[0];
    return !arguments[1].isUndefined();
}

bool evl(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    result = isEmptyValue(arguments[0]) ? arguments[1] : arguments[0];
    return !arguments[1].isUndefined();
}

template <char16_t kNil>
bool typeLetter(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    static constexpr char16_t kNilLetter = kNil;
    Value const& value = arguments[0];
    if (value.isNullish()) return setResult(std::u16string_view(&kNilLetter, 1), result);
    std::u16string_view const letter = value.isText() ? u"C" : value.isNumber() ? u"N" : u"L";
    return setResult(letter, result);
}

/// Negative, 0 or positive; empty where the two cannot be compared.
template <bool kIsExact>
std::optional<int> order(Value const& left, Value const& right) {
    if (left.isNullish() || left.type != right.type) return std::nullopt;
    if (left.isText()) return compareTexts(left.text(), right.text(), kIsExact);
    return left.number < right.number ? -1 : left.number > right.number ? 1 : 0;
}

template <bool kIsExact>
bool between(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    auto const low = order<kIsExact>(arguments[0], arguments[1]);
    if (!low || arguments[2].isUndefined()) return false;
    if (*low < 0) return setResult(false, result);
    auto const high = order<kIsExact>(arguments[0], arguments[2]);
    return high && setResult(*high <= 0, result);
}

template <bool kIsExact>
bool inList(Arguments arguments, Workspace& workspace, Value& result) {
    if (arguments.size() < 2 || arguments[1].isUndefined()) return false;
    Function const* const equal = findRunTimeFunction(u"eq", kIsExact);
    for (Value const& value : arguments.subspan(1)) {
        std::array<Value, 2> const pair{arguments[0], value};
        if (!equal->compute(pair, workspace, result)) return false;
        if (result.number != 0) return true;
    }
    return setResult(false, result);
}

bool asText(Arguments arguments, Workspace& workspace, Value& result) {
    Value const& value = arguments[0];
    if (value.isUndefined()) return false;
    if (value.isText()) return setResult(value.text(), result);
    if (value.isBoolean()) {
        return setResult(std::u16string_view(value.number != 0 ? u".T." : u".F."), result);
    }
    if (value.isNullish()) return setResult(std::u16string_view(), result);
    std::array<Value, 2> const number{value, arguments[1]};
    return findRunTimeFunction(u"ntos", false)->compute(number, workspace, result);
}

template <bool kIsExact>
constexpr std::array kFunctions = {
    Function{u"between", between<kIsExact>, 3},
    Function{u"cvaltochar", asText, 2},
    Function{u"empty", empty, 1},
    Function{u"evl", evl, 2},
    Function{u"inlist", inList<kIsExact>, Function::kAny},
    Function{u"isnull", isNull, 1},
    Function{u"nvl", nvl, 2},
    Function{u"valtype", typeLetter<u'U'>, 1},
    Function{u"vartype", typeLetter<u'X'>, 1},
};

static_assert(isInOrder(kFunctions<false>));

}  // namespace

std::span<Function const> runTimeValueFunctions(bool isExact) {
    return isExact ? std::span<Function const>(kFunctions<true>) : kFunctions<false>;
}

}  // namespace kx
