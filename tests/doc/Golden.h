#pragma once

#include <string>

#include "support/Utf8.h"

namespace kx::test {

/// Returns an expected output: the bytes of a file in the directory golden.
inline std::string golden(std::string const& file) {
    return readBytes(std::string(KXJS_GOLDEN_FILES "/") + file);
}

}  // namespace kx::test
