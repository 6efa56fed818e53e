#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "cli/batch/CellType.h"
#include "cli/batch/CsvReader.h"
#include "columns/KxJsColumns.h"

namespace kx {

/// The columns of a CSV file that a formula uses, as values in memory, block by block.
///
/// A column is a variable where its header is a name in JavaScript and stands in the formula as a
/// whole word; a word before a parenthesis is a function, and stands for no column. Types that were
/// not given are found in the first block: number or boolean where every cell that is not empty is
/// one, else string. A later cell that its column's type does not have makes its record fail:
/// another type half-way would change what the formula means.
class BatchColumns {
  public:
    /// `types` are those that were asked for, by header. Throws UsageError for one without a
    /// column, and WorkError for a header that the formula uses and that stands twice.
    BatchColumns(std::vector<std::string> const& header, std::u16string const& source,
                 std::map<std::string, CellType> const& types);

    /// Finds the types that were not given.
    void guessTypes(CsvBlock const& block);

    /// Takes the values of the records from `block` that have all of them, and no more cells than
    /// the header, and binds them. The values are there until the next call.
    void load(CsvBlock const& block, KxJsColumns& columns);

    /// The records that were taken, by their number in the block.
    std::vector<std::size_t> const& taken() const { return taken_; }
    /// The others, and what is wrong with each.
    std::map<std::size_t, std::string> const& refused() const { return refused_; }

  private:
    struct Column {
        std::size_t index;
        std::string header;
        std::u16string name;
        bool isTypeKnown = false;
        CellType type = CellType::STRING;
        std::vector<double> numbers;
        // NOLINTNEXTLINE(modernize-avoid-c-arrays): a vector of them has none in memory
        std::unique_ptr<bool[]> booleans;
        std::vector<std::u16string> texts;
    };

    bool take(Column& column, std::string_view cell);
    /// What is wrong with the record; nothing where its values were taken.
    std::string takeRecord(CsvBlock const& block, std::size_t record);
    void bind(KxJsColumns& columns) const;

    std::size_t headerCells_;
    std::vector<Column> columns_;
    std::vector<std::size_t> taken_;
    std::map<std::size_t, std::string> refused_;
};

}  // namespace kx
