#include "Program.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <pty.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace {

[[noreturn]] void fail(char const* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {
        if (number < 0) fail("open");
    }
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor(Descriptor const&) = delete;
    Descriptor& operator=(Descriptor const&) = delete;
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor() { close(); }

    void close() {
        if (number_ >= 0) ::close(number_);
        number_ = -1;
    }
    int number() const { return number_; }

  private:
    int number_;
};

/// A file in memory. Unlike a pipe, it never fills up and blocks.
Descriptor memoryFile(std::string const& contents = {}) {
    Descriptor file(::memfd_create("kxjs-test", MFD_CLOEXEC));
    if (::write(file.number(), contents.data(), contents.size()) !=
        static_cast<ssize_t>(contents.size())) {
        fail("write");
    }
    ::lseek(file.number(), 0, SEEK_SET);
    return file;
}

/// Reads to the end. Reading a terminal whose other side is closed ends with an error.
std::string readAll(int descriptor) {
    std::string bytes;
    std::array<char, 4096> chunk{};
    for (;;) {
        ssize_t const count = ::read(descriptor, chunk.data(), chunk.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return bytes;
        bytes.append(chunk.data(), static_cast<std::size_t>(count));
    }
}

std::string contentsOf(Descriptor const& file) {
    ::lseek(file.number(), 0, SEEK_SET);
    return readAll(file.number());
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

pid_t start(Program const& program, int in, int out, int err) {
    std::vector<std::string> arguments = program.arguments;
    // Where no worker can run, only the prompt has to be told: it is isolated by default.
    if (KXJS_HAS_WORKERS == 0 && !arguments.empty() && arguments[0] == "repl") {
        arguments.emplace_back("--in-process");
    }
    arguments.insert(arguments.begin(), KXJS_PROGRAM);
    std::vector<std::string> variables;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        std::string const variable = *entry;
        std::string const name = variable.substr(0, variable.find('='));
        // COLUMNS of the caller's environment must not change the output.
        if (name != "COLUMNS" && !program.environment.contains(name)) variables.push_back(variable);
    }
    for (auto const& [name, value] : program.environment) {
        variables.push_back(std::string(name).append("=").append(value));
    }

    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, in, STDIN_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, out, STDOUT_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, err, STDERR_FILENO);
    pid_t child = 0;
    int const error = ::posix_spawn(&child, KXJS_PROGRAM, &actions, nullptr,
                                    pointersTo(arguments).data(), pointersTo(variables).data());
    ::posix_spawn_file_actions_destroy(&actions);
    if (error != 0) throw std::system_error(error, std::generic_category(), KXJS_PROGRAM);
    return child;
}

int statusOf(pid_t child) {
    int status = 0;
    while (::waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) fail("waitpid");
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

Outcome run(Program const& program) {
    Descriptor const in = memoryFile(program.input);
    Descriptor const out =
        program.outputFile ? Descriptor(::open(program.outputFile->c_str(), O_WRONLY | O_CLOEXEC))
                           : memoryFile();
    Descriptor const err = memoryFile();
    pid_t const child = start(program, in.number(), out.number(), err.number());
    Outcome outcome;
    outcome.status = statusOf(child);
    if (!program.outputFile) outcome.out = contentsOf(out);
    outcome.err = contentsOf(err);
    return outcome;
}

Outcome kxjs(std::vector<std::string> arguments, std::string input) {
    return run({.arguments = std::move(arguments),
                .input = std::move(input),
                .environment = {},
                .outputFile = {}});
}

bool hasTerminals() {
    int const master = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (master >= 0) ::close(master);
    return master >= 0;
}

Outcome runOnTerminal(std::vector<std::string> const& arguments, unsigned short columns,
                      bool hasErrors) {
    int masterNumber = -1;
    int slaveNumber = -1;
    winsize size{};
    size.ws_row = 24;
    size.ws_col = columns;
    if (::openpty(&masterNumber, &slaveNumber, nullptr, nullptr, &size) != 0) fail("openpty");
    Descriptor const master(masterNumber);
    Descriptor slave(slaveNumber);
    ::fcntl(masterNumber, F_SETFD, FD_CLOEXEC);
    ::fcntl(slaveNumber, F_SETFD, FD_CLOEXEC);
    Descriptor const err = memoryFile();
    Program const program{.arguments = arguments, .input = {}, .environment = {}, .outputFile = {}};
    pid_t const child =
        start(program, slaveNumber, slaveNumber, hasErrors ? slaveNumber : err.number());
    slave.close();
    Outcome outcome;
    outcome.out = readAll(masterNumber);
    outcome.status = statusOf(child);
    outcome.err = contentsOf(err);
    return outcome;
}

Outcome runWithClosedPipe(std::vector<std::string> const& arguments) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) fail("pipe2");
    Descriptor const writeEnd(ends[1]);
    Descriptor(ends[0]).close();
    Descriptor const in = memoryFile();
    Descriptor const err = memoryFile();
    Program const program{.arguments = arguments, .input = {}, .environment = {}, .outputFile = {}};
    pid_t const child = start(program, in.number(), writeEnd.number(), err.number());
    Outcome outcome;
    outcome.status = statusOf(child);
    outcome.err = contentsOf(err);
    return outcome;
}
