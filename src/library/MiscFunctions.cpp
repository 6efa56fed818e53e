#include "library/Catalogues.h"
#include "library/FunctionTable.h"

namespace {

constexpr kx::FunctionTable miscFunctions = {
    // The second example contradicts the body.
    {
        .name = u"IIF",
        .parameters{
            {u"cond", u"The value or expression that you want to test"},
            {u"p1", u"It is the value that is returned if condition evaluates to true."},
            {u"p2", u"It is the value that is returned if condition evaluates to false."},
        },
        .description = u"Check cond expression and return p1 or p2",
        .returns =
            u"Returns one value if a specified condition evaluates to true, or another value if "
            u"it evaluates to false",
        .body = u"return (eval(cond))? p1:p2;",
        .examples{
            u"IIF(true, 'abc','xyz') &rarr; abc",
            u"IIF(true, 'abc','xyz') &rarr; xyz",
            u"IIF(10.50>2, 'OK','KO') &rarr; OK",
        },
    },
    {
        .name = u"SWITCH",
        .parameters{
            {u"value", u"The value or expression that you want to test"},
            {u"n", u"List of values that can be returned. (unlimited arguments)"},
        },
        .description = u"Check cond expression and return n[value] value (unlimited arguments)",
        .returns = u"Return n[0] if value = 0 , n[1] if value = 1 , etc ...",
        .body = u"return arguments[Number(value)+1];",
        .examples{
            u"SWITCH(0,'a','b','c') &rarr; a",
            u"SWITCH('1','a','b','c') &rarr; b",
            u"SWITCH('2','a','b','c') &rarr; c",
            u"SWITCH('5','a','b','c','d','e','f','g') &rarr; f",
            u"SWITCH('5','a','b') &rarr; undefined",
        },
    },
    {
        .name = u"COND",
        .parameters{
            {u"listOfCouple",
             u"List of couple [Expression you want to evaluate , Value or "
             u"expression to be returned if the corresponding expression is "
             u"true] (unlimited arguments)"},
        },
        .description =
            u"Evaluates a list of expressions and returns a value or an expression associated "
            u"with the first expression in the list that is True. (unlimited arguments)",
        .returns = u"If argument[0] = true return argument[1] , argument[2] = true return "
                   u"argument[3],etc... If never true, return undefined",
        .body = u"for(var i=0;i<arguments.length;i+=2)"
                u"if(eval(arguments[i]))return arguments[i+1];",
        .examples{
            u"COND(true,'a',false,'b',true,'c') &rarr; a",
            u"COND(false,'a',true,'b',false,'c') &rarr; b",
            u"COND(false,'a',false,'b',true,'c') &rarr; c",
            u"COND('2>1','a','false','b') &rarr; a",
            u"COND(false,'a',false,'b',false,'c') &rarr; undefined",
        },
    },
    {
        .name = u"MIN",
        .parameters{
            {u"listOfValue", u"All comparable values. Separated by comma"},
        },
        .description = u"Returns the smallest values.",
        .returns = u"Returns the smallest values.",
        .body = u"var min=(isNaN(Number(arguments[0])))?arguments[0]:Number(arguments[0]);"
                u"for(var i=0;i<arguments.length;i++){"
                u"var tmp=(isNaN(Number(arguments[i])))?arguments[i]:Number(arguments[i]);"
                u"if(min>tmp){min=tmp;}}"
                u"return min;",
        .examples{
            u"MIN(15,19,5,1,1.5,0.25,1.23) &rarr; 0.25",
            u"MIN('15','19','5','1','1.5','0.25','1.23') &rarr; 0.25",
            u"MIN('abc','def') &rarr; 'abc'",
            u"MIN('zbc','def') &rarr; 'def'",
        },
    },
    {
        .name = u"MAX",
        .parameters{
            {u"listOfValue", u"All comparable values. Separated by comma"},
        },
        .description = u"Returns the biggest values.",
        .returns = u"Returns the biggest values.",
        .body = u"var max=(isNaN(Number(arguments[0])))?arguments[0]:Number(arguments[0]);"
                u"for(var i=0;i<arguments.length;i++){"
                u"var tmp=(isNaN(Number(arguments[i])))?arguments[i]:Number(arguments[i]);"
                u"if(max<tmp){max=tmp;}}"
                u"return max;",
        .examples{
            u"MAX(15,19,5,1,1.5,0.25,1.23) &rarr; 19",
            u"MAX('15','19','5','1','1.5','0.25','1.23') &rarr; 19",
            u"MAX('abc','def') &rarr; 'def'",
            u"MAX('zbc','def') &rarr; 'zbc'",
        },
    },
    {
        .name = u"BETWEEN",
        .parameters{
            {u"testValue", u"Specifies the expression whose value BETWEEN tests"},
            {u"lowValue", u"Specifies the lower value in the range BETWEEN evaluates."},
            {u"hightValue", u"Specifies the upper value in the range BETWEEN evaluates."},
        },
        .description =
            u"Determines whether the value of an expression lies between the values of two other "
            u"expressions of the same data type",
        .returns =
            u"Return true if the value of an expression lies between the values of two other "
            u"expressions.Else return false",
        .body = u"return (testValue>lowValue && testValue<hightValue);",
        .examples{
            u"BETWEEN(15.25,10.82,20.42) &rarr; true",
            u"BETWEEN(9,10,20) &rarr; false",
            u"BETWEEN('15.25','10.82','20.42') &rarr; true",
            u"BETWEEN('b','a','c') &rarr; true",
            u"BETWEEN('z','a','c') &rarr; false",
        },
    },
    // If n2 is not a number, n1 replaces it. n1 and n3 are kept, whatever they are.
    {
        .name = u"BUMP",
        .parameters{
            {u"n1", u"A value."},
            {u"n2", u"A value."},
            {u"n3", u"A value."},
        },
        .description = u"Analyse n values and return one value",
        .returns = u"Return n1 if n2&lt;n1&lt;n3 , n2 if n1&lt;n2 , n3 if n1&gt;n3",
        .body = u"n1=(isNaN(Number(n1)))?n1:Number(n1);"
                u"n2=(isNaN(Number(n2)))?n1:Number(n2);"
                u"n3=(isNaN(Number(n3)))?n3:Number(n3);"
                u"if(n1<n2)return n2;else if(n1>n3)return n3;else return n1;",
        .examples{
            u"BUMP(10.5,11.22,12.34) &rarr; 11.22",
            u"BUMP('10.5','11.22','12.34') &rarr; 11.22",
            u"BUMP(11.5,11.22,12.34) &rarr; 11.5",
            u"BUMP(13.5,11.22,12.34) &rarr; 12.34",
        },
    },
    {
        .name = u"INLIST",
        .parameters{
            {u"searched", u"The searched value"},
            {u"listOfValue", u"The list of values"},
        },
        .description = u"Check if searched is in list of value",
        .returns = u"Return true if searched is in list of value else false",
        .body = u"for(var i=1;i<arguments.length;i++){"
                u"if(searched==arguments[i]){return true;}}"
                u"return false;",
        .examples{
            u"INLIST('c','a','b','c','d') &rarr; true",
            u"INLIST('z','a','b','c','d') &rarr; false",
            u"INLIST(2,1,2,3,4) &rarr; true",
            u"INLIST(20,1,2,3,4) &rarr; false",
        },
    },
    // Splits the declarations that KxJsFunction::toJavaScript() writes. Needs the two functions
    // toString of the prelude.
    {
        .name = u"LISTFUNCT",
        .parameters{},
        .description = u"Show all functions",
        .returns = u"Return basic text representation for each functions",
        .body = u"Function.prototype.toString = oldToStringFunctionProto;"
                u"var liste='';var upperRegex=/^[^a-z]+$/;"
                u"for(var funct in this){"
                u"if(funct.length>1 && upperRegex.test(funct)){"
                u"var functTT=String(this[funct].prototype.constructor);"
                u"var functWithoutBody=functTT;"
                u"if(functTT.indexOf('{')!=-1){"
                u"functWithoutBody=functTT.substr(0,functTT.indexOf('{'));}"
                u"var functName='';var comment='';"
                u"if(functWithoutBody.indexOf(')')!=-1){"
                u"functName=functWithoutBody.substr(0,functWithoutBody.indexOf(')')+1);"
                u"comment=functWithoutBody.substring(functWithoutBody.indexOf(')')+1);}"
                u"liste+=comment+'\\r\\n'+functName+'\\r\\n\\r\\n';}}"
                u"Function.prototype.toString = newToStringFunctionProto;"
                u"return liste;",
        .examples{
            u" ",
        },
    },
};

}  // namespace

std::vector<KxJsFunction> buildMiscFunctions() {
    return kx::buildRecords(u"miscellaneous functions", {miscFunctions});
}
