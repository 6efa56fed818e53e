// Conversion from the older language: formulas of 63 characters, long ones, and hostile text, whose
// time must double with its length and not quadruple.
#include "cases/Cases.h"

namespace bench {

namespace {

std::string repeated(std::string const& piece, std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) text += piece;
    return text;
}

Case conversion(std::string const& title, std::string const& text) {
    Case convert;
    convert.title = "convert, " + title;
    convert.task = Task::convert;
    convert.formula.javaScript = text;
    convert.batch = text.size() < 100 ? 1000 : 1;
    convert.prepare = [](Peer&) {};
    convert.work = [text](Peer& peer, std::uint64_t, std::uint64_t count) {
        return peer.convert(text, count);
    };
    convert.results = [text](Peer& peer) {
        peer.convert(text, 1);
        return peer.result();
    };
    return convert;
}

struct NamedText {
    char const* name;
    std::string text;
};

struct Family {
    std::string name;
    std::function<std::string(std::size_t)> make;
    std::size_t count;
};

}  // namespace

std::vector<Case> convertCases() {
    // Each of 63 characters.
    std::vector<NamedText> const formulas = {
        {"nothing to do", "price * quantity + shipping - discount + 12 * (tax + surcharge)"},
        {"operators", "total >= 100 .AND. (status <> 'open' .OR. paid = 1) AND a <> bc"},
        {"everything", "IIF(ALLTRIM(name)<>'x' .AND. SQRT(a)>=2,SUBSTR(s,1,3),MOD(a,7))"},
    };
    std::vector<Family> const hostile = {
        {"SIN( x ", [](std::size_t n) { return repeated("SIN(", n); }, 20000},
        {"a ^ behind digits x ", [](std::size_t n) { return std::string(n, '1') + "^"; }, 100000},
        {"blanks x ", [](std::size_t n) { return std::string(n, ' '); }, 100000},
        {"ABS( and ) x ", [](std::size_t n) { return repeated("ABS(", n) + std::string(n, ')'); },
         20000},
    };
    constexpr std::size_t kPieces = 100;
    std::vector<Case> cases;
    for (NamedText const& formula : formulas) {
        cases.push_back(conversion("63 characters, " + std::string(formula.name), formula.text));
        cases.back().goalNanoseconds = 1500;
    }
    for (NamedText const& formula : formulas) {
        std::string const text = repeated(formula.text + " + ", kPieces);
        cases.push_back(conversion(
            std::to_string(text.size()) + " characters, " + std::string(formula.name), text));
        cases.back().goalNanoseconds = 25.0 * static_cast<double>(text.size());
    }
    for (Family const& family : hostile) {
        auto const ofLength = [&family](std::size_t count) {
            return conversion(family.name + std::to_string(count), family.make(count));
        };
        cases.push_back(ofLength(family.count / 2));
        std::string const half = cases.back().title;
        cases.push_back(ofLength(family.count));
        cases.back().twiceOf = half;
    }
    return cases;
}

}  // namespace bench
