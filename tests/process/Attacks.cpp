#include "process/Attacks.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <linux/sched.h>
#include <netinet/in.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

constexpr int kWakePipe = 3;

struct Target {
    int victim;
    char const* file;
};

struct Attack {
    char const* name;
    long (*attempt)(Target const& target);
};

constexpr std::array<char const*, 1> kNothing = {nullptr};
std::array<char, 64> scratch;

iovec piece() { return {scratch.data(), scratch.size()}; }

/// A system call of the 32-bit architecture: getpid.
long call32() {
    long result = 20;
    asm volatile("int $0x80" : "+a"(result) : : "memory");
    return result;
}

constexpr std::uint64_t kX32 = 0x40000000;

constexpr auto kAttacks = std::to_array<Attack>({
    {"read a file", [](Target const&) { return syscall(SYS_open, "/etc/passwd", O_RDONLY); }},
    {"read a file by openat",
     [](Target const&) { return syscall(SYS_openat, AT_FDCWD, "/etc/passwd", O_RDONLY); }},
    {"read a file by openat2",
     [](Target const&) {
         std::array<std::uint64_t, 3> how = {O_RDONLY, 0, 0};
         return syscall(437, AT_FDCWD, "/etc/passwd", how.data(), sizeof how);
     }},
    {"make a file",
     [](Target const& target) { return syscall(SYS_open, target.file, O_CREAT | O_RDWR, 0600); }},
    {"make a directory",
     [](Target const& target) { return syscall(SYS_mkdir, target.file, 0700); }},
    {"make a link", [](Target const& target) { return syscall(SYS_symlink, "/", target.file); }},
    {"remove a file", [](Target const& target) { return syscall(SYS_unlink, target.file); }},
    {"look at a file", [](Target const&) { return syscall(SYS_access, "/etc/passwd", R_OK); }},
    {"list a directory",
     [](Target const&) { return syscall(SYS_getdents64, kWakePipe, scratch.data(), scratch.size()); }},
    {"an Internet socket",
     [](Target const&) { return syscall(SYS_socket, AF_INET, SOCK_STREAM, 0); }},
    {"a local socket", [](Target const&) { return syscall(SYS_socket, AF_UNIX, SOCK_DGRAM, 0); }},
    {"a pair of sockets",
     [](Target const&) {
         std::array<int, 2> ends{};
         return syscall(SYS_socketpair, AF_UNIX, SOCK_STREAM, 0, ends.data());
     }},
    {"run a program",
     [](Target const&) { return syscall(SYS_execve, "/bin/true", kNothing.data(), kNothing.data()); }},
    {"run a program by execveat",
     [](Target const&) {
         return syscall(SYS_execveat, AT_FDCWD, "/bin/true", kNothing.data(), kNothing.data(), 0);
     }},
    {"fork", [](Target const&) { return syscall(SYS_fork); }},
    {"fork by clone", [](Target const&) { return syscall(SYS_clone, SIGCHLD, 0, 0, 0, 0); }},
    {"a thread in a new name space",
     [](Target const&) {
         return syscall(SYS_clone,
                        CLONE_VM | CLONE_FS | CLONE_FILES | CLONE_SIGHAND | CLONE_THREAD |
                            CLONE_SYSVSEM | CLONE_SETTLS | CLONE_NEWUSER,
                        0, 0, 0, 0);
     }},
    {"fork by clone3",
     [](Target const&) {
         std::array<std::uint64_t, 11> arguments = {0, 0, 0, 0, SIGCHLD};
         return syscall(435, arguments.data(), sizeof arguments);
     }},
    {"trace the application",
     [](Target const& target) {
         return syscall(SYS_ptrace, PTRACE_ATTACH, target.victim, nullptr, nullptr);
     }},
    {"be traced", [](Target const&) { return syscall(SYS_ptrace, PTRACE_TRACEME, 0, 0, 0); }},
    {"read the application's memory",
     [](Target const& target) {
         iovec const own = piece();
         return syscall(SYS_process_vm_readv, target.victim, &own, 1, &own, 1, 0);
     }},
    {"write the application's memory",
     [](Target const& target) {
         iovec const own = piece();
         return syscall(SYS_process_vm_writev, target.victim, &own, 1, &own, 1, 0);
     }},
    {"kill the application",
     [](Target const& target) { return syscall(SYS_kill, target.victim, SIGKILL); }},
    {"kill a thread of the application",
     [](Target const& target) {
         return syscall(SYS_tgkill, target.victim, target.victim, SIGKILL);
     }},
    {"kill by tkill",
     [](Target const& target) { return syscall(SYS_tkill, target.victim, SIGKILL); }},
    {"a queued signal",
     [](Target const& target) {
         siginfo_t information{};
         information.si_code = SI_QUEUE;
         return syscall(SYS_rt_sigqueueinfo, target.victim, SIGKILL, &information);
     }},
    {"hold the application",
     [](Target const& target) { return syscall(SYS_pidfd_open, target.victim, 0); }},
    {"change the application's limits",
     [](Target const& target) {
         rlimit const none = {0, 0};
         return syscall(SYS_prlimit64, target.victim, RLIMIT_DATA, &none, nullptr);
     }},
    {"raise its own limits",
     [](Target const&) {
         rlimit const all = {RLIM_INFINITY, RLIM_INFINITY};
         return syscall(SYS_setrlimit, RLIMIT_DATA, &all);
     }},
    {"move the application",
     [](Target const& target) {
         std::uint64_t const first = 1;
         return syscall(SYS_sched_setaffinity, target.victim, sizeof first, &first);
     }},
    {"outlive the zygote", [](Target const&) { return syscall(SYS_prctl, PR_SET_PDEATHSIG, 0); }},
    {"io_uring",
     [](Target const&) {
         std::array<std::uint32_t, 30> parameters = {};
         return syscall(SYS_io_uring_setup, 4, parameters.data());
     }},
    {"map a descriptor",
     [](Target const&) { return syscall(SYS_mmap, 0, 4096, PROT_READ, MAP_PRIVATE, kWakePipe, 0); }},
    {"map shared memory",
     [](Target const&) {
         return syscall(SYS_mmap, 0, 4096, PROT_READ, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
     }},
    {"memory without a name", [](Target const&) { return syscall(SYS_memfd_create, "x", 0); }},
    {"System V memory", [](Target const&) { return syscall(SYS_shmget, 0, 4096, 01600); }},
    {"copy a descriptor", [](Target const&) { return syscall(SYS_dup, kWakePipe); }},
    {"change a descriptor",
     [](Target const&) { return syscall(SYS_fcntl, kWakePipe, F_SETFL, O_NONBLOCK); }},
    {"control a device", [](Target const&) { return syscall(SYS_ioctl, kWakePipe, 0x5412, scratch.data()); }},
    {"send a descriptor",
     [](Target const&) {
         msghdr header{};
         return syscall(SYS_sendmsg, kWakePipe, &header, 0);
     }},
    {"write elsewhere", [](Target const&) { return syscall(SYS_write, 1, scratch.data(), 1); }},
    {"read", [](Target const&) { return syscall(SYS_read, 0, scratch.data(), 1); }},
    {"wait for descriptors", [](Target const&) { return syscall(SYS_epoll_create1, 0); }},
    {"a descriptor of events", [](Target const&) { return syscall(SYS_eventfd2, 0, 0); }},
    {"page faults", [](Target const&) { return syscall(SYS_userfaultfd, 0); }},
    {"a program in the kernel", [](Target const&) { return syscall(SYS_bpf, 0, scratch.data(), 48); }},
    {"performance counters",
     [](Target const&) { return syscall(SYS_perf_event_open, scratch.data(), 0, -1, -1, 0); }},
    {"keys", [](Target const&) { return syscall(SYS_keyctl, 0, -3, 0); }},
    {"a new name space", [](Target const&) { return syscall(SYS_unshare, CLONE_NEWUSER); }},
    {"mount",
     [](Target const& target) { return syscall(SYS_mount, "none", target.file, "tmpfs", 0, 0); }},
    {"another root", [](Target const&) { return syscall(SYS_chroot, "/"); }},
    {"another user", [](Target const&) { return syscall(SYS_setuid, 0); }},
    {"capabilities",
     [](Target const&) {
         std::array<std::uint32_t, 2> header = {0x20080522, 0};
         std::array<std::uint32_t, 6> const all = {~0U, ~0U, ~0U, ~0U, ~0U, ~0U};
         return syscall(SYS_capset, header.data(), all.data());
     }},
    {"segments", [](Target const&) { return syscall(SYS_modify_ldt, 0, scratch.data(), scratch.size()); }},
    {"ports", [](Target const&) { return syscall(SYS_iopl, 3); }},
    {"another filter", [](Target const&) { return syscall(SYS_seccomp, 1, 0, nullptr); }},
    {"a call of the x32 architecture",
     [](Target const&) { return syscall(static_cast<long>(kX32 | SYS_getpid)); }},
    {"a file by the x32 architecture",
     [](Target const&) {
         return syscall(static_cast<long>(kX32 | SYS_open), "/etc/passwd", O_RDONLY);
     }},
    {"a 32-bit call", [](Target const&) { return call32(); }},
});

}  // namespace

std::size_t attackCount() { return kAttacks.size(); }

AttackResult attack(std::size_t number, int victim, char const* file) {
    Attack const& chosen = kAttacks[number];
    errno = 0;
    long const value = chosen.attempt({victim, file});
    return {chosen.name, value, errno};
}
