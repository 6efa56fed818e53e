// Runs all operations of the library on several threads for a given time. Fails when a result is
// wrong or memory is not flat.
//
//     mixed SECONDS
//
// The time is divided into rounds. After each, every thread collects its garbage and waits for the
// others, so that only memory in use is measured. Memory is flat when its largest value in the
// second half is at most kTolerance above its largest value in the second quarter; caches
// and pools fill in the first quarter.
#include <algorithm>
#include <barrier>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <mutex>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <v8.h>

#include "Resident.h"
#include "Work.h"

namespace {

constexpr int kThreads = 3;
constexpr int kRounds = 40;
/// The pools of V8 and the C library vary by this much.
constexpr double kTolerance = 1.05;

using Clock = std::chrono::steady_clock;
using Counts = std::map<std::string, long>;

void print(int round, long kilobytes, long steps) {
    std::printf("round %2d: %8ld kB after %9ld steps\n", round, kilobytes, steps);
    std::fflush(stdout);
}

struct Load {
    explicit Load(std::chrono::milliseconds ofARound) : round(ofARound) {}

    std::chrono::milliseconds round;
    std::barrier<> barrier{kThreads + 1};
    std::mutex mutex;
    Counts counts;  // guarded by mutex

    void work(unsigned int seed) {
        std::mt19937_64 random(seed);
        for (int i = 0; i < kRounds; ++i) {
            Counts mine;
            auto const end = Clock::now() + round;
            while (Clock::now() < end) ++mine[std::string(doSomeWork(random))];
            {
                std::lock_guard const lock(mutex);
                for (auto const& [kind, count] : mine) counts[kind] += count;
            }
            // None where the round was too short for a host.
            if (auto* const isolate = v8::Isolate::TryGetCurrent()) {
                isolate->LowMemoryNotification();
            }
            barrier.arrive_and_wait();  // measured from here
            barrier.arrive_and_wait();  // to here
        }
    }

    std::vector<long> measure() {
        std::vector<long> kilobytes;
        for (int i = 0; i < kRounds; ++i) {
            barrier.arrive_and_wait();
            kilobytes.push_back(residentKilobytes());
            long steps = 0;
            for (auto const& [kind, count] : counts) steps += count;
            print(i + 1, kilobytes.back(), steps);
            barrier.arrive_and_wait();
        }
        return kilobytes;
    }
};

bool isFlat(std::vector<long> const& kilobytes) {
    auto const quarter = static_cast<std::ptrdiff_t>(kilobytes.size() / 4);
    auto const begin = kilobytes.begin();
    long const before = *std::max_element(begin + quarter, begin + 2 * quarter);
    long const after = *std::max_element(begin + 2 * quarter, kilobytes.end());
    double const ratio = static_cast<double>(after) / static_cast<double>(before);
    std::printf("largest in the second quarter %ld kB, in the second half %ld kB: %.3f times\n",
                before, after, ratio);
    return ratio <= kTolerance;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    long const seconds = argumentCount == 2 ? std::strtol(arguments[1], nullptr, 10) : 0;
    if (seconds <= 0) {
        std::fprintf(stderr, "usage: mixed SECONDS\n");
        return 2;
    }
    Load load(std::chrono::milliseconds(seconds * 1000 / kRounds));
    std::vector<std::thread> threads;
    for (unsigned int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&load, i] { load.work(i + 1); });
    }
    std::vector<long> const kilobytes = load.measure();
    for (std::thread& thread : threads) thread.join();
    for (auto const& [kind, count] : load.counts) std::printf("%-18s %9ld\n", kind.c_str(), count);
    if (isFlat(kilobytes)) return 0;
    std::printf("memory is NOT FLAT\n");
    return 1;
}
