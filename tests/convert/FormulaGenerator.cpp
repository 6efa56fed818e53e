#include "FormulaGenerator.h"

#include <array>
#include <string_view>

namespace {

using namespace std::string_view_literals;

// Names that rules look for, names of the catalogues, and near misses.
constexpr auto names = std::to_array<std::u16string_view>({
    u"SIN",      u"COS",     u"TAN",       u"TG",        u"COT",       u"ASIN",      u"ASN",
    u"ACOS",     u"ACS",     u"ATAN",      u"ATN",       u"ATG",       u"ATAN2",     u"LOG",
    u"LN",       u"LOG10",   u"EXP",       u"SQRT",      u"SQR",       u"MOD",       u"POWER",
    u"RAND",     u"FLOOR",   u"INT",       u"CEIL",      u"CEILING",   u"ABS",       u"SIGN",
    u"SGN",      u"DEGREES", u"RTOD",      u"RADIANS",   u"DTOR",      u"TYPE",      u"EVAL",
    u"EVALUATE", u"IF",      u"IIF",       u"SWITCH",    u"TRIM",      u"LTRIM",     u"RTRIM",
    u"ALLTRIM",  u"L RTRIM", u"R RTRIM",   u"REPLICATE", u"REPL",      u"REPEAT",    u"LEN",
    u"LENGTH",   u"UPPER",   u"UCASE",     u"LOWER",     u"LCASE",     u"CHAR",      u"CHR",
    u"ASCII",    u"ASC",     u"LEFT",      u"RIGHT",     u"SUBSTR",    u"SUBS",      u"SUBSTRING",
    u"STUFF",    u"INSERT",  u"ROUND",     u"TRUNCATE",  u"FRAC",      u"EVEN",      u"ODD",
    u"ANTILOG",  u"STR",     u"STRZ",      u"CONCAT",    u"SPACE",     u"VAL",       u"RPAD",
    u"LOCATE",   u"OCCURS",  u"IOCCURS",   u"ISALPHA",   u"ISDIGIT",   u"REPLACE",   u"AT",
    u"ATC",      u"RAT",     u"RATC",      u"CHRTRAN",   u"LOWERCASE", u"UPPERCASE", u"COND",
    u"MIN",      u"MAX",     u"BETWEEN",   u"BUMP",      u"INLIST",    u"LISTFUNCT", u"PRINT",
    u"ELSEIF",   u"ISTRUE",  u"Math.sqrt", u"FOO",       u"A",         u"",          u"EVALUATED",
});

constexpr auto operators = std::to_array<std::u16string_view>({
    u"AND", u".AND.", u"OR", u".OR.", u"NOT", u".NOT.", u"XOR", u".XOR.", u"DIV", u"(AND)",
    u">=",  u"<>",    u"/=", u"=<",   u"**",  u"^",     u"\\",  u"\\\\",  u"=",   u"<",
    u">",   u"+",     u"-",  u"*",    u"/",   u",",     u"%",   u"!=",    u"=>",  u"<=",
});

constexpr auto atoms = std::to_array<std::u16string_view>({
    u"a",
    u"x",
    u"name",
    u"TRUE",
    u"FALSE",
    u"L",
    u"R",
    u"é",
    u"中",
    u"\U0001F600",
    u"this.b",
});

constexpr auto spaces = std::to_array<char16_t>(
    {u' ', u' ', u' ', u' ', u'\t', u'\n', u'\r', u'\v', u'\f', u'\u00a0', u'\u1680', u'\u2000',
     u'\u200a', u'\u2028', u'\u2029', u'\u202f', u'\u205f', u'\u3000', u'\ufeff'});

// The characters that patterns hold, and similar ones that they do not hold.
constexpr auto units =
    u"()()(),,^^..''\"\"\\\\<>=*/ \t\n\r\u2028\u00a00123456789abcdegilmnoprstxANDORTXLSFUEIVM"
    u"\u017f\u212a\u0130\u0131\u180e\u200b\x85\u00e9\xd800\xdc00\uffff\x1"sv;

}  // namespace

