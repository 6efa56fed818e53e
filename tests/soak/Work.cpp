#include "Work.h"

#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "Cases.h"
#include "columns/KxJsColumns.h"
#include "convert/Converter.h"
#include "host/KxJsParser.h"

namespace {

using namespace std::chrono_literals;

constexpr std::size_t kMemoryLimit = std::size_t{48} << 20;

void expect(bool isTrue, std::string_view what, std::u16string_view detail) {
    if (!isTrue) failSoak(what, detail);
}

void bindAll(KxJsParser& host) {
    host.addSetVariable(KxJsVariable(u"A", 5));
    host.addSetVariable(KxJsVariable(u"B", 2.5));
    host.addSetVariable(KxJsVariable(u"S", u"some text"));
    host.addSetVariable(KxJsVariable(u"T", true));
}

class Host {
  public:
    Host() {
        host_.setMemoryLimit(kMemoryLimit);
        host_.initialize();
        bindAll(host_);
    }
    KxJsParser& get() { return host_; }

  private:
    KxJsParser host_;
};

/// The host that a thread keeps until it ends.
KxJsParser& keptHost() {
    thread_local Host host;
    return host.get();
}

void check(KxJsParser& host, Case const& expected, std::u16string const& source) {
    std::u16string error;
    std::u16string result;
    std::int32_t const index = host.parse(source, error);
    // Twice: compiled once, run as often as asked.
    for (int times = 0; index != -1 && times < 2; ++times) result = host.execute(index, error);
    expect(result == expected.result, "result", source + u" gave " + result + u"; " + error);
    bool const isError = expected.error.empty() ? error.empty() : error.starts_with(expected.error);
    expect(isError, "error", source + u" gave " + error);
    std::u16string errorOnce;
    expect(host.evaluate(source, errorOnce) == result && errorOnce == error, "once",
           source + u" gave " + errorOnce);
}

void checkOneOfEach(KxJsParser& host) {
    for (Case const& expected : formulaCases()) {
        check(host, expected, Converter::_convert(std::u16string(expected.source).c_str()));
    }
    for (Case const& expected : scriptCases()) {
        check(host, expected, std::u16string(expected.source));
    }
}

void useKeptHost() {
    checkOneOfEach(keptHost());
    keptHost().reset();
    bindAll(keptHost());
}

void useNewHost() {
    Host host;
    checkOneOfEach(host.get());
}

/// The host comes from a thread that has ended when it is destroyed.
void useHostOfAnotherThread() {
    std::unique_ptr<Host> host;
    std::thread([&host] {
        host = std::make_unique<Host>();
        checkOneOfEach(host->get());
    }).join();
    std::u16string error;
    expect(host->get().parse(u"1", error) == -1, "a foreign host parses", u"1");
}

void endRun(KxJsParser& host, std::u16string const& source, std::u16string_view reason) {
    std::u16string error;
    std::int32_t const index = host.parse(source, error);
    expect(host.execute(index, error).empty(), "an ended run has a result", source);
    expect(error.find(reason) != std::u16string::npos, "why a run was ended", error);
    host.setTimeLimit(0ms);  // a busy machine may need long for little
    std::u16string after;
    std::u16string const result = host.execute(host.parse(u"A*2", after), after);
    expect(result == u"10", "after an ended run", result + u"; " + after);
}

void exceedTime() {
    keptHost().setTimeLimit(40ms);
    endRun(keptHost(), u"for(;;);", u"time limit of 40 ms");
    keptHost().reset();
    bindAll(keptHost());
}

void exceedMemory() {
    Host host;
    endRun(host.get(), u"(function(){for(var a=[];;)a.push([a.length])})()",
           u"memory limit of 48 MiB");
}

void terminateFromElsewhere() {
    KxJsParser& host = keptHost();
    std::atomic<bool> isEnded = false;
    std::thread terminator([&host, &isEnded] {
        while (!isEnded) {
            host.terminate();
            std::this_thread::sleep_for(1ms);
        }
    });
    std::u16string error;
    std::u16string result = u"none";
    // A request may also meet the parse.
    std::int32_t const index = host.parse(u"for(;;);", error);
    if (index != -1) result = host.execute(index, error);
    isEnded = true;
    terminator.join();
    expect(index == -1 || result.empty(), "a terminated run has a result", result);
    expect(error == u"The script was ended: it was terminated", "a terminated run's error", error);
    expect(host.execute(host.parse(u"A*2", error), error) == u"10", "after terminate", error);
    host.reset();
    bindAll(host);
}

/// A host is destroyed after a script has replaced its globals.
void poisonGlobals() {
    Host host;
    std::u16string error;
    host.get().evaluate(
        u"Object.defineProperty(globalThis,'A',{get(){return "
        u"7},set(v){seen=v},configurable:false});"
        u"Array.prototype.fill=String.prototype.split=null",
        error);
    expect(error.empty(), "poisoning", error);
    host.get().reset();
    bindAll(host.get());
}

void extract() {
    std::u16string error;
    auto const names =
        KxJsParser::_extractVariable(Converter::_convert(u"IIF(PRICE>2,NAME,UPPER(OTHER))"), error);
    expect(error.empty(), "an extraction's error", error);
    expect(names == std::vector<std::u16string>{u"PRICE", u"NAME", u"OTHER"}, "extraction",
           names.empty() ? u"" : names.back());
}

void document() {
    static std::u16string const page = KxJsParser::_getUserDocumentation(true, true);
    expect(KxJsParser::_getUserDocumentation(true, true) == page, "documentation", u"");
    expect(KxJsParser::_getUserDocumentation().size() == 63, "pages", u"");
}

void evaluateColumns() {
    KxJsParser& host = keptHost();
    std::array<double, 300> prices;
    for (std::size_t i = 0; i < prices.size(); ++i) prices[i] = static_cast<double>(i) / 2;
    std::array<double, prices.size()> results;
    KxJsColumns columns(host);
    columns.bind(u"PRICE", prices.data());
    std::u16string error;
    expect(columns.compile(u"PRICE*2+A", error), "a column's formula", error);
    auto const outcome = columns.evaluate(prices.size(), results.data());
    expect(outcome.records == prices.size() && outcome.failures.empty(), "columns", outcome.error);
    for (std::size_t i = 0; i < prices.size(); ++i) {
        expect(results[i] == static_cast<double>(i) + 5, "a column's value", u"");
    }
    host.reset();
    bindAll(host);
}

struct Kind {
    std::string_view name;
    void (*work)();
    unsigned int weight;
};

// Operations that take long or much memory are done less often.
constexpr auto kKinds = std::to_array<Kind>({
    {"kept host", useKeptHost, 40},
    {"new host", useNewHost, 20},
    {"host of a thread", useHostOfAnotherThread, 10},
    {"time limit", exceedTime, 5},
    {"memory limit", exceedMemory, 2},
    {"terminate", terminateFromElsewhere, 5},
    {"extraction", extract, 8},
    {"documentation", document, 2},
    {"columns", evaluateColumns, 6},
    {"poisoned globals", poisonGlobals, 2},
});
constexpr unsigned int kWeights = 100;

}  // namespace

void failSoak(std::string_view what, std::u16string_view detail) {
    std::string const narrow(detail.begin(), detail.end());
    std::printf("WRONG: %.*s: %s\n", static_cast<int>(what.size()), what.data(), narrow.c_str());
    std::fflush(stdout);
    std::_Exit(1);  // other threads are at work
}

std::string_view doSomeWork(std::mt19937_64& random) {
    auto choice = static_cast<unsigned int>(random() % kWeights);
    for (Kind const& kind : kKinds) {
        if (choice < kind.weight) {
            kind.work();
            return kind.name;
        }
        choice -= kind.weight;
    }
    failSoak("weights", u"");
}
