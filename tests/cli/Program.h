#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

/// How a test starts kxjs.
struct Program {
    std::vector<std::string> arguments;
    std::string input;                               ///< what standard input holds
    std::map<std::string, std::string> environment;  ///< beside the inherited variables
    std::optional<std::string> outputFile;           ///< standard output goes there
};

struct Outcome {
    int status = -1;  ///< exit status; 128 and the signal's number where a signal ended it
    std::string out;
    std::string err;
};

/// Runs kxjs to its end.
Outcome run(Program const& program);

/// kxjs with `arguments`, and with `input` on standard input.
Outcome kxjs(std::vector<std::string> arguments, std::string input = {});

/// Whether this system has terminals to give; a bare container may not.
bool hasTerminals();

/// Runs kxjs with `arguments` on a terminal of `columns` columns; `out` is what it shows,
/// errors too where `hasErrors`.
Outcome runOnTerminal(std::vector<std::string> const& arguments, unsigned short columns,
                      bool hasErrors = false);

/// Runs kxjs with `arguments` and a standard output that nobody reads.
Outcome runWithClosedPipe(std::vector<std::string> const& arguments);
