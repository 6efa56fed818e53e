#pragma once

#include <string>
#include <string_view>

namespace kx {

/// Writes to standard output, buffered. Throws ReaderGone when nobody reads it any more, and
/// WorkError when it cannot be written: a result that nobody received must not look like success.
void print(std::u16string_view text);
void printBytes(std::string_view bytes);
void printLine(std::u16string_view text);
void flushOutput();

/// Whether `path` is another name of standard output, such as /dev/stdout. Where that leads to a
/// file, the file must not be replaced: the shell, or what it started, goes on writing there.
bool isStandardOutput(std::string const& path);

/// Writes a message of the program itself, "kxjs: ...", to standard error.
void reportError(std::string_view message);

/// Writes an error text of the library to standard error, its line ends made the terminal's.
void reportScriptError(std::u16string_view errorText);

}  // namespace kx
