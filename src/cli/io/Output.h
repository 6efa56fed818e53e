#pragma once

#include <string>
#include <string_view>

namespace kx {

/// Writes to standard output, buffered. Throws ReaderGone when its reader has closed it, and
/// WorkError when writing fails: a lost result must not look like success.
void print(std::u16string_view text);
void printBytes(std::string_view bytes);
void printLine(std::u16string_view text);
void flushOutput();

/// Whether `path` is standard output under another name, such as /dev/stdout. A file behind it must
/// not be replaced, since other processes may write to it later.
bool isStandardOutput(std::string const& path);

/// Writes a message of the program itself, "kxjs: ...", to standard error.
void reportError(std::string_view message);

/// Writes an error text of the library to standard error, with LF as line end.
void reportScriptError(std::u16string_view errorText);

}  // namespace kx
