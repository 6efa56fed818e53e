#pragma once

#include <memory>
#include <utility>

#include <v8.h>

#include "host/Carriers.h"
#include "host/IsolateRecord.h"

namespace kx {

/// A host's connection to the engine: the isolate it was made in, and its carriers.
class HostEngine {
  public:
    HostEngine() : record_(IsolateRecord::current()) {}

    /// Whether the calling thread may use the host's isolate. Frees what other threads released.
    bool isUsable() const {
        if (!record_->isCurrent()) return false;
        record_->freeParked();
        return true;
    }

    v8::Isolate* isolate() const { return record_->isolate(); }
    Carriers& carriers() { return carriers_; }
    IsolateRecord& record() const { return *record_; }

    /// Frees what the host gives up, its carriers with it.
    void release(HostRemains remains) {
        remains.carriers = std::exchange(carriers_, Carriers());
        record_->release(std::move(remains));
    }

  private:
    std::shared_ptr<IsolateRecord> record_;
    Carriers carriers_;
};

}  // namespace kx
