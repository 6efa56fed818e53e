// A client that leaves with objects alive; the test is that the process ends, and without a
// crash.
//
//   LeavingClient SERVER return|uninitialize|static|running

#include <cstdio>
#include <string>
#include <windows.h>

#include "support/Com.h"
#include "support/Server.h"
#include "support/Thread.h"

using namespace test;

namespace {

/// Released when the program's static objects go, after main().
Parser late;

/// Creates an object and gives away its only reference.
void leaveOne() {
    Parser const parser = createInitializedParser();
    if (evaluate(parser, L"LEN('ABC')") != L"3") std::abort();
    parser->AddRef();
}

/// Ends the process while another thread is inside a script that never ends.
[[noreturn]] void leaveRunning() {
    HANDLE started = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    Thread const thread([started] {
        Apartment const apartment;
        Parser const parser = createInitializedParser();
        SetEvent(started);
        evaluate(parser, L"for (;;) {}");
    });
    WaitForSingleObject(started, INFINITE);
    Sleep(200);
    ExitProcess(0);
}

}  // namespace

int main(int count, char** arguments) {
    std::string const way = count > 2 ? arguments[2] : "";
    registerServer();
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    leaveOne();
    std::printf("leaving by %s\n", way.c_str());
    std::fflush(stdout);
    if (way == "return") return 0;
    if (way == "uninitialize") {
        CoUninitialize();
        return 0;
    }
    if (way == "static") {
        late = createInitializedParser();
        return 0;
    }
    if (way == "running") leaveRunning();
    return 2;
}
