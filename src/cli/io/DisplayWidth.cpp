#include "cli/io/DisplayWidth.h"

#include <algorithm>
#include <clocale>
#include <cwchar>

#include "text/Surrogates.h"

namespace kx {
namespace {

/// The width of the character at `at`. Moves `at` to the next character.
std::size_t widthAt(std::u16string_view text, std::size_t& at) {
    char32_t const character = nextCharacter(text, at);
    useUtf8();
    return static_cast<std::size_t>(std::max(::wcwidth(static_cast<wchar_t>(character)), 0));
}

}  // namespace

void useUtf8() {
    [[maybe_unused]] static char const* const locale = std::setlocale(LC_CTYPE, "C.UTF-8");
}

std::size_t displayWidth(std::u16string_view text) {
    std::size_t width = 0;
    for (std::size_t at = 0; at < text.size();) width += widthAt(text, at);
    return width;
}

std::u16string blanksUnder(std::u16string_view text) {
    std::u16string blanks;
    for (std::size_t at = 0; at < text.size();) {
        if (text[at] == u'\t') {
            blanks += text[at++];
        } else {
            blanks.append(widthAt(text, at), u' ');
        }
    }
    return blanks;
}

}  // namespace kx
