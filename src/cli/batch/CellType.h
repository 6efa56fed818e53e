#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kx {

/// The type of a column's cells in a formula. `guessed` is a number whose type follows from the
/// cells. It is stricter than a type that the user has chosen: an item number such as 007 is text.
enum class CellType : std::uint8_t { wholeNumber, number, guessed, boolean, text };

/// The type called "long", "double", "bool" or "string".
std::optional<CellType> cellTypeNamed(std::string_view name);

/// The type in words for messages: "a whole number of 32 bits".
std::string describe(CellType type);

/// The number in a cell of a column of that type; nothing where the cell has none. Whole numbers
/// are doubles here too: formulas do not distinguish them.
std::optional<double> numberInCell(CellType type, std::string_view cell);

}  // namespace kx
