#include "cli/formula/PlainText.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "text/Surrogates.h"

namespace kx {
namespace {

// The references that texts of functions have a use for; numbers cover the rest.
constexpr std::array<std::pair<std::u16string_view, char32_t>, 10> kNamedReferences = {{
    {u"amp", u'&'},
    {u"apos", u'\''},
    {u"gt", u'>'},
    {u"larr", 0x2190},
    {u"lt", u'<'},
    {u"mdash", 0x2014},
    {u"micro", 0xB5},
    {u"nbsp", 0xA0},
    {u"quot", u'"'},
    {u"rarr", 0x2192},
}};

/// The character of a reference without its "&" and ";".
std::optional<char32_t> referencedCharacter(std::u16string_view name) {
    for (auto const& [known, character] : kNamedReferences) {
        if (name == known) return character;
    }
    if (!name.starts_with(u'#')) return std::nullopt;
    name.remove_prefix(1);
    bool const hexadecimal = name.starts_with(u'x') || name.starts_with(u'X');
    if (hexadecimal) name.remove_prefix(1);
    // References are ASCII, so narrowing keeps the valid ones and spoils none of the others.
    std::string digits;
    for (char16_t const unit : name) digits += unit < 0x80 ? static_cast<char>(unit) : '?';
    std::uint32_t number = 0;
    auto const [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number,
                                              hexadecimal ? 16 : 10);
    bool const whole = error == std::errc() && end == digits.data() + digits.size();
    bool const isCharacter =
        number != 0 && number <= 0x10FFFF && (number < 0xD800 || number > 0xDFFF);
    if (!whole || !isCharacter) return std::nullopt;
    return number;
}

void append(std::u16string& text, char32_t character) {
    if (character == u'\n') {
        text += u"\\n";
    } else if (character == u'\r') {
        text += u"\\r";
    } else if (character == u'\t') {
        text += u"\\t";
    } else if (character < 0x20 || character == 0x7F) {
        constexpr std::u16string_view kHexDigits = u"0123456789ABCDEF";
        text += u"\\x";
        text += {kHexDigits[character >> 4], kHexDigits[character & 0xF]};
    } else {
        appendCharacter(text, character);
    }
}

}  // namespace

std::u16string plainTextFromHtml(std::u16string_view html) {
    std::u16string text;
    for (std::size_t at = 0; at < html.size(); ++at) {
        std::size_t const semicolon =
            html[at] == u'&' ? html.find(u';', at) : std::u16string_view::npos;
        if (semicolon != std::u16string_view::npos) {
            auto const character = referencedCharacter(html.substr(at + 1, semicolon - at - 1));
            if (character) {
                append(text, *character);
                at = semicolon;
                continue;
            }
        }
        append(text, html[at]);
    }
    return text;
}

}  // namespace kx
