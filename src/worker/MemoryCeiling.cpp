#include "worker/MemoryCeiling.h"

#include <cerrno>
#include <fstream>
#include <limits>
#include <string>
#include <sys/resource.h>
#include <unistd.h>

namespace kx {

namespace {

/// The memory that RLIMIT_DATA counts, or 0 where the system does not tell.
std::uint64_t dataOf(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/statm");
    std::uint64_t size = 0;
    std::uint64_t resident = 0;
    std::uint64_t shared = 0;
    std::uint64_t text = 0;
    std::uint64_t library = 0;
    std::uint64_t data = 0;
    file >> size >> resident >> shared >> text >> library >> data;
    return file ? data * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE)) : 0;
}

}  // namespace

int limitMemory(pid_t process, std::uint64_t bytes) {
    std::uint64_t const base = dataOf(process);
    if (bytes > std::numeric_limits<std::uint64_t>::max() / 2) return 0;
    rlimit const limit = {base + bytes, base + bytes};
    return prlimit(process, RLIMIT_DATA, &limit, nullptr) == 0 ? 0 : errno;
}

}  // namespace kx
