#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "Peer.h"

namespace bench {

/// One row of the table.
struct Case {
    std::string title;
    Task task = Task::execute;
    Formula formula;
    /// Pieces of work in one timed stretch: enough for the clock, few enough for the memory.
    std::uint64_t batch = 1;
    /// Prepares the peer; not timed.
    std::function<void(Peer&)> prepare;
    /// One timed stretch.
    std::function<Nanoseconds(Peer&, std::uint64_t first, std::uint64_t count)> work;
    /// The results, which must be the same for every peer; not timed.
    std::function<std::string(Peer&)> results;
    /// The library's goal as a multiple of raw V8's time; 0 where there is none.
    double goal = 0;
    /// The library's goal as a time; 0 where there is none.
    double goalNanoseconds = 0;
    /// The row whose work is half of this one's: at most 2.2 times its time is the goal.
    std::string twiceOf = {};
};

std::vector<Case> hostReadyCases();
std::vector<Case> parseCases();
std::vector<Case> executeCases();
std::vector<Case> oneShotCases();
std::vector<Case> convertCases();

/// All rows, in the table's order.
std::vector<Case> allCases();

}  // namespace bench
