#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "host/HostBackend.h"
#include "host/KxJsParser.h"
#include "isolated/Message.h"
#include "isolated/Protocol.h"
#include "worker/WorkerColumns.h"
#include "worker/WorkerService.h"

namespace kx {

/// The service of kxjs-worker: does for one isolated host what a host in process does.
class FormulaService final : public WorkerService {
  public:
    char const* version() const override { return protocolVersion(); }
    void prepareZygote() override;
    void prepareWorker() override;
    void serve(WorkerEnd& end) override;
    void interrupt() override {
        std::lock_guard const lock(mutex_);
        host_->terminate();
    }

  private:
    void obey(MessageReader& request, MessageWriter& reply);
    CommandResult compile(std::uint32_t script, std::u16string_view source);
    CommandResult run(std::uint32_t script);
    CommandResult reset();
    CommandResult withOutcome(CommandResult result) const;

    std::mutex mutex_;  // of host_, which interrupt() uses on another thread
    std::unique_ptr<KxJsParser> host_;
    WorkerEnd* end_ = nullptr;
    std::map<std::uint32_t, std::unique_ptr<CompiledScript>> scripts_;
    std::map<std::uint32_t, WorkerColumns> columns_;
};

}  // namespace kx
