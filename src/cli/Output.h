#pragma once

#include <string>
#include <string_view>

namespace kx {

/// Writes to standard output, buffered. Throws WorkError when the other end is gone or full: a
/// result that nobody received must not look like success.
void print(std::u16string_view text);
void printBytes(std::string_view bytes);
void printLine(std::u16string_view text);
void flushOutput();

/// Writes a message of the program itself, "kxjs: ...", to standard error.
void reportError(std::string_view message);

/// Writes an error text of the library to standard error, its line ends made the terminal's.
void reportScriptError(std::u16string_view errorText);

}  // namespace kx
