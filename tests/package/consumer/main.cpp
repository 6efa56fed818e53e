// Uses everything that is installed. The exit status is 0 where the results are right.

#include <KxJs.h>
#include <cstdint>
#include <cstdio>
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
    std::int32_t const values[] = {1, 2, 3};
    double doubled[] = {0, 0, 0};
    KxJsColumns columns(parser);
    columns.bind(u"B", values);
    bool const computes = columns.compile(u"B*2", error) &&
                          columns.evaluate(3, doubled).records == 3 && doubled[2] == 6;
    std::printf("runs: %d, lists: %d, documents: %d, computes: %d\n", runs, lists, documents,
                computes);
    return runs && lists && documents && computes ? 0 : 1;
}
