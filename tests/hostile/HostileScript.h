#pragma once

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/KxJsVariable.h"

/// A hostile script and what is expected of it. The first lines of its file are directives:
///
///     // limit: 200 ms          time limit; none without
///     // memory: 64 MiB         memory limit; the library's default without
///     // variable: A=5          a whole number, or a text: A='five'
///     // convert                the source is a formula of the older language
///     // generate: 1000 '(\n'   appends the text so many times to the source so far
///     // then: reset run        steps on the host before the next formula, in order
///     // expect: OK             the exact result
///     // begins: x,x,x          the beginning of a long result
///     // error: RangeError      a part of the error text; without it there must be none
///     // next: fresh            later formulas may fail in the same host
///     // dies: invalid size     V8 ends an application's process with this in its message
///     // signal: SEGV           this signal ends an application's process
///     // hangs: 1000 ms         nothing ends it in process within this time
///     // isolated               not run in process, where it takes seconds or gigabytes to end
///     // since V8 11.3: expect: 1   how it ends on this version of V8 and newer ones
///
/// A result or an error is required. Where a script ends the process or hangs, it is that of an
/// isolated host. Texts have the escapes \n, \t, \\, \'
/// and \uXXXX. The file's other lines, in UTF-8, follow what was generated. Expectations hold for
/// the first run.
struct HostileScript {
    std::u16string source;
    std::chrono::milliseconds timeLimit{0};
    std::optional<std::size_t> memoryLimit;
    std::vector<KxJsVariable> variables;
    bool isConverted = false;
    std::vector<std::string> then;
    std::optional<std::u16string> result;
    std::optional<std::u16string> beginOfResult;
    std::optional<std::u16string> error;
    bool spoilsItsHost = false;
    std::string lastWords;
    std::string signal;
    std::chrono::milliseconds hangsFor{0};

    bool isForIsolatedHosts = false;

    /// Whether no host in this process survives or ends it.
    bool isHopeless() const {
        return !lastWords.empty() || !signal.empty() || hangsFor.count() > 0;
    }
};

/// Throws std::runtime_error for a file that cannot be read and for an unknown directive.
HostileScript readHostileScript(std::filesystem::path const& path);
