// The system calls that are left to a worker: what memory, clocks, waiting and threads take.
#include <array>
#include <cerrno>
#include <memory>
#include <sched.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <unistd.h>

#include "worker/Sandbox.h"

namespace kx {

namespace {

using Filter = std::unique_ptr<void, decltype(&seccomp_release)>;

/// Harmless with any arguments: they concern this process's memory, threads and clocks alone.
constexpr std::array kFree = {
    SCMP_SYS(brk),          SCMP_SYS(clock_getres),    SCMP_SYS(clock_gettime),
    SCMP_SYS(exit),         SCMP_SYS(exit_group),      SCMP_SYS(futex),
    SCMP_SYS(getpid),       SCMP_SYS(getrandom),       SCMP_SYS(getrusage),
    SCMP_SYS(gettid),       SCMP_SYS(gettimeofday),    SCMP_SYS(madvise),
    SCMP_SYS(mremap),       SCMP_SYS(munmap),          SCMP_SYS(restart_syscall),
    SCMP_SYS(rseq),         SCMP_SYS(rt_sigaction),    SCMP_SYS(rt_sigprocmask),
    SCMP_SYS(rt_sigreturn), SCMP_SYS(sched_yield),     SCMP_SYS(set_robust_list),
    SCMP_SYS(sigaltstack),  SCMP_SYS(clock_nanosleep), SCMP_SYS(getcpu),
    SCMP_SYS(membarrier),   SCMP_SYS(mprotect),
};

/// The flags that pthread_create() gives, all of which a clone() must have: a thread, no process.
constexpr scmp_datum_t kThread =
    CLONE_VM | CLONE_FS | CLONE_FILES | CLONE_SIGHAND | CLONE_THREAD | CLONE_SYSVSEM | CLONE_SETTLS;
/// Those that make namespaces, or have a tracer follow; the kernel refuses most of them with
/// CLONE_THREAD anyway.
constexpr scmp_datum_t kThreadExtras =
    CLONE_PARENT_SETTID | CLONE_CHILD_CLEARTID | CLONE_CHILD_SETTID | CLONE_DETACHED;
constexpr scmp_datum_t kPrivateMemory = MAP_PRIVATE | MAP_ANONYMOUS;

/// An error that its caller understands where EPERM would be taken for a fault.
bool refuse(scmp_filter_ctx filter, int error, int call) {
    return seccomp_rule_add(filter, SCMP_ACT_ERRNO(static_cast<std::uint32_t>(error)), call, 0) ==
           0;
}

template <class... Arguments>
bool allow(scmp_filter_ctx filter, int call, Arguments... arguments) {
    return seccomp_rule_add(filter, SCMP_ACT_ALLOW, call, sizeof...(arguments), arguments...) == 0;
}

bool addRules(scmp_filter_ctx filter, int wakePipe) {
    for (int call : kFree) {
        if (!allow(filter, call)) return false;
    }
    auto const self = static_cast<scmp_datum_t>(getpid());
    return allow(filter, SCMP_SYS(write),
                 SCMP_A0(SCMP_CMP_EQ, static_cast<scmp_datum_t>(wakePipe))) &&
           allow(filter, SCMP_SYS(mmap),
                 SCMP_A3(SCMP_CMP_MASKED_EQ, MAP_TYPE | MAP_ANONYMOUS, kPrivateMemory)) &&
           allow(filter, SCMP_SYS(clone), SCMP_A0(SCMP_CMP_MASKED_EQ, ~kThreadExtras, kThread)) &&
           allow(filter, SCMP_SYS(tgkill), SCMP_A0(SCMP_CMP_EQ, self)) &&
           allow(filter, SCMP_SYS(sched_getaffinity), SCMP_A0(SCMP_CMP_EQ, 0)) &&
           allow(filter, SCMP_SYS(sched_setaffinity), SCMP_A0(SCMP_CMP_EQ, 0)) &&
           // Its arguments lie in memory, where no filter can look; the C library then uses
           // clone().
           refuse(filter, ENOSYS, SCMP_SYS(clone3));
}

}  // namespace

bool filterSystemCalls(int wakePipe) {
    Filter const filter(seccomp_init(SCMP_ACT_ERRNO(EPERM)), seccomp_release);
    if (!filter) return false;
    bool const isComplete =
        seccomp_attr_set(filter.get(), SCMP_FLTATR_ACT_BADARCH, SCMP_ACT_KILL_PROCESS) == 0 &&
        seccomp_attr_set(filter.get(), SCMP_FLTATR_CTL_NNP, 0) == 0 &&
        addRules(filter.get(), wakePipe);
    return isComplete && seccomp_load(filter.get()) == 0;
}

}  // namespace kx
