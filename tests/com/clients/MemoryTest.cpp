// Failing allocations: E_OUTOFMEMORY, nothing half done, nothing left behind. The allocation
// functions are replaced in the import table of the server itself.

#include <functional>
#include <memory>
#include <string>
#include <vector>
#include <windows.h>

#include "support/ArrayReader.h"
#include "support/Check.h"
#include "support/Com.h"
#include "support/ImportHook.h"
#include "support/LateBinding.h"
#include "support/Server.h"

using namespace test;

namespace {

constexpr int never = 0;

int allocations = 0;  ///< since the last start of counting
int failingAllocation = never;
int stores = 0;
int failingStore = never;
int alive = 0;  ///< texts and arrays that the server made and did not free

bool mayAllocate() { return ++allocations != failingAllocation; }

BSTR WINAPI allocateText(OLECHAR const* text) {
    if (!mayAllocate()) return nullptr;
    ++alive;
    return SysAllocString(text);
}

void WINAPI freeText(BSTR text) {
    if (text != nullptr) --alive;
    SysFreeString(text);
}

SAFEARRAY* WINAPI createArray(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds) {
    if (!mayAllocate()) return nullptr;
    ++alive;
    return SafeArrayCreate(type, dimensions, bounds);
}

HRESULT WINAPI destroyArray(SAFEARRAY* array) {
    --alive;
    return SafeArrayDestroy(array);
}

HRESULT WINAPI putElement(SAFEARRAY* array, LONG* indices, void* element) {
    return ++stores == failingStore ? E_OUTOFMEMORY : SafeArrayPutElement(array, indices, element);
}

void* refuse(std::size_t) { return nullptr; }

std::unique_ptr<Server> server;

struct Hooks {
    ImportHook text = hook("SysAllocString", &allocateText);
    ImportHook textEnd = hook("SysFreeString", &freeText);
    ImportHook array = hook("SafeArrayCreate", &createArray);
    ImportHook arrayEnd = hook("SafeArrayDestroy", &destroyArray);
    ImportHook element = hook("SafeArrayPutElement", &putElement);

    template <class Function>
    static ImportHook hook(char const* name, Function* replacement) {
        return {server->module(), "OLEAUT32.dll", name, reinterpret_cast<void*>(replacement)};
    }
};

/// Makes the call fail at each of its allocations in turn, then lets it succeed. `results` is how
/// many texts and arrays a call that succeeds hands over.
void checkEachFailure(std::function<HRESULT()> const& call, int results) {
    Hooks const hooks;
    int failing = 0;
    HRESULT outcome = E_OUTOFMEMORY;
    while (outcome == E_OUTOFMEMORY && failing < 1000) {
        failingAllocation = ++failing;
        allocations = 0;
        alive = 0;
        outcome = call();
        CHECK_EQUAL(outcome == E_OUTOFMEMORY ? 0 : results, alive);
    }
    failingAllocation = never;
    CHECK_EQUAL(S_OK, outcome);
    CHECK(failing > 1);  // some allocation did fail
}

/// A text result that must be null after a failure, whatever it was before.
class CheckedText {
  public:
    BSTR* put() {
        SysFreeString(text_);
        text_ = reinterpret_cast<BSTR>(0x77);
        return &text_;
    }
    HRESULT check(HRESULT outcome) {
        CHECK_EQUAL(FAILED(outcome), text_ == nullptr);
        return outcome;
    }
    ~CheckedText() { SysFreeString(text_); }

