// JavaScript writes the shortest digits that read back as the same double, and so does
// std::to_chars; where several are equally short both take the closest to the number. What differs
// is the layout around the digits. With the digits d1...dk and the value 0.d1...dk * 10^point:
//
//      k <= point <= 21    d1...dk and point-k zeros            123000
//      0 <  point <= 21    d1...d(point) . rest                 123.45
//     -6 <  point <= 0     0. and -point zeros, d1...dk         0.00123
//     otherwise            d1 . rest, e, sign, point-1          1.23e+25
//
// Most numbers of formulas have few decimals, and need no search for the shortest digits. If a
// whole number n below 10^15 divided by 10^6 gives the double back, then n's digits name it, since
// a division is rounded as reading a decimal is. No shorter decimal does: any two decimals of up to
// 15 digits belong to different doubles.
#include "text/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

namespace kx {

namespace {

constexpr int kLargestPlainPoint = 21;
constexpr int kSmallestPlainPoint = -6;
constexpr double kExactWholeNumbers = 9007199254740992.0;  // 2^53
constexpr double kSmallestPlain = 1e-6;
constexpr int kDecimals = 6;
constexpr double kMillion = 1e6;
constexpr double kMostMillionths = 1e15;

/// Longest: sign, "0.", five zeros, 17 digits; or sign, 17 digits, point, "e-324".
constexpr std::size_t kMaxText = kLongestNumberText;

struct Decimal {
    std::array<char, kMaxText> digits;  // without point
    int count = 0;
    int point = 0;
};

/// The shortest digits of a positive finite number.
Decimal shortestDigits(double number) {
    std::array<char, kMaxText> scientific;
    char const* const end = std::to_chars(scientific.data(), scientific.data() + scientific.size(),
                                          number, std::chars_format::scientific)
                                .ptr;
    Decimal decimal;
    char const* read = scientific.data();
    for (; *read != 'e'; ++read) {
        if (*read != '.') decimal.digits[decimal.count++] = *read;
    }
    ++read;                    // the e
    if (*read == '+') ++read;  // which from_chars would refuse
    int exponent = 0;
    std::from_chars(read, end, exponent);
    decimal.point = exponent + 1;
    return decimal;
}

char* copy(char* target, std::string_view text) {
    std::memcpy(target, text.data(), text.size());
    return target + text.size();
}

char* fill(char* target, char c, int count) {
    std::memset(target, c, static_cast<std::size_t>(count));
    return target + count;
}

char* layOut(char* target, Decimal const& decimal) {
    auto const [buffer, count, point] = decimal;
    std::string_view const digits(decimal.digits.data(), static_cast<std::size_t>(count));
    if (count <= point && point <= kLargestPlainPoint) {
        return fill(copy(target, digits), '0', point - count);
    }
    if (0 < point && point <= kLargestPlainPoint) {
        auto const whole = static_cast<std::size_t>(point);
        return copy(copy(copy(target, digits.substr(0, whole)), "."), digits.substr(whole));
    }
    if (kSmallestPlainPoint < point && point <= 0) {
        return copy(fill(copy(target, "0."), '0', -point), digits);
    }
    target = copy(target, digits.substr(0, 1));
    if (count > 1) target = copy(copy(target, "."), digits.substr(1));
    int const exponent = point - 1;
    target = copy(target, exponent < 0 ? "e-" : "e+");
    return std::to_chars(target, target + 4, std::abs(exponent)).ptr;
}

char* writeWholeNumber(char* target, std::uint64_t number) {
    return std::to_chars(target, target + kMaxText, number).ptr;
}

/// `number` as millionths, if it is a whole number of them and they are few enough.
std::optional<std::uint64_t> asMillionths(double number) {
    if (number >= kMostMillionths / kMillion) return std::nullopt;
    double const millionths = std::floor(number * kMillion + 0.5);
    if (millionths / kMillion != number) return std::nullopt;
    return static_cast<std::uint64_t>(millionths);
}

char* writeMillionths(char* target, std::uint64_t millionths) {
    constexpr auto kUnit = static_cast<std::uint64_t>(kMillion);
    target = writeWholeNumber(target, millionths / kUnit);
    *target++ = '.';
    auto decimals = static_cast<std::uint32_t>(millionths % kUnit);
    for (int place = kDecimals - 1; place >= 0; --place) {
        target[place] = static_cast<char>('0' + decimals % 10);
        decimals /= 10;
    }
    target += kDecimals;
    while (target[-1] == '0') --target;
    return target;
}

char* writePositive(char* target, double number) {
    if (number <= kExactWholeNumbers && number == std::trunc(number)) {
        return writeWholeNumber(target, static_cast<std::uint64_t>(number));
    }
    if (auto const millionths = asMillionths(number)) return writeMillionths(target, *millionths);
    // Between these the layout without an exponent is JavaScript's.
    if (number >= kSmallestPlain && number < kExactWholeNumbers) {
        return std::to_chars(target, target + kMaxText, number, std::chars_format::fixed).ptr;
    }
    return layOut(target, shortestDigits(number));
}

}  // namespace

std::size_t writeNumber(double number, char16_t* target) {
    std::array<char, kMaxText> buffer;
    char* end = buffer.data();
    if (std::isnan(number)) {
        end = copy(end, "NaN");
    } else {
        // Minus zero is not below zero: JavaScript writes it as 0.
        if (number < 0) *end++ = '-';
        end = std::isinf(number) ? copy(end, "Infinity") : writePositive(end, std::abs(number));
    }
    std::copy(buffer.data(), end, target);
    return static_cast<std::size_t>(end - buffer.data());
}

std::u16string numberToText(double number) {
    std::array<char16_t, kLongestNumberText> units;
    return {units.data(), writeNumber(number, units.data())};
}

std::u16string decimalText(std::int64_t number) {
    std::array<char, 20> digits;
    auto const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    return {digits.data(), end};
}

}  // namespace kx
