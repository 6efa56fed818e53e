#include "native/translated/Decimals.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace kx {

namespace {

constexpr int kJudgedDigits = 15;
constexpr std::size_t kMostPlaces = 100;

/// Digits and exponent: the first digit counts 10 to the exponent.
struct DecimalForm {
    std::string digits;
    int exponent = 0;
};

/// Adds one to the last of some digits. True where that makes one digit more, a 1 in front.
bool increase(std::string& digits) {
    for (std::size_t i = digits.size(); i-- > 0;) {
        if (digits[i] != '9') {
            ++digits[i];
            return false;
        }
        digits[i] = '0';
    }
    digits.insert(digits.begin(), '1');
    return true;
}

/// The nearest form with `count` digits. Of two that are equally near JavaScript takes the larger,
/// std::to_chars the even one: what may be in the middle is left to V8.
std::optional<DecimalForm> decimalForm(double number, int count) {
    constexpr int kSureDigits = 25;
    std::array<char, 48> units;
    char* const end = std::to_chars(units.data(), units.data() + units.size(), std::abs(number),
                                    std::chars_format::scientific, kSureDigits - 1)
                          .ptr;
    DecimalForm form;
    char* const letter = std::find(units.data(), end, 'e');
    form.digits.assign(units.data(), letter);
    form.digits.erase(1, 1);  // the point
    std::from_chars(letter + (letter[1] == '+' ? 2 : 1), end, form.exponent);
    std::string const rest = form.digits.substr(static_cast<std::size_t>(count));
    form.digits.resize(static_cast<std::size_t>(count));
    if (rest[0] == '5' && rest.find_first_not_of('0', 1) == std::string::npos) return std::nullopt;
    if (rest[0] >= '5' && increase(form.digits)) {
        form.digits.pop_back();
        ++form.exponent;
    }
    return form;
}

/// The digits rounded half away from zero after `places` decimals, as a whole number's text.
std::string roundedDigits(DecimalForm const& form, int places) {
    int const kept = form.exponent + 1 + places;
    if (kept < 0) return "0";
    auto const count = static_cast<std::size_t>(kept);
    std::string digits = form.digits.substr(0, count);
    if (count >= form.digits.size()) {
        digits.append(count - form.digits.size(), '0');
        return digits;
    }
    if (digits.empty()) digits = "0";
    if (form.digits[count] >= '5') increase(digits);
    return digits;
}

/// `text` with blanks in front; asterisks where there is no text, or a longer one.
std::optional<std::u16string_view> aligned(std::optional<std::u16string_view> text,
                                           std::size_t width, TextArena& arena) {
    char16_t* const units = arena.allocate(width);
    if (units == nullptr) return std::nullopt;
    if (!text || text->size() > width) {
        std::fill_n(units, width, u'*');
    } else {
        text->copy(std::fill_n(units, width - text->size(), u' '), text->size());
    }
    return std::u16string_view(units, width);
}

}  // namespace

std::optional<std::u16string_view> decimalsOf(double number, std::size_t places, TextArena& arena) {
    if (places > kMostPlaces || !std::isfinite(number)) return std::nullopt;
    int const count = static_cast<int>(places);
    auto form = decimalForm(number, kJudgedDigits);
    if (form && form->exponent + 1 + count > kJudgedDigits) {
        form = decimalForm(number, kJudgedDigits + 1);
    }
    if (!form) return std::nullopt;
    std::string text = roundedDigits(*form, count);
    if (text.size() < places + 1) text.insert(0, places + 1 - text.size(), '0');
    bool const isNegative = number < 0 && text.find_first_not_of('0') != std::string::npos;
    if (places > 0) text.insert(text.size() - places, 1, '.');
    if (isNegative) text.insert(0, 1, '-');
    return arena.copy(std::string_view(text));
}

std::optional<std::size_t> ownDecimals(double number) {
    if (number == 0) return 0;
    auto const form = decimalForm(number, kJudgedDigits);
    if (!form) return std::nullopt;
    int const last = static_cast<int>(form->digits.find_last_not_of('0'));
    return static_cast<std::size_t>(std::max(0, last - form->exponent));
}

std::optional<double> roundedAt(double number, double places) {
    if (!std::isfinite(number)) return std::nullopt;
    if (number == 0) return 0;
    if (!(std::abs(places) <= kMostPlaces)) return std::nullopt;
    int const count = static_cast<int>(places);
    auto const form = decimalForm(number, kJudgedDigits);
    if (!form) return std::nullopt;
    if (form->exponent + 1 + count >= kJudgedDigits) return number;
    std::string const text = roundedDigits(*form, count) + "e" + std::to_string(-count);
    double rounded = 0;
    auto const read = std::from_chars(text.data(), text.data() + text.size(), rounded);
    if (read.ec != std::errc()) return std::nullopt;
    return number < 0 ? 0 - rounded : rounded;
}

std::optional<std::u16string_view> inWidth(double number, std::size_t width, std::size_t places,
                                           TextArena& arena) {
    if (places >= width) return aligned(std::nullopt, width, arena);
    auto const text = decimalsOf(number, places, arena);
    return text ? aligned(text, width, arena) : std::nullopt;
}

std::optional<std::u16string_view> plainNumber(double number, std::optional<std::size_t> places,
                                               TextArena& arena) {
    if (!std::isfinite(number)) return std::nullopt;
    if (!places) places = ownDecimals(number);
    if (!places) return std::nullopt;
    auto const text = decimalsOf(number, *places, arena);
    if (!text) return std::nullopt;
    constexpr std::size_t kUsualWidth = 10;
    std::size_t const fraction = *places > 0 ? *places + 1 : 0;
    std::size_t const width =
        (text->size() - fraction > kUsualWidth ? 2 * kUsualWidth : kUsualWidth) + fraction;
    return aligned(text, width, arena);
}

}  // namespace kx
