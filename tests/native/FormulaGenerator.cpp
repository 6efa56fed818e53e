#include "FormulaGenerator.h"

#include <array>
#include <cmath>
#include <limits>
#include <string_view>

namespace {

using namespace std::string_view_literals;

constexpr std::array kNames = {u"A"sv, u"B"sv, u"C"sv, u"S"sv, u"T"sv, u"U"sv};
constexpr std::array kLiterals = {
    u"0"sv,          u"1"sv,        u"2"sv,        u"-1"sv,      u"3.7"sv,        u"1e21"sv,
    u"0.1"sv,        u"255"sv,      u"1e-7"sv,     u"2.5"sv,     u"true"sv,       u"null"sv,
    u"undefined"sv,  u"NaN"sv,      u"Infinity"sv, u"''"sv,      u"' '"sv,        u"'a'"sv,
    u"'12'"sv,       u"'1.50'"sv,   u"'Ab cD'"sv,  u"'b,a,b'"sv, u"','"sv,        u"'\\u00e9'"sv,
    u"'-3x'"sv,      u"'  pad '"sv, u"'0x1F'"sv,   u"'1e3'"sv,   u"Math.PI"sv,    u"Math.E"sv,
    u"Math.SQRT2"sv, u"-0"sv,       u"'aXbXc'"sv,  u"'X'"sv,     u"4294967295"sv,
};
constexpr std::array kBinary = {
    u"+"sv,  u"+"sv,  u"-"sv,  u"*"sv,   u"/"sv,   u"%"sv,  u"<"sv,  u">"sv,    u"<="sv,
    u">="sv, u"=="sv, u"!="sv, u"==="sv, u"!=="sv, u"&&"sv, u"||"sv, u"\?\?"sv, u"&"sv,
    u"|"sv,  u"^"sv,  u"<<"sv, u">>"sv,  u">>>"sv, u","sv,  u"**"sv,
};
constexpr std::array kUnary = {u"-"sv, u"+"sv, u"!"sv, u"~"sv, u"void "sv, u"typeof "sv};

struct Callee {
    std::u16string_view name;
    int arguments;
};

constexpr std::array kFunctions = {
    Callee{u"IIF", 3},       Callee{u"IIF", 3},        Callee{u"LEFT", 2},
    Callee{u"RIGHT", 2},     Callee{u"SUBSTR", 3},     Callee{u"LEN", 1},
    Callee{u"AT", 3},        Callee{u"RAT", 3},        Callee{u"ATC", 2},
    Callee{u"RATC", 3},      Callee{u"INLIST", 4},     Callee{u"BETWEEN", 3},
    Callee{u"MIN", 3},       Callee{u"MAX", 2},        Callee{u"BUMP", 3},
    Callee{u"COND", 4},      Callee{u"SWITCH", 3},     Callee{u"ROUND", 2},
    Callee{u"TRUNCATE", 2},  Callee{u"FRAC", 1},       Callee{u"EVEN", 1},
    Callee{u"ODD", 1},       Callee{u"SIGN", 1},       Callee{u"DEGREES", 1},
    Callee{u"RADIANS", 1},   Callee{u"SQRT", 1},       Callee{u"LOCATE", 3},
    Callee{u"OCCURS", 2},    Callee{u"IOCCURS", 2},    Callee{u"ALLTRIM", 1},
    Callee{u"LTRIM", 1},     Callee{u"RTRIM", 1},      Callee{u"STR", 3},
    Callee{u"STRZ", 2},      Callee{u"CONCAT", 2},     Callee{u"REPEAT", 2},
    Callee{u"SPACE", 1},     Callee{u"VAL", 1},        Callee{u"CHAR", 1},
    Callee{u"RPAD", 2},      Callee{u"ASCII", 1},      Callee{u"LOWERCASE", 1},
    Callee{u"UPPERCASE", 1}, Callee{u"REPLACE", 3},    Callee{u"INSERT", 4},
    Callee{u"CHRTRAN", 3},   Callee{u"ISALPHA", 1},    Callee{u"ISUPPER", 1},
    Callee{u"ISLOWER", 1},   Callee{u"ISDIGIT", 1},    Callee{u"ISXDIGIT", 1},
    Callee{u"ISSPACE", 1},   Callee{u"ISGRAPH", 1},    Callee{u"ISALNUM", 1},
    Callee{u"ISPRINT", 1},   Callee{u"ISPUNCT", 1},    Callee{u"ISCNTRL", 1},
    Callee{u"ISASCII", 1},   Callee{u"Math.abs", 1},   Callee{u"Math.floor", 1},
    Callee{u"Math.ceil", 1}, Callee{u"Math.round", 1}, Callee{u"Math.trunc", 1},
    Callee{u"Math.sqrt", 1}, Callee{u"Math.sign", 1},  Callee{u"Math.max", 2},
    Callee{u"Math.min", 3},  Callee{u"Math.sin", 1},   Callee{u"String", 1},
    Callee{u"Number", 1},    Callee{u"Boolean", 1},    Callee{u"isNaN", 1},
    Callee{u"LOG", 2},       Callee{u"UNKNOWN", 1},
};

constexpr std::array kMembers = {
    Callee{u"charAt", 1},      Callee{u"charCodeAt", 1},  Callee{u"substring", 2},
    Callee{u"substr", 2},      Callee{u"slice", 2},       Callee{u"indexOf", 2},
    Callee{u"lastIndexOf", 1}, Callee{u"includes", 1},    Callee{u"startsWith", 1},
    Callee{u"endsWith", 1},    Callee{u"toUpperCase", 0}, Callee{u"toLowerCase", 0},
    Callee{u"concat", 1},
};

constexpr std::array kNumbers = {
    0.0,
    -0.0,
    1.0,
    -1.0,
    0.5,
    -0.5,
    1.5,
    2.5,
    -2.5,
    1.005,
    0.1,
    1234.5678,
    1e15,
    1e21,
    1e-7,
    -1.234e-10,
    5e-324,
    1.7976931348623157e308,
    4294967296.0,
    2147483648.0,
    -2147483649.0,
    0.49999999999999994,
    9007199254740993.0,
    123456789.125,
    1e6,
    0.000001,
};

constexpr std::array kTexts = {
    u""sv,
    u" "sv,
    u"a"sv,
    u"abc"sv,
    u"ABC abc"sv,
    u"  both  "sv,
    u"12"sv,
    u" 12.5 "sv,
    u"-7"sv,
    u"+3"sv,
    u"."sv,
    u".5"sv,
    u"5."sv,
    u"1e3"sv,
    u"0x10"sv,
    u"Infinity"sv,
    u"-Infinity"sv,
    u"NaN"sv,
    u"1,5"sv,
    u"b"sv,
    u"\u00e9"sv,
    u"\u0130"sv,
    u"\u00df"sv,
    u"x-12.50y7"sv,
    u"007"sv,
    u"true"sv,
    u"a\tb"sv,
    u"\u00a0x\u2028"sv,
    u"\xd83d\xde00"sv,
    u"aaaa"sv,
    u"-"sv,
    u"-0"sv,
};

}  // namespace

