#pragma once

#include <string>

namespace kx {

/// `text`, from a file or a script, as one line of a message. Line breaks become blanks, and other
/// control characters, which a terminal would obey, become escapes ("\u001B").
std::string inOneLine(std::u16string const& text);

/// The same, cut after 40 code units.
std::string quotable(std::u16string text);

/// The same of UTF-8; empty where `bytes` are not UTF-8.
std::string quotable(std::string const& bytes);

}  // namespace kx
