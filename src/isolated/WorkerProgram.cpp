#include "isolated/WorkerProgram.h"

#include <dlfcn.h>
#include <filesystem>
#include <system_error>

namespace kx {

namespace {

namespace fs = std::filesystem;

/// Where this code was loaded from.
fs::path ownDirectory() {
    Dl_info information{};
    // Any object of this library will do.
    static char const marker = 0;
    if (dladdr(&marker, &information) == 0 || information.dli_fname == nullptr) return {};
    std::error_code ignored;
    return fs::canonical(information.dli_fname, ignored).parent_path();
}

}  // namespace

std::string workerProgram() {
    fs::path const directory = ownDirectory();
    std::error_code ignored;
    // In a build tree it lies below the library.
    if (fs::path built = directory / "worker" / "kxjs-worker"; fs::exists(built, ignored)) {
        return built;
    }
    return (directory / KXJS_WORKER_FROM_LIBRARY).lexically_normal();
}

}  // namespace kx
