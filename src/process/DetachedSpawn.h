#pragma once

#include <string>

namespace kx {

/// The descriptors that a zygote finds open, beside 0 to 2, which lead nowhere.
inline constexpr int kZygoteSocket = 3;
inline constexpr int kZygoteLifeline = 4;

/// Starts `program` as a zygote: in a session of its own, with default signals, no other
/// descriptors, and of the environment only what language and time zone need. It is no child of
/// this process: the application's wait() does not see it, and its end sends no SIGCHLD.
/// Throws std::system_error where the program cannot be started.
void spawnDetached(std::string const& program, int socket, int lifeline);

}  // namespace kx
