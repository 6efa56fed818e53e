#include "library/StringTables.h"

namespace kx {

constexpr FunctionTable stringFormatting = {
    // LTRIM, RTRIM and ALLTRIM call string methods that the prelude defines.
    {
        .name = u"LTRIM",
        .parameters{
            {u"str", u"The string that will be trimmed."},
        },
        .description = u"Strip whitespace from the beginning of a string",
        .returns = u"The trimmed string. ",
        .body = u"  return str.ltrim();",
        .examples{
            u"LTRIM('   hello') &rarr; 'hello'",
            u"LTRIM('  world  ') &rarr; 'world  '",
            u"LTRIM('abc') &rarr; 'abc'",
        },
    },
    {
        .name = u"RTRIM",
        .parameters{
            {u"str", u"The string that will be trimmed."},
        },
        .description = u"Strip whitespace from the end of a string",
        .returns = u"The trimmed string. ",
        .body = u"return str.rtrim();",
        .examples{
            u"RTRIM('   hello') &rarr; '   hello'",
            u"RTRIM('  world  ') &rarr; '  world'",
            u"RTRIM('abc') &rarr; 'abc'",
        },
    },
    {
        .name = u"ALLTRIM",
        .parameters{
            {u"str", u"The string that will be trimmed."},
        },
        .description = u"Strip whitespace from the beginning and end of a string",
        .returns = u"The trimmed string. ",
        .body = u"return str.trim();",
        .examples{
            u"ALLTRIM('   hello') &rarr; 'hello'",
            u"ALLTRIM('  world  ') &rarr; 'world'",
            u"TALLRIM('abc') &rarr; 'abc'",
        },
    },
    // STR and STRZ call TRUNCATE of the mathematical functions.
    {
        .name = u"STR",
        .parameters{
            {u"num", u"The float you want to format"},
            {u"n2", u"(optional)  The length of output string. Default value: 10"},
            {u"n3", u"(optional)  The number of decimal digits to truncate to.Default value: 0"},
        },
        .description = u"Format a float (with spaces) in fixed length with a fixed precision",
        .returns = u"Your formatted float",
        .body = u"n2=(n2)?n2:10;n3=(n3)?n3:0;"
                u"num=TRUNCATE(num,n3);var strNum=String(num);"
                u"var space='';for(var i=0;i<n2-strNum.length;i++)space+=' ';"
                u"return space+strNum;",
        .examples{
            u"STR(10.523) &rarr; '        10'",
            u"STR(10.523, 2) &rarr; '10'",
            u"STR(10.523, 10, 2) &rarr; '     10.52'",
            u"STR(10.523, 10, 3) &rarr; '    10.523'",
        },
    },
    {
        .name = u"STRZ",
        .parameters{
            {u"num", u"The float you want to format"},
            {u"n2", u"(optional) The length of output string. Default value: 10"},
            {u"n3", u"(optional) The number of decimal digits to truncate to. Default value: 0"},
        },
        .description = u"Format a float (with 0) in fixed length with a fixed precision",
        .returns = u"Your formatted float",
        .body = u"n2=(n2)?n2:10;n3=(n3)?n3:0;"
                u"num=TRUNCATE(num,n3);var strNum=String(num);"
                u"var zero='';for(var i=0;i<n2-strNum.length;i++)zero+='0';"
                u"return zero+strNum;",
        .examples{
            u"STRZ(10.523) &rarr; 0000000010",
            u"STRZ(10.523, 2) &rarr; 10",
            u"STRZ(10.523, 10, 2) &rarr; 0000010.52",
            u"STRZ(10.523, 10, 3) &rarr; 000010.523",
        },
    },
    {
        .name = u"CONCAT",
        .parameters{
            {u"str1", u"A string"},
            {u"str2", u"Another string"},
        },
        .description = u"Merges several strings into one string",
        .returns = u"The string which contains merged strings",
        .body = u"return String(str1)+String(str2);",
        .examples{
            u"CONCAT('hello',' world') &rarr; hello world",
            u"CONCAT(10.523, 'WtF') &rarr; 10.523WtF",
            u"CONCAT(44,33) &rarr; 4433",
        },
    },
    {
        .name = u"REPEAT",
        .parameters{
            {u"c1", u"A string you want to repeat"},
            {u"n1", u"Number of repeat"},
        },
        .description = u"Create a string with c1 repeated n1 times ",
        .returns = u"The string with c1 repeated n1 times",
        .body = u"if(typeof(n1)!='number')return undefined;"
                u"c1=String(c1);var tmp='';for(var i=0;i<n1;i++)tmp+=c1;"
                u"return tmp;",
        .examples{
            u"REPEAT('hello world ',3) &rarr; 'hello world hello world hello world '",
            u"REPEAT('a', 5) &rarr; aaaaa",
        },
    },
    {
        .name = u"SPACE",
        .parameters{
            {u"nbSpace", u"number of spaces"},
        },
        .description = u"Create a string with spaces repeated nbSpace times ",
        .returns = u"The string with spaces repeated nbSpace times",
        .body = u"var str='';for(var i=0;i<nbSpace;i++)str+=' ';return str;",
        .examples{
            u"SPACE(10) &rarr; '          '",
            u"SPACE(0) &rarr; ''",
        },
    },
    {
        .name = u"VAL",
        .parameters{
            {u"str", u"string which will extract a number"},
        },
        .description = u"Extract the first number found in str string",
        .returns = u"The first number found",
        .body = u"str = String(str);var match = str.match(/-?\\d+\\.?\\d*/);"
                u"if(match==null)return str;else return parseFloat(match[0], 10);",
        .examples{
            u"VAL('10.50') &rarr; 10.50",
            u"VAL('10.50abc') &rarr; 10.50",
            u"VAL('abc-10.50def') &rarr; -10.50",
            u"VAL('12a.2.54abc-12a.15abc') &rarr; 12",
            u"VAL('abc') &rarr; abc",
        },
    },
    {
        .name = u"CHAR",
        .parameters{
            {u"ascii", u"The ascii code"},
        },
        .description =
            u"Returns a one-character string containing the character specified by ascii.",
        .returns = u"Returns the specified character.",
        .body = u"return String.fromCharCode(ascii);",
        .examples{
            u"CHAR(65) &rarr; A",
            u"CHAR(62) &rarr; >",
            u"CHAR(90) &rarr; Z",
            u"CHAR(97) &rarr; a",
        },
    },
    {
        .name = u"RPAD",
        .parameters{
            {u"c1", u"The string you want to format"},
            {u"n1", u"Size of output string"},
        },
        .description = u"Return c1 with n1 length adjusted by adding to the need of space",
        .returns = u"Return a string adjusted",
        .body = u"c1=String(c1);var diff=c1.length;for(var i=0;i<n1-diff;i++)c1+=' ';return c1;",
        .examples{
            u"RPAD('hello',10) &rarr; 'hello     '",
            u"RPAD('hello',2) &rarr; 'hello'",
            u"RPAD('abc',0) &rarr; 'abc'",
        },
    },
};

}  // namespace kx
