// What the module makes of failures on the library's side, and of rows that the library leaves out.
// The module's sources are part of this program, with a bridge that fails as it is told.

#include <string>
#include <windows.h>

#include "BridgeLoader.h"
#include "KxJsParserModule.h"
#include "support/ArrayReader.h"
#include "support/Check.h"
#include "support/Com.h"

using namespace test;

namespace {

using kx::BridgeResult;
using kx::BridgeText;
using kx::TableReceiver;
using kx::TextReceiver;

BridgeResult creation = BridgeResult::done;
BridgeResult next = BridgeResult::done;  ///< what every other call gives
int made = 0;
int destroyed = 0;

kx::BridgeParser* anyParser() { return reinterpret_cast<kx::BridgeParser*>(&made); }

BridgeResult text(TextReceiver const& receiver) {
    BridgeResult const taken = receiver.receive(receiver.target, u"text");
    return taken == BridgeResult::done ? next : taken;
}

/// Three rows, of which the library leaves out the second.
BridgeResult table(TableReceiver const& receiver) {
    char16_t const* const cells[] = {u"name", u"description", u"example"};
    receiver.begin(receiver.target, 3);
    receiver.row(receiver.target, 0, cells, 3);
    receiver.row(receiver.target, 2, cells, 3);
    return next;
}

BridgeResult stored(bool& flag) {
    flag = true;
    return next;
}

kx::Bridge const failing = {
    .create =
        [](void const*, void const*, kx::BridgeParser** parser) {
            if (creation != BridgeResult::done) return creation;
            ++made;
            *parser = anyParser();
            return BridgeResult::done;
        },
    .destroy = [](kx::BridgeParser* parser) { destroyed += parser == anyParser() ? 1 : 1000; },
    .initialize = [](kx::BridgeParser*) { return next; },
    .reset = [](kx::BridgeParser*) { return next; },
    .variableExist = [](kx::BridgeParser*, BridgeText const&,
                        bool& exists) { return stored(exists); },
    .getVariableType =
        [](kx::BridgeParser*, BridgeText const&, std::int32_t& type) {
            type = TYPE_OF_VAR_LONG;
            return next;
        },
    .addSetString = [](kx::BridgeParser*, BridgeText const&, BridgeText const&,
                       bool& flag) { return stored(flag); },
    .addSetLong = [](kx::BridgeParser*, BridgeText const&, std::int32_t,
                     bool& flag) { return stored(flag); },
    .addSetDouble = [](kx::BridgeParser*, BridgeText const&, double,
                       bool& flag) { return stored(flag); },
    .addSetBool = [](kx::BridgeParser*, BridgeText const&, bool,
                     bool& flag) { return stored(flag); },
    .parse = [](kx::BridgeParser*, BridgeText const&, TextReceiver const& error,
                std::int32_t&) { return text(error); },
    .execute = [](kx::BridgeParser*, std::int32_t, TextReceiver const&,
                  TextReceiver const& result) { return text(result); },
    .convert = [](BridgeText const&, TextReceiver const& result) { return text(result); },
    .extractVariable = [](void const*, void const*, BridgeText const&, TextReceiver const&,
                          TableReceiver const& names) { return table(names); },
    .documentationOnePage = [](bool, bool, TextReceiver const& result) { return text(result); },
    .documentationManyPages = [](TableReceiver const& pages) { return table(pages); },
    .catalogue = [](kx::BridgeCatalogue, TableReceiver const& records) { return table(records); },
};

HRESULT create(Parser& parser) {
    Pointer<IClassFactory> factory;
    CHECK_EQUAL(S_OK,
                theModule.getClassObject(CLSID_KxJsParserX, IID_IClassFactory, factory.putVoid()));
    return factory->CreateInstance(nullptr, IID_IKxJsParserX, parser.putVoid());
}

Parser created() {
    creation = BridgeResult::done;
    next = BridgeResult::done;
    Parser parser;
    CHECK_EQUAL(S_OK, create(parser));
    return parser;
}

void constructionThatFailsLeavesNothing() {
    made = 0;
    destroyed = 0;
    Parser parser;
    creation = BridgeResult::outOfMemory;
    CHECK_EQUAL(E_OUTOFMEMORY, create(parser));
    CHECK(!parser);
    creation = BridgeResult::failed;
    CHECK_EQUAL(E_FAIL, create(parser));
    CHECK(!parser);
    CHECK_EQUAL(0, destroyed);  // there was nothing to destroy
    CHECK_EQUAL(S_OK, theModule.canUnloadNow());
    {
        Parser const whole = created();
        CHECK_EQUAL(S_FALSE, theModule.canUnloadNow());
    }
    CHECK_EQUAL(1, made);
    CHECK_EQUAL(1, destroyed);
    CHECK_EQUAL(S_OK, theModule.canUnloadNow());
}

/// Calls every method and checks its outcome; results must stay as they are where it is a failure.
void callEverything(Parser const& parser, HRESULT expected) {
    Bstr const name(L"A");
    VARIANT_BOOL flag = 77;
    VARIANT_BOOL const flagAfter = FAILED(expected) ? 77 : VARIANT_TRUE;
    CHECK_EQUAL(expected, parser->initialize());
    CHECK_EQUAL(expected, parser->reset());
    CHECK_EQUAL(expected, parser->variableExist(name, &flag));
    CHECK_EQUAL(flagAfter, flag);
    auto type = static_cast<TypeOfVariable>(77);
    CHECK_EQUAL(expected, parser->getVariableType(name, &type));
    CHECK_EQUAL(FAILED(expected) ? 77 : TYPE_OF_VAR_LONG, static_cast<int>(type));
    flag = 77;
    CHECK_EQUAL(expected, parser->addSetVariableString(name, name, &flag));
    CHECK_EQUAL(flagAfter, flag);
    flag = 77;
    CHECK_EQUAL(expected, parser->addSetVariableLong(name, 1, &flag));
    CHECK_EQUAL(flagAfter, flag);
    flag = 77;
    CHECK_EQUAL(expected, parser->addSetVariableDouble(name, 1.5, &flag));
    CHECK_EQUAL(flagAfter, flag);
    flag = 77;
    CHECK_EQUAL(expected, parser->addSetVariableBool(name, VARIANT_TRUE, &flag));
    CHECK_EQUAL(flagAfter, flag);

    Bstr error;
    Bstr result;
    LONG index = 77;
    CHECK_EQUAL(expected, parser->parse(name, error.put(), &index));
    CHECK_EQUAL(FAILED(expected), error.isNull());
    CHECK_EQUAL(FAILED(expected) ? 77 : -1, index);
    CHECK_EQUAL(expected, parser->execute(0, error.put(), result.put()));
    CHECK_EQUAL(FAILED(expected), error.isNull());
    CHECK_EQUAL(FAILED(expected), result.isNull());
    CHECK_EQUAL(expected, parser->convert(name, result.put()));
    CHECK_EQUAL(FAILED(expected), result.isNull());
    CHECK_EQUAL(expected,
                parser->getUserDocumentationOnePage(VARIANT_TRUE, VARIANT_TRUE, result.put()));
    CHECK_EQUAL(FAILED(expected), result.isNull());

    INT count = 0;
    Variant names;
    CHECK_EQUAL(expected, parser->extractVariable(name, error.put(), &names));
    CHECK_EQUAL(FAILED(expected) ? VT_EMPTY : VT_ARRAY | VT_BSTR, names.vt);
    for (auto const method : {&IKxJsParserX::getMathFunctions, &IKxJsParserX::getStringFunctions,
                              &IKxJsParserX::getOtherFunctions}) {
        Variant array;
        CHECK_EQUAL(expected, (parser.get()->*method)(&array, &count));
        CHECK_EQUAL(FAILED(expected) ? VT_EMPTY : VT_ARRAY | VT_BSTR, array.vt);
    }
}

void failuresOfCallsAreTold() {
    Parser const parser = created();
    callEverything(parser, S_OK);
    next = BridgeResult::outOfMemory;
    callEverything(parser, E_OUTOFMEMORY);
    next = BridgeResult::failed;
    callEverything(parser, E_FAIL);
}

void recordsThatAreLeftOutAreEmptyRows() {
    Parser const parser = created();
    INT count = 0;
    Variant array;
    CHECK_EQUAL(S_OK, parser->getMathFunctions(&array, &count));
    CHECK_SHAPE(array, 3, 3);
    CHECK_EQUAL(L"name", element(array, {0, 0}).value_or(L"(null)"));
    for (LONG column = 0; column < 3; ++column) {
        CHECK(!element(array, {1, column}).has_value());
    }
    CHECK_EQUAL(L"example", element(array, {2, 2}).value_or(L"(null)"));
}

}  // namespace

HRESULT kx::loadBridge(Bridge const** bridge) {
    *bridge = &failing;
    return S_OK;
}

int main() {
    Apartment const apartment;
    return runCases(
        {{"construction that fails leaves nothing", constructionThatFailsLeavesNothing},
         {"failures of calls are told", failuresOfCallsAreTold},
         {"records that are left out are empty rows", recordsThatAreLeftOutAreEmptyRows}});
}
