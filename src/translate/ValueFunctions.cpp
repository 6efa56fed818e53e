// The language's functions of values of any kind: their kinds, choices, pictures.
#include "translate/Functions.h"

namespace kx::translate {

LanguageTable const valueFunctions = {
    {
        .row{.name = u"EMPTY",
             .parameters{{u"value", u"A value of any kind"}},
             .description = u"Whether a value is blank, 0, false, NIL or the empty date",
             .returns = u"True or false",
             .body = uR"(asAny('EMPTY', 1, value);
if (typeof value === 'string') return withoutLeadingSpace(value) === '';
return value instanceof D ? value.jd === 0 : value === 0 || value === false || value === null;)",
             .examples{u"EMPTY(\"  \") &rarr; true"}},
        .result = Kind::logical,
    },
    {
        .row{.name = u"ISNULL",
             .parameters{{u"value", u"A value of any kind"}},
             .description = u"Whether a value is NIL",
             .returns = u"True or false",
             .body = uR"(return asAny('ISNULL', 1, value) === null;)",
             .examples{u"ISNULL(NIL) &rarr; true"}},
        .result = Kind::logical,
    },
    {
        .row{.name = u"NVL",
             .parameters{{u"value", u"A value of any kind"}, {u"other", u"What stands for NIL"}},
             .description = u"Replaces NIL",
             .returns = u"The value, or the other one where it is NIL",
             .body = uR"(asAny('NVL', 2, other);
return isNil(value) ? other : value;)",
             .examples{u"NVL(NIL, 1) &rarr; 1"}},
    },
    {
        .row{.name = u"EVL",
             .parameters{{u"value", u"A value of any kind"},
                         {u"other", u"What stands for empty ones"}},
             .description = u"Replaces what is EMPTY",
             .returns = u"The value, or the other one where it is empty",
             .body = uR"(asAny('EVL', 2, other);
return kx.empty(value ?? null) ? other : value;)",
             .examples{u"EVL(0, 5) &rarr; 5"}},
    },
    {
        .row{.name = u"VALTYPE",
             .parameters{{u"value", u"A value of any kind"}},
             .description = u"The kind of a value",
             .returns = u"C for a text, N for a number, L, D for a date, U for NIL",
             .body = uR"(return letterOf(value);)",
             .examples{u"VALTYPE(1) &rarr; N"}},
        .result = Kind::text,
    },
    {
        .row{.name = u"VARTYPE",
             .parameters{{u"value", u"A value of any kind"}},
             .description = u"The kind of a value",
             .returns = u"C for a text, N for a number, L, D for a date, X for NIL",
             .body = uR"(return isNil(value) ? 'X' : letterOf(value);)",
             .examples{u"VARTYPE(\"a\") &rarr; C"}},
        .result = Kind::text,
    },
    {
        .row{.name = u"BETWEEN",
             .parameters{{u"value", u"A value"}, {u"low", u"A bound"}, {u"high", u"A bound"}},
             .description = u"Whether a value lies between two bounds or is one of them",
             .returns = u"True or false",
             .body = uR"(asAny('BETWEEN', 3, high);
return cmp(value, low, '>=') >= 0 && cmp(value, high, '<=') <= 0;)",
             .examples{u"BETWEEN(5, 5, 9) &rarr; true"}},
        .result = Kind::logical,
    },
    {
        .row{.name = u"INLIST",
             .parameters{{u"value", u"A value"}, {u"list", u"Values to compare it with, by ="}},
             .description = u"Whether a value equals one of others",
             .returns = u"True or false",
             .body = uR"(asAny('INLIST', 2, list);
for (let i = 1; i < arguments.length; ++i) {
  if (eq(value, arguments[i])) return true;
}
return false;)",
             .examples{u"INLIST(\"AB\", \"X\", \"AB\") &rarr; true"}},
        .result = Kind::logical,
        .isVariadic = true,
    },
    {
        .row{.name = u"CVALTOCHAR",
             .parameters{{u"value", u"A value of any kind"}},
             .description = u"A value as text",
             .returns = u"The text; .T. or .F. for a logical value, nothing for NIL",
             .body = uR"(asAny('CVALTOCHAR', 1, value);
if (typeof value === 'boolean') return value ? '.T.' : '.F.';
return shown(value, arguments[1]) ?? '';)",
             .examples{u"CVALTOCHAR(.T.) &rarr; .T."}},
        .result = Kind::text,
        .scaled = Scaled::yes,
    },
    {
        .row{.name = u"TRANSFORM",
             .parameters{{u"value", u"A text, number, date or logical value"},
                         {u"picture", u"How it is shown: letters behind @, then a template"}},
             .description = u"A value as text, shown as a picture tells",
             .returns = u"The text",
             .body = uR"(return transform(value, picture, arguments[2], format);)",
             .examples{u"TRANSFORM(1234.5, \"@E 9,999.99\") &rarr; 1.234,50",
                       u"TRANSFORM(\"12345678\", \"@R 99.999-999\") &rarr; 12.345-678"}},
        .synonyms{u"TRANS", u"TRAN"},
        .result = Kind::text,
        .scaled = Scaled::yes,
        .isOmittedNil = true,
    },
};

}  // namespace kx::translate