std::u16string FormulaGenerator::next() {
    text_.clear();
    if (oneIn(6)) {
        soup();
    } else {
        expression(4);
    }
    while (oneIn(2)) mutate();
    return text_;
}

void FormulaGenerator::expression(int depth) {
    if (oneIn(8)) space();
    for (;;) {
        operand(depth);
        if (!oneIn(2)) break;
        maybeSpace();
        inAnyCase(std::u16string(pick(operators)));
        maybeSpace();
    }
    if (oneIn(8)) space();
}

void FormulaGenerator::operand(int depth) {
    switch (below(depth > 0 ? 8 : 4)) {
        case 0:
            inAnyCase(std::u16string(pick(atoms)));
            break;
        case 1:
            number();
            break;
        case 2:
            power();
            break;
        case 3:
            quoted();
            break;
        case 4:
            text_ += u'(';
            expression(depth - 1);
            text_ += u')';
            break;
        default:
            call(depth);
    }
}

void FormulaGenerator::call(int depth) {
    if (oneIn(10)) text_ += pick(atoms);
    inAnyCase(std::u16string(pick(names)));
    if (oneIn(4)) space();
    text_ += u'(';
    for (std::size_t arguments = below(4); arguments > 0; --arguments) {
        expression(depth - 1);
        if (arguments > 1) text_ += u',';
    }
    if (!oneIn(20)) text_ += u')';
}

void FormulaGenerator::power() {
    do {
        number();
        if (oneIn(4)) space();
        text_ += oneIn(5) ? u"**" : u"^";
        if (oneIn(4)) space();
    } while (oneIn(3));
    number();
}

void FormulaGenerator::number() {
    static constexpr auto separators = u"...., ^-\nx\u2028"sv;
    for (std::size_t digits = 1 + below(3); digits > 0; --digits) {
        text_ += static_cast<char16_t>(u'0' + below(10));
    }
    while (oneIn(3)) {
        text_ += pick(separators);
        for (std::size_t digits = below(3); digits > 0; --digits) {
            text_ += static_cast<char16_t>(u'0' + below(10));
        }
    }
}

void FormulaGenerator::quoted() {
    char16_t const quote = oneIn(2) ? u'"' : u'\'';
    text_ += quote;
    for (std::size_t length = below(5); length > 0; --length) {
        if (oneIn(3)) {
            text_ += pick(operators);
        } else {
            text_ += pick(units);
        }
    }
    text_ += quote;
}

void FormulaGenerator::soup() {
    bool const few = oneIn(3);
    std::u16string palette;
    for (std::size_t i = 0; i < 6; ++i) {
        palette += pick(units);
        if (few && oneIn(2)) palette += u"1^ .("sv[below(5)];
    }
    for (std::size_t length = below(40); length > 0; --length) {
        if (few) {
            text_ += pick(palette);
        } else {
            text_ += pick(units);
        }
    }
}

void FormulaGenerator::space() {
    do {
        text_ += pick(spaces);
    } while (oneIn(4));
}

void FormulaGenerator::maybeSpace() {
    if (!oneIn(3)) space();
}

void FormulaGenerator::inAnyCase(std::u16string word) {
    std::size_t const style = below(3);  // as it stands, small letters, mixed
    for (char16_t& unit : word) {
        bool const isCapital = unit >= u'A' && unit <= u'Z';
        if (isCapital && (style == 1 || (style == 2 && oneIn(2)))) unit += 32;
    }
    text_ += word;
}

void FormulaGenerator::mutate() {
    std::size_t const place = below(text_.size() + 1);
    switch (below(6)) {
        case 0:
            text_.insert(place, 1, pick(units));
            break;
        case 1:
            text_.erase(place, 1 + below(3));
            break;
        case 2:
            if (place < text_.size()) text_[place] = pick(units);
            break;
        case 3:  // a piece of the text once more, somewhere else
            text_.insert(place, text_.substr(below(text_.size() + 1), below(12)));
            break;
        case 4:  // a long run
            if (oneIn(4)) text_.insert(place, below(60), pick(units));
            break;
        default:
            text_.insert(place, pick(names));
    }
}
