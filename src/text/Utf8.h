#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kx {

/// Thrown for bytes that are not UTF-8.
class InvalidUtf8 : public std::runtime_error {
  public:
    explicit InvalidUtf8(std::size_t position);

    /// The position of the first byte of the malformed character, from 1.
    std::size_t position() const { return position_; }

  private:
    std::size_t position_;
};

/// Decodes UTF-8. Throws InvalidUtf8 for overlong forms, surrogates, characters above U+10FFFF and
/// truncated sequences: a repaired formula could have another result.
std::u16string utf16FromUtf8(std::string_view bytes);

/// Decodes a text of the system, such as an error text with the name of a file. It may have any
/// encoding: where it is not UTF-8, bytes beyond ASCII become U+FFFD.
std::u16string utf16FromSystem(std::string_view bytes);

/// Encodes as UTF-8. A lone surrogate, which UTF-8 cannot express, becomes U+FFFD.
std::string utf8FromUtf16(std::u16string_view text);

}  // namespace kx
