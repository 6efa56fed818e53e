// Apartments: each thread with an isolate of its own, and calls from other threads' apartments.

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>
#include <windows.h>

#include "support/ArrayReader.h"
#include "support/Check.h"
#include "support/Com.h"
#include "support/LateBinding.h"
#include "support/Server.h"
#include "support/Thread.h"

using namespace test;

namespace {

void work(int number, int rounds) {
    Apartment const apartment;
    Parser const parser = createInitializedParser();
    VARIANT_BOOL stored = VARIANT_FALSE;
    parser->addSetVariableLong(Bstr(L"N"), number, &stored);
    LONG const script = parse(parser, L"N * LEN('ABC')").index;
    std::wstring const expected = std::to_wstring(3 * number);
    int wrong = 0;
    for (int round = 0; round < rounds; ++round) {
        if (execute(parser, script).result.text() != expected) ++wrong;
    }
    CHECK_EQUAL(0, wrong);
}

void apartmentsWorkAtOnce() {
    std::vector<Thread> threads;
    threads.reserve(8);
    for (int number = 1; number <= 8; ++number) {
        threads.emplace_back([number] { work(number, 2000); });
    }
}

void threadsComeAndGo() {
    for (int round = 0; round < 40; ++round) {
        Thread const one([] { work(1, 5); });
        Thread const other([] { work(2, 5); });
    }
}

void factoriesAreMadeOnce() {
    Server const server(serverPath());
    std::vector<IClassFactory*> factories(8);
    {
        std::vector<Thread> threads;
        threads.reserve(factories.size());
        for (IClassFactory*& factory : factories) {
            threads.emplace_back([&] {
                void* result = nullptr;
                server.getClassObject(CLSID_KxJsParserX, IID_IClassFactory, &result);
                factory = static_cast<IClassFactory*>(result);
            });
        }
    }
    for (IClassFactory* const factory : factories) {
        CHECK(factory != nullptr);
        CHECK(factory == factories.front());
        if (factory != nullptr) factory->Release();
    }
    CHECK_EQUAL(S_OK, server.canUnloadNow());
}

void objectsMayOutliveTheirThread() {
    for (int round = 0; round < 10; ++round) {
        Parser left;
        Thread([&] {
            Apartment const apartment;
            left = createInitializedParser();
            CHECK_EQUAL(L"2", evaluate(left, L"1+1"));
        }).join();
        left.release();
    }
    work(7, 1);
}

void objectsMayBeForgottenByTheirThread() {
    for (int round = 0; round < 10; ++round) {
        Thread([] {
            Apartment const apartment;
            Parser const parser = createInitializedParser();
            parser->AddRef();  // and never released
            CHECK_EQUAL(L"2", evaluate(parser, L"1+1"));
        }).join();
    }
    work(7, 1);
}

void multithreadedApartmentsCreate() {
    Thread([] {
        Apartment const apartment(COINIT_MULTITHREADED);
        Parser const parser = createInitializedParser();
        CHECK_EQUAL(L"3", evaluate(parser, L"LEN('ABC')"));
        CHECK_EQUAL(L"Error in line: 1\r\n", parse(parser, L"1+").error.text().substr(0, 18));
        Variant pages;
        CHECK_EQUAL(S_OK, parser->getUserDocumentationManyPages(&pages));
        CHECK_SHAPE(pages, 63, 2);
        CHECK_EQUAL(L"LISTFUNCT", element(pages, {62, 0}).value_or(L""));
    }).join();
}

void multithreadedApartmentsCallLate() {
    Thread([] {
        Apartment const apartment(COINIT_MULTITHREADED);
        Dispatch const parser = createLateParser();
        Bstr const source(L"6*7");
        BSTR error = nullptr;
        Variant result;
        CHECK_EQUAL(S_OK,
                    call(parser, L"parse", {argument(source), textReference(error)}, &result));
        CHECK_EQUAL(0, result.lVal);
        SysFreeString(error);
        error = nullptr;
        CHECK_EQUAL(S_OK, call(parser, L"execute", {argument(0L), textReference(error)}, &result));
        CHECK_EQUAL(L"42", std::wstring(result.bstrVal));
        SysFreeString(error);
    }).join();
}

/// The apartment of the object runs the calls one after the other.
void threadsOfOneApartmentShareAnObject() {
    Thread([] {
        Apartment const apartment(COINIT_MULTITHREADED);
        Parser const parser = createInitializedParser();
        parse(parser, L"this.calls = (this.calls || 0) + 1");
        {
            std::vector<Thread> threads;
            threads.reserve(4);
            for (int i = 0; i < 4; ++i) {
                threads.emplace_back([&parser] {
                    Apartment const same(COINIT_MULTITHREADED);
                    for (int call = 0; call < 50; ++call) execute(parser, 0);
                });
            }
        }
        CHECK_EQUAL(L"200", evaluate(parser, L"calls"));
    }).join();
}

/// Waits for the thread as an apartment does that others call.
void waitAndServe(HANDLE event) {
    DWORD index = 0;
    HRESULT const outcome = CoWaitForMultipleHandles(0, 60000, 1, &event, &index);
    CHECK_EQUAL(S_OK, outcome);
}

void apartmentsCallEachOther() {
    Thread([] {
        Apartment const apartment;
        Parser const parser = createInitializedParser();
        IStream* stream = nullptr;
        CHECK_EQUAL(S_OK,
                    CoMarshalInterThreadInterfaceInStream(IID_IKxJsParserX, parser.get(), &stream));
        HANDLE done = CreateEventW(nullptr, TRUE, FALSE, nullptr);
        Thread const caller([&] {
            // Also when it fails: the other thread waits.
            std::unique_ptr<void, BOOL (*)(void*)> const end(
                done, [](void* event) { return SetEvent(event); });
            {
                Apartment const other;
                Parser proxy;
                CHECK_EQUAL(S_OK, CoGetInterfaceAndReleaseStream(stream, IID_IKxJsParserX,
                                                                 proxy.putVoid()));
                if (!proxy) throw std::runtime_error("no proxy");
                CHECK(proxy.get() != parser.get());
                CHECK_EQUAL(L"3", evaluate(proxy, L"LEN('ABC')"));
            }
        });
        waitAndServe(done);
        CloseHandle(done);
    }).join();
}

}  // namespace

int main() {
    registerServer();
    return runCases(
        {{"factories are made once", factoriesAreMadeOnce},
         {"apartments work at once", apartmentsWorkAtOnce},
         {"threads come and go", threadsComeAndGo},
         {"objects may outlive their thread", objectsMayOutliveTheirThread},
         {"objects may be forgotten by their thread", objectsMayBeForgottenByTheirThread},
         {"multithreaded apartments create", multithreadedApartmentsCreate},
         {"multithreaded apartments call late", multithreadedApartmentsCallLate},
         {"threads of one apartment share an object", threadsOfOneApartmentShareAnObject},
         {"apartments call each other", apartmentsCallEachOther}});
}
