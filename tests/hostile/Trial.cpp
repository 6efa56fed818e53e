#include "Trial.h"

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <memory>
#include <utility>

#include "convert/Converter.h"
#include "host/KxJsParser.h"
#include "support/HostKind.h"

namespace {

constexpr std::chrono::milliseconds kAmple{2000};

struct Answer {
    std::u16string result;
    std::u16string error;
};

std::string printable(std::u16string const& text) {
    std::string result;
    for (char16_t const unit : text.substr(0, 300)) {
        result += unit >= 0x20 && unit < 0x7F ? static_cast<char>(unit) : '.';
    }
    return result;
}

Answer run(KxJsParser& host, std::u16string const& source) {
    Answer answer;
    std::int32_t const index = host.parse(source, answer.error);
    if (index != -1) answer.result = host.execute(index, answer.error);
    return answer;
}

void print(std::string const& what, Answer const& answer) {
    std::cout << what << ": \"" << printable(answer.result) << "\", error \""
              << printable(answer.error) << '"' << std::endl;
}

bool isAsExpected(HostileScript const& script, Answer const& answer) {
    bool const isError = script.error ? answer.error.find(*script.error) != std::u16string::npos
                                      : answer.error.empty();
    if (script.beginOfResult) return answer.result.starts_with(*script.beginOfResult) && isError;
    return answer.result == script.result.value_or(u"") && isError;
}

bool works(KxJsParser& host, std::string const& what) {
    host.addSetVariable(KxJsVariable(u"NEXT", 5));
    Answer const sum = run(host, u"1+1");
    Answer const formula = run(host, Converter::_convert(u"IIF(NEXT>2,'OK','KO')"));
    bool const isRight =
        sum.result == u"2" && sum.error.empty() && formula.result == u"OK" && formula.error.empty();
    if (!isRight) {
        print("1+1 in " + what, sum);
        print("IIF in " + what, formula);
    }
    return isRight;
}

bool otherHostsWork() {
    // In process, hosts share the thread's isolate; isolated hosts share the application only, so
    // one of them stands for the others and outlives all scripts.
    if (areHostsIsolated()) {
        static std::unique_ptr<KxJsParser> const other = [] {
            auto host = std::make_unique<KxJsParser>(testIsolation());
            host->initialize();
            return host;
        }();
        return works(*other, "another host");
    }
    KxJsParser fresh;
    fresh.initialize();
    return works(fresh, "a fresh host");
}

KxJsIsolation isolationFor(HostileScript const& script) {
    KxJsIsolation isolation = testIsolation();
    if (script.memoryLimit) {
        isolation.memoryLimit =
            std::max(isolation.memoryLimit, std::uint64_t{4} * *script.memoryLimit);
    }
    // A script that hangs must end by its time limit before it has used up the memory.
    if (script.hangsFor.count() > 0) isolation.grace = KxJsIsolation().grace;
    return isolation;
}

}  // namespace

bool survives(HostileScript const& script) {
    KxJsParser host = makeHost(isolationFor(script));
    host.initialize();
    if (script.memoryLimit) host.setMemoryLimit(*script.memoryLimit);
    host.setTimeLimit(script.timeLimit);
    auto const bind = [&] {
        for (KxJsVariable const& variable : script.variables) host.addSetVariable(variable);
    };
    bind();
    std::u16string const source =
        script.isConverted ? Converter::_convert(script.source.c_str()) : script.source;
    Answer const answer = run(host, source);
    print("answer", answer);
    for (std::string const& action : script.then) {
        if (action == "reset") {
            host.reset();
        } else {
            bind();
            print("again", run(host, source));
        }
    }
    // What the script left in the globals may run without end, so a limit stays.
    if (script.timeLimit.count() > 0) host.setTimeLimit(kAmple);
    bool const worksOn = works(host, "the same host") || script.spoilsItsHost;
    bool const worksElsewhere = otherHostsWork();
    host.setTimeLimit(script.timeLimit);
    // A hopeless script that an in-process host survives has no expected answer there.
    bool const isAnySurvival = script.isHopeless() && !areHostsIsolated();
    return (isAnySurvival || isAsExpected(script, answer)) && worksOn && worksElsewhere;
}
