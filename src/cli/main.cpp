#include <string>
#include <vector>

#include "cli/commands/CommandLine.h"

int main(int argc, char** argv) {
    return kx::runCommandLine(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
}
