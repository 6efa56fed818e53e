#include "cli/formula/FunctionHelp.h"

#include <algorithm>
#include <cstddef>

#include "cli/formula/Catalogue.h"
#include "cli/formula/FormulaSource.h"
#include "cli/formula/PlainText.h"
#include "cli/io/Errors.h"
#include "cli/io/Output.h"
#include "cli/io/Terminal.h"
#include "text/Utf8.h"

namespace kx {
namespace {

constexpr std::size_t kIndent = 2;
// A few signatures are longer. Their texts begin on the next line.
constexpr std::size_t kLastTextColumn = 34;

std::u16string blanks(std::size_t count) {
    std::u16string text;
    text.resize(count, u' ');
    return text;
}

/// Rows of a name and a text, the texts aligned in one column.
void printColumns(std::vector<KxJsFunction::Parameter> const& rows, std::size_t textColumn,
                  std::size_t width) {
    for (auto const& [name, text] : rows) {
        std::u16string line = blanks(kIndent) + name;
        if (line.size() < textColumn) {
            line.resize(textColumn, u' ');
        } else {
            line += u'\n';
            line.append(textColumn, u' ');
        }
        printLine(line + wrap(plainTextFromHtml(text), textColumn, width));
    }
}

std::size_t textColumnOf(std::vector<KxJsFunction::Parameter> const& rows) {
    std::size_t longest = 0;
    for (auto const& row : rows) longest = std::max(longest, row.first.size());
    return std::min(kIndent + longest + 2, kLastTextColumn);
}

void printTexts(KxJsFunction const& function) {
    std::size_t const width = outputWidth();
    printLine(signatureOf(function));
    printLine(blanks(kIndent) + wrap(plainTextFromHtml(function.getDescription()), kIndent, width));
    if (!function.getParameters().empty()) {
        printLine(u"\nParameters");
        printColumns(function.getParameters(), textColumnOf(function.getParameters()), width);
    }
    printLine(u"\nReturns");
    printLine(blanks(kIndent) +
              wrap(plainTextFromHtml(function.getReturnDescription()), kIndent, width));
    printLine(u"\nExamples");
    // Wrapping would change the blanks inside an example.
    for (std::u16string const& example : function.getExamples()) {
        printLine(blanks(kIndent) + plainTextFromHtml(example));
    }
}

/// Names are ASCII. Other letters match no name.
std::u16string upperCase(std::u16string text) {
    for (char16_t& unit : text) {
        if (unit >= u'a' && unit <= u'z') unit = static_cast<char16_t>(unit - u'a' + u'A');
    }
    return text;
}

[[noreturn]] void refuseName(std::string const& name, std::u16string const& wanted,
                             std::vector<Catalogue> const& catalogues) {
    std::string message = "there is no function \"" + name + "\"";
    std::u16string near;
    for (std::u16string const& known : namesNear(wanted, catalogues)) {
        near += (near.empty() ? u"" : u", ") + known;
    }
    message += near.empty() ? "; \"kxjs functions\" lists them all"
                            : "; near it are: " + utf8FromUtf16(near);
    throw UsageError(message);
}

}  // namespace

void printFunctions(std::vector<Catalogue> const& catalogues) {
    std::size_t const width = outputWidth();
    std::vector<std::vector<KxJsFunction::Parameter>> tables;
    std::size_t textColumn = 0;
    for (Catalogue const& catalogue : catalogues) {
        auto& rows = tables.emplace_back();
        for (KxJsFunction const& function : catalogue.functions) {
            rows.emplace_back(signatureOf(function), function.getDescription());
        }
        textColumn = std::max(textColumn, textColumnOf(rows));
    }
    for (std::size_t i = 0; i < catalogues.size(); ++i) {
        printLine((i == 0 ? u"" : u"\n") + catalogues[i].title);
        printColumns(tables[i], textColumn, width);
    }
}

void printFunction(std::string const& name, std::vector<Catalogue> const& catalogues) {
    std::u16string const wanted = upperCase(decodeArgument(name, "name of a function"));
    for (Catalogue const& catalogue : catalogues) {
        for (KxJsFunction const& function : catalogue.functions) {
            if (function.getName() == wanted) return printTexts(function);
        }
    }
    refuseName(name, wanted, catalogues);
}

}  // namespace kx
