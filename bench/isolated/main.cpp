// Measures isolated hosts beside hosts in process, in the same run and by turns. Figures are of the
// best round of each, which other programs disturb least.
//
//     kxbench_isolated [ROUNDS]      a whole number from 1; 11 without
#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <functional>
#include <iostream>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "Machine.h"
#include "columns/KxJsColumns.h"
#include "host/KxJsParser.h"

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Nanoseconds = std::chrono::duration<double, std::nano>;

constexpr char16_t const* kFormula = u"A*1.2+B/3";
/// A call in which V8 never looks for a request to end.
constexpr char16_t const* kNeverLooks = u"[new Array(4e9)].flat()";

double timeOf(std::function<void()> const& work) {
    Clock::time_point const start = Clock::now();
    work();
    return Nanoseconds(Clock::now() - start).count();
}

double median(std::vector<double> times) {
    auto const middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

void require(bool isRight, char const* what) {
    if (!isRight) throw std::runtime_error(what);
}

void print(char const* what, double time, double scale, char const* unit) {
    std::printf("| %s | %.2f %s | |\n", what, time / scale, unit);
}

void printBeside(char const* what, double inProcess, double isolated, double scale,
                 char const* unit) {
    std::printf("| %s | %.2f %s | %.2f %s, %.2f times |\n", what, inProcess / scale, unit,
                isolated / scale, unit, isolated / inProcess);
}

/// A host with a formula of two variables.
class Formula {
  public:
    explicit Formula(KxJsParser& host) : host_(host) {
        host_.initialize();
        host_.addSetVariable(KxJsVariable(u"A", 0.5));
        host_.addSetVariable(KxJsVariable(u"B", 7.25));
        script_ = host_.parse(kFormula, error_);
        require(script_ >= 0, "the formula does not compile");
    }
    std::u16string run(double value) {
        host_.addSetVariable(KxJsVariable(u"A", value));
        return host_.execute(script_, error_);
    }

  private:
    KxJsParser& host_;
    std::int32_t script_ = -1;
    std::u16string error_;
};

/// One call with a new value; `pause` before each.
void compareCalls(char const* what, int rounds, Clock::duration pause) {
    KxJsParser inProcess;
    KxJsParser isolated{KxJsIsolation()};
    Formula one(inProcess);
    Formula other(isolated);
    std::array<std::vector<double>, 2> medians;
    int const calls = pause == Clock::duration::zero() ? 1000 : 20;
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t kind = 0; kind < medians.size(); ++kind) {
            Formula& formula = kind == 0 ? one : other;
            std::vector<double> times;
            for (int call = 0; call < calls; ++call) {
                double const value = round * 1000 + call + 0.37;
                if (pause != Clock::duration::zero()) std::this_thread::sleep_for(pause);
                times.push_back(timeOf([&] { formula.run(value); }));
            }
            medians[kind].push_back(median(std::move(times)));
        }
        require(one.run(round) == other.run(round), "the results differ");
    }
    printBeside(what, std::ranges::min(medians[0]), std::ranges::min(medians[1]), 1000, "µs");
}

/// A table of two columns and results, over one host.
class Table {
  public:
    static constexpr std::size_t kRecords = 1'000'000;
    static constexpr std::size_t kBytes = 3 * kRecords * sizeof(double);

    /// Lies in `memory`, or in its own where that is empty.
    Table(KxJsParser& host, std::span<std::byte> memory) : columns_(host) {
        if (memory.empty()) own_.resize(3 * kRecords);
        a_ = memory.empty() ? own_.data() : reinterpret_cast<double*>(memory.data());
        double* const b = a_ + kRecords;
        for (std::size_t i = 0; i < kRecords; ++i) {
            a_[i] = static_cast<double>(i) * 1.1;
            b[i] = static_cast<double>(i) * 0.7;
        }
        columns_.bind(u"A", a_);
        columns_.bind(u"B", b);
        std::u16string error;
        require(columns_.compile(kFormula, error), "the columns do not compile");
    }
    double evaluate() {
        return timeOf([this] {
            auto const outcome = columns_.evaluate(kRecords, a_ + 2 * kRecords);
            require(outcome.records == kRecords, "not all records were evaluated");
        });
    }
    std::span<double const> results() const { return {a_ + 2 * kRecords, kRecords}; }

  private:
    std::vector<double> own_;
    double* a_ = nullptr;
    KxJsColumns columns_;
};

