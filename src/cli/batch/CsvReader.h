#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// Records of a CSV file. One buffer holds all cells.
class CsvBlock {
  public:
    std::size_t size() const { return records_.size(); }
    bool empty() const { return records_.empty(); }
    std::size_t cellCount(std::size_t record) const { return records_[record].cells; }
    /// The first line of the record, from 1.
    std::size_t line(std::size_t record) const { return records_[record].line; }
    /// The bytes of a cell, without quotes; empty where the record has fewer cells.
    std::string_view cell(std::size_t record, std::size_t index) const;

  private:
    friend class CsvReader;
    struct Record {
        std::size_t firstCell;
        std::size_t cells;
        std::size_t line;
    };
    std::string bytes_;
    std::vector<std::size_t> ends_;  ///< of the cells in the buffer
    std::vector<Record> records_;
};

/// Reads CSV in blocks: a file may be larger than memory. A quoted cell may contain delimiters,
/// doubled quotes and line breaks. Lines end at LF, CR LF or CR. Blanks around a cell are part of
/// it. Where the header has one cell, a blank line is a record with an empty cell; elsewhere blank
/// lines are skipped.
class CsvReader {
  public:
    /// Reads the open file `descriptor`; `name` is its name in errors.
    CsvReader(int descriptor, std::string name, char delimiter);
    ~CsvReader();
    CsvReader(CsvReader const&) = delete;
    CsvReader& operator=(CsvReader const&) = delete;

    /// Stores the cells of the first record in `cells`; none for an empty file. Call it before
    /// next().
    void readHeader(std::vector<std::string>& cells);

    /// Reads about `bytes` more. An empty block is the end of the file. Throws WorkError where
    /// reading fails and where the file is not CSV: a quote inside an unquoted cell, a quote that
    /// is not closed, a zero byte.
    CsvBlock next(std::size_t bytes);

    /// The number of bytes read so far.
    std::size_t bytesRead() const;
    /// Whether the file begins with a byte order mark, and the line end of its header, LF or CR LF.
    /// The line end is known after the first next().
    bool hasByteOrderMark() const;
    std::string_view lineEnd() const;

  private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace kx
