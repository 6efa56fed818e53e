#pragma once

#include <string>

namespace kx {

/// `text`, from a file or a script, as messages show it: in one line, line breaks as blanks, and
/// with other control characters written out, since a terminal would obey them ("\u001B").
std::string inOneLine(std::u16string const& text);

/// The same of a text of any length: cut behind 40 code units.
std::string quotable(std::u16string text);

/// The same of UTF-8; nothing is shown of what is none.
std::string quotable(std::string const& bytes);

}  // namespace kx
