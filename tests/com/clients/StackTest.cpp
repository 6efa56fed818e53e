// Endless recursion in a script ends as an error text, whatever the thread's stack.

#include <string>
#include <windows.h>

#include "support/Check.h"
#include "support/Com.h"
#include "support/Server.h"
#include "support/Thread.h"

using namespace test;

namespace {

constexpr SIZE_T kilobyte = 1024;

void checkRecursionEnds(Parser const& parser) {
    for (wchar_t const* source :
         {L"(function f() { return f() + 1; })()",
          L"var o = {toString: function() { return '' + this; }}; '' + o",
          L"var s = '['.repeat(200000); JSON.parse(s)",
          L"new RegExp('('.repeat(200000) + ')'.repeat(200000)).test('x')"}) {
        std::wstring const outcome = evaluate(parser, source);
        CHECK_EQUAL(L"<Error in line: 1\r\n", outcome.substr(0, 19));
    }
    std::wstring const outcome = evaluate(parser, L"(function f() { return f() + 1; })()");
    CHECK(outcome.find(L"RangeError: Maximum call stack size exceeded") != std::wstring::npos);
    CHECK_EQUAL(L"3", evaluate(parser, L"LEN('ABC')"));  // and the object works on
}

void checkThread(SIZE_T stackSize) {
    Thread(
        [] {
            Apartment const apartment;
            checkRecursionEnds(createInitializedParser());
        },
        stackSize)
        .join();
}

void smallestStack() { checkThread(64 * kilobyte); }
void ordinaryStack() { checkThread(0); }
void largeStack() { checkThread(64 * kilobyte * kilobyte); }

void mainThread() {
    Apartment const apartment;
    checkRecursionEnds(createInitializedParser());
}

/// The object lives in a thread that the COM library made for it.
void threadOfTheSystem() {
    Thread([] {
        Apartment const apartment(COINIT_MULTITHREADED);
        checkRecursionEnds(createInitializedParser());
    }).join();
}

void extraction() {
    Thread(
        [] {
            Apartment const apartment;
            Parser const parser = createParser();
            Bstr error;
            Variant names;
            CHECK_EQUAL(S_OK,
                        parser->extractVariable(Bstr(L"X + (function f() { return f() + 1; })()"),
                                                error.put(), &names));
            CHECK_EQUAL(L"", error.text());
            LONG last = -2;
            SafeArrayGetUBound(names.parray, 1, &last);
            CHECK_EQUAL(0, last);  // X, then the recursion, which is no missing name
        },
        64 * kilobyte)
        .join();
}

}  // namespace

int main() {
    registerServer();
    return runCases({{"the smallest stack", smallestStack},
                     {"an ordinary stack", ordinaryStack},
                     {"a large stack", largeStack},
                     {"the main thread", mainThread},
                     {"a thread of the system", threadOfTheSystem},
                     {"extraction", extraction}});
}
