#include "library/StringTables.h"

namespace kx {

constexpr FunctionTable stringClassification = {
    {
        .name = u"ISALPHA",
        .parameters{
            {u"c1", u"The string to search in."},
        },
        .description = u"Checks if the first character of c1 is an alphabetic letter",
        .returns = u"Return true if the first character of c1 is an alphabetic letter else false",
        .body = u"c1=String(c1);c1=c1.substr(0,1);return (c1.search(/[a-zA-Z]/)==-1)?false:true;",
        .examples{
            u"ISALPHA('hello') &rarr; true",
            u"ISALPHA(' hello') &rarr; false",
            u"ISALPHA(10.50) &rarr; false",
            u"ISALPHA('Abc123') &rarr; true",
            u"ISALPHA('123abc') &rarr; false",
        },
    },
    {
        .name = u"ISUPPER",
        .parameters{
            {u"c1", u"The string to search in."},
        },
        .description = u"Checks if the first character of c1 is uppercase letter",
        .returns = u"Return true if the first character of c1 is uppercase letter else false",
        .body = u"c1=String(c1);c1=c1.substr(0,1);return (c1.search(/[A-Z]/)==-1)?false:true;",
        .examples{
            u"ISUPPER('Hello') &rarr; true",
            u"ISUPPER('hello') &rarr; false",
            u"ISUPPER(' hello') &rarr; false",
            u"ISUPPER(10.50) &rarr; false",
            u"ISUPPER('abc123') &rarr; false",
            u"ISUPPER('Abc123') &rarr; true",
            u"ISUPPER('123ABC') &rarr; false",
        },
    },
    {
        .name = u"ISLOWER",
        .parameters{
            {u"c1", u"The string to search in."},
        },
        .description = u"Checks if the first character of c1 is lowercase letter",
        .returns = u"Return true if the first character of c1 is lowercase letter else false",
        .body = u"c1=String(c1);c1=c1.substr(0,1);return (c1.search(/[a-z]/)==-1)?false:true;",
        .examples{
            u"ISLOWER('Hello') &rarr; false",
            u"ISLOWER('hello') &rarr; true",
            u"ISLOWER(' hello') &rarr; false",
            u"ISLOWER(10.50) &rarr; false",
            u"ISLOWER('abc123') &rarr; true",
            u"ISLOWER('Abc123') &rarr; false",
            u"ISLOWER('123ABC') &rarr; false",
        },
    },
    {
        .name = u"ISDIGIT",
        .parameters{
            {u"c1", u"The string to search in."},
        },
        .description = u"Checks if the first character of c1 is a digit",
        .returns = u"Return true if the first character of c1 is a digit else false",
        .body = u"c1=String(c1);c1=c1.substr(0,1);return (c1.search(/[0-9]/)==-1)?false:true;",
        .examples{
            u"ISDIGIT('Hello') &rarr; false",
            u"ISDIGIT('hello') &rarr; false",
            u"ISDIGIT(' hello') &rarr; false",
            u"ISDIGIT(10.50) &rarr; true",
            u"ISDIGIT('abc123') &rarr; false",
            u"ISDIGIT('Abc123') &rarr; false",
            u"ISDIGIT('123ABC') &rarr; true",
        },
    },
    {
        .name = u"ISXDIGIT",
        .parameters{
            {u"c1", u"The string to search in."},
        },
        .description = u"Checks if the first character of c1 is a hexadecimal digit",
        .returns = u"Return true if the first character of c1 is a hexadecimal digit else false",
        .body = u"c1=String(c1);c1=c1.substr(0,1);"
                u"return (c1.search(/[0-9a-fA-F]/)==-1)?false:true;",
        .examples{
            u"ISXDIGIT(10) &rarr; true",
            u"ISXDIGIT('ab') &rarr; true",
            u"ISXDIGIT('AB') &rarr; true",
            u"ISXDIGIT(' ab') &rarr; false",
            u"ISXDIGIT(10.50) &rarr; true",
            u"ISXDIGIT('abc123') &rarr; true",
            u"ISXDIGIT('Abc123') &rarr; true",
            u"ISXDIGIT('123ABC') &rarr; true",
            u"ISXDIGIT('G123ABC') &rarr; false",
        },
    },
    {
        .name = u"ISSPACE",
        .parameters{
            {u"c1", u"The string to search in."},
        },
        .description = u"Checks if the first character of c1 is a space character",
        .returns = u"Return true if the first character of c1 is a space character else false",
        .body = u"c1=String(c1);c1=c1.substr(0,1);return (c1.search(/\\s/)==-1)?false:true;",
        .examples{
            u"ISSPACE(10) &rarr; false",
            u"ISSPACE('ab') &rarr; false",
            u"ISSPACE('AB') &rarr; false",
            u"ISSPACE(' ab') &rarr; true",
            u"ISSPACE('ab ') &rarr; false",
            u"ISSPACE('\nab') &rarr; true",
            u"ISSPACE('\tab') &rarr; true",
        },
    },
    {
        .name = u"ISGRAPH",
        .parameters{
            {u"c1", u"The string to search in."},
        },
        .description =
            u"Checks if the first character of c1 is a printable character other than space",
        .returns =
            u"Return true if the first character of c1 is a printable character other than space "
            u"else false",
        .body = u"c1=String(c1);var charCode=c1.charCodeAt(0);"
                u"return((charCode>32) && (charCode<127));",
        .examples{
            u"ISGRAPH(10) &rarr; true",
            u"ISGRAPH('ab') &rarr; true",
            u"ISGRAPH('AB') &rarr; true",
            u"ISGRAPH(' ab') &rarr; false",
            u"ISGRAPH('ab ') &rarr; true",
            u"ISGRAPH('\nab') &rarr; false",
            u"ISGRAPH('\tab') &rarr; false",
        },
    },
    {
        .name = u"ISALNUM",
        .parameters{
            {u"c1", u"The string to search in."},
        },
        .description = u"Checks if the first character of c1 is a an alphanumeric character",
        .returns = u"Return true if the first character of c1 is an alphanumeric character",
        .body = u"c1=String(c1);c1=c1.substr(0,1);"
                u"return (c1.search(/[a-zA-Z0-9]/)==-1)?false:true;",
        .examples{
            u"ISALNUM(10) &rarr; true",
            u"ISALNUM('ab') &rarr; true",
            u"ISALNUM('AB') &rarr; true",
            u"ISALNUM(' ab') &rarr; false",
            u"ISALNUM('ab ') &rarr; true",
            u"ISALNUM('\nab') &rarr; false",
            u"ISALNUM('\tab') &rarr; false",
            u"ISALNUM('12ab') &rarr; true",
            u"ISALNUM('ab12') &rarr; true",
        },
    },
    {
        .name = u"ISPRINT",
        .parameters{
            {u"c1", u"The string to search in."},
        },
        .description =
            u"Checks if the first character of c1 is an printable character (character code "
            u"between 0x20 and 0x7e)",
        .returns = u"Return true if the first character of c1 is an printable character",
        .body = u"var charCode=String(c1).charCodeAt(0);"
                u"return (charCode>=0x20 && charCode<=0x7e);",
        .examples{
            u"ISPRINT(10) &rarr; true",
            u"ISPRINT('ab') &rarr; true",
            u"ISPRINT('~ab') &rarr; true",
            u"ISPRINT('.ab') &rarr; true",
            u"ISPRINT(' ab') &rarr; true",
            u"ISPRINT('\nab') &rarr; false",
            u"ISPRINT('\tab') &rarr; false",
        },
    },
    {
        .name = u"ISPUNCT",
        .parameters{
            {u"c1", u"The string to search in."},
        },
        .description =
            u"Checks if the first character of c1 is an printable character and it is not a space "
            u"or an alphanumeric character",
        .returns =
            u"Return true if the first character of c1 is an printable character and it is not a "
            u"space or an alphanumeric character",
        .body = u"return (ISPRINT(c1) && !ISSPACE(c1) && !ISALNUM(c1));",
        .examples{
            u"ISPUNCT(10) &rarr; false",
            u"ISPUNCT('ab') &rarr; false",
            u"ISPUNCT('.ab') &rarr; true",
            u"ISPUNCT('!ab') &rarr; true",
            u"ISPUNCT('?ab') &rarr; true",
            u"ISPUNCT('a.b') &rarr; false",
            u"ISPUNCT('\nab') &rarr; false",
            u"ISPUNCT('\tab') &rarr; false",
        },
    },
    // 0x1f is not a control character here, although the return description names it.
    {
        .name = u"ISCNTRL",
        .parameters{
            {u"c1", u"The string to search in."},
        },
        .description = u"Checks if the first character of c1 is a control character",
        .returns =
            u"Return true if the first character of c1 is a control character (char code between "
            u"0x00 and 0x1f plus 0x7f)",
        .body = u"c1=String(c1);var charCode=c1.charCodeAt(0);"
                u"return (((charCode >= 0x00) && (charCode <  0x1f)) ||((charCode == 0x7f)));",
        .examples{
            u"ISCNTRL(10) &rarr; false",
            u"ISCNTRL('ab') &rarr; false",
            u"ISCNTRL('.ab') &rarr; false",
            u"ISCNTRL('\nabc') &rarr; true",
            u"ISCNTRL('\tabc') &rarr; true",
        },
    },
    {
        .name = u"ISASCII",
        .parameters{
            {u"c1", u"The string to search in."},
        },
        .description = u"Checks if the first character of c1 is an ASCII character",
        .returns =
            u"Return true if the first character of c1 is an ASCII character (char code between 0 "
            u"and 128)",
        .body = u"c1=String(c1);var charCode=c1.charCodeAt(0);"
                u"return((charCode>-1) && (charCode<128));",
        .examples{
            u"ISASCII(10) &rarr; true",
            u"ISASCII('ab') &rarr; true",
            u"ISASCII('.ab') &rarr; true",
            u"ISASCII('\nabc') &rarr; true",
            u"ISASCII('\tabc') &rarr; true",
            u"ISASCII('\tabc') &rarr; true",
            u"ISASCII('\u00C2\u00B5abc') &rarr; false (char code for \u00C2\u00B5 is 181)",
        },
    },
};

}  // namespace kx
