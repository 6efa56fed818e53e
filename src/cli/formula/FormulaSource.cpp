#include "cli/formula/FormulaSource.h"

#include <cstddef>
#include <string_view>
#include <unistd.h>
#include <utility>

#include "cli/io/Errors.h"
#include "cli/io/LineReader.h"
#include "cli/io/Output.h"
#include "text/Utf8.h"

namespace kx {
namespace {

constexpr std::string_view kStandardInput = "-";
constexpr char16_t kByteOrderMark = 0xFEFF;

void forEachInputLine(std::function<void(Formula const&)> const& use) {
    LineReader reader(STDIN_FILENO, flushOutput);
    std::string line;
    while (reader.next(line)) {
        std::string const place = "standard input, line " + std::to_string(reader.lineNumber());
        std::size_t const zero = line.find('\0');
        if (zero != std::string::npos) {
            throw UsageError(place + ": zero byte at byte " + std::to_string(zero + 1));
        }
        std::u16string text = decodeArgument(line, place);
        // Some editors write this mark. It is not part of the formula.
        if (reader.lineNumber() == 1 && text.starts_with(kByteOrderMark)) text.erase(0, 1);
        use({std::move(text), place});
    }
}

}  // namespace

std::u16string decodeArgument(std::string const& argument, std::string const& what) {
    try {
        return utf16FromUtf8(argument);
    } catch (InvalidUtf8 const& error) {
        throw UsageError(what + ": " + error.what());
    }
}

void forEachFormula(std::vector<std::string> const& arguments,
                    std::function<void(Formula const&)> const& use) {
    if (arguments.empty()) return forEachInputLine(use);

    std::vector<Formula> formulas;
    for (std::string const& argument : arguments) {
        std::string const place = "formula " + std::to_string(formulas.size() + 1);
        formulas.push_back({decodeArgument(argument, place), arguments.size() > 1 ? place : ""});
    }
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == kStandardInput) {
            forEachInputLine(use);
        } else {
            use(formulas[i]);
        }
    }
}

}  // namespace kx
