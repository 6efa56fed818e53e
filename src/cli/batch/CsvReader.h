#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// Records of a CSV file that were read together. Their cells lie in one buffer.
class CsvBlock {
  public:
    std::size_t size() const { return records_.size(); }
    bool empty() const { return records_.empty(); }
    std::size_t cellCount(std::size_t record) const { return records_[record].cells; }
    /// The line on which the record begins, from 1.
    std::size_t line(std::size_t record) const { return records_[record].line; }
    /// A cell as UTF-8, without its quotes; empty where the record has fewer.
    std::string_view cell(std::size_t record, std::size_t index) const;

  private:
    friend class CsvReader;
    struct Record {
        std::size_t firstCell;
        std::size_t cells;
        std::size_t line;
    };
    std::string bytes_;
    std::vector<std::size_t> ends_;  ///< of the cells, in the buffer
    std::vector<Record> records_;
};

/// Reads CSV in blocks, so that a file may be larger than memory. Cells may be quoted and then hold
/// delimiters, doubled quotes and line breaks; lines end at LF, CR LF or CR; blanks around a cell
/// belong to it. A blank line is a record with an empty cell where the header has one cell, and is
/// skipped where it has more, and before the header.
class CsvReader {
  public:
    /// Reads the open file `descriptor`; `name` is its name in errors.
    CsvReader(int descriptor, std::string name, char delimiter);
    ~CsvReader();
    CsvReader(CsvReader const&) = delete;
    CsvReader& operator=(CsvReader const&) = delete;

    /// Reads the first record: its cells, none where there is none. Before next().
    void readHeader(std::vector<std::string>& cells);

    /// Reads about `bytes` more. An empty block is the end. Throws WorkError where reading fails,
    /// and for what is no CSV: a quote inside an unquoted cell, one that is not closed, a zero
    /// byte.
    CsvBlock next(std::size_t bytes);

    /// How many bytes were read.
    std::size_t bytesRead() const;
    /// Whether the file begins with a byte order mark, and how its header ends: LF or CR LF. The
    /// latter is known once next() was called.
    bool hasByteOrderMark() const;
    std::string_view lineEnd() const;

  private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace kx
