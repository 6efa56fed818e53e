#pragma once

#include <v8-version.h>

/// Whether the engine under test is V8 `major`.`minor` or newer.
constexpr bool isSinceV8(int major, int minor) {
    return V8_MAJOR_VERSION > major || (V8_MAJOR_VERSION == major && V8_MINOR_VERSION >= minor);
}
