#pragma once

#include <stdexcept>

namespace kx {

/// The exit status of kxjs.
enum class ExitStatus : int {
    ok = 0,
    failed = 1,
    usage = 2,
    readerGone = 141  // 128 + SIGPIPE, as shells report it
};

/// The command line or the input is wrong. Ends with status 2.
class UsageError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A correct request that could not be carried out (files, pipes). Ends with status 1.
class WorkError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The reader of standard output has closed it, as "head" does. Ends by SIGPIPE.
class ReaderGone : public std::runtime_error {
  public:
    ReaderGone() : std::runtime_error("standard output is closed") {}
};

}  // namespace kx
