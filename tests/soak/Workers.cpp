// Runs isolated hosts for a given time while their processes are killed at random. Fails when a
// result is wrong, when a host does not work on after the end of its worker, or when processes,
// descriptors or memory are not flat.
//
//     workers SECONDS
//
// The time is divided into rounds. After each, counts are taken while nothing is killed. The
// largest in the second half may not lie above the largest in the second quarter, but for memory,
// which varies by kTolerance.
#include <algorithm>
#include <array>
#include <atomic>
#include <cctype>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

#include "Cases.h"
#include "Resident.h"
#include "convert/Converter.h"
#include "host/KxJsParser.h"

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr int kRounds = 40;
constexpr std::size_t kHosts = 3;
constexpr double kTolerance = 1.05;
/// One of so many processes that are killed is the one that starts the others.
constexpr unsigned kZygoteShare = 50;

/// Is passed on to workers, and tells them from those of other applications.
constexpr char const* kMark = "LC_KXJS_SOAK";

[[noreturn]] void fail(std::string const& what, std::u16string const& detail) {
    std::printf("WRONG: %s: %s\n", what.c_str(), std::string(detail.begin(), detail.end()).c_str());
    std::fflush(stdout);
    std::_Exit(1);
}

/// Empty where the file cannot be read: a process may end between two looks at it.
std::string contentOf(std::filesystem::path const& path) {
    std::ifstream const file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

/// The processes that the library has started for this one, those that have ended left out.
std::vector<pid_t> processes() {
    std::string const mark = std::string(kMark) + "=" + std::to_string(getpid());
    std::vector<pid_t> found;
    for (auto const& entry : std::filesystem::directory_iterator("/proc")) {
        std::string const name = entry.path().filename();
        if (std::isdigit(static_cast<unsigned char>(name[0])) == 0) continue;
        pid_t const process = std::stoi(name);
        bool const isOurs = contentOf(entry.path() / "environ").find(mark) != std::string::npos;
        if (isOurs && process != getpid()) found.push_back(process);
    }
    return found;
}

pid_t parentOf(pid_t process) {
    std::string const stat = contentOf("/proc/" + std::to_string(process) + "/stat");
    std::size_t const end = stat.rfind(") ");
    return end == std::string::npos ? 0 : std::stoi(stat.substr(end + 4));
}

/// Kills one of the processes.
void killOne(std::mt19937_64& random) {
    std::vector<pid_t> const all = processes();
    std::set<pid_t> parents;
    for (pid_t const process : all) parents.insert(parentOf(process));
    bool const isZygotesTurn = random() % kZygoteShare == 0;
    std::vector<pid_t> victims;
    std::ranges::copy_if(all, std::back_inserter(victims),
                         [&](pid_t process) { return parents.contains(process) == isZygotesTurn; });
    if (victims.empty()) return;
    constexpr std::array kSignals = {SIGKILL, SIGSEGV, SIGABRT};
    ::kill(victims[random() % victims.size()],
           isZygotesTurn ? SIGKILL : kSignals[random() % kSignals.size()]);
}

/// What may not grow.
struct Counts {
    long processes;
    long descriptors;
    long kilobytes;
};

long descriptors() {
    auto const entries = std::filesystem::directory_iterator("/proc/self/fd");
    return std::distance(begin(entries), end(entries));
}

Counts countNow() {
    return {static_cast<long>(processes().size()), descriptors(), residentKilobytes()};
}

bool isFlat(char const* what, long Counts::*count, std::vector<Counts> const& rounds,
            double tolerance) {
    auto const largest = [&](std::size_t from, std::size_t to) {
        long most = 0;
        for (std::size_t i = from; i < to; ++i) most = std::max(most, rounds[i].*count);
        return most;
    };
    long const before = largest(rounds.size() / 4, rounds.size() / 2);
    long const after = largest(rounds.size() / 2, rounds.size());
    std::printf("%s: at most %ld in the second quarter, %ld in the second half\n", what, before,
                after);
    return static_cast<double>(after) <= static_cast<double>(before) * tolerance;
}

class Load {
  public:
    explicit Load(std::chrono::milliseconds round) : round_(round) {}

    /// Runs formulas in a host that is replaced now and then.
    void useHosts(std::size_t number) {
        std::mt19937_64 random(number);
        while (!isOver_) {
            try {
                useHost(random, right_[number]);
            } catch (std::runtime_error const&) {
                ++ended_;  // its first worker was killed before it was ready
            }
        }
    }

    std::vector<Counts> killAndMeasure() {
        std::mt19937_64 random(1);
        std::vector<Counts> rounds;
        for (int round = 0; round < kRounds; ++round) {
            for (auto const end = Clock::now() + round_; Clock::now() < end;) {
                killOne(random);
                ++kills_;
                awaitResults();
                std::this_thread::sleep_for(std::chrono::milliseconds(random() % 100));
            }
            // Time to note the ends and to have a worker in reserve again.
            std::this_thread::sleep_for(500ms);
            rounds.push_back(countNow());
            Counts const& counts = rounds.back();
            std::printf(
                "round %2d: %ld processes, %ld descriptors, %ld kB; %ld kills, %ld of %ld "
                "calls ended\n",
                round + 1, counts.processes, counts.descriptors, counts.kilobytes, kills_,
                ended_.load(), calls_.load());
            std::fflush(stdout);
        }
        isOver_ = true;
        return rounds;
    }

    bool hasEndedCalls() const { return ended_ > 0; }

  private:
    void useHost(std::mt19937_64& random, std::atomic<long>& right) {
        KxJsParser host{KxJsIsolation()};
        host.initialize();
        host.setTimeLimit(10s);
        host.addSetVariable(KxJsVariable(u"A", 5));
        host.addSetVariable(KxJsVariable(u"B", 2.5));
        host.addSetVariable(KxJsVariable(u"S", u"some text"));
        host.addSetVariable(KxJsVariable(u"T", true));
        for (int i = 0; i < 200 && !isOver_; ++i) {
            check(host, random);
            ++right;
        }
    }

    /// Waits until each thread has a result: else a slow machine would only start processes.
    void awaitResults() const {
        std::array<long, kHosts> before{};
        std::ranges::copy(right_, before.begin());
        for (std::size_t i = 0; i < kHosts; ++i) {
            while (right_[i] == before[i]) std::this_thread::sleep_for(1ms);
        }
    }

    /// One formula, again until no worker ends meanwhile.
    void check(KxJsParser& host, std::mt19937_64& random) {
        auto const formulas = formulaCases();
        Case const& expected = formulas[random() % formulas.size()];
        std::u16string const source = Converter::_convert(std::u16string(expected.source).c_str());
        // Several may be killed in a row.
        std::u16string error;
        for (int attempts = 0; attempts < 100; ++attempts) {
            ++calls_;
            error.clear();
            std::u16string const result = host.evaluate(source, error);
            KxJsFailure const* const failure = host.lastFailure();
            if (failure != nullptr && failure->kind == KxJsFailure::Kind::WORKER_ENDED) {
                ++ended_;
                continue;
            }
            bool const isError =
                expected.error.empty() ? error.empty() : error.starts_with(expected.error);
            if (result != expected.result || !isError) {
                std::u16string told = source;
                fail("a result", told.append(u" gave ").append(result).append(u"; ").append(error));
            }
            return;
        }
        fail("no worker lives", error);
    }

    std::chrono::milliseconds const round_;
    std::atomic<bool> isOver_ = false;
    long kills_ = 0;
    std::atomic<long> calls_ = 0;
    std::atomic<long> ended_ = 0;
    std::array<std::atomic<long>, kHosts> right_{};
};

}  // namespace

int main(int argumentCount, char** arguments) {
    long const seconds = argumentCount == 2 ? std::strtol(arguments[1], nullptr, 10) : 0;
    if (seconds <= 0) {
        std::fprintf(stderr, "usage: workers SECONDS\n");
        return 2;
    }
    ::setenv(kMark, std::to_string(getpid()).c_str(), 1);
    Load load(std::chrono::milliseconds(seconds * 1000 / kRounds));
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < kHosts; ++i) {
        threads.emplace_back([&load, i] { load.useHosts(i); });
    }
    std::vector<Counts> const rounds = load.killAndMeasure();
    for (std::thread& thread : threads) thread.join();
    bool isRight = load.hasEndedCalls();
    if (!isRight) std::printf("no call was ended\n");
    isRight &= isFlat("processes", &Counts::processes, rounds, 1);
    isRight &= isFlat("descriptors", &Counts::descriptors, rounds, 1);
    isRight &= isFlat("kB", &Counts::kilobytes, rounds, kTolerance);
    if (isRight) return 0;
    std::printf("NOT FLAT\n");
    return 1;
}
