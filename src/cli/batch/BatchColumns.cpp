#include "cli/batch/BatchColumns.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "cli/formula/ValueText.h"
#include "cli/io/Errors.h"
#include "cli/io/MessageText.h"
#include "host/KxJsVariable.h"
#include "text/NameUnits.h"
#include "text/ReservedWords.h"
#include "text/Utf8.h"

namespace kx {
namespace {

bool isName(std::u16string_view text) {
    return mayBeName(text) && findReservedWord(text) == nullptr;
}

/// Whether `name` occurs in `source` as a word that no parenthesis follows.
bool isUsed(std::u16string_view source, std::u16string_view name) {
    for (std::size_t at = source.find(name); at != std::u16string_view::npos;
         at = source.find(name, at + 1)) {
        std::size_t const end = at + name.size();
        if (at > 0 && mayBeNamePart(source[at - 1])) continue;
        if (end < source.size() && mayBeNamePart(source[end])) continue;
        std::size_t const next = source.find_first_not_of(u" \t\r\n", end);
        if (next == std::u16string_view::npos || source[next] != u'(') return true;
    }
    return false;
}

std::u16string nameOf(std::string const& header) {
    try {
        return utf16FromUtf8(header);
    } catch (InvalidUtf8 const&) {
        return {};
    }
}

/// Why `cell` has no value of `type`, in one line.
std::string refusal(std::string_view cell, CellType type) {
    if (cell.empty()) return "an empty cell is not " + describe(type);
    std::u16string text;
    try {
        text = utf16FromUtf8(cell);
    } catch (InvalidUtf8 const& error) {
        // A terminal could not display the bytes.
        return "byte " + std::to_string(error.position()) + " of the cell is not UTF-8";
    }
    return "\"" + quotable(std::move(text)) + "\" is not " + describe(type);
}

CellType typeOfCells(CsvBlock const& block, std::size_t index, std::size_t headerCells) {
    bool hasNumbers = false;
    bool hasBooleans = false;
    for (std::size_t record = 0; record < block.size(); ++record) {
        std::string_view const cell = block.cell(record, index);
        // A record with too many cells fails. Its cells may be in the wrong columns.
        if (cell.empty() || block.cellCount(record) > headerCells) continue;
        if (numberInCell(CellType::guessed, cell)) {
            hasNumbers = true;
        } else if (booleanFrom(cell)) {
            hasBooleans = true;
        } else {
            return CellType::text;
        }
    }
    if (hasNumbers == hasBooleans) return CellType::text;  // neither, or both
    return hasNumbers ? CellType::guessed : CellType::boolean;
}

}  // namespace

BatchColumns::BatchColumns(std::vector<std::string> const& header, std::u16string const& source,
                           std::map<std::string, CellType> const& types)
    : headerCells_(header.size()) {
    for (auto const& [name, type] : types) {
        if (std::find(header.begin(), header.end(), name) == header.end()) {
            throw UsageError("--type " + quotable(name) + ": there is no such column");
        }
    }
    for (std::size_t i = 0; i < header.size(); ++i) {
        std::u16string const name = nameOf(header[i]);
        if (!isName(name) || !isUsed(source, name)) continue;
        if (std::count(header.begin(), header.end(), header[i]) > 1) {
            throw WorkError("two columns are called \"" + quotable(header[i]) + "\"");
        }
        Column column{.index = i,
                      .header = header[i],
                      .name = name,
                      .numbers = {},
                      .booleans = nullptr,
                      .texts = {}};
        if (auto const given = types.find(header[i]); given != types.end()) {
            column.type = given->second;
            column.isTypeKnown = true;
        }
        columns_.push_back(std::move(column));
    }
}

void BatchColumns::guessTypes(CsvBlock const& block) {
    for (Column& column : columns_) {
        if (!column.isTypeKnown) column.type = typeOfCells(block, column.index, headerCells_);
    }
}

bool BatchColumns::loadCell(Column& column, std::string_view cell) {
    std::size_t const position = loaded_.size();
    if (column.type == CellType::text) {
        try {
            column.texts[position] = utf16FromUtf8(cell);
        } catch (InvalidUtf8 const&) {
            return false;
        }
        return column.texts[position].size() <= KxJsVariable::kMaxTextLength;
    }
    if (column.type == CellType::boolean) {
        auto const value = booleanFrom(cell);
        column.booleans[position] = value.value_or(false);
        return value.has_value();
    }
    auto const value = numberInCell(column.type, cell);
    column.numbers[position] = value.value_or(0);
    return value.has_value();
}

std::string BatchColumns::loadRecord(CsvBlock const& block, std::size_t record) {
    if (block.cellCount(record) > headerCells_) {
        return std::to_string(block.cellCount(record)) + " cells, where the header has " +
               std::to_string(headerCells_);
    }
    auto const wrong = std::find_if(columns_.begin(), columns_.end(), [&](Column& column) {
        return !loadCell(column, block.cell(record, column.index));
    });
    if (wrong == columns_.end()) return {};
    return "column " + quotable(wrong->header) + ": " +
           refusal(block.cell(record, wrong->index), wrong->type);
}

void BatchColumns::load(CsvBlock const& block, KxJsColumns& columns) {
    loaded_.clear();
    refused_.clear();
    for (Column& column : columns_) {
        if (column.type == CellType::text) {
            column.texts.resize(block.size());
        } else if (column.type == CellType::boolean) {
            // NOLINTNEXTLINE(modernize-avoid-c-arrays): as in the header
            column.booleans = std::make_unique<bool[]>(block.size());
        } else {
            column.numbers.resize(block.size());
        }
    }
    for (std::size_t record = 0; record < block.size(); ++record) {
        std::string wrong = loadRecord(block, record);
        if (wrong.empty()) {
            loaded_.push_back(record);
        } else {
            refused_[record] = std::move(wrong);
        }
    }
    bind(columns);
}

void BatchColumns::bind(KxJsColumns& columns) const {
    for (Column const& column : columns_) {
        if (column.type == CellType::text) {
            columns.bind(column.name, column.texts.data());
        } else if (column.type == CellType::boolean) {
            columns.bind(column.name, column.booleans.get());
        } else {
            columns.bind(column.name, column.numbers.data());
        }
    }
}

}  // namespace kx
