// The module from outside: class objects, counting, aggregation, instance creation.

#include <memory>
#include <windows.h>

#include "support/Check.h"
#include "support/Com.h"
#include "support/Server.h"

using namespace test;

namespace {

std::unique_ptr<Server> server;

constexpr GUID unknownId = {0x12345678, 0x1234, 0x1234, {1, 2, 3, 4, 5, 6, 7, 8}};

Pointer<IClassFactory> factory() {
    Pointer<IClassFactory> result;
    CHECK_EQUAL(S_OK,
                server->getClassObject(CLSID_KxJsParserX, IID_IClassFactory, result.putVoid()));
    return result;
}

void classObjectsAreFactories() {
    for (GUID const& iid : {IID_IClassFactory, IID_IUnknown}) {
        Pointer<IUnknown> result;
        CHECK_EQUAL(S_OK, server->getClassObject(CLSID_KxJsParserX, iid, result.putVoid()));
        CHECK(result);
    }
}

void thereIsOneFactory() {
    Pointer<IClassFactory> const one = factory();
    Pointer<IClassFactory> const other = factory();
    CHECK(one.get() == other.get());
}

void unknownClassesAreNotAvailable() {
    void* result = server.get();
    CHECK_EQUAL(CLASS_E_CLASSNOTAVAILABLE,
                server->getClassObject(unknownId, IID_IClassFactory, &result));
    CHECK(result == nullptr);
    // One byte off, in each place.
    for (std::size_t i = 0; i < sizeof(GUID); ++i) {
        GUID similar = CLSID_KxJsParserX;
        reinterpret_cast<BYTE*>(&similar)[i] ^= 1;
        CHECK_EQUAL(CLASS_E_CLASSNOTAVAILABLE,
                    server->getClassObject(similar, IID_IClassFactory, &result));
    }
}

void otherInterfacesOfTheFactoryAreNotAvailable() {
    void* result = server.get();
    CHECK_EQUAL(CLASS_E_CLASSNOTAVAILABLE,
                server->getClassObject(CLSID_KxJsParserX, IID_IDispatch, &result));
    CHECK(result == nullptr);
    CHECK_EQUAL(S_OK, server->canUnloadNow());
}

void classObjectsNeedAPlace() {
    CHECK_EQUAL(CLASS_E_CLASSNOTAVAILABLE,
                server->getClassObject(CLSID_KxJsParserX, IID_IClassFactory, nullptr));
    CHECK_EQUAL(S_OK, server->canUnloadNow());
}

void heldFactoriesLockTheModule() {
    CHECK_EQUAL(S_OK, server->canUnloadNow());
    Pointer<IClassFactory> one = factory();
    CHECK_EQUAL(S_FALSE, server->canUnloadNow());
    Pointer<IClassFactory> other = factory();
    other.release();
    CHECK_EQUAL(S_FALSE, server->canUnloadNow());
    CHECK_EQUAL(1, one.get()->AddRef() - 2);  // the module's own reference is the first
    CHECK_EQUAL(2, one.get()->Release());
    one.release();
    CHECK_EQUAL(S_OK, server->canUnloadNow());
}

void objectsLockTheModule() {
    Pointer<IClassFactory> maker = factory();
    Parser one;
    Parser other;
    CHECK_EQUAL(S_OK, maker->CreateInstance(nullptr, IID_IKxJsParserX, one.putVoid()));
    CHECK_EQUAL(S_OK, maker->CreateInstance(nullptr, IID_IKxJsParserX, other.putVoid()));
    maker.release();
    CHECK_EQUAL(S_FALSE, server->canUnloadNow());
    one.release();
    CHECK_EQUAL(S_FALSE, server->canUnloadNow());
    other.release();
    CHECK_EQUAL(S_OK, server->canUnloadNow());
}

void serverLocksCount() {
    Pointer<IClassFactory> maker = factory();
    CHECK_EQUAL(S_OK, maker->LockServer(TRUE));
    CHECK_EQUAL(S_OK, maker->LockServer(TRUE));
    IClassFactory* const kept = maker.get();
    maker.release();
    CHECK_EQUAL(S_FALSE, server->canUnloadNow());
    CHECK_EQUAL(S_OK, kept->LockServer(FALSE));
    CHECK_EQUAL(S_FALSE, server->canUnloadNow());
    CHECK_EQUAL(S_OK, kept->LockServer(FALSE));
    CHECK_EQUAL(S_OK, server->canUnloadNow());
}

void creationNeedsAPlace() {
    CHECK_EQUAL(E_POINTER, factory()->CreateInstance(nullptr, IID_IUnknown, nullptr));
    CHECK_EQUAL(S_OK, server->canUnloadNow());
}

void creationOfUnknownInterfacesLeavesNothing() {
    void* result = server.get();
    CHECK_EQUAL(E_NOINTERFACE, factory()->CreateInstance(nullptr, unknownId, &result));
    CHECK(result == nullptr);
    CHECK_EQUAL(S_OK, server->canUnloadNow());
}

void factoriesHaveNoOtherInterfaces() {
    void* result = server.get();
    CHECK_EQUAL(E_NOINTERFACE, factory()->QueryInterface(IID_IDispatch, &result));
    CHECK(result == nullptr);
    CHECK_EQUAL(E_POINTER, factory()->QueryInterface(IID_IUnknown, nullptr));
}

void objectsHaveOneIdentity() {
    Parser object;
    CHECK_EQUAL(S_OK, factory()->CreateInstance(nullptr, IID_IKxJsParserX, object.putVoid()));
    Pointer<IUnknown> identity;
    Pointer<IUnknown> again;
    Pointer<IDispatch> dispatch;
    CHECK_EQUAL(S_OK, object->QueryInterface(IID_IUnknown, identity.putVoid()));
    CHECK_EQUAL(S_OK, object->QueryInterface(IID_IDispatch, dispatch.putVoid()));
    CHECK_EQUAL(S_OK, dispatch->QueryInterface(IID_IUnknown, again.putVoid()));
    CHECK(identity.get() == again.get());
    void* result = server.get();
    CHECK_EQUAL(E_NOINTERFACE, object->QueryInterface(IID_ISupportErrorInfo, &result));
    CHECK(result == nullptr);
    CHECK_EQUAL(E_POINTER, object->QueryInterface(IID_IUnknown, nullptr));
    CHECK_EQUAL(5, object->AddRef());
    CHECK_EQUAL(4, object->Release());
}

/// An object that offers the parser's interfaces as its own.
class Outer final : public IUnknown {
  public:
    ~Outer() {
        if (inner != nullptr) inner->Release();
    }
    STDMETHODIMP QueryInterface(REFIID riid, void** result) override {
        *result = nullptr;
        if (riid != IID_IUnknown) return inner->QueryInterface(riid, result);
        AddRef();
        *result = static_cast<IUnknown*>(this);
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }

