#include "library/Catalogues.h"
#include "library/FunctionTable.h"

namespace {

constexpr kx::FunctionTable mathFunctions = {
    // The result is a string: toFixed() keeps the number of digits.
    {
        .name = u"ROUND",
        .parameters{
            {u"num", u"The value to round"},
            {u"dec", u"The number of decimal digits to round to."},
        },
        .description = u"Rounds a float",
        .returns = u"The rounded value",
        .body = u"return num.toFixed(Math.abs(dec));",
        .examples{
            u"ROUND(10.523, 2) &rarr; 10.52",
            u"ROUND(10.526, 2) &rarr; 10.53",
            u"ROUND(2.34567, 4) &rarr; 2.3457",
        },
    },
    {
        .name = u"LOG",
        .parameters{
            {u"number", u"The value to calculate the logarithm for"},
            {u"base",
             u"(optional) The logarithmic base to use (defaults to 'e' and so to the "
             u"natural logarithm)."},
        },
        .description = u"Natural logarithm",
        .returns = u"The logarithm of arg to base, if given, or the natural logarithm.",
        .body = u"base=(base)?base:Math.E;return (Math.log(number)/Math.log(base));",
        .examples{
            u"LOG(1) &rarr; 0",
            u"LOG(Math.E) &rarr; 1",
            u"LOG(10.5, 10) &rarr; 1.021189299069938",
        },
    },
    // TRUNCATE and FRAC cut the decimal text of the number. Arithmetic would show rounding errors.
    {
        .name = u"TRUNCATE",
        .parameters{
            {u"number", u"The value to truncate"},
            {u"digits", u"The number of decimal digits to truncate to."},
        },
        .description = u"Truncate a number",
        .returns = u"The truncated value",
        .body = u"digits=Math.abs(digits);"
                u"var strNumber=String(number);var index=strNumber.indexOf('.');"
                u"if(index==-1){return number;}"
                u"else{return Number(strNumber.substr(0,index+digits+1));}",
        .examples{
            u"TRUNCATE(10.123456,2) &rarr; 10.12",
            u"TRUNCATE(10.123456,10) &rarr; 10.123456",
            u"TRUNCATE(-2.5, 0) &rarr; -2",
            u"TRUNCATE(-2, 3) &rarr; -2",
        },
    },
    {
        .name = u"FRAC",
        .parameters{
            {u"number", u"The value to get the decimal"},
        },
        .description = u"Get the decimal of number",
        .returns = u"The decimal of number",
        .body = u"var strNumber=String(number);var index=strNumber.indexOf('.');"
                u"if(index==-1){return 0;}"
                u"else{var negativSign=(strNumber[0]=='-')?'-':'';"
                u"return Number(negativSign+'0.'+strNumber.substring(index+1));}",
        .examples{
            u"FRAC(10.5) &rarr; 0.5",
            u"FRAC(10.123456) &rarr; 0.123456",
            u"FRAC(-2) &rarr; 0",
            u"FRAC(-2.123) &rarr; -0.123",
        },
    },
    {
        .name = u"EVEN",
        .parameters{
            {u"number", u"The value to check"},
        },
        .description = u"Check if number is even",
        .returns = u"True if even else false",
        .body = u"return (number%2 == 0) ? true : false;",
        .examples{
            u"EVEN(1) &rarr; false",
            u"EVEN(2) &rarr; true",
            u"EVEN(1.5) &rarr; false",
        },
    },
    {
        .name = u"ODD",
        .parameters{
            {u"number", u"The value to check"},
        },
        .description = u"Check if number is odd",
        .returns = u"True if odd else false",
        .body = u"return (String(number).indexOf('.')==-1)?!EVEN(number):false;",
        .examples{
            u"ODD(1) &rarr; true",
            u"ODD(2) &rarr; false",
            u"ODD(1.5) &rarr; false",
        },
    },
    {
        .name = u"SIGN",
        .parameters{
            {u"number", u"The value to get the sign"},
        },
        .description = u"Get the sign of number",
        .returns = u"0 if number == 0; -1 if number is negative; else 1",
        .body = u"if(number<0)return -1;else if(number == 0)return 0;else return 1;",
        .examples{
            u"SIGN(42) &rarr; 1",
            u"SIGN(0) &rarr; 0",
            u"SIGN(-42) &rarr; -1",
        },
    },
    {
        .name = u"DEGREES",
        .parameters{
            {u"rad", u"The angle value in radians"},
        },
        .description = u"Convert radians to degrees",
        .returns = u"The angle value in degrees",
        .body = u"return (180 * rad / Math.PI);",
        .examples{
            u"DEGREES(3.14159) &rarr; 179.99984796050427",
            u"DEGREES(0) &rarr; 0",
            u"DEGREES(Math.PI*2) &rarr; 360",
        },
    },
    {
        .name = u"RADIANS",
        .parameters{
            {u"deg", u"The angle value in degrees"},
        },
        .description = u"Convert degrees to radians",
        .returns = u"The angle value in radians",
        .body = u"return Math.PI*deg/180;",
        .examples{
            u"RADIANS(180) &rarr; 3.141592653589793",
            u"RADIANS(0) &rarr; 0",
            u"RADIANS(360) &rarr; 6.283185307179586",
        },
    },
    {
        .name = u"SQRT",
        .parameters{
            {u"x", u"A number"},
        },
        .description = u"Return the square root of a number",
        .returns = u"Return the square root of a number",
        .body = u"return Math.sqrt(x);",
        .examples{
            u"SQRT(10) &rarr; 3.1622776601683795",
            u"SQRT(4) &rarr; 2",
        },
    },
    {
        .name = u"LOG10",
        .parameters{
            {u"x", u"A number"},
        },
        .description = u"Returns the base 10 logarithm of a number",
        .returns = u"Returns the base 10 logarithm of a number",
        .body = u"return LOG(x, 10);",
        .examples{
            u"LOG10(2) &rarr; 0.30102999566398114",
            u"LOG10(10) &rarr; 1",
        },
    },
    {
        .name = u"ANTILOG",
        .parameters{
            {u"x", u"A number"},
        },
        .description = u"Returns the antilog of a number",
        .returns = u"Returns the antilog of a number",
        .body = u"return Math.pow(10, x);",
        .examples{
            u"ANTILOG(2) &rarr; 100",
            u"ANTILOG(2.5) &rarr; 316.2277660168379",
        },
    },
    {
        .name = u"POWER",
        .parameters{
            {u"base", u"The base number."},
            {u"exponent", u"The exponent used to raise the base."},
        },
        .description = u"Function returns the base to the exponent power",
        .returns =
            u"A number representing the given base taken to the power of the given exponent.",
        .body = u"return Math.pow(base, exponent);",
        .examples{
            u"POWER(4,0.5) &rarr; 2",
            u"POWER(7,2) &rarr; 49",
            u"POWER(8,-1/3) &rarr; 0.5",
        },
    },
    {
        .name = u"EXP",
        .parameters{
            {u"x", u"a number."},
        },
        .description = u"Function returns exponetial of a number",
        .returns = u"A number representing e^x, where e is Euler's number and x is the argument.",
        .body = u"return Math.exp(x);",
        .examples{
            u"EXP(-1) &rarr; 0.36787944117144233",
            u"EXP(0) &rarr; 1",
            u"EXP(1) &rarr; Math.E",
        },
    },
};

}  // namespace

std::vector<KxJsFunction> buildMathFunctions() {
    return kx::buildRecords(u"mathematical functions", {mathFunctions});
}
