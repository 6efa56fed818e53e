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

    /// Position of the byte where the first malformed character begins, counted from 1.
    std::size_t position() const { return position_; }

  private:
    std::size_t position_;
};

/// Decodes strictly: overlong forms, surrogates, characters beyond U+10FFFF and cut sequences throw
/// InvalidUtf8, since a formula that was guessed at would give a wrong result.
std::u16string utf16FromUtf8(std::string_view bytes);

/// Encodes; a surrogate without its partner becomes U+FFFD, since UTF-8 has no form for it.
std::string utf8FromUtf16(std::u16string_view text);

}  // namespace kx
