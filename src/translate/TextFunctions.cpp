// The language's functions of texts: cutting, filling, letters.
#include "translate/Functions.h"

namespace kx::translate {

LanguageTable const textFunctions = {
    {
        .row{.name = u"LEN",
             .parameters{{u"text", u"A text"}},
             .description = u"The length of a text, trailing blanks included",
             .returns = u"The number of UTF-16 code units",
             .body = uR"(return asText('LEN', 1, text).length;)",
             .examples{u"LEN(\"ab \") &rarr; 3"}},
        .synonyms{u"LENGTH"},
        .result = Kind::number,
        .scale = ScaleRule::zero,
    },
    {
        .row{.name = u"TRIM",
             .parameters{{u"text", u"A text"}},
             .description = u"Removes trailing blanks; tabs and line ends stay",
             .returns = u"The text without trailing blanks",
             .body = uR"(return withoutTrailingBlanks(asText('TRIM', 1, text));)",
             .examples{u"\"&lt;\" + TRIM(\" a \") + \"&gt;\" &rarr; &lt; a&gt;"}},
        .synonyms{u"RTRIM"},
        .result = Kind::text,
    },
    {
        .row{.name = u"LTRIM",
             .parameters{{u"text", u"A text"}},
             .description = u"Removes leading blanks, tabs and line ends",
             .returns = u"The text without leading white space",
             .body = uR"(return withoutLeadingSpace(asText('LTRIM', 1, text));)",
             .examples{u"LTRIM(\"  a\") &rarr; a"}},
        .result = Kind::text,
    },
    {
        .row{
            .name = u"ALLTRIM",
            .parameters{{u"text", u"A text"}},
            .description = u"Removes what LTRIM and TRIM remove",
            .returns = u"The text without white space in front and blanks behind",
            .body =
                uR"(return withoutLeadingSpace(withoutTrailingBlanks(asText('ALLTRIM', 1, text)));)",
            .examples{u"ALLTRIM(\"  a \") &rarr; a"}},
        .result = Kind::text,
    },
    {
        .row{.name = u"UPPER",
             .parameters{{u"text", u"A text"}},
             .description = u"Turns letters into upper case",
             .returns = u"The text in upper case, as long as before",
             .body = uR"(return upper(asText('UPPER', 1, text));)",
             .examples{u"UPPER(\"ab1\") &rarr; AB1"}},
        .synonyms{u"UCASE", u"UPPERCASE"},
        .result = Kind::text,
    },
    {
        .row{.name = u"LOWER",
             .parameters{{u"text", u"A text"}},
             .description = u"Turns letters into lower case",
             .returns = u"The text in lower case, as long as before",
             .body = uR"(return lower(asText('LOWER', 1, text));)",
             .examples{u"LOWER(\"AB1\") &rarr; ab1"}},
        .synonyms{u"LCASE", u"LOWERCASE"},
        .result = Kind::text,
    },
    {
        .row{.name = u"PROPER",
             .parameters{{u"text", u"A text"}},
             .description = u"Turns the first letter of each word into upper case, the others "
                            u"into lower case. Words begin behind blanks and tabs",
             .returns = u"The changed text",
             .body = uR"(asText('PROPER', 1, text);
const small = lower(text);
const large = upper(text);
let result = '';
for (let i = 0; i < text.length; ++i) {
  const isFirst = i === 0 || text[i - 1] === ' ' || text[i - 1] === '\t';
  result += (isFirst ? large : small)[i];
}
return result;)",
             .examples{u"PROPER(\"ANN LEE-ROY\") &rarr; Ann Lee-roy"}},
        .result = Kind::text,
    },
    {
        .row{.name = u"LEFT",
             .parameters{{u"text", u"A text"}, {u"count", u"How many units"}},
             .description = u"The beginning of a text",
             .returns = u"The first units; nothing for a count of 0 or less",
             .body = uR"(asText('LEFT', 1, text);
return text.slice(0, Math.max(0, asWhole('LEFT', 2, count)));)",
             .examples{u"LEFT(\"abc\", 2) &rarr; ab"}},
        .result = Kind::text,
    },
    {
        .row{.name = u"RIGHT",
             .parameters{{u"text", u"A text"}, {u"count", u"How many units"}},
             .description = u"The end of a text",
             .returns = u"The last units; nothing for a count of 0 or less, or other kinds",
             .body = uR"(if (typeof text !== 'string' || typeof count !== 'number') return '';
return count < 1 ? '' : text.slice(-Math.trunc(count));)",
             .examples{u"RIGHT(\"abc\", 2) &rarr; bc"}},
        .result = Kind::text,
    },
    {
        .row{
            .name = u"SUBSTR",
            .parameters{{u"text", u"A text"},
                        {u"start", u"The first unit, counted from 1; from the end if negative"},
                        {u"count", u"How many units; without it, to the end"}},
            .description = u"A part of a text",
            .returns = u"The part; nothing where it lies beyond the end",
            .body = uR"(asText('SUBSTR', 1, text);
let from = asWhole('SUBSTR', 2, start);
if (from < 0) from = Math.max(1, text.length + from + 1);
const first = Math.max(1, from) - 1;
const length = wholeOr('SUBSTR', 3, count, text.length);
return length <= 0 ? '' : text.slice(first, first + length);)",
            .examples{u"SUBSTR(\"abcdef\", 2, 3) &rarr; bcd", u"SUBSTR(\"abcdef\", -2) &rarr; ef"}},
        .synonyms{u"SUBS", u"SUBSTRING"},
        .result = Kind::text,
    },
    {
        .row{.name = u"STUFF",
             .parameters{{u"text", u"A text"},
                         {u"start", u"The first unit to be replaced, counted from 1"},
                         {u"count", u"How many units are replaced"},
                         {u"replacement", u"What comes in their place"}},
             .description = u"Replaces a part of a text",
             .returns = u"The changed text; the empty one for arguments of other kinds",
             .body = uR"(const isWrong = !areTexts(text, replacement) || !areNumbers(start, count);
if (isWrong) return '';
limited(text.length + replacement.length);
let from = Math.trunc(start);
if (from < 0 || from > text.length) from = text.length + 1;
const first = Math.max(1, from) - 1;
const length = Math.trunc(count);
return text.slice(0, first) + replacement + (length < 0 ? '' : text.slice(first + length));)",
             .examples{u"STUFF(\"abcdef\", 2, 3, \"x\") &rarr; axef"}},
        .synonyms{u"INSERT"},
        .result = Kind::text,
    },
    {
        .row{.name = u"SPACE",
             .parameters{{u"count", u"How many blanks"}},
             .description = u"Blanks",
             .returns = u"That many blanks; nothing for 0 or less",
             .body = uR"(return repeated(' ', asWhole('SPACE', 1, count));)",
             .examples{u"LEN(SPACE(2)) &rarr; 2"}},
        .result = Kind::text,
    },
    {
        .row{
            .name = u"REPLICATE",
            .parameters{{u"text", u"A text"}, {u"count", u"How often"}},
            .description = u"Repeats a text",
            .returns = u"The text that many times; nothing for 0 or less",
            .body =
                uR"(return repeated(asText('REPLICATE', 1, text), asWhole('REPLICATE', 2, count));)",
            .examples{u"REPLICATE(\"ab\", 2) &rarr; abab"}},
        .synonyms{u"REPL", u"REPEAT"},
        .result = Kind::text,
    },
    {
        .row{.name = u"PADR",
             .parameters{{u"value", u"A text, number or date"},
                         {u"width", u"The length of the result"},
                         {u"fill", u"What to fill with; a blank without it"}},
             .description = u"Fills a text on the right, or cuts it",
             .returns = u"A text of that length; the empty one for other kinds",
             .body = uR"(return padded(shown(value, arguments[3]), width, fill, 'right');)",
             .examples{u"PADR(\"ab\", 4, \".\") &rarr; ab.."}},
        .synonyms{u"PAD"},
        .result = Kind::text,
        .scaled = Scaled::yes,
    },
    {
        .row{.name = u"PADL",
             .parameters{{u"value", u"A text, number or date"},
                         {u"width", u"The length of the result"},
                         {u"fill", u"What to fill with; a blank without it"}},
             .description = u"Fills a text on the left, or cuts it",
             .returns = u"A text of that length; the empty one for other kinds",
             .body = uR"(return padded(shown(value, arguments[3]), width, fill, 'left');)",
             .examples{u"PADL(7, 3, \"0\") &rarr; 007"}},
        .result = Kind::text,
        .scaled = Scaled::yes,
    },
    {
        .row{.name = u"PADC",
             .parameters{{u"value", u"A text, number or date"},
                         {u"width", u"The length of the result"},
                         {u"fill", u"What to fill with; a blank without it"}},
             .description = u"Fills a text on both sides, an odd unit on the right, or cuts it",
             .returns = u"A text of that length; the empty one for other kinds",
             .body = uR"(return padded(shown(value, arguments[3]), width, fill, 'both');)",
             .examples{u"PADC(\"ab\", 5, \".\") &rarr; .ab.."}},
        .result = Kind::text,
        .scaled = Scaled::yes,
    },
    {
        .row{.name = u"CHR",
             .parameters{{u"code", u"A number, taken modulo 256"}},
             .description = u"The character with a code",
             .returns = u"A text of one unit",
             .body = uR"(const rest = asWhole('CHR', 1, code) % 256;
return String.fromCharCode(rest < 0 ? rest + 256 : rest);)",
             .examples{u"CHR(65) &rarr; A"}},
        .synonyms{u"CHAR"},
        .result = Kind::text,
    },
    {
        .row{.name = u"ASC",
             .parameters{{u"text", u"A text"}},
             .description = u"The code of a text's first unit",
             .returns = u"The code; 0 for the empty text",
             .body = uR"(asText('ASC', 1, text);
return text === '' ? 0 : text.charCodeAt(0);)",
             .examples{u"ASC(\"A\") &rarr; 65"}},
        .synonyms{u"ASCII"},
        .result = Kind::number,
        .scale = ScaleRule::zero,
    },
    {
        .row{.name = u"ISALPHA",
             .parameters{{u"text", u"A text"}},
             .description = u"Whether a text begins with a letter from A to Z in either case",
             .returns = u"True or false; false for other kinds",
             .body = uR"(return isUnit(text, 'A', 'Z') || isUnit(text, 'a', 'z');)",
             .examples{u"ISALPHA(\"a1\") &rarr; true"}},
        .result = Kind::logical,
    },
    {
        .row{.name = u"ISDIGIT",
             .parameters{{u"text", u"A text"}},
             .description = u"Whether a text begins with a digit",
             .returns = u"True or false; false for other kinds",
             .body = uR"(return isUnit(text, '0', '9');)",
             .examples{u"ISDIGIT(\"1a\") &rarr; true"}},
        .result = Kind::logical,
    },
    {
        .row{.name = u"ISUPPER",
             .parameters{{u"text", u"A text"}},
             .description = u"Whether a text begins with a capital letter from A to Z",
             .returns = u"True or false; false for other kinds",
             .body = uR"(return isUnit(text, 'A', 'Z');)",
             .examples{u"ISUPPER(\"Ab\") &rarr; true"}},
        .result = Kind::logical,
    },
    {
        .row{.name = u"ISLOWER",
             .parameters{{u"text", u"A text"}},
             .description = u"Whether a text begins with a small letter from a to z",
             .returns = u"True or false; false for other kinds",
             .body = uR"(return isUnit(text, 'a', 'z');)",
             .examples{u"ISLOWER(\"aB\") &rarr; true"}},
        .result = Kind::logical,
    },
    {
        .row{.name = u"JUSTFNAME",
             .parameters{{u"path", u"The name of a file"}},
             .description = u"The file's name without drive and directories",
             .returns = u"What stands behind the last of the characters \\, / and :",
             .body = uR"(asText('JUSTFNAME', 1, path);
return path.slice(nameStart(path));)",
             .examples{u"JUSTFNAME(\"c:\\x\\a.txt\") &rarr; a.txt"}},
        .result = Kind::text,
    },
    {
        .row{.name = u"JUSTEXT",
             .parameters{{u"path", u"The name of a file"}},
             .description = u"The extension of a file's name",
             .returns = u"What stands behind the last point of the file's name",
             .body = uR"(asText('JUSTEXT', 1, path);
return path.slice(extensionStart(path) + 1);)",
             .examples{u"JUSTEXT(\"a.txt\") &rarr; txt"}},
        .result = Kind::text,
    },
    {
        .row{.name = u"JUSTSTEM",
             .parameters{{u"path", u"The name of a file"}},
             .description = u"A file's name without directories and extension",
             .returns = u"What stands between the directory and the last point",
             .body = uR"(asText('JUSTSTEM', 1, path);
return path.slice(nameStart(path), extensionStart(path));)",
             .examples{u"JUSTSTEM(\"c:\\x\\a.txt\") &rarr; a"}},
        .result = Kind::text,
    },
    {
        .row{.name = u"JUSTPATH",
             .parameters{{u"path", u"The name of a file"}},
             .description = u"The drive and the directories of a file's name",
             .returns = u"What stands in front of the file's name, without the last \\ or /",
             .body = uR"(return pathOf(asText('JUSTPATH', 1, path));)",
             .examples{u"JUSTPATH(\"c:\\x\\a.txt\") &rarr; c:\\x"}},
        .result = Kind::text,
    },
    {
        .row{.name = u"ADDBS",
             .parameters{{u"path", u"The name of a directory"}},
             .description = u"Adds a backslash where a path does not end with one, or with /",
             .returns = u"The path; the empty one stays empty",
             .body = uR"(const name = withoutTrailingBlanks(asText('ADDBS', 1, path));
return name === '' || name.endsWith('\\') || name.endsWith('/') ? name : name + '\\';)",
             .examples{u"ADDBS(\"c:\\x\") &rarr; c:\\x\\"}},
        .result = Kind::text,
    },
    {
        .row{.name = u"FORCEEXT",
             .parameters{{u"path", u"The name of a file"}, {u"extension", u"Its new extension"}},
             .description = u"Replaces or adds the extension of a file's name",
             .returns = u"The path with the extension; without a point where that is empty",
             .body = uR"(asText('FORCEEXT', 1, path);
const added = asText('FORCEEXT', 2, extension).replace(/^\./, '');
limited(path.length + added.length + 1);
return path.slice(0, extensionStart(path)) + (added === '' ? '' : '.' + added);)",
             .examples{u"FORCEEXT(\"a.txt\", \"bak\") &rarr; a.bak"}},
        .result = Kind::text,
    },
};

}  // namespace kx::translate
