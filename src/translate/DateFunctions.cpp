// The language's functions of dates and times.
#include "translate/Functions.h"

namespace kx::translate {

LanguageTable const dateFunctions = {
    {
        .row{.name = u"DATE",
             .parameters{},
             .description = u"Today",
             .returns = u"The local date",
             .body = uR"(const now = new Date();
return dateOf(now.getFullYear(), now.getMonth() + 1, now.getDate());)",
             .examples{u"VALTYPE(DATE()) &rarr; D"}},
        .result = Kind::date,
    },
    {
        .row{.name = u"TIME",
             .parameters{},
             .description = u"The time of day",
             .returns = u"Hours, minutes and seconds as HH:MM:SS",
             .body = uR"(const now = new Date();
return digits(now.getHours(), 2) + ':' + digits(now.getMinutes(), 2) + ':' +
  digits(now.getSeconds(), 2);)",
             .examples{u"LEN(TIME()) &rarr; 8"}},
        .result = Kind::text,
    },
    {
        .row{.name = u"SECONDS",
             .parameters{},
             .description = u"The seconds since midnight",
             .returns = u"A number with a fraction",
             .body = uR"(const now = new Date();
return now.getHours() * 3600 + now.getMinutes() * 60 + now.getSeconds() +
  now.getMilliseconds() / 1000;)",
             .examples{u"SECONDS() &lt; 86400 &rarr; true"}},
        .result = Kind::number,
    },
    {
        .row{.name = u"YEAR",
             .parameters{{u"date", u"A date"}},
             .description = u"The year of a date",
             .returns = u"A number; 0 for the empty date",
             .body = uR"(return asDate('YEAR', 1, date).jd === 0 ? 0 : calendar(date.jd).year;)",
             .examples{u"YEAR(STOD(\"20200131\")) &rarr; 2020"}},
        .result = Kind::number,
        .scale = ScaleRule::zero,
    },
    {
        .row{.name = u"MONTH",
             .parameters{{u"date", u"A date"}},
             .description = u"The month of a date",
             .returns = u"A number; 0 for the empty date",
             .body = uR"(return asDate('MONTH', 1, date).jd === 0 ? 0 : calendar(date.jd).month;)",
             .examples{u"MONTH(STOD(\"20200131\")) &rarr; 1"}},
        .result = Kind::number,
        .scale = ScaleRule::zero,
    },
    {
        .row{.name = u"DAY",
             .parameters{{u"date", u"A date"}},
             .description = u"The day of the month of a date",
             .returns = u"A number; 0 for the empty date",
             .body = uR"(return asDate('DAY', 1, date).jd === 0 ? 0 : calendar(date.jd).day;)",
             .examples{u"DAY(STOD(\"20200131\")) &rarr; 31"}},
        .result = Kind::number,
        .scale = ScaleRule::zero,
    },
    {
        .row{.name = u"DOW",
             .parameters{{u"date", u"A date"}},
             .description = u"The day of the week of a date",
             .returns = u"1 for Sunday to 7 for Saturday; 0 for the empty date",
             .body = uR"(return asDate('DOW', 1, date).jd === 0 ? 0 : (date.jd + 1) % 7 + 1;)",
             .examples{u"DOW(STOD(\"20000222\")) &rarr; 3"}},
        .result = Kind::number,
        .scale = ScaleRule::zero,
    },
    {
        .row{
            .name = u"CMONTH",
            .parameters{{u"date", u"A date"}},
            .description = u"The name of a date's month",
            .returns = u"An English name; the empty text for the empty date",
            .body =
                uR"(return asDate('CMONTH', 1, date).jd === 0 ? '' : monthNames[calendar(date.jd).month - 1];)",
            .examples{u"CMONTH(STOD(\"20200131\")) &rarr; January"}},
        .result = Kind::text,
    },
    {
        .row{.name = u"CDOW",
             .parameters{{u"date", u"A date"}},
             .description = u"The name of a date's day of the week",
             .returns = u"An English name; the empty text for the empty date",
             .body =
                 uR"(return asDate('CDOW', 1, date).jd === 0 ? '' : dayNames[(date.jd + 1) % 7];)",
             .examples{u"CDOW(STOD(\"20000222\")) &rarr; Tuesday"}},
        .result = Kind::text,
    },
    {
        .row{.name = u"DTOS",
             .parameters{{u"date", u"A date"}},
             .description = u"A date as text that sorts by time",
             .returns = u"YYYYMMDD; 8 blanks for the empty date",
             .body = uR"(return sortableDate(asDate('DTOS', 1, date));)",
             .examples{u"DTOS(STOD(\"20200131\")) &rarr; 20200131"}},
        .result = Kind::text,
    },
    {
        .row{.name = u"DTOC",
             .parameters{{u"date", u"A date"}, {u"style", u"1: as DTOS"}},
             .description = u"A date as text in the date format",
             .returns = u"The text; blanks in place of digits for the empty date",
             .body = uR"(asDate('DTOC', 1, date);
return wholeOr('DTOC', 2, style, 0) === 1 ? sortableDate(date) : dateText(date, format);)",
             .examples{u"DTOC(STOD(\"20200131\")) &rarr; 2020-01-31"}},
        .result = Kind::text,
    },
    {
        .row{.name = u"CTOD",
             .parameters{{u"text", u"A date in the date format"}},
             .description = u"Reads a date. Years of two digits are of the century that the "
                            u"epoch begins",
             .returns = u"A date; the empty one where there is none",
             .body = uR"(return readDate(asText('CTOD', 1, text), format, epoch);)",
             .examples{u"CTOD(\"1999-11-25\") &rarr; 1999-11-25"}},
        .result = Kind::date,
    },
    {
        .row{.name = u"STOD",
             .parameters{{u"text", u"A date as YYYYMMDD"}},
             .description = u"Reads a date",
             .returns = u"A date; the empty one where there is none",
             .body = uR"(if (typeof text !== 'string' || !/^\d{8}$/.test(text)) return emptyDate;
return dateOf(Number(text.slice(0, 4)), Number(text.slice(4, 6)), Number(text.slice(6)));)",
             .examples{u"STOD(\"20200131\") &rarr; 2020-01-31"}},
        .result = Kind::date,
    },
    {
        .row{.name = u"GOMONTH",
             .parameters{{u"date", u"A date"}, {u"months", u"How many months"}},
             .description = u"The date some months later",
             .returns = u"A date; its day is at most the month's last",
             .body = uR"(if (asDate('GOMONTH', 1, date).jd === 0) return date;
const part = calendar(date.jd);
const total = part.year * 12 + part.month - 1 + asWhole('GOMONTH', 2, months);
const year = Math.floor(total / 12);
const month = total - year * 12 + 1;
if (!(year >= 1 && year <= 9999)) return fail('numeric overflow');
return dateOf(year, month, Math.min(part.day, monthLength(year, month)));)",
             .examples{u"GOMONTH(STOD(\"20200131\"), 1) &rarr; 2020-02-29"}},
        .result = Kind::date,
    },
};

}  // namespace kx::translate
