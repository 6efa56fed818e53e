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
/// A column is a variable where its header is a JavaScript name that occurs in the formula as a
/// whole word. A word before a parenthesis is a function, and no column. A type that the user has
/// not chosen follows from the first block: number or boolean where every cell that is not empty is
/// one, else string. A later cell that does not have the type makes its record fail, since a change
/// of type would change the meaning of the formula.
class BatchColumns {
  public:
    /// `types` are those that the user has chosen, by header. Throws UsageError for a type without
    /// a column, and WorkError for two columns of one header that the formula uses.
    BatchColumns(std::vector<std::string> const& header, std::u16string const& source,
                 std::map<std::string, CellType> const& types);

    /// Derives the types that the user has not chosen.
    void guessTypes(CsvBlock const& block);

    /// Stores the values of `block` and binds them to `columns`, until the next call. A record is
    /// loaded where all its values have their types and it has no more cells than the header.
    void load(CsvBlock const& block, KxJsColumns& columns);

    /// The loaded records, by their number in the block.
    std::vector<std::size_t> const& loaded() const { return loaded_; }
    /// The other records, and why they were not loaded.
    std::map<std::size_t, std::string> const& refused() const { return refused_; }

  private:
    struct Column {
        std::size_t index;
        std::string header;
        std::u16string name;
        bool isTypeKnown = false;
        CellType type = CellType::text;
        std::vector<double> numbers;
        // NOLINTNEXTLINE(modernize-avoid-c-arrays): std::vector<bool> has no array of bool
        std::unique_ptr<bool[]> booleans;
        std::vector<std::u16string> texts;
    };

    bool loadCell(Column& column, std::string_view cell);
    /// Returns why the record cannot be loaded; empty where it was.
    std::string loadRecord(CsvBlock const& block, std::size_t record);
    void bind(KxJsColumns& columns) const;

    std::size_t headerCells_;
    std::vector<Column> columns_;
    std::vector<std::size_t> loaded_;
    std::map<std::size_t, std::string> refused_;
};

}  // namespace kx
