#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kx::test {

/// The two halves of a documented example. The text of the value of `call` must be `result`.
struct Example {
    std::u16string call;
    std::u16string result;
};

/// Replaces control characters, which examples hold as they are, by JavaScript escapes.
inline std::u16string escapeControlCharacters(std::u16string_view text) {
    std::u16string escaped;
    for (char16_t unit : text) {
        if (unit == u'\n') {
            escaped += u"\\n";
        } else if (unit == u'\t') {
            escaped += u"\\t";
        } else {
            escaped += unit;
        }
    }
    return escaped;
}

/// Whether `text` is digits, a point and digits, after an optional minus sign.
inline bool isDecimalFraction(std::u16string_view text) {
    if (text.starts_with(u'-')) text.remove_prefix(1);
    auto const point = text.find(u'.');
    return point != std::u16string_view::npos && point > 0 && point + 1 < text.size() &&
           text.find_first_not_of(u"0123456789.") == std::u16string_view::npos &&
           text.rfind(u'.') == point;
}

/// Returns the JavaScript text of a result that the documentation writes in its own way:
///   'abc'                    the quotes are removed
///   10.50                    trailing zeros are removed
///   Math.E                   the constant is replaced by its value
///   false (char code ...)    the remark in parentheses is removed
inline std::u16string resultText(std::u16string_view stated) {
    if (stated.size() >= 2 && stated.front() == u'\'' && stated.back() == u'\'') {
        return std::u16string(stated.substr(1, stated.size() - 2));
    }
    if (auto const remark = stated.find(u" ("); remark != std::u16string_view::npos) {
        stated = stated.substr(0, remark);
    }
    if (stated == u"Math.E") return u"2.718281828459045";
    if (isDecimalFraction(stated)) {
        stated = stated.substr(0, stated.find_last_not_of(u'0') + 1);
        if (stated.ends_with(u'.')) stated.remove_suffix(1);
    }
    return std::u16string(stated);
}

/// Splits "CALL(...) &rarr; result". Returns nothing for a text without the arrow.
inline std::optional<Example> splitExample(std::u16string_view example) {
    constexpr std::u16string_view arrow = u" &rarr; ";
    auto const position = example.find(arrow);
    if (position == std::u16string_view::npos) return std::nullopt;
    return Example{escapeControlCharacters(example.substr(0, position)),
                   resultText(example.substr(position + arrow.size()))};
}

}  // namespace kx::test
