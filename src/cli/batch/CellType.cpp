#include "cli/batch/CellType.h"

#include "cli/formula/ValueText.h"

namespace kx {
namespace {

/// Whether a number would lose a part of the text, as with item and telephone numbers: a plus, a
/// leading zero, or more digits than a double holds.
bool saysMore(std::string_view cell) {
    constexpr std::size_t kExactDigits = 15;
    if (cell.starts_with('+')) return true;
    if (cell.starts_with('-')) cell.remove_prefix(1);
    if (cell.size() > 1 && cell[0] == '0' && cell[1] >= '0' && cell[1] <= '9') return true;
    std::size_t digits = 0;
    for (char const c : cell) digits += c >= '0' && c <= '9' ? 1 : 0;
    bool const isWhole = digits == cell.size();
    return isWhole && digits > kExactDigits;
}

}  // namespace

std::optional<CellType> cellTypeNamed(std::string_view name) {
    if (name == "long") return CellType::wholeNumber;
    if (name == "double") return CellType::number;
    if (name == "bool") return CellType::boolean;
    if (name == "string") return CellType::text;
    return std::nullopt;
}

std::string describe(CellType type) {
    switch (type) {
        case CellType::wholeNumber:
            return "a whole number of 32 bits";
        case CellType::boolean:
            return R"("true" or "false")";
        case CellType::text:
            return "a text of at most 255 characters";
        default:
            return "a number";
    }
}

std::optional<double> numberInCell(CellType type, std::string_view cell) {
    if (type == CellType::wholeNumber) return wholeNumberFrom(cell);
    if (type == CellType::guessed && saysMore(cell)) return std::nullopt;
    return numberFrom(cell);
}

}  // namespace kx
