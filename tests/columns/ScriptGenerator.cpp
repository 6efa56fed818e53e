#include "ScriptGenerator.h"

#include <array>

namespace {

constexpr auto kOperands = std::to_array<char16_t const*>({
    u"A",    u"B",        u"C",       u"D",        u"NAME",          u"A",
    u"B",    u"NAME",     u"1",       u"0",        u"2.5",           u".5",
    u"1e3",  u"0x1F",     u"'text'",  u"\"\"",     u"'A>2'",         u"'B'",
    u"'12'", u"' x '",    u"true",    u"false",    u"null",          u"undefined",
    u"E",    u"left",     u"length",  u"Math.E",   u"A?.length",     u"A\n.length",
    u"NaN",  u"Infinity", u"Math.PI", u"'it\\'s'", u"'\\u0041\\0b'", u"RATE",
});
// Not every one of these is known to be harmless.
constexpr auto kOddOperands = std::to_array<char16_t const*>({
    u"this",
    u"missing",
    u"Math.random",
    u"[A,B]",
    u"{}",
    u"`t${A}`",
    u"/a/g",
    u"function(){return A}",
    u"arguments",
    u"eval('A')",
    u"new Date(0)",
    u"(()=>A)",
    u"10n",
    u"Symbol()",
    u"globalThis.A",
    u"A=5",
    u"A++",
    u"--B",
    u"B+=1",
    u"typeof A",
    u"void 0",
    u"delete A",
    u"Math",
    u"IIF",
    u"'x'['constructor']",
    u"netto()",
    u"COUNT++",
    u"A?.length",
    u"A/*,*/",
    u"1..toFixed(2)",
    u"1..E",
    u"Math.abs?.(E)",
    u"Math.max(...left)",
    u"Math?.[E]",
    u"017.E",
    u"Math./**/E",
});
constexpr auto kOperators = std::to_array<char16_t const*>({
    u"+",  u"-",  u"*", u"/", u"%", u"<",  u">",  u"<=",  u">=", u"==",  u"!=",   u"===",  u"!==",
    u"&&", u"||", u"&", u"|", u"^", u"<<", u">>", u">>>", u",",  u" + ", u" ** ", u" ?? ", u"\n+",
});
constexpr auto kPrefixes = std::to_array<char16_t const*>({u"-", u"+", u"!", u"~", u"!!", u"- -"});
// Without those that count up to a number, or search for an empty text for ever.
constexpr auto kFunctions = std::to_array<char16_t const*>({
    u"IIF",
    u"COND",
    u"MIN",
    u"MAX",
    u"ROUND",
    u"LEFT",
    u"RIGHT",
    u"UPPERCASE",
    u"LOWERCASE",
    u"LEN",
    u"ALLTRIM",
    u"LTRIM",
    u"RTRIM",
    u"BETWEEN",
    u"INLIST",
    u"SWITCH",
    u"BUMP",
    u"TRUNCATE",
    u"FRAC",
    u"EVEN",
    u"ODD",
    u"SIGN",
    u"LOG",
    u"LOG10",
    u"POWER",
    u"SUBSTR",
    u"LOCATE",
    u"CONCAT",
    u"VAL",
    u"CHAR",
    u"ASCII",
    u"ISDIGIT",
    u"ISALPHA",
    u"INSERT",
    u"CHRTRAN",
    u"IIF",
    u"COND",
    u"Math.max",
    u"Math.floor",
    u"Math.sqrt",
    u"Math.abs?.",
    u"''.concat",
    u"NAME.left",
    u"Number",
    u"String",
    u"isNaN",
    u"parseInt",
    u"(A+B).toFixed",
    u"NAME.charAt",
    u"NAME.substr",
    u"String(A).replace",
    u"NAME.trim",
    u"NAME.toUpperCase",
    u"LISTFUNCT",
    u"netto",
    u"A",
    u"Boolean",
});
constexpr auto kSoup = std::to_array<char16_t const*>({u"(",      u")",    u")+(",
                                                       u"A",      u"B",    u"+",
                                                       u",",      u"'",    u"\"",
                                                       u";",      u"\n",   u"//",
                                                       u"/*",     u"*/",   u"<!--",
                                                       u"-->",    u"=",    u"==",
                                                       u"?",      u":",    u".",
                                                       u"1",      u"{",    u"}",
                                                       u"return", u"var",  u"if(A)",
                                                       u"/",      u"`",    u"\\",
                                                       u"in",     u"NAME", u"'use strict'",
                                                       u" "});

}  // namespace

std::u16string ScriptGenerator::call(int depth) {
    std::u16string text = pick(kFunctions) + u"(";
    for (std::uint64_t count = random_() % 4, i = 0; i < count; ++i) {
        if (i > 0) text += u",";
        if (random_() % 16 == 0) text += u"...";
        text += expression(depth - 1);
    }
    return text + u")";
}

std::u16string ScriptGenerator::expression(int depth) {
    if (depth <= 0) return random_() % 40 == 0 ? pick(kOddOperands) : pick(kOperands);
    switch (random_() % 9) {
        case 0:
        case 1:
            return call(depth);
        case 2:
            return u"(" + expression(depth - 1) + u")";
        case 3:
            return pick(kPrefixes) + expression(depth - 1);
        case 4:
            return u"(" + expression(depth - 1) + u"?" + expression(depth - 1) + u":" +
                   expression(depth - 1) + u")";
        case 5:
            return expression(0);
        default:
            return expression(depth - 1) + pick(kOperators) + expression(depth - 1);
    }
}

std::u16string ScriptGenerator::statement(int depth) {
    std::u16string const first = expression(depth);
    std::u16string const second = expression(depth);
    switch (random_() % 10) {
        case 0:
            return u"var x=" + first + u";x+" + second;
        case 1:
            return u"if(" + first + u"){" + second + u"}else{A}";
        case 2:
            return u"for(var i=0;i<3;i++){" + first + u"}";
        case 3:
            return u"A=" + first + u";B=A;" + second;
        case 4:
            return first + u";";
        case 5:
            return first + u"\n" + second;
        case 6:
            return u"if(A>2)throw " + first + u";" + second;
        case 7:
            return u"let y=" + first + u";y";
        case 8:
            return u"switch(A){case 1:" + first + u";break;default:" + second + u"}";
        default:
            return u"try{" + first + u"}catch(e){e.message}";
    }
}

std::u16string ScriptGenerator::soup() {
    std::u16string text;
    for (std::uint64_t count = 1 + random_() % 8; count > 0; --count) text += pick(kSoup);
    return text;
}

std::u16string ScriptGenerator::next() {
    switch (random_() % 8) {
        case 0:
            return statement(2);
        case 1: {
            std::u16string text = expression(2);
            return text.insert(random_() % (text.size() + 1), soup());
        }
        default:
            return expression(3);
    }
}
