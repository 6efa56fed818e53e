#pragma once

#include <cerrno>
#include <system_error>

namespace kx {

/// Throws errno as a std::system_error that names what failed.
[[noreturn]] inline void throwSystemError(char const* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

}  // namespace kx
