#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/batch/CsvReader.h"
#include "cli/io/AtomicFile.h"

namespace kx {

/// The CSV file that a batch writes: the cells that were read, and a column of results. It goes to
/// standard output, or to a file that is replaced at commit(). A pipe or a device is written into.
class BatchOutput {
  public:
    /// An empty path stands for standard output. Throws WorkError.
    BatchOutput(std::string const& path, char delimiter);

    bool isStandardOutput() const { return !file_; }

    /// Writes the header of `reader` and `resultName`, with the byte order mark and the line end of
    /// the file that is read. Throws WorkError, as the functions below do.
    void writeHeader(std::vector<std::string> const& header, std::string const& resultName,
                     CsvReader const& reader);

    /// Writes all records of `block`. `results` are those of the records `evaluated`; the others
    /// get an empty cell.
    void writeRecords(CsvBlock const& block, std::vector<std::size_t> const& evaluated,
                      std::vector<std::u16string> const& results);

    void commit();

  private:
    void write(std::string_view bytes);

    std::optional<FileReplacement> file_;
    char delimiter_;
    std::size_t headerCells_ = 0;
    std::string lineEnd_;
};

}  // namespace kx
