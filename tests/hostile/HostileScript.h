#pragma once

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/KxJsVariable.h"

/// A hostile script and what is expected of it, as its file says in its first lines:
///
///     // limit: 200 ms          time limit; none without
///     // memory: 64 MiB         memory limit; the library's default without
///     // variable: A=5          a whole number, or a text: A='five'
///     // convert                the source is a formula of the older language
///     // generate: 1000 '(\n'   puts the text so many times at the end of the source so far
///     // then: reset run        what else happens to the host before the next formula, in order
///     // expect: OK             the exact result
///     // begins: x,x,x          with what a long result begins
///     // error: RangeError      what the error text holds; without it there must be none
///     // next: fresh            the script may spoil its host for the formulas after it
///     // dies: Fatal error      the engine's last words: it ends the process
///     // signal: SEGV           the signal that ends the process, with or without last words
///     // hangs: 1000 ms         nothing ends it, for so long at least
///     // since V8 11.3: expect: 1   how it ends on this engine and newer ones
///
/// One of the lines that say how it ends must be there. Texts know the escapes \n, \t, \\, \' and
/// \uXXXX. The file's other lines, in UTF-8, follow what was generated. Expectations are about the
/// first run.
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

    /// Whether the engine makes it impossible to survive this script.
    bool isHopeless() const {
        return !lastWords.empty() || !signal.empty() || hangsFor.count() > 0;
    }
};

/// Throws std::runtime_error for a file that cannot be read and for lines that mean nothing.
HostileScript readHostileScript(std::filesystem::path const& path);
