#include "library/StringTables.h"

namespace kx {

constexpr FunctionTable stringExtraction = {
    // LEFT and RIGHT call string methods that the prelude defines.
    {
        .name = u"LEFT",
        .parameters{
            {u"str", u"The string you want to extract"},
            {u"n1", u"The number of characters to extract from str"},
        },
        .description =
            u"Extracts the leftmost n1 characters from this str String and returns a copy of the "
            u"extracted substring.",
        .returns = u"A string containing a copy of the specified range of characters.",
        .body = u"return str.left(n1);",
        .examples{
            u"LEFT('hello',10) &rarr; hello",
            u"LEFT('hello',2) &rarr; he",
            u"LEFT('world',4) &rarr; worl",
        },
    },
    {
        .name = u"RIGHT",
        .parameters{
            {u"str", u"The string you want to extract"},
            {u"n1", u"The number of characters to extract from str"},
        },
        .description =
            u"Extracts the last (that is, rightmost) n1 characters from str and returns a copy of "
            u"the extracted substring.",
        .returns = u"A string containing a copy of the specified range of characters.",
        .body = u"return str.right(n1);",
        .examples{
            u"RIGHT('hello',10) &rarr; hello",
            u"RIGHT('hello',2) &rarr; lo",
            u"RIGHT('world',4) &rarr; orld",
        },
    },
    {
        .name = u"SUBSTR",
        .parameters{
            {u"str", u"The input string. Must be one character or longer."},
            {u"start",
             u"The zero-based index of the first character in this string that is to "
             u"be included in the extracted substring."},
            {u"nCount", u"The number of characters to extract from this string"},
        },
        .description =
            u"Returns the portion of string specified by the start and length parameters. ",
        .returns = u"A string containing a copy of the specified range of characters.",
        .body = u"str=String(str);"
                u"if(nCount)return str.substr(start,nCount);else return str.substr(start);",
        .examples{
            u"SUBSTR('hello',0,2) &rarr; he",
            u"SUBSTR('hello',1,3) &rarr; ell",
            u"SUBSTR('world',4,1) &rarr; d",
        },
    },
    {
        .name = u"LOCATE",
        .parameters{
            {u"c1", u"The string to search in."},
            {u"c2",
             u"The zero-based index of the first character in this string that is to be "
             u"included in the extracted substring."},
            {u"n1",
             u"(optional) If specified, search will start this number of characters "
             u"counted from the beginning of the string.Default value 0"},
        },
        .description = u"Find the numeric position of the first occurrence of c2 in the c1 string.",
        .returns =
            u"Returns the position of where c2 exists relative to the beginning of c1 string. -1 "
            u"if not found",
        .body = u"n1=(n1)?n1:0;return c1.indexOf(c2,n1);",
        .examples{
            u"LOCATE('hello','he') &rarr; 0",
            u"LOCATE('hello','el') &rarr; 1",
            u"LOCATE('abcdef abcdef','c') &rarr; 2",
            u"LOCATE('abcdef abcdef','c',4) &rarr; 9",
            u"LOCATE('hello','el',5) &rarr; -1",
            u"LOCATE('hello','helllooo') &rarr; -1",
        },
    },
    // The first parameter is the text to count, the second the text to search. LOCATE has them in
    // the other order.
    {
        .name = u"OCCURS",
        .parameters{
            {u"c1", u"Specifies the string searched"},
            {u"c2", u"The string to search in."},
        },
        .description =
            u"Count the number of times a character expression occurs within another character "
            u"expression (case sensitive).",
        .returns = u"Return the number of occurrences",
        .body = u"c1=String(c1);c2=String(c2);return c2.split(c1).length-1;",
        .examples{
            u"OCCURS('b','abababa') &rarr; 3",
            u"OCCURS('a','abababa') &rarr; 4",
            u"OCCURS('cd','abcdefg') &rarr; 1",
            u"OCCURS('ze','abcdefg') &rarr; 0",
            u"OCCURS('B','abababa') &rarr; 0",
            u"OCCURS('CD','abcdefg') &rarr; 0",
        },
    },
    {
        .name = u"IOCCURS",
        .parameters{
            {u"c1", u"Specifies the string searched"},
            {u"c2", u"The string to search in."},
        },
        .description =
            u"Count the number of times a character expression occurs within another character "
            u"expression (case insensitive).",
        .returns = u"Return the number of occurrences",
        .body = u"c1=String(c1).toLowerCase();c2=String(c2).toLowerCase();return OCCURS(c1,c2);",
        .examples{
            u"IOCCURS('b','abababa') &rarr; 3",
            u"IOCCURS('a','abababa') &rarr; 4",
            u"IOCCURS('cd','abcdefg') &rarr; 1",
            u"IOCCURS('ze','abcdefg') &rarr; 0",
        },
    },
};

}  // namespace kx
