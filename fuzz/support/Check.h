#pragma once

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string_view>

namespace kx::fuzz {

/// Prints why and ends the process, which the fuzzer counts as a finding.
[[noreturn]] inline void fail(std::string_view what) {
    std::cerr << "finding: " << what << std::endl;
    std::abort();
}

/// A finding unless `isTrue`.
inline void check(bool isTrue, std::string_view what) {
    if (!isTrue) fail(what);
}

/// Prints `text` with everything beyond ASCII escaped.
inline void show(std::string_view label, std::u16string_view text) {
    std::fprintf(stderr, "%.*s: \"", static_cast<int>(label.size()), label.data());
    for (char16_t const unit : text) {
        if (unit >= u' ' && unit < 0x7f) {
            std::fputc(unit, stderr);
        } else {
            std::fprintf(stderr, "\\u%04x", static_cast<unsigned int>(unit));
        }
    }
    std::fputs("\"\n", stderr);
}

/// A finding unless both are equal.
inline void checkEqual(std::u16string_view result, std::u16string_view expected,
                       std::string_view what) {
    if (result == expected) return;
    show("result", result);
    show("expected", expected);
    fail(what);
}

}  // namespace kx::fuzz
