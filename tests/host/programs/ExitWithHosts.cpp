// Leaves the process by exit() while hosts are alive on several threads. The argument says which
// thread calls it: "main" or "other".
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>

#include "host/KxJsParser.h"

namespace {

std::atomic<int> ready = 0;

KxJsParser* makeHost() {
    auto* const host = new KxJsParser;
    host->initialize();
    host->addSetVariable(KxJsVariable(u"A", 5));
    std::u16string error;
    if (host->execute(host->parse(u"A+1", error), error) == u"6") ++ready;
    return host;
}

void waitForEver() {
    for (;;) std::this_thread::sleep_for(std::chrono::hours(1));
}

[[noreturn]] void leave() {
    while (ready < 2) std::this_thread::yield();
    std::exit(0);
}

}  // namespace

int main(int argumentCount, char** arguments) {
    bool const fromMain = argumentCount > 1 && std::strcmp(arguments[1], "main") == 0;
    KxJsParser* const kept = makeHost();
    static KxJsParser staticHost;
    std::thread([fromMain] {
        KxJsParser* const mine = makeHost();
        if (!fromMain) leave();
        waitForEver();
        delete mine;
    }).detach();
    if (fromMain) leave();
    waitForEver();
    delete kept;
}
