#pragma once

#include <cstdint>
#include <random>
#include <string_view>

/// Prints what was wrong and ends the process with status 1.
[[noreturn]] void failSoak(std::string_view what, std::u16string_view detail);

/// One step of the mixed load, on the calling thread: any operation of the library, its result
/// checked. Returns the name of the kind of work.
std::string_view doSomeWork(std::mt19937_64& random);
