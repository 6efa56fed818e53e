#include "Com.h"

#include <stdexcept>

namespace test {

Parser createParser() {
    Parser parser;
    HRESULT const outcome = CoCreateInstance(CLSID_KxJsParserX, nullptr, CLSCTX_INPROC_SERVER,
                                             IID_IKxJsParserX, parser.putVoid());
    if (FAILED(outcome)) {
        throw std::runtime_error("no parser: " + std::to_string(outcome));
    }
    return parser;
}

Parser createInitializedParser() {
    Parser parser = createParser();
    HRESULT const outcome = parser->initialize();
    if (outcome != S_OK) throw std::runtime_error("initialize: " + std::to_string(outcome));
    return parser;
}

Parsed parse(Parser const& parser, std::wstring const& source) {
    Parsed parsed{E_FAIL, {}, -2};
    parsed.outcome = parser->parse(Bstr(source), parsed.error.put(), &parsed.index);
    return parsed;
}

Executed execute(Parser const& parser, LONG index) {
    Executed executed{E_FAIL, {}, {}};
    executed.outcome = parser->execute(index, executed.error.put(), executed.result.put());
    return executed;
}

std::wstring evaluate(Parser const& parser, std::wstring const& source) {
    Parsed const parsed = parse(parser, source);
    if (parsed.index < 0) return L"<" + parsed.error.text() + L">";
    Executed const executed = execute(parser, parsed.index);
    bool const failed = !executed.error.text().empty();
    return failed ? L"<" + executed.error.text() + L">" : executed.result.text();
}

}  // namespace test
