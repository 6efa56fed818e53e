#pragma once

#include <string>
#include <string_view>

namespace kx {

/// Appends `cell` to `line` as a cell of CSV, quoted where that is necessary.
inline void appendCell(std::string& line, std::string_view cell, char delimiter) {
    bool const needsQuotes = cell.find_first_of("\"\r\n") != std::string_view::npos ||
                             cell.find(delimiter) != std::string_view::npos;
    if (!needsQuotes) {
        line += cell;
        return;
    }
    line += '"';
    for (char const c : cell) {
        if (c == '"') line += '"';
        line += c;
    }
    line += '"';
}

}  // namespace kx
