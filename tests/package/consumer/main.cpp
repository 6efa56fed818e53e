// The smallest use of every installed header; the status tells whether the results are right.

#include <convert/Converter.h>
#include <cstdint>
#include <cstdio>
#include <host/KxJsParser.h>
#include <host/KxJsVariable.h>
#include <library/Catalogues.h>
#include <library/Export.h>
#include <library/KxJsFunction.h>
#include <library/Prelude.h>
#include <string>

int main() {
    KxJsParser parser;
    parser.initialize();
    parser.addSetVariable(KxJsVariable(u"A", std::int32_t{5}));
    std::u16string error;
    std::int32_t const script = parser.parse(Converter::_convert(u"IIF(A<>2,'OK','KO')"), error);
    bool const runs = script == 0 && parser.execute(script, error) == u"OK" && error.empty();
    bool const lists =
        buildMathFunctions().front().getName() == u"ROUND" && !buildPrelude().empty();
    bool const documents = !KxJsParser::_getUserDocumentation(true, false).empty();
    std::printf("runs: %d, lists: %d, documents: %d\n", runs, lists, documents);
    return runs && lists && documents ? 0 : 1;
}
