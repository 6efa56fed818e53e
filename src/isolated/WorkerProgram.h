#pragma once

#include <string>

namespace kx {

/// Path of the worker's program that was installed, or built, with this library. Where it is not
/// there, starting it says so.
std::string workerProgram();

}  // namespace kx
