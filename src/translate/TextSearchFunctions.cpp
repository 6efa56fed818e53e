// The language's functions that look for parts of texts.
#include "translate/Functions.h"

namespace kx::translate {

LanguageTable const textSearchFunctions = {
    {
        .row{.name = u"AT",
             .parameters{{u"sought", u"What to look for"},
                         {u"text", u"Where to look"},
                         {u"which", u"The number of the occurrence; without it, the first"}},
             .description = u"Looks for a text in another one. Occurrences may overlap",
             .returns = u"The position, counted from 1; 0 where it is not found, or empty",
             .body = uR"(asText('AT', 1, sought);
asText('AT', 2, text);
return nthPosition(sought, text, wholeOr('AT', 3, which, 1));)",
             .examples{u"AT(\"c\", \"abcabc\") &rarr; 3", u"AT(\"c\", \"abcabc\", 2) &rarr; 6"}},
        .result = Kind::number,
        .scale = ScaleRule::zero,
    },
    {
        .row{.name = u"RAT",
             .parameters{{u"sought", u"What to look for"},
                         {u"text", u"Where to look"},
                         {u"which", u"The number of the occurrence from the end"}},
             .description = u"Looks for a text in another one, from the end",
             .returns = u"The position, counted from 1; 0 where it is not found",
             .body = uR"(return rat(sought, text, which);)",
             .examples{u"RAT(\"c\", \"abcabc\") &rarr; 6"}},
        .result = Kind::number,
        .scale = ScaleRule::zero,
    },
    {
        .row{.name = u"ATC",
             .parameters{{u"sought", u"What to look for"},
                         {u"text", u"Where to look"},
                         {u"which", u"The number of the occurrence; without it, the first"}},
             .description = u"Looks for a text in another one without regard to case",
             .returns = u"The position, counted from 1; 0 where it is not found, or empty",
             .body = uR"(asText('ATC', 1, sought);
asText('ATC', 2, text);
return nthPosition(upper(sought), upper(text), wholeOr('ATC', 3, which, 1));)",
             .examples{u"ATC(\"C\", \"abc\") &rarr; 3"}},
        .result = Kind::number,
    },
    {
        .row{.name = u"RATC",
             .parameters{{u"sought", u"What to look for"},
                         {u"text", u"Where to look"},
                         {u"which", u"The number of the occurrence from the end"}},
             .description = u"Looks for a text in another one, from the end, as RAT does",
             .returns = u"The position, counted from 1; 0 where it is not found",
             .body = uR"(return rat(sought, text, which);)",
             .examples{u"RATC(\"c\", \"abcabc\") &rarr; 6"}},
        .result = Kind::number,
    },
    {
        .row{.name = u"OCCURS",
             .parameters{{u"sought", u"What to look for"}, {u"text", u"Where to look"}},
             .description = u"Counts how often a text occurs in another one, without overlaps",
             .returns = u"The number of occurrences; 0 for an empty text",
             .body = uR"(asText('OCCURS', 1, sought);
asText('OCCURS', 2, text);
let count = 0;
let found = sought === '' ? -1 : text.indexOf(sought);
for (; found !== -1; ++count) found = text.indexOf(sought, found + sought.length);
return count;)",
             .examples{u"OCCURS(\"aa\", \"aaaa\") &rarr; 2"}},
        .result = Kind::number,
    },
    {
        .row{.name = u"STRTRAN",
             .parameters{{u"text", u"Where to look"},
                         {u"sought", u"What to look for"},
                         {u"replacement", u"What comes in its place; without it, nothing"},
                         {u"start", u"The number of the first occurrence that is replaced"},
                         {u"count", u"How many are replaced; all without it or if negative"}},
             .description = u"Replaces a text in another one",
             .returns = u"The changed text",
             .body = uR"(asText('STRTRAN', 1, text);
asText('STRTRAN', 2, sought);
const most = wholeOr('STRTRAN', 5, count, -1);
return replaceSome(text, sought, textOr('STRTRAN', 3, replacement, ''),
  Math.max(1, wholeOr('STRTRAN', 4, start, 1)), most < 0 ? Infinity : most);)",
             .examples{u"STRTRAN(\"a-b-c\", \"-\", \"+\", 2) &rarr; a-b+c"}},
        .result = Kind::text,
    },
    {
        .row{.name = u"CHRTRAN",
             .parameters{{u"text", u"Where to look"},
                         {u"sought", u"The units to look for"},
                         {u"replacement", u"The unit that each of them becomes"}},
             .description = u"Replaces single units; those without a replacement vanish",
             .returns = u"The changed text",
             .body = uR"(asText('CHRTRAN', 1, text);
asText('CHRTRAN', 2, sought);
asText('CHRTRAN', 3, replacement);
const becomes = new Map();
for (let i = sought.length - 1; i >= 0; --i) becomes.set(sought[i], replacement[i] ?? '');
let result = '';
for (let i = 0; i < text.length; ++i) result += becomes.get(text[i]) ?? text[i];
return result;)",
             .examples{u"CHRTRAN(\"abc\", \"ac\", \"X\") &rarr; Xb"}},
        .result = Kind::text,
    },
    {
        .row{.name = u"STREXTRACT",
             .parameters{{u"text", u"Where to look"},
                         {u"begin", u"What stands in front; from the start if empty"},
                         {u"end", u"What stands behind; to the end if empty or missing"},
                         {u"which", u"The number of the occurrence of what stands in front"},
                         {u"flags",
                          u"Sum of 1: ignore case, 2: what stands behind may be "
                          u"missing, 4: with what stands around"}},
             .description = u"The part of a text between two others",
             .returns = u"The part; nothing where it is not found",
             .body = uR"(asText('STREXTRACT', 1, text);
return between(text, asText('STREXTRACT', 2, begin), textOr('STREXTRACT', 3, end, ''),
  wholeOr('STREXTRACT', 4, which, 1), wholeOr('STREXTRACT', 5, flags, 0));)",
             .examples{u"STREXTRACT(\"a(b)c\", \"(\", \")\") &rarr; b"}},
        .result = Kind::text,
    },
    {
        .row{.name = u"GETWORDCOUNT",
             .parameters{{u"text", u"A text"},
                         {u"separators", u"The units between words; white space without it"}},
             .description = u"Counts words",
             .returns = u"The number of words",
             .body = uR"(asText('GETWORDCOUNT', 1, text);
return words(text, textOr('GETWORDCOUNT', 2, separators, ' \t\r\n')).length;)",
             .examples{u"GETWORDCOUNT(\"a b  c\") &rarr; 3"}},
        .result = Kind::number,
    },
    {
        .row{.name = u"GETWORDNUM",
             .parameters{{u"text", u"A text"},
                         {u"which", u"The number of the word, counted from 1"},
                         {u"separators", u"The units between words; white space without it"}},
             .description = u"One word of a text",
             .returns = u"The word; nothing where there are fewer",
             .body = uR"(asText('GETWORDNUM', 1, text);
const found = words(text, textOr('GETWORDNUM', 3, separators, ' \t\r\n'));
return found[asWhole('GETWORDNUM', 2, which) - 1] ?? '';)",
             .examples{u"GETWORDNUM(\"a b c\", 2) &rarr; b"}},
        .result = Kind::text,
    },
    {
        .row{.name = u"LIKE",
             .parameters{{u"pattern",
                          u"A text in which ? stands for one unit and * for any "
                          u"number of them"},
                         {u"text", u"A text"}},
             .description = u"Whether a whole text fits a pattern; case counts",
             .returns = u"True or false",
             .body = uR"(return isLike(asText('LIKE', 1, pattern), asText('LIKE', 2, text));)",
             .examples{u"LIKE(\"a*\", \"abc\") &rarr; true"}},
        .result = Kind::logical,
    },
};

}  // namespace kx::translate
