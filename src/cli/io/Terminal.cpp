#include "cli/io/Terminal.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <sys/ioctl.h>
#include <unistd.h>

namespace kx {

std::u16string wrap(std::u16string_view text, std::size_t indent, std::size_t width) {
    if (width == 0) return std::u16string(text);
    std::u16string lines;
    std::size_t column = indent;
    while (!text.empty()) {
        // A word and the blanks before it stay together, which keeps runs of blanks inside a line.
        std::size_t const start = std::min(text.find_first_not_of(u' '), text.size());
        std::size_t const end = std::min(text.find(u' ', start), text.size());
        if (column + end > width && column > indent) {
            lines += u'\n';
            lines.append(indent, u' ');
            lines += text.substr(start, end - start);
            column = indent + end - start;
        } else {
            lines += text.substr(0, end);
            column += end;
        }
        text.remove_prefix(end);
    }
    return lines;
}

std::size_t outputWidth() {
    if (char const* const columns = std::getenv("COLUMNS")) {
        std::string_view const text = columns;
        std::size_t width = 0;
        auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), width);
        if (error == std::errc() && end == text.data() + text.size()) return width;
    }
    winsize size{};
    if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0) return size.ws_col;
    return 0;
}

}  // namespace kx