    IUnknown* inner = nullptr;
    ULONG references = 0;
};

void aggregationGivesTheInnerIdentityAlone() {
    Outer outer;
    void* result = server.get();
    for (GUID const& iid : {IID_IDispatch, IID_IKxJsParserX, unknownId}) {
        CHECK_EQUAL(CLASS_E_NOAGGREGATION, factory()->CreateInstance(&outer, iid, &result));
        CHECK(result == nullptr);
        result = server.get();
    }
    CHECK_EQUAL(E_POINTER, factory()->CreateInstance(&outer, IID_IUnknown, nullptr));
    CHECK_EQUAL(0, outer.references);
    CHECK_EQUAL(S_OK, server->canUnloadNow());
}

void aggregatedObjectsBelongToTheOuterOne() {
    {
        Outer outer;
        CHECK_EQUAL(S_OK, factory()->CreateInstance(&outer, IID_IUnknown,
                                                    reinterpret_cast<void**>(&outer.inner)));
        CHECK_EQUAL(0, outer.references);  // an inner object does not hold its outer one
        CHECK_EQUAL(S_FALSE, server->canUnloadNow());
        {
            Parser parser;
            CHECK_EQUAL(S_OK, outer.QueryInterface(IID_IKxJsParserX, parser.putVoid()));
            CHECK_EQUAL(1, outer.references);
            Pointer<IUnknown> identity;
            CHECK_EQUAL(S_OK, parser->QueryInterface(IID_IUnknown, identity.putVoid()));
            CHECK(identity.get() == &outer);
            Pointer<IDispatch> dispatch;
            CHECK_EQUAL(S_OK, parser->QueryInterface(IID_IDispatch, dispatch.putVoid()));
            CHECK_EQUAL(3, outer.references);
            CHECK_EQUAL(L"2", evaluate(parser, L"1+1"));
        }
        CHECK_EQUAL(0, outer.references);
        Pointer<IUnknown> own;
        CHECK_EQUAL(S_OK, outer.inner->QueryInterface(IID_IUnknown, own.putVoid()));
        CHECK(own.get() == outer.inner);
        CHECK_EQUAL(0, outer.references);
    }
    CHECK_EQUAL(S_OK, server->canUnloadNow());
}

}  // namespace

int main() {
    Apartment const apartment;
    server = std::make_unique<Server>(serverPath());
    return runCases(
        {{"class objects are factories", classObjectsAreFactories},
         {"there is one factory", thereIsOneFactory},
         {"unknown classes are not available", unknownClassesAreNotAvailable},
         {"other interfaces of the factory are not available",
          otherInterfacesOfTheFactoryAreNotAvailable},
         {"class objects need a place", classObjectsNeedAPlace},
         {"held factories lock the module", heldFactoriesLockTheModule},
         {"objects lock the module", objectsLockTheModule},
         {"server locks count", serverLocksCount},
         {"creation needs a place", creationNeedsAPlace},
         {"creation of unknown interfaces leaves nothing",
          creationOfUnknownInterfacesLeavesNothing},
         {"factories have no other interfaces", factoriesHaveNoOtherInterfaces},
         {"objects have one identity", objectsHaveOneIdentity},
         {"aggregation gives the inner identity alone", aggregationGivesTheInnerIdentityAlone},
         {"aggregated objects belong to the outer one", aggregatedObjectsBelongToTheOuterOne}});
}
