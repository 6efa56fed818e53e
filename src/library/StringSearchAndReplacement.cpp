#include "library/StringTables.h"

namespace kx {

constexpr FunctionTable stringSearchAndReplacement = {
    {
        .name = u"REPLACE",
        .parameters{
            {u"str", u"The string to replace in."},
            {u"searchvalue",
             u"The value, or regular expression, that will be replaced by the "
             u"new value"},
            {u"with_this", u"The value to replace the searchvalue with."},
        },
        .description =
            u"This function returns a string with all occurrences of searchvalue in str replaced "
            u"with the given replace value. ",
        .returns = u"Returns a string with the replaced values. ",
        .body = u"return str.split(searchvalue).join(with_this);",
        .examples{
            u"REPLACE('abcd','cd','ef') &rarr; abef",
            u"REPLACE('abcd','z','ef') &rarr; abcd",
            u"REPLACE('abcd','b',2.123) &rarr; a2.123cd",
        },
    },
    {
        .name = u"AT",
        .parameters{
            {u"c1", u"The string to search in."},
            {u"c2", u"The searched value"},
            {u"n1",
             u"(optional) Specifies which occurrence, first, second, third, and so on, of "
             u"c1 to search for in c1. Default value 1"},
        },
        .description =
            u"Searches a character expression for the occurrence of another character expression "
            u"(case sensitive)",
        .returns =
            u"Returns an integer indicating the position of the first character for the searched "
            u"character expression or -1 if not found",
        .body = u"n1=(n1)?n1:1;if(n1<0)return -1;c1=String(c1);c2=String(c2);"
                u"var index=-1;var nbOccur=1;"
                u"while(true){index=LOCATE(c1,c2,index+1);"
                u"if(index == -1){return -1;}"
                u"else{if(n1==nbOccur){return index;}else{nbOccur++;}}}",
        .examples{
            u"AT('abcdabcdabcd','cd') &rarr; 2",
            u"AT('abcdabcdabcd','CD') &rarr; -1",
            u"AT('abcdabcdabcd','cd',2) &rarr; 6",
            u"AT('abcdabcdabcd','cd',3) &rarr; 10",
            u"AT('abcdabcdabcd','cd',4) &rarr; -1",
            u"AT('abcdabcdabcd','wz') &rarr; -1",
            u"AT(10.515,'5') &rarr; 3",
            u"AT(10.515,5,2) &rarr; 5",
        },
    },
    {
        .name = u"ATC",
        .parameters{
            {u"c1", u"The string to search in."},
            {u"c2", u"The searched value"},
            {u"n1",
             u"(optional) Specifies which occurrence, first, second, third, and so on, of "
             u"c1 to search for in c1. Default value 1"},
        },
        .description =
            u"Searches a character expression for the occurrence of another character expression "
            u"(case insensitive)",
        .returns =
            u"Returns an integer indicating the position of the first character for the searched "
            u"character expression or -1 if not found",
        .body = u"return AT(String(c1).toLowerCase(),String(c2).toLowerCase(),n1);",
        .examples{
            u"ATC('abcdabcdabcd','cd') &rarr; 2",
            u"ATC('abcdabcdabcd','CD') &rarr; 2",
            u"ATC('abcdabcdabcd','cd',2) &rarr; 6",
            u"ATC('abcdabcdabcd','cd',3) &rarr; 10",
            u"ATC('abcdabcdabcd','cd',4) &rarr; -1",
            u"ATC('abcdabcdabcd','wz') &rarr; -1",
            u"ATC(10.515,'5') &rarr; 3",
            u"ATC(10.515,5,2) &rarr; 5",
        },
    },
    {
        .name = u"RAT",
        .parameters{
            {u"c1", u"The string to search in."},
            {u"c2", u"The searched value"},
            {u"n1",
             u"(optional) Specifies which occurrence, first, second, third, and so on, of "
             u"c1 to search for in c1. Default value 1"},
        },
        .description =
            u"Searches a character expression for the occurrence of another character expression "
            u"in reverse order (Reverse AT) (case sensitive)",
        .returns =
            u"Returns an integer indicating the position of the first character for the searched "
            u"character expression or -1 if not found",
        .body = u"c1=String(c1);c2=String(c2);n1=(n1)?n1:1;if(n1<0)return -1;"
                u"var nbFound=0;"
                u"while(c1.length>0){var index=c1.lastIndexOf(c2);"
                u"if(index==-1){return -1;}"
                u"else{nbFound++;"
                u"if(nbFound==n1){return index;}else{c1=c1.substring(0,index);}}}"
                u"return -1;",
        .examples{
            u"RAT('abcdabcdabcd','cd') &rarr; 10",
            u"RAT('abcdabcdabcd','CD') &rarr; -1",
            u"RAT('abcdabcdabcd','cd',2) &rarr; 6",
            u"RAT('abcdabcdabcd','cd',3) &rarr; 2",
            u"RAT('abcdabcdabcd','cd',4) &rarr; -1",
            u"RAT('abcdabcdabcd','wz') &rarr; -1",
            u"RAT(10.515,'5') &rarr; 5",
            u"RAT(10.515,5,2) &rarr; 3",
        },
    },
    {
        .name = u"RATC",
        .parameters{
            {u"c1", u"The string to search in."},
            {u"c2", u"The searched value"},
            {u"n1",
             u"(optional) Specifies which occurrence, first, second, third, and so on, of "
             u"c1 to search for in c1. Default value 1"},
        },
        .description =
            u"Searches a character expression for the occurrence of another character expression "
            u"in reverse order (Reverse ATC) (case insensitive)",
        .returns =
            u"Returns an integer indicating the position of the first character for the searched "
            u"character expression or -1 if not found",
        .body = u"return RAT(String(c1).toLowerCase(),String(c2).toLowerCase(),n1);",
        .examples{
            u"RATC('abcdabcdabcd','cd') &rarr; 10",
            u"RATC('abcdabcdabcd','CD') &rarr; 10",
            u"RATC('abcdabcdabcd','cd',2) &rarr; 6",
            u"RATC('abcdabcdabcd','cd',3) &rarr; 2",
            u"RATC('abcdabcdabcd','cd',4) &rarr; -1",
            u"RATC('abcdabcdabcd','wz') &rarr; -1",
            u"RATC(10.515,'5') &rarr; 5",
            u"RATC(10.515,5,2) &rarr; 3",
        },
    },
    {
        .name = u"INSERT",
        .parameters{
            {u"str", u"The string to replace in."},
            {u"start", u"Specifies the location to start deletion and insertion"},
            {u"length", u"Specifies the number of characters to delete"},
            {u"replaceWith", u"Expression to insert"},
        },
        .description =
            u"Inserts a string into another string. It deletes a specified length of characters "
            u"in the first string at the start position and then inserts the second string into "
            u"the first string at the start position.",
        .returns = u"Returns a string with replaceWith inserted into str",
        .body = u"str=String(str);replaceWith=String(replaceWith);"
                u"var before=str.slice(0,start);var after=str.slice(start+length);"
                u"return before+replaceWith+after;",
        .examples{
            u"INSERT('hello',2,2,'yz') &rarr; heyzo",
            u"INSERT('hello',1,1,'yz') &rarr; hyzllo",
            u"INSERT('hello',1,0,'yz') &rarr; hyzello",
        },
    },
    {
        .name = u"CHRTRAN",
        .parameters{
            {u"Input_String", u"The string to replace in."},
            {u"Search_Pattern", u"Specifies the location to start deletion and insertion"},
            {u"Replace_Pattern", u"Specifies the number of characters to delete"},
        },
        .description =
            u"Returns a character string where characters in Input_String that match those in "
            u"Search_Pattern have been replaced with characters in the same position in "
            u"Replace_Pattern. Case sensitive",
        .returns = u"Returns a string with all replacements",
        .body = u"Input_String=String(Input_String);"
                u"Search_Pattern=String(Search_Pattern);"
                u"Replace_Pattern=String(Replace_Pattern);"
                u"var newString='';"
                u"for(var i=0;i<Input_String.length;i++){"
                u"for(var j=0;j<Search_Pattern.length;j++){"
                u"if(Input_String[i]==Search_Pattern[j]){"
                u"newString+=(Replace_Pattern[j]==undefined)?'':Replace_Pattern[j];break;}"
                u"else{if(j==Search_Pattern.length-1)newString+=Input_String[i];}}}"
                u"return newString;",
        .examples{
            u"CHRTRAN('(617)229-2924' , '(XXX)XXX-XXXX' , ' XXX XXX-XXXX') &rarr; ' 617 229-2924'",
            u"CHRTRAN('AaBbCcDd','XXBXXXXX','XXbXXXXX') &rarr; AabbCcDd",
            u"CHRTRAN('ABCDEF', 'ACE', 'XYZ') &rarr; XBYDZF",
            u"CHRTRAN('ABCD', 'ABC', 'YZ') &rarr; YZD",
            u"CHRTRAN('ABCDEF', 'ACE', 'XYZQRST') &rarr; XBYDZF",
        },
    },
};

}  // namespace kx
