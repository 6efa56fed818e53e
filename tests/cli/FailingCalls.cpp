// Preloaded into kxjs, this library makes one system call fail, as a full or broken disk would:
// KXJS_FAIL="rename 3" makes the third call of rename() fail.

#include <cerrno>
#include <cstdlib>
#include <dlfcn.h>
#include <sstream>
#include <string>

namespace {

/// Whether this call of `function` has to fail.
bool failsNow(std::string const& function, int& calls) {
    char const* const setting = std::getenv("KXJS_FAIL");
    if (setting == nullptr) return false;
    std::istringstream fields(setting);
    std::string name;
    int which = 0;
    fields >> name >> which;
    return name == function && ++calls == which;
}

template <class Function>
Function* original(char const* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" __attribute__((visibility("default"))) int rename(char const* from, char const* to) {
    static int calls = 0;
    if (failsNow("rename", calls)) {
        errno = EIO;
        return -1;
    }
    return original<int(char const*, char const*)>("rename")(from, to);
}

extern "C" __attribute__((visibility("default"))) int fsync(int descriptor) {
    static int calls = 0;
    if (failsNow("fsync", calls)) {
        errno = ENOSPC;
        return -1;
    }
    return original<int(int)>("fsync")(descriptor);
}
