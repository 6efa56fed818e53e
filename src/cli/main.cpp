#include <string>
#include <vector>

#include "cli/commands/CommandLine.h"

int main(int argc, char** argv) {
    std::vector<std::string> const arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    return static_cast<int>(kx::runCommandLine(arguments));
}
