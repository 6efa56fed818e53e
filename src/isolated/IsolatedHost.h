#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "host/HostBackend.h"
#include "host/KxJsIsolation.h"
#include "isolated/HostLog.h"
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
    void setNativeEvaluation(bool isOn) override { log_.setNativeEvaluation(isOn); }
    void terminate() override;
    EndReason endReason() const override { return endReason_; }
    KxJsSandbox const* sandbox() const override { return &worker_.sandbox(); }
    std::span<std::byte> sharedMemory() const override { return worker_.sharedMemory(); }

    /// For columns, which send requests of their own: begins one, sends it and takes the reply.
    /// Each that has an `error` gives false or nothing, and a text in it, where the worker ends.
    /// Between beginCall() and endCall() the next request can be written.
    /// @{
    bool prepare(std::u16string& error);
    MessageWriter& request() { return request_; }
    std::optional<MessageReader> send(std::chrono::milliseconds limit, std::u16string& error);
    void beginCall(std::chrono::milliseconds limit) { worker_.beginCall(request_.bytes(), limit); }
    std::optional<MessageReader> endCall(std::chrono::milliseconds limit, std::u16string& error);
    bool checkEnd(MessageReader const& reader, std::u16string& error);
    void conclude(CommandResult& result, std::u16string& error);
    HostLog& log() { return log_; }
    std::byte* area() const { return worker_.area(); }
    /// @}

    /// Changes with each worker, and with each reset().
    std::uint64_t workers() const { return workers_; }
    std::uint64_t resets() const { return resets_; }

    /// An evaluation that takes several calls: between them too, terminate() is remembered.
    /// @{
    void beginEvaluation() { isTerminated_ = false; }
    bool isTerminated() const { return isTerminated_; }
    /// @}

  private:
    bool restore(std::u16string& error);
    void forgetEnd();
    std::optional<CommandResult> exchange(std::u16string& error);
    void noteEnd(SupervisedWorker::Ending ending, std::chrono::milliseconds limit,
                 std::u16string& error);

    std::thread::id const thread_ = std::this_thread::get_id();
    HostLog log_;
    SupervisedWorker worker_;
    bool isWorkerStale_ = false;
    EndReason endReason_ = EndReason::none;
    MessageWriter request_;
    std::vector<std::byte> reply_;
    std::uint64_t workers_ = 1;
    std::uint64_t resets_ = 0;
    std::atomic<bool> isTerminated_ = false;
};

}  // namespace kx
