#pragma once

namespace kx {

/// Starts the engine once per process, unless the application runs it already. Any thread may
/// call. The engine is never stopped: it cannot be started again.
void startEngine();

}  // namespace kx
