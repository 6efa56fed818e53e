#pragma once

#include <cstdlib>
#include <fstream>
#include <string>

/// The process's resident memory in kB.
inline long residentKilobytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmRSS:")) return std::strtol(line.c_str() + 6, nullptr, 10);
    }
    return 0;
}
