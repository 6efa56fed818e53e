#include "native/Conversions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "text/Digit.h"
#include "text/NumberText.h"
#include "text/WhiteSpace.h"

namespace kx {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr std::size_t kLongestDecimal = 40;

/// Digits with at most one point among them.
bool isPlainDecimal(std::u16string_view text) {
    std::size_t digits = 0;
    std::size_t points = 0;
    for (char16_t const unit : text) {
        if (isDigit(unit)) {
            ++digits;
        } else if (unit == u'.') {
            ++points;
        } else {
            return false;
        }
    }
    return digits > 0 && points <= 1 && text.size() <= kLongestDecimal;
}

/// The text of what is no number.
std::u16string_view textWithoutDigits(Value const& value) {
    switch (value.type) {
        case Value::Type::text:
            return value.text();
        case Value::Type::null:
            return u"null";
        case Value::Type::boolean:
            return value.number != 0 ? u"true" : u"false";
        default:
            return u"undefined";
    }
}

}  // namespace

bool isTrue(Value const& value) {
    switch (value.type) {
        case Value::Type::boolean:
        case Value::Type::number:
            return value.number != 0 && !std::isnan(value.number);
        case Value::Type::text:
            return !value.text().empty();
        default:
            return false;
    }
}

std::optional<double> textToNumber(std::u16string_view text) {
    text = withoutOuterSpace(text);
    if (text.empty()) return 0;
    bool const hasSign = text.front() == u'-' || text.front() == u'+';
    std::u16string_view const digits = text.substr(hasSign ? 1 : 0);
    if (isPlainDecimal(digits)) {
        std::array<char, kLongestDecimal> units;
        auto const end = std::copy(digits.begin(), digits.end(), units.begin());
        double number = 0;
        std::from_chars(units.data(), units.data() + (end - units.begin()), number);
        return text.front() == u'-' ? -number : number;
    }
    // What is a number begins so, or with the I of Infinity.
    char16_t const first = text.front();
    if (hasSign || isDigit(first) || first == u'.' || first == u'I') return std::nullopt;
    return kNaN;
}

std::int32_t toInt32(double number) {
    constexpr double kRange = 4294967296.0;
    if (!std::isfinite(number)) return 0;
    if (std::abs(number) < kRange / 2) return static_cast<std::int32_t>(number);
    double const rest = std::fmod(std::trunc(number), kRange);
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(rest < 0 ? rest + kRange : rest));
}

std::optional<std::u16string_view> toText(Value const& value, TextArena& arena) {
    if (!value.isNumber()) return textWithoutDigits(value);
    char16_t* const units = arena.allocate(kLongestNumberText);
    if (units == nullptr) return std::nullopt;
    return std::u16string_view(units, writeNumber(value.number, units));
}

std::optional<std::u16string_view> joined(std::u16string_view left, std::u16string_view right,
                                          TextArena& arena) {
    // Of a chain of texts, the beginning is there already.
    if (char16_t* const end = arena.allocateBehind(left, right.size())) {
        std::copy(right.begin(), right.end(), end);
        return std::u16string_view(left.data(), left.size() + right.size());
    }
    char16_t* const units = arena.allocate(left.size() + right.size());
    if (units == nullptr) return std::nullopt;
    std::copy(right.begin(), right.end(), std::copy(left.begin(), left.end(), units));
    return std::u16string_view(units, left.size() + right.size());
}

bool areStrictlyEqual(Value const& left, Value const& right) {
    if (left.type != right.type) return false;
    return left.isText() ? left.text() == right.text() : left.number == right.number;
}

std::optional<bool> areEqual(Value const& left, Value const& right) {
    if (left.type == right.type) return areStrictlyEqual(left, right);
    if (left.isNullish() || right.isNullish()) return left.isNullish() && right.isNullish();
    auto const first = toNumber(left);
    auto const second = toNumber(right);
    if (!first || !second) return std::nullopt;
    return *first == *second;
}

std::optional<bool> compare(Operation operation, Value const& left, Value const& right) {
    auto const answer = [operation](auto const& first, auto const& second) {
        switch (operation) {
            case Operation::less:
                return first < second;
            case Operation::greater:
                return first > second;
            case Operation::lessOrEqual:
                return first <= second;
            default:
                return first >= second;
        }
    };
    if (left.isText() && right.isText()) return answer(left.text(), right.text());
    auto const first = toNumber(left);
    auto const second = toNumber(right);
    if (!first || !second) return std::nullopt;
    return answer(*first, *second);
}

namespace {

bool calculateNumbers(Operation operation, double left, double right, Value& result) {
    auto const shift = [right] { return static_cast<std::uint32_t>(toInt32(right)) & 31U; };
    switch (operation) {
        case Operation::add:
            result = Value::of(left + right);
            return true;
        case Operation::subtract:
            result = Value::of(left - right);
            return true;
        case Operation::multiply:
            result = Value::of(left * right);
            return true;
        case Operation::divide:
            result = Value::of(left / right);
            return true;
        case Operation::remainder:
            result = Value::of(std::fmod(left, right));
            return true;
        case Operation::bitAnd:
            result = Value::of(static_cast<double>(toInt32(left) & toInt32(right)));
            return true;
        case Operation::bitOr:
            result = Value::of(static_cast<double>(toInt32(left) | toInt32(right)));
            return true;
        case Operation::bitXor:
            result = Value::of(static_cast<double>(toInt32(left) ^ toInt32(right)));
            return true;
        case Operation::shiftLeft:
            result = Value::of(static_cast<double>(
                static_cast<std::int32_t>(static_cast<std::uint32_t>(toInt32(left)) << shift())));
            return true;
        case Operation::shiftRight:
            result = Value::of(static_cast<double>(toInt32(left) >> shift()));
            return true;
        case Operation::shiftRightUnsigned:
            result = Value::of(
                static_cast<double>(static_cast<std::uint32_t>(toInt32(left)) >> shift()));
            return true;
        default:
            return false;
    }
}

bool isComparison(Operation operation) {
    return operation >= Operation::less && operation <= Operation::greaterOrEqual;
}

bool set(std::optional<bool> answer, bool isNegated, Value& result) {
    if (answer) result = Value::of(*answer != isNegated);
    return answer.has_value();
}

}  // namespace

bool calculate(Operation operation, Value const& left, Value const& right, TextArena& arena,
               Value& result) {
    bool const areNumbers = left.isNumber() && right.isNumber();
    if (areNumbers && calculateNumbers(operation, left.number, right.number, result)) return true;
    if (isComparison(operation)) return set(compare(operation, left, right), false, result);
    switch (operation) {
        case Operation::equal:
        case Operation::notEqual:
            return set(areEqual(left, right), operation == Operation::notEqual, result);
        case Operation::strictlyEqual:
        case Operation::strictlyUnequal:
            return set(areStrictlyEqual(left, right), operation == Operation::strictlyUnequal,
                       result);
        default:
            break;
    }
    if (operation == Operation::add && (left.isText() || right.isText())) {
        // At most one of them is a number. Its text is needed for this moment only.
        std::array<char16_t, kLongestNumberText> digits;
        auto const textOf = [&digits](Value const& value) {
            if (!value.isNumber()) return textWithoutDigits(value);
            return std::u16string_view(digits.data(), writeNumber(value.number, digits.data()));
        };
        auto const text = joined(textOf(left), textOf(right), arena);
        if (text) result.become(*text);
        return text.has_value();
    }
    auto const first = toNumber(left);
    auto const second = toNumber(right);
    return first && second && calculateNumbers(operation, *first, *second, result);
}

}  // namespace kx
