#pragma once

#include <stdexcept>

namespace kx {

/// What kxjs gives back to the shell.
enum ExitStatus : int {
    EXIT_STATUS_OK = 0,
    EXIT_STATUS_FAILED = 1,
    EXIT_STATUS_USAGE = 2,
    EXIT_STATUS_READER_GONE = 141  // 128 and SIGPIPE, as shells write it
};

/// The command line or the input asks for something that cannot be meant. Ends with status 2.
class UsageError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The work was asked for rightly and could not be done (files, pipes). Ends with status 1.
class WorkError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Nobody reads standard output any more, as behind "| head". Ends as other programs do then.
class ReaderGone : public std::runtime_error {
  public:
    ReaderGone() : std::runtime_error("nobody reads standard output any more") {}
};

}  // namespace kx
