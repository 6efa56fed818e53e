#include "engine/Engine.h"

#include <atomic>
#include <pthread.h>

#include <libplatform/libplatform.h>
#include <v8.h>

#include "engine/V8Compat.h"

namespace kx {

std::atomic<bool> forkedChild = false;

namespace {

bool start() {
    [[maybe_unused]] int const ignored = pthread_atfork(
        nullptr, nullptr, [] { forkedChild.store(true, std::memory_order_relaxed); });
    if (v8compat::isV8Running()) return false;
    // The library's only thread is the watchdog's, which runs no script. V8 needs none either.
    v8::V8::SetFlagsFromString("--single-threaded");
    v8compat::leaveWebAssemblyOut();
    // Never destroyed: scripts may run while the process destroys its static objects.
    static v8::Platform* const platform =
        v8::platform::NewSingleThreadedDefaultPlatform().release();
    v8::V8::InitializePlatform(platform);
    return v8::V8::Initialize();
}

}  // namespace

void startEngine() { [[maybe_unused]] static bool const started = start(); }

}  // namespace kx
