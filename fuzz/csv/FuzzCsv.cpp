// Reads input as CSV, in reads and blocks of any size, and compares the records with those of a
// simple reader. Also reads cells as numbers, and writes cells and reads them back.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

#include "cli/batch/CellType.h"
#include "cli/batch/CsvReader.h"
#include "cli/batch/CsvText.h"
#include "cli/formula/ValueText.h"
#include "cli/io/Errors.h"
#include "csv/PlainCsv.h"
#include "support/Check.h"
#include "support/Pieces.h"

namespace {

using kx::fuzz::check;
using kx::fuzz::PlainFile;
using kx::fuzz::PlainRecord;

struct Choices {
    char delimiter;
    bool hasHeader;
    std::size_t piece;
    std::size_t block;
};

/// The reader's records up to the first error.
PlainFile readInBlocks(std::string_view bytes, Choices const& choices) {
    int const descriptor = kx::fuzz::inPieces(bytes, choices.piece);
    PlainFile file;
    try {
        kx::CsvReader reader(descriptor, "input", choices.delimiter);
        if (choices.hasHeader) {
            std::vector<std::string> cells;
            reader.readHeader(cells);
            // The reader does not report the line of the header.
            if (!cells.empty()) file.records.push_back({cells, 0});
        }
        for (;;) {
            kx::CsvBlock const block = reader.next(choices.block);
            if (block.empty()) break;
            for (std::size_t i = 0; i < block.size(); ++i) {
                PlainRecord record{{}, block.line(i)};
                for (std::size_t j = 0; j < block.cellCount(i); ++j) {
                    record.cells.emplace_back(block.cell(i, j));
                }
                check(block.cell(i, block.cellCount(i)).empty(), "a cell behind the last");
                file.records.push_back(record);
            }
        }
        check(reader.bytesRead() == bytes.size(), "how many bytes were read");
    } catch (kx::WorkError const&) {
        file.isCsv = false;
    }
    close(descriptor);
    return file;
}

void checkReading(std::string_view bytes, Choices const& choices) {
    bool const hasZero = bytes.find('\0') != std::string_view::npos;
    PlainFile expected = kx::fuzz::readPlainly(bytes, choices.delimiter);
    PlainFile const file = readInBlocks(bytes, choices);
    check(file.isCsv == (expected.isCsv && !hasZero), "what is CSV");
    if (choices.hasHeader && !expected.records.empty()) expected.records.front().line = 0;
    // An error in a block drops the whole block, with the good records before the error.
    check(file.records.size() <= expected.records.size(), "no more records than there are");
    check(!file.isCsv || file.records.size() == expected.records.size(), "every record");
    for (std::size_t i = 0; i < file.records.size(); ++i) {
        check(file.records[i] == expected.records[i], "a record");
    }
}

/// Cells end at 0x1f, records at 0x1e.
std::vector<std::vector<std::string>> recordsOf(std::string_view bytes) {
    std::vector<std::vector<std::string>> records(1, {""});
    for (char const byte : bytes) {
        if (byte == '\x1e') {
            records.push_back({""});
        } else if (byte == '\x1f') {
            records.back().emplace_back();
        } else if (byte != '\0') {
            records.back().back() += byte;
        }
    }
    // An empty line is not a record.
    std::erase(records, std::vector<std::string>{""});
    return records;
}

void checkWriting(std::string_view bytes, Choices const& choices) {
    auto const records = recordsOf(bytes);
    std::string written = "\xEF\xBB\xBF";  // a second mark is part of the first cell
    for (auto const& record : records) {
        for (std::size_t i = 0; i < record.size(); ++i) {
            if (i > 0) written += choices.delimiter;
            kx::appendCell(written, record[i], choices.delimiter);
        }
        written += choices.hasHeader ? "\r\n" : "\n";
    }
    PlainFile const file = readInBlocks(written, choices);
    check(file.isCsv && file.records.size() == records.size(), "records written and read");
    for (std::size_t i = 0; i < records.size(); ++i) {
        check(file.records[i].cells == records[i], "cells written and read");
    }
}

void checkNumbers(std::string_view cell) {
    static_cast<void>(kx::booleanFrom(cell));
    for (kx::CellType const type :
         {kx::CellType::wholeNumber, kx::CellType::number, kx::CellType::guessed}) {
        auto const number = kx::numberInCell(type, cell);
        if (!number) continue;
        std::string const digits(cell);
        char* end = nullptr;
        check(std::strtod(digits.c_str(), &end) == *number && *end == '\0', "a cell's number");
        check(type != kx::CellType::wholeNumber || static_cast<std::int32_t>(*number) == *number,
              "a cell's whole number");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    if (size < 3) return 0;
    Choices const choices{.delimiter = ",;\t|"[data[0] & 3U],
                          .hasHeader = (data[0] & 4U) != 0,
                          .piece = data[1] + std::size_t{1},
                          .block = data[2] + std::size_t{1}};
    std::string_view const bytes(reinterpret_cast<char const*>(data) + 3, size - 3);
    checkReading(bytes, choices);
    checkWriting(bytes, choices);
    checkNumbers(bytes);
    return 0;
}
