#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kx::fuzz {

/// A record of CSV and the line on which it begins.
struct PlainRecord {
    std::vector<std::string> cells;
    std::size_t line;
    bool operator==(PlainRecord const&) const = default;
};

struct PlainFile {
    std::vector<PlainRecord> records;  ///< up to the first fault
    bool isCsv = true;
};

/// Reads CSV byte by byte, to compare the reader of kxjs with.
PlainFile readPlainly(std::string_view bytes, char delimiter);

}  // namespace kx::fuzz
