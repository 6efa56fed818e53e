#pragma once

#include "c/Border.h"
#include "c/kxjs_host.h"
#include "host/HostBackend.h"

namespace kx::c {

/// The host of a handle, on its thread.
inline Host& hostOf(kxjs_host* handle) {
    auto& host = object<Host>(handle);
    require(host.parser._backend().isUsable(), KXJS_WRONG_THREAD);
    return host;
}

/// The isolation of a structure of the application; the defaults where it is null.
KxJsIsolation isolationOf(kxjs_isolation const* isolation);

/// Milliseconds of the application as a limit.
std::chrono::milliseconds limitOf(std::int64_t milliseconds);

}  // namespace kx::c
