// Runs a target on existing inputs, without a fuzzer.
//
//     fuzz_NAME [--every N] PATH...    files, and directories of files, of which every Nth is taken
//
// A target that finds a mistake ends the process; the last line names the input.
#include <algorithm>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <unistd.h>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongest = 600;  // as scripts/fuzz has it: longer ones are cut

std::string current;

/// Names the input: a target that finds a mistake calls abort().
void tellInput(int /*signal*/) {
    [[maybe_unused]] auto const count = ::write(STDERR_FILENO, current.data(), current.size());
}

void replay(fs::path const& path) {
    current = "input: " + path.string() + "\n";
    std::ifstream file(path, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    bytes.resize(std::min(bytes.size(), kLongest));
    LLVMFuzzerTestOneInput(reinterpret_cast<std::uint8_t const*>(bytes.data()), bytes.size());
}

}  // namespace

int main(int argumentCount, char** arguments) {
    std::signal(SIGABRT, tellInput);
    std::vector<fs::path> files;
    std::size_t every = 1;
    for (int i = 1; i < argumentCount; ++i) {
        fs::path const path = arguments[i];
        if (path == "--every" && i + 1 < argumentCount) {
            every = std::stoul(arguments[++i]);
        } else if (fs::is_directory(path)) {
            for (auto const& entry : fs::directory_iterator(path)) files.push_back(entry.path());
        } else {
            files.push_back(path);
        }
    }
    std::sort(files.begin(), files.end());
    std::size_t count = 0;
    for (std::size_t i = 0; i < files.size(); i += every, ++count) replay(files[i]);
    std::cout << count << " inputs\n";
    return count == 0 ? 1 : 0;
}
