// A tour of the library: converts formulas of the older language, binds variables, compiles and
// runs. It uses the public interface only, as an application does.

#include <cstdint>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "convert/Converter.h"
#include "host/KxJsParser.h"
#include "host/KxJsVariable.h"

namespace {

// Converts the library's UTF-16 to the terminal's UTF-8. std::filesystem::path does this for
// well-formed texts.
std::string utf8(std::u16string const& text) { return std::filesystem::path(text).string(); }

void show(char const* what, std::u16string const& text) { std::cout << what << utf8(text) << '\n'; }

/// Converts and compiles `formula`. Returns the script's index, or -1 after printing the error.
std::int32_t compile(KxJsParser& parser, std::u16string const& formula) {
    std::u16string const javaScript = Converter::_convert(formula.c_str());
    show("\nformula     ", formula);
    show("JavaScript  ", javaScript);
    std::u16string error;
    std::int32_t const script = parser.parse(javaScript, error);
    if (script < 0) show("error\n", error);
    return script;
}

void run(KxJsParser& parser, std::int32_t script) {
    std::u16string error;
    std::u16string const result = parser.execute(script, error);
    if (error.empty()) {
        show("result      ", result);
    } else {
        show("error\n", error);
    }
}

void evaluate(KxJsParser& parser, std::u16string const& formula) {
    std::int32_t const script = compile(parser, formula);
    if (script >= 0) run(parser, script);
}

}  // namespace

int main() {
    KxJsParser parser;
    parser.initialize();  // the 63 built-in functions

    std::cout << "Variables have a type: A is the whole number 5, NAME a text.\n";
    parser.addSetVariable(KxJsVariable(u"A", std::int32_t{5}));
    parser.addSetVariable(KxJsVariable(u"NAME", u"  Ada Lovelace "));
    evaluate(parser, u"IIF(A>2 .AND. A<>7,'OK','KO')");
    evaluate(parser, u"UPPER(LEFT(ALLTRIM(NAME),3))+STRZ(A,4)");
    evaluate(parser, u"2^10 + MOD(17,A)");

    std::cout << "\nA formula is compiled once and runs as often as its variables change.\n";
    parser.addSetVariable(KxJsVariable(u"PRICE", 0.0));
    std::int32_t const gross = compile(parser, u"ROUND(PRICE*1.2,2)");
    for (double const price : {10.0, 24.99, 1.5}) {
        parser.addSetVariable(KxJsVariable(u"PRICE", price));
        run(parser, gross);
    }

    std::cout << "\nThe names that a formula needs can be asked for.\n";
    std::u16string const discount = u"IIF(QUANTITY>LIMIT,0.9,1)*NET";
    std::u16string error;
    show("\nformula     ", discount);
    for (std::u16string const& name :
         KxJsParser::_extractVariable(Converter::_convert(discount.c_str()), error)) {
        show("needs       ", name);
    }
    if (!error.empty()) show("error\n", error);

    std::cout << "\nA mistake comes back as text, with its place. (Every variable that a formula\n"
                 "uses counts as a line before it.)\n";
    evaluate(parser, u"ALLTRIM(NAME))");
    evaluate(parser, u"A*RATE");

    std::cout << "Next:\n"
                 "  scripts/run eval -v A=5 \"IIF(A>2,'OK','KO')\"   your own formulas\n"
                 "  scripts/run functions                         what formulas can call\n"
                 "  scripts/run functions SUBSTR                  one function in full\n"
                 "  scripts/run docs --pages DIR                  the same as HTML, for users\n"
                 "  scripts/run -- --help                         everything else\n"
                 "  README.md, examples/tour.cpp                  the same from C++\n";
}
