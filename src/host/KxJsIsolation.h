#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

/// The pieces of the sandbox that a worker process is in. Which of them hold depends on the kernel
/// and, in a container, on what that forbids.
struct KxJsSandbox {
    bool noNewPrivileges = false;   ///< no program that it could run would gain rights
    bool noCapabilities = false;    ///< it has no privileges, even where the application is root's
    bool landlock = false;          ///< the kernel refuses files, and TCP where it knows how
    bool systemCallFilter = false;  ///< about thirty system calls are left, with checked arguments
};

/// How an isolated host runs its scripts: in a worker process of its own, in a sandbox. A plain
/// value.
///
/// Where a worker was ended, lastFailure() is of the kind WORKER_ENDED. The next worker has the
/// variables, built-in functions and compiled scripts; globals that scripts have made are gone.
/// They are also gone after a reset() on another thread. Without a time limit a script may run for
/// ever, as in process.
///
/// Costs: a process for each host, one more in reserve, and one that starts them. They end with the
/// application, and are no children of it. A fork of the application may use the hosts: it gets
/// workers of its own.
///
///     KxJsIsolation isolation;
///     isolation.required.systemCallFilter = true;  // rather no host than one without it
///     KxJsParser parser(isolation);
struct KxJsIsolation {
    /// The most private memory that the worker may take for formulas, in bytes. The kernel holds it
    /// to that, within single calls of built-in functions too; a worker that needs more ends.
    /// KxJsParser::setMemoryLimit() ends a script more gently, and V8 takes up to twice that limit
    /// while it collects garbage: this one should be four times as large. Its default is 2 GiB,
    /// that of setMemoryLimit() at most 512 MiB.
    std::uint64_t memoryLimit = std::uint64_t{2} << 30;

    /// How long a script may run on after its time limit, or after KxJsParser::terminate(), before
    /// its worker is ended.
    std::chrono::milliseconds grace{100};

    /// Bytes of memory that the host has in common with its worker: see
    /// KxJsParser::sharedMemory(). It takes no memory until it is used. A host with it is ready
    /// some milliseconds later than others, since no worker in reserve can have it.
    std::size_t sharedMemory = 0;

    /// Path of the program kxjs-worker; empty where it is installed with the library. It has to be
    /// of the library's version.
    std::string worker;

    /// Pieces of the sandbox without which there is no host.
    KxJsSandbox required;
};
