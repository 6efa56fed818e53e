#include "text/Utf8.h"

#include <algorithm>
#include <array>

#include "text/Surrogates.h"

namespace kx {
namespace {

// One row per form of a character: a range of lead bytes, and the range of the byte after it. The
// narrow ranges of that second byte exclude overlong forms (E0, F0), surrogates (ED) and characters
// above U+10FFFF (F4).
struct Form {
    unsigned char firstLead, lastLead;
    unsigned char firstSecond, lastSecond;
    std::size_t length;
    unsigned char leadBits;
};
constexpr std::array<Form, 8> kForms = {{
    {0xC2, 0xDF, 0x80, 0xBF, 2, 0x1F},
    {0xE0, 0xE0, 0xA0, 0xBF, 3, 0x0F},
    {0xE1, 0xEC, 0x80, 0xBF, 3, 0x0F},
    {0xED, 0xED, 0x80, 0x9F, 3, 0x0F},
    {0xEE, 0xEF, 0x80, 0xBF, 3, 0x0F},
    {0xF0, 0xF0, 0x90, 0xBF, 4, 0x07},
    {0xF1, 0xF3, 0x80, 0xBF, 4, 0x07},
    {0xF4, 0xF4, 0x80, 0x8F, 4, 0x07},
}};

constexpr char32_t kReplacement = 0xFFFD;

Form const* formOf(unsigned char lead) {
    for (Form const& form : kForms) {
        if (lead >= form.firstLead && lead <= form.lastLead) return &form;
    }
    return nullptr;
}

/// How many units at the start are ASCII, as those of most texts are. Such a start is the same in
/// both encodings, and copied at once.
template <class Text>
std::size_t asciiLength(Text text) {
    auto const isWide = [](auto unit) { return unit < 0 || unit >= 0x80; };
    return static_cast<std::size_t>(std::find_if(text.begin(), text.end(), isWide) - text.begin());
}

void appendUtf8(std::string& bytes, char32_t character) {
    auto const continuation = [character](int shift) {
        return static_cast<char>(0x80 | ((character >> shift) & 0x3F));
    };
    if (character < 0x80) {
        bytes += static_cast<char>(character);
    } else if (character < 0x800) {
        bytes += {static_cast<char>(0xC0 | (character >> 6)), continuation(0)};
    } else if (character < 0x10000) {
        bytes += {static_cast<char>(0xE0 | (character >> 12)), continuation(6), continuation(0)};
    } else {
        bytes += {static_cast<char>(0xF0 | (character >> 18)), continuation(12), continuation(6),
                  continuation(0)};
    }
}

}  // namespace

InvalidUtf8::InvalidUtf8(std::size_t position)
    : std::runtime_error("invalid UTF-8 at byte " + std::to_string(position)),
      position_(position) {}

std::u16string utf16FromUtf8(std::string_view bytes) {
    std::size_t const ascii = asciiLength(bytes);
    std::u16string text;
    text.reserve(bytes.size());
    text.assign(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(ascii));
    for (std::size_t at = ascii; at < bytes.size();) {
        auto const lead = static_cast<unsigned char>(bytes[at]);
        if (lead < 0x80) {
            text += static_cast<char16_t>(lead);
            ++at;
            continue;
        }
        Form const* const form = formOf(lead);
        if (form == nullptr) throw InvalidUtf8(at + 1);
        char32_t character = lead & form->leadBits;
        for (std::size_t offset = 1; offset < form->length; ++offset) {
            unsigned char const first = offset == 1 ? form->firstSecond : 0x80;
            unsigned char const last = offset == 1 ? form->lastSecond : 0xBF;
            // The error of a truncated sequence is the position of its lead byte.
            if (at + offset == bytes.size()) throw InvalidUtf8(at + 1);
            auto const next = static_cast<unsigned char>(bytes[at + offset]);
            if (next < first || next > last) throw InvalidUtf8(at + 1);
            character = (character << 6) | (next & 0x3F);
        }
        appendCharacter(text, character);
        at += form->length;
    }
    return text;
}

std::u16string utf16FromSystem(std::string_view bytes) {
    try {
        return utf16FromUtf8(bytes);
    } catch (InvalidUtf8 const&) {
        std::u16string text;
        for (char const byte : bytes) {
            auto const unit = static_cast<unsigned char>(byte);
            text += unit < 0x80 ? static_cast<char16_t>(unit) : static_cast<char16_t>(kReplacement);
        }
        return text;
    }
}

std::string utf8FromUtf16(std::u16string_view text) {
    std::size_t const ascii = asciiLength(text);
    std::string bytes;
    bytes.reserve(text.size());
    bytes.assign(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(ascii));
    for (std::size_t at = ascii; at < text.size();) {
        char32_t const character = nextCharacter(text, at);
        bool const isHalf = character >= 0xD800 && character <= 0xDFFF;
        appendUtf8(bytes, isHalf ? kReplacement : character);
    }
    return bytes;
}

}  // namespace kx
