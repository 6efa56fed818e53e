#pragma once

#include <string>

#include "library/Catalogues.h"

namespace kx::test {

/// Returns a function that is incomplete only because it has no examples.
inline KxJsFunction functionWithoutExamples() {
    KxJsFunction function;
    function.setName(u"BARE");
    function.addParameter({u"x", u"A number"});
    function.setDescription(u"Has no example");
    function.setReturnDescription(u"One");
    function.setBody(u"return 1;");
    return function;
}

/// Returns a function with line ends of all kinds in all of its texts.
inline KxJsFunction functionWithLineBreaks() {
    KxJsFunction function;
    function.setName(u"LINES");
    function.setCategory(u"miscellaneous functions");
    function.addParameter({u"a\r\nb", u"first\r\nsecond\nthird\rfourth"});
    function.addParameter({u"c", u"\r\nled and followed\r\n"});
    function.setDescription(u"one\r\ntwo\r\n\r\nfour\nstill four");
    function.setReturnDescription(u"up\r\r\ndown");
    function.setBody(u"return a;");
    function.addExample(u"LINES(1)\r\n&rarr; 1");
    function.addExample(u"LINES(2) &rarr; <b>2</b>");
    return function;
}

/// Returns the built-in function `name`, or an empty record.
inline KxJsFunction builtIn(std::u16string const& name) {
    for (auto const& catalogue :
         {buildMathFunctions(), buildStringFunctions(), buildMiscFunctions()}) {
        for (KxJsFunction const& function : catalogue) {
            if (function.getName() == name) return function;
        }
    }
    return {};
}

}  // namespace kx::test
