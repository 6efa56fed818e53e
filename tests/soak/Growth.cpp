// Shows whether memory grows: repeats one kind of work and prints the process's resident memory
// after every tenth.
//
//     growth cycles 100000     bind, parse, execute, reset in one host
//     growth hosts 10000       make, initialize, use and destroy a host
//     growth threads 1000      the same on a thread of its own
#include <cstdlib>
#include <functional>
#include <iostream>
#include <string>
#include <string_view>
#include <thread>

#include "Resident.h"
#include "host/KxJsParser.h"

namespace {

void use(KxJsParser& host, long round) {
    host.addSetVariable(KxJsVariable(u"A", static_cast<std::int32_t>(round)));
    host.addSetVariable(KxJsVariable(u"S", u"some text"));
    std::u16string error;
    std::int32_t const index = host.parse(u"LEN(S)+A*2", error);
    std::u16string const result = host.execute(index, error);
    if (!error.empty() || result.empty()) {
        std::cerr << "round " << round << " failed\n";
        std::exit(1);
    }
}

void makeAndUse(long round) {
    KxJsParser host;
    host.initialize();
    use(host, round);
}

void repeat(long count, std::function<void(long)> const& work) {
    for (long i = 0; i < count; ++i) {
        if (i % (count / 10 == 0 ? 1 : count / 10) == 0) {
            std::cout << i << ": " << residentKilobytes() << " kB\n";
        }
        work(i);
    }
    std::cout << count << ": " << residentKilobytes() << " kB" << std::endl;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    std::string_view const kind = argumentCount == 3 ? arguments[1] : "";
    long const count = argumentCount == 3 ? std::strtol(arguments[2], nullptr, 10) : 0;
    if (count > 0 && kind == "cycles") {
        KxJsParser host;
        host.initialize();
        repeat(count, [&host](long round) {
            use(host, round);
            host.reset();
        });
    } else if (count > 0 && kind == "hosts") {
        repeat(count, makeAndUse);
    } else if (count > 0 && kind == "threads") {
        repeat(count, [](long round) { std::thread(makeAndUse, round).join(); });
    } else {
        std::cerr << "usage: growth cycles|hosts|threads COUNT\n";
        return 2;
    }
    return 0;
}