  private:
    BSTR text_ = nullptr;
};

Parser parser() {
    Pointer<IClassFactory> factory;
    server->getClassObject(CLSID_KxJsParserX, IID_IClassFactory, factory.putVoid());
    Parser result;
    CHECK_EQUAL(S_OK, factory->CreateInstance(nullptr, IID_IKxJsParserX, result.putVoid()));
    return result;
}

void parsingStoresNothing() {
    Parser const object = parser();
    Bstr const source(L"1+1");
    LONG index = -2;
    CheckedText error;
    checkEachFailure(
        [&] {
            index = -2;
            HRESULT const outcome = object->parse(source, error.put(), &index);
            CHECK_EQUAL(FAILED(outcome) ? -2 : 0, index);  // the first that succeeds is the first
            return error.check(outcome);
        },
        1);
}

void parsingWrongSources() {
    Parser const object = parser();
    Bstr const source(L"1+");
    LONG index = -2;
    CheckedText error;
    checkEachFailure([&] { return error.check(object->parse(source, error.put(), &index)); }, 1);
    CHECK_EQUAL(-1, index);
}

void executing() {
    Parser const object = parser();
    LONG const index = parse(object, L"0/0").index;  // has both a result and an error text
    CheckedText error;
    CheckedText result;
    checkEachFailure(
        [&] {
            HRESULT const outcome = object->execute(index, error.put(), result.put());
            return result.check(error.check(outcome));
        },
        2);
}

void converting() {
    Parser const object = parser();
    CheckedText script;
    checkEachFailure([&] { return script.check(object->convert(Bstr(L"A<>B"), script.put())); }, 1);
}

void documentingOnOnePage() {
    Parser const object = parser();
    CheckedText page;
    checkEachFailure(
        [&] { return page.check(object->getUserDocumentationOnePage(0, 0, page.put())); }, 1);
}

/// An array result, which a failed call must leave as it was.
HRESULT checkArray(std::function<HRESULT(VARIANT*)> const& call) {
    VARIANT array;
    array.vt = VT_I4;
    array.lVal = 77;
    HRESULT const outcome = call(&array);
    if (FAILED(outcome)) {
        CHECK_EQUAL(VT_I4, array.vt);
        CHECK_EQUAL(77, array.lVal);
    } else {
        CHECK_EQUAL(0x2008, array.vt);
        VariantClear(&array);
    }
    return outcome;
}

void documentingOnManyPages() {
    Parser const object = parser();
    checkEachFailure(
        [&] {
            return checkArray(
                [&](VARIANT* array) { return object->getUserDocumentationManyPages(array); });
        },
        1);
}

void listingCatalogues() {
    Parser const object = parser();
    INT count = 0;
    for (auto const method : {&IKxJsParserX::getMathFunctions, &IKxJsParserX::getStringFunctions,
                              &IKxJsParserX::getOtherFunctions}) {
        checkEachFailure(
            [&] {
                return checkArray(
                    [&](VARIANT* array) { return (object.get()->*method)(array, &count); });
            },
            1);
    }
}

void extracting() {
    Parser const object = parser();
    for (wchar_t const* source : {L"A+B", L"1+"}) {
        CheckedText error;
        checkEachFailure(
            [&] {
                return error.check(checkArray([&](VARIANT* array) {
                    return object->extractVariable(Bstr(source), error.put(), array);
                }));
            },
            2);
    }
}

void elementsThatCannotBeStoredStayEmpty() {
    Parser const object = parser();
    Hooks const hooks;
    INT count = 0;
    Variant array;
    stores = 0;
    failingStore = 2;  // the description of the first record
    CHECK_EQUAL(S_OK, object->getMathFunctions(&array, &count));
    failingStore = never;
    CHECK_EQUAL(L"ROUND", element(array, {0, 0}).value_or(L""));
    CHECK(!element(array, {0, 1}).has_value());
    CHECK(element(array, {0, 2}).has_value());
    CHECK_EQUAL(L"EXP", element(array, {13, 0}).value_or(L""));
}

void lateCallsReportIt() {
    Parser const object = parser();
    Dispatch late;
    object->QueryInterface(IID_IDispatch, late.putVoid());
    Hooks const hooks;
    Bstr const source(L"1+1");
    Variant variable;
    variable.vt = VT_BSTR;
    variable.bstrVal = SysAllocString(L"kept");
    std::vector<VARIANT> arguments = {variableArgument(variable), argument(source)};
    DISPPARAMS parameters = {arguments.data(), nullptr, 2, 0};
    EXCEPINFO exception = {};
    Variant result;
    allocations = 0;
    alive = 0;
    failingAllocation = 1;
    CHECK_EQUAL(DISP_E_EXCEPTION, late->Invoke(4, IID_NULL, 0x409, DISPATCH_METHOD, &parameters,
                                               &result, &exception, nullptr));
    failingAllocation = never;
    CHECK_EQUAL(E_OUTOFMEMORY, exception.scode);
    CHECK_EQUAL(L"kept", std::wstring(variable.bstrVal));
    CHECK_EQUAL(0, alive);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
}

void creationWithoutMemory() {
    Server const fresh(serverPath());
    Pointer<IClassFactory> factory;
    CHECK_EQUAL(S_OK,
                fresh.getClassObject(CLSID_KxJsParserX, IID_IClassFactory, factory.putVoid()));
    {
        ImportHook const hook(fresh.module(), "msvcrt.dll", "malloc",
                              reinterpret_cast<void*>(&refuse));
        void* object = server.get();
        CHECK_EQUAL(E_OUTOFMEMORY, factory->CreateInstance(nullptr, IID_IKxJsParserX, &object));
        CHECK(object == nullptr);
    }
    factory.release();
    CHECK_EQUAL(S_OK, fresh.canUnloadNow());
}

/// The first request for the factory makes it; a failure there is a class that is not available.
void factoryWithoutMemory() {
    server.reset();
    CHECK(GetModuleHandleW(L"KxJsParser.dll") == nullptr);
    server = std::make_unique<Server>(serverPath());
    void* factory = server.get();
    {
        ImportHook const hook(server->module(), "msvcrt.dll", "malloc",
                              reinterpret_cast<void*>(&refuse));
        CHECK_EQUAL(CLASS_E_CLASSNOTAVAILABLE,
                    server->getClassObject(CLSID_KxJsParserX, IID_IClassFactory, &factory));
        CHECK(factory == nullptr);
    }
    CHECK_EQUAL(L"2", evaluate(parser(), L"1+1"));
}

}  // namespace

int main() {
    Apartment const apartment;
    server = std::make_unique<Server>(serverPath());
    return runCases(
        {{"parsing stores nothing", parsingStoresNothing},
         {"parsing wrong sources", parsingWrongSources},
         {"executing", executing},
         {"converting", converting},
         {"documenting on one page", documentingOnOnePage},
         {"documenting on many pages", documentingOnManyPages},
         {"listing catalogues", listingCatalogues},
         {"extracting", extracting},
         {"elements that cannot be stored stay empty", elementsThatCannotBeStoredStayEmpty},
         {"late calls report it", lateCallsReportIt},
         {"creation without memory", creationWithoutMemory},
         {"factory without memory", factoryWithoutMemory}});
}
