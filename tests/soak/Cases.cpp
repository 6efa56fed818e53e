#include "Cases.h"

#include <array>

namespace {

constexpr auto kFormulas = std::to_array<Case>({
    {u"IIF(A>2,'OK','KO')", u"OK", u""},
    {u"ROUND(A*B,2)", u"12.50", u""},
    {u"UPPER(S)+LEN(S)", u"SOME TEXT9", u""},
    {u"SUBSTR(S,2,3)", u"me ", u""},
    {u"A>2 .AND. T", u"true", u""},
    {u"2^3", u"8", u""},
    {u"MISSING+1", u"", u"Error in line: 2\r\nReferenceError: MISSING is not defined\r\n"},
});

constexpr auto kScripts = std::to_array<Case>({
    {u"A+B", u"7.5", u""},
    {u"S+S", u"some textsome text", u""},
    {u"T", u"true", u""},
    {u"undefined", u"undefined", u""},
    {u"null", u"null", u""},
    {u"[1,[2,3],'x']", u"1,2,3,x", u""},
    {u"({a:1})", u"[object Object]", u""},
    {u"2n**70n", u"1180591620717411303424", u""},
    {u"var p=Promise.resolve(1);p.then(function(){});p", u"[object Promise]", u""},
    {u"/a+/.exec('xaay')[0]", u"aa", u""},
    {u"new Array(1000).join('x').length", u"999", u""},
    {u"1e21", u"1e+21", u""},
    {u"0/0", u"NaN", u"Not A Number"},
    {u"'\\ud83d\\ude00'.length", u"2", u""},
    {u"(", u"", u"Error in line: 1\r\nSyntaxError: "},
    {u"null.x", u"", u"Error in line: 1\r\nTypeError: "},
    {u"throw 'thrown'", u"", u"Error in line: 1\r\nthrown\r\n"},
    {u"({toString(){throw 1}})", u"", u"Error in line: 2\r\n1\r\n"},
    {u"Symbol()", u"",
     u"Error in line: 0\r\nTypeError: Cannot convert a Symbol value to a string\r\n"},
    {u"(function f(){f()})()", u"", u"Error in line: 1\r\nRangeError: "},
});

}  // namespace

std::span<Case const> formulaCases() { return kFormulas; }
std::span<Case const> scriptCases() { return kScripts; }