void compareColumns(int rounds) {
    KxJsIsolation sharing;
    sharing.sharedMemory = Table::kBytes;
    std::array<KxJsParser, 3> hosts = {KxJsParser(), KxJsParser(KxJsIsolation()),
                                       KxJsParser(sharing)};
    std::vector<std::unique_ptr<Table>> tables;
    tables.reserve(hosts.size());
    for (KxJsParser& host : hosts) {
        tables.push_back(std::make_unique<Table>(host, host.sharedMemory()));
    }
    std::array<std::vector<double>, 3> times;
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t kind = 0; kind < times.size(); ++kind) {
            times[kind].push_back(tables[kind]->evaluate());
        }
    }
    for (auto const& table : tables) {
        require(std::ranges::equal(table->results(), tables[0]->results()),
                "the results of the columns differ");
    }
    auto const best = [&times](std::size_t kind) { return std::ranges::min(times[kind]); };
    printBeside("columns, a record of a million, copied", best(0), best(1), Table::kRecords, "ns");
    printBeside("the same, in shared memory", best(0), best(2), Table::kRecords, "ns");
}

void makeReady(KxJsParser& host, std::u16string const& firstFormula) {
    host.initialize();
    std::u16string error;
    require(host.evaluate(firstFormula, error) == u"ab", "a new host is wrong");
}

/// The time from before a host's constructor to behind `use`.
template <class Use, class... Isolation>
double timeOfNewHost(Use const& use, Isolation const&... isolation) {
    std::optional<KxJsParser> host;
    return timeOf([&] { use(host.emplace(isolation...)); });
}

template <class Use>
void measureNewHosts(int rounds, std::string const& row, Use const& use) {
    std::vector<double> inProcess;
    std::vector<double> withSpare;
    std::vector<double> withoutSpare;
    KxJsParser const startsTheZygote{KxJsIsolation()};
    for (int round = 0; round < rounds; ++round) {
        inProcess.push_back(timeOfNewHost(use));
        std::this_thread::sleep_for(100ms);
        withSpare.push_back(timeOfNewHost(use, KxJsIsolation()));
        withoutSpare.push_back(timeOfNewHost(use, KxJsIsolation()));
    }
    printBeside((row + ", a worker in reserve").c_str(), std::ranges::min(inProcess),
                std::ranges::min(withSpare), 1e6, "ms");
    printBeside((row + ", none in reserve").c_str(), std::ranges::min(inProcess),
                std::ranges::min(withoutSpare), 1e6, "ms");
}

void measureRestart(int rounds) {
    std::vector<double> late;
    std::vector<double> restarts;
    constexpr auto kLimit = 50ms;
    KxJsIsolation const isolation;
    KxJsParser host(isolation);
    host.initialize();
    std::u16string error;
    for (int script = 0; script < 20; ++script) {
        host.addSetVariable(KxJsVariable(u"V" + std::u16string(1, u'A' + script), script));
        host.parse(u"ROUND(V" + std::u16string(1, u'A' + script) + u"*1.5, 1)", error);
    }
    host.setTimeLimit(kLimit);
    for (int round = 0; round < rounds; ++round) {
        late.push_back(timeOf([&] { host.evaluate(kNeverLooks, error); }) -
                       Nanoseconds(kLimit + isolation.grace).count());
        std::this_thread::sleep_for(100ms);
        restarts.push_back(timeOf([&] { require(host.execute(3, error) == u"4.5", "lost"); }));
    }
    print("a call that is ended with its worker: later than limit and grace",
          std::ranges::min(late), 1e6, "ms");
    print("the next call, with 20 scripts to compile again", std::ranges::min(restarts), 1e6, "ms");
}

int roundsFrom(int count, char** arguments) {
    if (count < 2) return 11;
    std::string_view const text = arguments[1];
    int rounds = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), rounds);
    bool const isNumber = error == std::errc() && end == text.data() + text.size();
    if (count > 2 || !isNumber || rounds < 1) {
        throw std::invalid_argument("usage: kxbench_isolated [ROUNDS]");
    }
    return rounds;
}

}  // namespace

int main(int count, char** arguments) {
    try {
        int const rounds = roundsFrom(count, arguments);
        std::cout << bench::describeMachine() << "\n\n" << std::flush;
        std::puts("| what | in process | isolated |\n|---|---:|---:|");
        compareCalls("a call, hot", rounds, 0ms);
        compareCalls("a call after 1 ms", rounds, 1ms);
        compareCalls("a call after 20 ms", rounds, 20ms);
        compareColumns(rounds);
        measureNewHosts(rounds, "a new host", [](KxJsParser&) {});
        measureNewHosts(rounds, "a new host that has run a formula",
                        [](KxJsParser& host) { makeReady(host, u"LEFT('abc', 2)"); });
        measureNewHosts(rounds, "a new host that has run a formula for V8",
                        [](KxJsParser& host) { makeReady(host, u"var x = LEFT('abc', 2); x"); });
        measureRestart(rounds);
        return 0;
    } catch (std::exception const& error) {
        std::cerr << error.what() << '\n';
        return 2;
    }
}