std::u16string FormulaGenerator::operand() {
    return random_() % 2 == 0 ? pick(kNames) : pick(kLiterals);
}

std::u16string FormulaGenerator::call(int depth) {
    bool const isMember = random_() % 4 == 0;
    Callee const callee = isMember ? kMembers[random_() % kMembers.size()]
                                   : kFunctions[random_() % kFunctions.size()];
    // Sometimes with too few arguments, or too many.
    int count = callee.arguments;
    if (random_() % 6 == 0) count += static_cast<int>(random_() % 4) - 2;
    std::u16string text = isMember ? u"(" + expression(depth - 1) + u")." : u"";
    text += std::u16string(callee.name) + u"(";
    for (int i = 0; i < count; ++i) text += (i > 0 ? u"," : u"") + expression(depth - 1);
    return text + u")";
}

std::u16string FormulaGenerator::expression(int depth) {
    if (depth <= 0) return operand();
    switch (random_() % 8) {
        case 0:
            return operand();
        case 1:
            return u"(" + expression(depth - 1) + u"?" + expression(depth - 1) + u":" +
                   expression(depth - 1) + u")";
        case 2:
            return pick(kUnary) + u"(" + expression(depth - 1) + u")";
        case 3:
            return u"(" + expression(depth - 1) + u").length";
        case 4:
        case 5:
            return u"((" + expression(depth - 1) + u")" + pick(kBinary) + u"(" +
                   expression(depth - 1) + u"))";
        default:
            return call(depth);
    }
}

KxJsVariable FormulaGenerator::value(std::u16string const& key) {
    switch (random_() % 8) {
        case 0:
            return {key, static_cast<std::int32_t>(random_() % 20) - 5};
        case 1:
            return {key, static_cast<std::int32_t>(random_())};
        case 2:
            return {key, kNumbers[random_() % kNumbers.size()]};
        case 3: {
            double const thousand = static_cast<double>(random_() % 2'000'000) - 1'000'000;
            return {key, thousand / std::pow(10.0, static_cast<double>(random_() % 7))};
        }
        case 4:
            return {key, random_() % 2 == 0};
        case 5:
            return random_() % 4 == 0 ? KxJsVariable(key, std::u16string(300, u'z'))
                                      : KxJsVariable(key, std::numeric_limits<double>::quiet_NaN());
        default:
            return {key, std::u16string(kTexts[random_() % kTexts.size()])};
    }
}
