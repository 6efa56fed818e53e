#pragma once

#include <string>

namespace bench {

/// What a figure depends on: processor, cores, operating system, compiler and flags, one a line.
std::string describeMachine();

}  // namespace bench
