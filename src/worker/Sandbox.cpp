#include "worker/Sandbox.h"

#include <array>
#include <initializer_list>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

namespace kx {

namespace {

/// A second lock where the filter or Landlock is absent: no new descriptors, files or core dumps.
void lowerLimits() {
    rlimit const none = {0, 0};
    for (auto resource : {RLIMIT_NOFILE, RLIMIT_FSIZE, RLIMIT_CORE, RLIMIT_MEMLOCK}) {
        setrlimit(resource, &none);
    }
}

}  // namespace

SandboxPieces enterSandbox(int wakePipe) {
    // Other processes of the user cannot look into this one.
    prctl(PR_SET_DUMPABLE, 0);
    lowerLimits();
    SandboxPieces held = 0;
    auto const note = [&held](bool holds, SandboxPiece piece) {
        if (holds) held |= static_cast<SandboxPieces>(piece);
    };
    note(prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0, SandboxPiece::noNewPrivileges);
    note(banFiles(), SandboxPiece::landlock);
    note(dropCapabilities(), SandboxPiece::noCapabilities);
    note(filterSystemCalls(wakePipe), SandboxPiece::systemCallFilter);
    return held;
}

bool dropCapabilities() {
    __user_cap_header_struct header = {_LINUX_CAPABILITY_VERSION_3, 0};
    std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> const none{};
    return syscall(SYS_capset, &header, none.data()) == 0;
}

}  // namespace kx
