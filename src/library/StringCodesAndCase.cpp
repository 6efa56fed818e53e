#include "library/StringTables.h"

namespace kx {

constexpr FunctionTable stringCodesAndCase = {
    {
        .name = u"ASCII",
        .parameters{
            {u"str", u"The string to search in."},
        },
        .description = u"Get the ASCII code of the first character in a given string",
        .returns = u"Returns The ASCII code of the first character",
        .body = u"return String(str).charCodeAt(0);",
        .examples{
            u"ASCII('ABC') &rarr; 65",
            u"ASCII('a') &rarr; 97",
            u"ASCII('42') &rarr; 52",
        },
    },
    {
        .name = u"LOWERCASE",
        .parameters{
            {u"str", u"The string you want to lowercase."},
        },
        .description = u"This method returns the value of the string converted to lowercase",
        .returns = u"The string in lowercase",
        .body = u"return String(str).toLowerCase();",
        .examples{
            u"LOWERCASE('ABC') &rarr; abc",
            u"LOWERCASE('AbC') &rarr; abc",
            u"LOWERCASE('42') &rarr; 42",
        },
    },
    {
        .name = u"UPPERCASE",
        .parameters{
            {u"str", u"The string you want to uppercase."},
        },
        .description = u"This method returns the value of the string converted to uppercase",
        .returns = u"The string in uppercase",
        .body = u"return String(str).toUpperCase();",
        .examples{
            u"UPPERCASE('ABC') &rarr; ABC",
            u"UPPERCASE('AbC') &rarr; ABC",
            u"UPPERCASE('42') &rarr; 42",
        },
    },
    {
        .name = u"LEN",
        .parameters{
            {u"str", u"The string you want to get the length"},
        },
        .description = u"This method returns the length of string",
        .returns = u"The numbers of characters in a string",
        .body = u"return String(str).length;",
        .examples{
            u"LEN('ABC') &rarr; 3",
            u"LEN('') &rarr; 0",
            u"LEN(42) &rarr; 2",
        },
    },
};

}  // namespace kx
