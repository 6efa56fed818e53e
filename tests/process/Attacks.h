#pragma once

#include <cstddef>
#include <string>

/// What a script would try that has taken over a worker, as system calls. Each attempt names itself
/// and tells what the kernel answered.
struct AttackResult {
    std::string name;
    long value = 0;
    int error = 0;
};

/// How many there are; the last ones are expected to end the process.
std::size_t attackCount();
/// Makes attempt `number` on the process `victim` and the file `file`.
AttackResult attack(std::size_t number, int victim, char const* file);
