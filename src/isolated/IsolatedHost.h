#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "host/HostBackend.h"
#include "isolated/HostLog.h"
#include "host/KxJsIsolation.h"
#include "isolated/Protocol.h"
#include "isolated/SupervisedWorker.h"

namespace kx {

/// The backend that runs scripts in a worker process. Whatever ends the worker, the next call has a
/// new one, with the built-in functions, the variables and the compiled scripts in place.
class IsolatedHost final : public HostBackend {
  public:
    /// `variables` are the caller's and outlive the host. Throws std::system_error or
    /// std::runtime_error where there can be no worker.
    IsolatedHost(Variables const& variables, KxJsIsolation const& isolation);

    bool isOnItsThread() const override { return std::this_thread::get_id() == thread_; }
    bool isUsable() const override { return isOnItsThread(); }
    void installLibrary() override;
    std::unique_ptr<CompiledScript> compile(std::u16string_view source,
                                            std::u16string& error) override;
    std::u16string run(CompiledScript const& script, std::u16string& error) override;
    void reset(Variables& variables, CompiledScripts& scripts) override;
    void releaseAll(Variables variables, CompiledScripts scripts) noexcept override;
    void variableWasSet(KxJsVariable const& variable) noexcept override {
        log_.noteVariable(variable);
    }
    void setTimeLimit(std::chrono::milliseconds limit) override { log_.setTimeLimit(limit); }
    void setMemoryLimit(std::size_t bytes) override;
    void terminate() override { worker_.terminate(); }
    EndReason endReason() const override { return endReason_; }
    KxJsSandbox const* sandbox() const override { return &worker_.sandbox(); }

  private:
    bool prepare(std::u16string& error);
    bool restore(std::u16string& error);
    bool exchange(std::size_t results, std::chrono::milliseconds limit, std::u16string& error);
    bool readResults(std::size_t count);
    CommandResult& conclude(std::u16string& error);
    void noteEnd(SupervisedWorker::Ending ending, std::chrono::milliseconds limit,
                 std::u16string& error);

    std::thread::id const thread_ = std::this_thread::get_id();
    HostLog log_;
    SupervisedWorker worker_;
    EndReason endReason_ = EndReason::none;
    MessageWriter request_;
    std::vector<std::byte> reply_;
    std::vector<CommandResult> results_;
};

}  // namespace kx
