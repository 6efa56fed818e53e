#include "Machine.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <sys/utsname.h>
#include <thread>

namespace bench {

namespace {

std::string processorModel() {
    std::ifstream info("/proc/cpuinfo");
    for (std::string line; std::getline(info, line);) {
        if (!line.starts_with("model name")) continue;
        if (auto const colon = line.find(": "); colon != std::string::npos) {
            return line.substr(colon + 2);
        }
    }
    return "unknown processor";
}

std::string operatingSystem() {
    utsname system{};
    if (uname(&system) != 0) return "unknown system";
    return std::string(system.sysname) + " " + system.release + " " + system.machine;
}

std::string compiler() {
#if defined(__clang__)
    return "clang " __clang_version__;
#else
    return "g++ " __VERSION__;
#endif
}

std::string load() {
    double average = 0;
    if (getloadavg(&average, 1) != 1) return "unknown";
    std::ostringstream text;
    text.precision(2);
    text << std::fixed << average;
    return text.str();
}

}  // namespace

std::string describeMachine() {
    return "machine:  " + processorModel() + ", " +
           std::to_string(std::thread::hardware_concurrency()) + " cores, load " + load() +
           " at the start\n" +                        //
           "system:   " + operatingSystem() + "\n" +  //
           "compiler: " + compiler() + ", " KXJS_BUILD_TYPE " build\n";
}

}  // namespace bench
