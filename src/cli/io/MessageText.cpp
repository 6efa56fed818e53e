#include "cli/io/MessageText.h"

#include <cstddef>
#include <string_view>

#include "text/LineEnd.h"
#include "text/Surrogates.h"
#include "text/Utf8.h"

namespace kx {
namespace {

constexpr std::size_t kShown = 40;

bool isControl(char16_t unit) { return unit < 0x20 || (unit >= 0x7F && unit <= 0x9F); }

}  // namespace

std::string inOneLine(std::u16string const& text) {
    constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
    std::u16string line;
    for (char16_t const unit : text) {
        if (isLineEnd(unit)) {
            line += u' ';
        } else if (isControl(unit)) {
            line += u"\\u00";
            line += kDigits[unit >> 4U];
            line += kDigits[unit & 0xFU];
        } else {
            line += unit;
        }
    }
    return utf8FromUtf16(line);
}

std::string quotable(std::u16string text) {
    if (text.size() > kShown) {
        // A surrogate pair is not cut.
        bool const isHalf = isHighSurrogate(text[kShown - 1]);
        text.resize(isHalf ? kShown - 1 : kShown);
        text += u'\u2026';
    }
    return inOneLine(text);
}

std::string quotable(std::string const& bytes) {
    try {
        return quotable(utf16FromUtf8(bytes));
    } catch (InvalidUtf8 const&) {
        return {};
    }
}

}  // namespace kx
