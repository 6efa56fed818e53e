// The functions of Math whose results IEEE 754 prescribes. The others are V8's own mathematics.
#include <array>
#include <cmath>
#include <limits>

#include "native/Conversions.h"
#include "native/FunctionEntries.h"

namespace kx {

namespace {

/// A function of one number.
template <double (*kCompute)(double)>
bool ofNumber(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    auto const number = toNumber(arguments[0]);
    return number && setResult(kCompute(*number), result);
}

double absolute(double number) { return std::abs(number); }
double floorOf(double number) { return std::floor(number); }
double ceilOf(double number) { return std::ceil(number); }
double truncOf(double number) { return std::trunc(number); }
double rootOf(double number) { return std::sqrt(number); }

/// Halves upwards; the sign of zero stays.
double roundOf(double number) {
    double const above = std::ceil(number);
    return above - 0.5 > number ? above - 1 : above;
}

double signOf(double number) {
    if (std::isnan(number) || number == 0) return number;
    return number > 0 ? 1 : -1;
}

template <bool kIsMax>
bool extreme(Arguments arguments, Workspace& /*workspace*/, Value& result) {
    double found =
        kIsMax ? -std::numeric_limits<double>::infinity() : std::numeric_limits<double>::infinity();
    for (Value const& argument : arguments) {
        auto const number = toNumber(argument);
        if (!number) return false;
        if (std::isnan(found)) continue;
        bool const isFurther = kIsMax ? *number > found : *number < found;
        // Minus zero lies below zero.
        bool const isZeroBefore = *number == 0 && found == 0 && std::signbit(found) == kIsMax;
        if (std::isnan(*number) || isFurther || isZeroBefore) found = *number;
    }
    return setResult(found, result);
}

struct Constant {
    std::u16string_view name;
    Value value;
};

constexpr Value number(double value) { return {Value::Type::number, value}; }

constexpr std::array kConstants = {
    Constant{u"E", number(2.718281828459045)},
    Constant{u"LN10", number(2.302585092994046)},
    Constant{u"LN2", number(0.6931471805599453)},
    Constant{u"LOG10E", number(0.4342944819032518)},
    Constant{u"LOG2E", number(1.4426950408889634)},
    Constant{u"PI", number(3.141592653589793)},
    Constant{u"SQRT1_2", number(0.7071067811865476)},
    Constant{u"SQRT2", number(1.4142135623730951)},
};

constexpr std::array kFunctions = {
    Function{u"abs", ofNumber<absolute>, 1},
    Function{u"ceil", ofNumber<ceilOf>, 1},
    Function{u"floor", ofNumber<floorOf>, 1},
    Function{u"max", extreme<true>, Function::kAny},
    Function{u"min", extreme<false>, Function::kAny},
    Function{u"round", ofNumber<roundOf>, 1},
    Function{u"sign", ofNumber<signOf>, 1},
    Function{u"sqrt", ofNumber<rootOf>, 1},
    Function{u"trunc", ofNumber<truncOf>, 1},
};

static_assert(isInOrder(kConstants) && isInOrder(kFunctions));

}  // namespace

Function const* findMathFunction(std::u16string_view name) { return findByName(kFunctions, name); }

Value const* findMathConstant(std::u16string_view name) {
    auto const* found = findByName(kConstants, name);
    return found == nullptr ? nullptr : &found->value;
}

}  // namespace kx
