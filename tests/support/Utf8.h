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

/// The bytes of the file `path`, line ends untouched. A file that cannot be read gives a text
/// that no test expects.
inline std::string readBytes(std::string const& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return "cannot read " + path;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace kx::test
