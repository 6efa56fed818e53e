#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kx::fuzz {

/// A record and its first line.
struct PlainRecord {
    std::vector<std::string> cells;
    std::size_t line;
    bool operator==(PlainRecord const&) const = default;
};

struct PlainFile {
    std::vector<PlainRecord> records;  ///< up to the first error
    bool isCsv = true;
};

/// Reads CSV byte by byte: a simple reader to compare CsvReader with.
PlainFile readPlainly(std::string_view bytes, char delimiter);

}  // namespace kx::fuzz
