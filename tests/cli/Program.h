#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

/// A start of kxjs.
struct Program {
    std::vector<std::string> arguments;
    std::string input;                               ///< contents of standard input
    std::map<std::string, std::string> environment;  ///< added to the inherited variables
    std::optional<std::string> outputFile;           ///< standard output; none: memory
};

struct Outcome {
    int status = -1;  ///< exit status, or 128 + the number of the signal that ended it
    std::string out;
    std::string err;
};

/// Runs kxjs to its end.
Outcome run(Program const& program);

/// kxjs with `arguments`, and with `input` on standard input.
Outcome kxjs(std::vector<std::string> arguments, std::string input = {});

/// Whether this system has pseudo terminals; a minimal container may not.
bool hasTerminals();

/// Runs kxjs with `arguments` on a terminal of `columns` columns; `out` is what appears there.
/// Where `hasErrors`, standard error is the terminal too.
Outcome runOnTerminal(std::vector<std::string> const& arguments, unsigned short columns,
                      bool hasErrors = false);

/// Runs kxjs with `arguments`; standard output is a pipe whose reader is closed.
Outcome runWithClosedPipe(std::vector<std::string> const& arguments);
