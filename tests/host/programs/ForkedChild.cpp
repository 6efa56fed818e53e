// Forks while hosts are alive. In the child, where V8's memory is missing, hosts must be
// harmless, and it must leave the process as any other: by exit(), or by returning from main, as
// the argument says. The parent's hosts must work on.
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <memory>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include "columns/KxJsColumns.h"
#include "host/KxJsParser.h"

namespace {

std::u16string run(KxJsParser& host, char16_t const* source) {
    std::u16string error;
    std::int32_t const index = host.parse(source, error);
    return index == -1 ? u"not parsed" : host.execute(index, error);
}

std::unique_ptr<KxJsParser> makeHost() {
    auto host = std::make_unique<KxJsParser>();
    host->initialize();
    host->setTimeLimit(std::chrono::seconds(10));
    host->addSetVariable(KxJsVariable(u"A", 5));
    return host;
}

bool isHarmless(KxJsParser& host) {
    std::u16string error;
    bool const isRefused = host.parse(u"A+2", error) == -1 && host.execute(0, error).empty() &&
                           !error.empty() && host.evaluate(u"1", error).empty();
    host.addSetVariable(KxJsVariable(u"B", u"text"));
    host.setTimeLimit(std::chrono::seconds(1));
    host.setMemoryLimit(0);
    host.terminate();
    host.initialize();
    host.reset();
    return isRefused;
}

int useInChild(KxJsParser& parents, std::unique_ptr<KxJsParser> other, KxJsColumns& columns) {
    double result = 1;
    bool isGood = columns.evaluate(1, &result).records == 0;
    isGood = isHarmless(parents) && isGood;
    other.reset();
    auto const mine = makeHost();
    isGood = isHarmless(*mine) && isGood;
    std::u16string error;
    isGood = KxJsParser::_extractVariable(u"Q", error, std::chrono::seconds(1)).empty() && isGood;
    isGood = !error.empty() && isGood;
    return isGood ? 0 : 1;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    static KxJsParser staticHost;
    std::unique_ptr<KxJsParser> const host = makeHost();
    std::unique_ptr<KxJsParser> other = makeHost();
    if (run(*host, u"A+1") != u"6" || run(staticHost, u"1+1") != u"2") return 1;
    KxJsColumns columns(*host);
    double const value = 1;
    columns.bind(u"C", &value);
    std::u16string error;
    if (!columns.compile(u"C+1", error)) return 1;

    pid_t const child = ::fork();
    if (child == 0) {
        int const status = useInChild(*host, std::move(other), columns);
        if (argumentCount > 1 && std::strcmp(arguments[1], "exit") == 0) std::exit(status);
        return status;
    }
    int status = 0;
    if (child == -1 || ::waitpid(child, &status, 0) != child) return 1;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        std::cerr << "the child ended with " << status << std::endl;
        return 1;
    }
    return run(*host, u"A+2") == u"7" ? 0 : 1;
}
