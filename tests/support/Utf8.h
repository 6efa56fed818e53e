#pragma once

#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace kx::test {

/// `text` as UTF-8, so that a failed comparison prints both sides readably. The texts under test
/// hold no surrogates.
inline std::string toUtf8(std::u16string_view text) {
    std::string bytes;
    for (char16_t unit : text) {
        if (unit < 0x80) {
            bytes += static_cast<char>(unit);
        } else if (unit < 0x800) {
            bytes += static_cast<char>(0xC0 | (unit >> 6));
            bytes += static_cast<char>(0x80 | (unit & 0x3F));
        } else {
            bytes += static_cast<char>(0xE0 | (unit >> 12));
            bytes += static_cast<char>(0x80 | ((unit >> 6) & 0x3F));
            bytes += static_cast<char>(0x80 | (unit & 0x3F));
        }
    }
    return bytes;
}

/// The other way round; well-formed UTF-8 is expected.
inline std::u16string toUtf16(std::string_view bytes) {
    std::u16string text;
    for (std::size_t i = 0; i < bytes.size();) {
        auto const lead = static_cast<unsigned char>(bytes[i++]);
        int rest = lead < 0x80 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
        unsigned int code = rest == 0 ? lead : lead & (0x3FU >> rest);
        for (; rest > 0 && i < bytes.size(); --rest) {
            code = code << 6 | (static_cast<unsigned char>(bytes[i++]) & 0x3FU);
        }
        if (code >= 0x10000) {
            text += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
            code = 0xDC00 + (code & 0x3FF);
        }
        text += static_cast<char16_t>(code);
    }
    return text;
}

/// The bytes of the file `path`, line ends untouched. A file that cannot be read gives a text
/// that no test expects.
inline std::string readBytes(std::string const& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return "cannot read " + path;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace kx::test
