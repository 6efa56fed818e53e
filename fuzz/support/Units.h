#pragma once

#include <array>
#include <string>
#include <string_view>

namespace kx::fuzz {

/// A text from a fuzzer's bytes, a code unit each. Bytes from 0x80 on stand for interesting units
/// beyond ASCII, so that dictionaries and small mutations reach them.
inline std::u16string textOf(std::string_view bytes) {
    static constexpr std::array<char16_t, 16> kWide{
        u'\u00a0', u'\u1680', u'\u2000', u'\u200a', u'\u2028', u'\u2029', u'\u202f', u'\u205f',
        u'\u3000', u'\ufeff', u'\u180e', u'\u017f', u'\u212a', u'\u00e9', 0xd83d,    0xde00};
    std::u16string text;
    text.reserve(bytes.size());
    for (char const byte : bytes) {
        auto const value = static_cast<unsigned char>(byte);
        text += value < 0x80 ? static_cast<char16_t>(value) : kWide[value % kWide.size()];
    }
    return text;
}

/// A code unit of two bytes each: reaches every unit, but only by large mutations.
inline std::u16string wideTextOf(std::string_view bytes) {
    std::u16string text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) << 8 |
                                      static_cast<unsigned char>(bytes[i + 1]));
    }
    return text;
}

}  // namespace kx::fuzz
