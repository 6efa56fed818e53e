#pragma once

#include <chrono>
#include <cstddef>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/EndReason.h"
#include "host/KxJsFailure.h"
#include "host/KxJsIsolation.h"
#include "host/KxJsVariable.h"

namespace kx {

/// The error text of calls on a thread that may not use the host.
inline constexpr std::u16string_view kWrongThread =
    u"The script host belongs to another thread or to another engine isolate";

/// A compiled script of one backend. Only that backend looks inside.
class CompiledScript {
  public:
    CompiledScript() = default;
    virtual ~CompiledScript() = default;
    CompiledScript(CompiledScript const&) = delete;
    CompiledScript& operator=(CompiledScript const&) = delete;
};

using CompiledScripts = std::vector<std::unique_ptr<CompiledScript>>;
using Variables = std::map<std::u16string, KxJsVariable>;

/// The part of a KxJsParser that knows where and how its scripts run. KxJsParser keeps the
/// variables and the store of compiled scripts; it forwards everything else to its backend.
///
/// A backend reads the variables whenever it needs them, at the address that KxJsParser keeps them
/// at. Threads and errors: as KxJsParser says. lastFailure() tells about the last call of
/// installLibrary(), compile(), run() or reset().
class HostBackend {
  public:
    HostBackend() = default;
    virtual ~HostBackend() = default;
    HostBackend(HostBackend const&) = delete;
    HostBackend& operator=(HostBackend const&) = delete;

    /// Whether the calling thread may use the host.
    virtual bool isOnItsThread() const = 0;

    /// Whether scripts can be compiled and run: on the host's thread, in a host that was made as a
    /// whole. installLibrary(), compile() and run() may only be called then.
    virtual bool isUsable() const = 0;

    /// Defines the built-in functions. A failure shows in lastFailure() alone.
    virtual void installLibrary() = 0;

    /// Compiles `source` with the variables that are bound now. Null, and a text in `error`, where
    /// that fails; else `error` is left alone.
    virtual std::unique_ptr<CompiledScript> compile(std::u16string_view source,
                                                    std::u16string& error) = 0;

    /// Runs `script` once. Returns the text of its completion value. `error` receives a text where
    /// the run fails or the result contains "NaN", and is left alone otherwise.
    virtual std::u16string run(CompiledScript const& script, std::u16string& error) = 0;

    /// Deletes the variables' globals where isUsable(), and empties `variables` and `scripts`.
    virtual void reset(Variables& variables, CompiledScripts& scripts) = 0;

    /// Frees what a host leaves behind. Called once, last, on any thread.
    virtual void releaseAll(Variables variables, CompiledScripts scripts) noexcept = 0;

    /// `variable`, one of the host's, was bound, or bound again.
    virtual void variableWasSet(KxJsVariable const& variable) noexcept = 0;

    virtual void setTimeLimit(std::chrono::milliseconds limit) = 0;
    virtual void setMemoryLimit(std::size_t bytes) = 0;

    virtual void setNativeEvaluation(bool isOn) = 0;

    /// Ends the run that is going on, if any. Any thread.
    virtual void terminate() = 0;

    /// What an isolated host's worker is held by; null for a host in this process.
    virtual KxJsSandbox const* sandbox() const { return nullptr; }

    /// As KxJsParser says; empty for a host in this process.
    virtual std::span<std::byte> sharedMemory() const { return {}; }

    /// Why the last run was ended before its script was.
    virtual EndReason endReason() const = 0;

    KxJsFailure const* lastFailure() const { return lastFailure_.get(); }
    void forgetFailure() { lastFailure_.reset(); }

  protected:
    KxJsFailure& noteFailure(KxJsFailure::Kind kind, std::u16string const& message) {
        lastFailure_ = std::make_unique<KxJsFailure>();
        lastFailure_->kind = kind;
        lastFailure_->message = message;
        return *lastFailure_;
    }

  private:
    std::unique_ptr<KxJsFailure> lastFailure_;
};

}  // namespace kx
