#include "cli/io/Output.h"

#include <cerrno>
#include <cstdio>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "cli/io/Errors.h"
#include "text/Utf8.h"

namespace kx {
namespace {

void throwOutputError() {
    int const code = errno;
    if (code == EPIPE) throw ReaderGone();
    throw WorkError("cannot write to standard output: " + std::generic_category().message(code));
}

}  // namespace

void print(std::u16string_view text) { printBytes(utf8FromUtf16(text)); }

void printBytes(std::string_view bytes) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), stdout) != bytes.size()) throwOutputError();
}

void printLine(std::u16string_view text) {
    print(text);
    print(u"\n");
}

void flushOutput() {
    if (std::fflush(stdout) != 0) throwOutputError();
}

bool isStandardOutput(std::string const& path) {
    struct stat named {};
    struct stat standard {};
    return ::stat(path.c_str(), &named) == 0 && ::fstat(STDOUT_FILENO, &standard) == 0 &&
           named.st_dev == standard.st_dev && named.st_ino == standard.st_ino;
}

void reportError(std::string_view message) {
    std::string const line = "kxjs: " + std::string(message) + "\n";
    // Where standard error fails too, only the exit status reports the error.
    static_cast<void>(std::fwrite(line.data(), 1, line.size(), stderr));
}

void reportScriptError(std::u16string_view errorText) {
    std::string bytes = utf8FromUtf16(errorText);
    for (std::size_t at = bytes.find("\r\n"); at != std::string::npos;
         at = bytes.find("\r\n", at)) {
        bytes.erase(at, 1);
    }
    if (bytes.empty() || bytes.back() != '\n') bytes += '\n';
    static_cast<void>(std::fwrite(bytes.data(), 1, bytes.size(), stderr));
}

}  // namespace kx
