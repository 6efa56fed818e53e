#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kx {

/// What the cells of a column are for a formula. GUESSED is a number found by looking at cells:
/// stricter than a number that was asked for, since an item number such as 007 is none.
enum class CellType : std::uint8_t { LONG, DOUBLE, GUESSED, BOOLEAN, STRING };

/// The type called "long", "double", "bool" or "string".
std::optional<CellType> cellTypeNamed(std::string_view name);

/// "a whole number of 32 bits", for messages.
std::string describe(CellType type);

/// The number in a cell of a column of that type; nothing where it has none. Whole numbers are
/// given as doubles too: formulas know no difference.
std::optional<double> numberInCell(CellType type, std::string_view cell);

}  // namespace kx
