// Compiled without run-time type information, which the engine's library lacks: a class derived
// from one of the engine's would not link otherwise.
#include "engine/OwnHandles.h"

namespace kx {

namespace {

/// The size of a handle in the engine's statistics.
constexpr std::size_t kHandleSize = 32;

class Counter final : public v8::PersistentHandleVisitor {
  public:
    std::size_t count() const { return count_; }

    void VisitPersistentHandle(v8::Persistent<v8::Value>* /*handle*/,
                               std::uint16_t /*mark*/) override {
        ++count_;
    }

  private:
    std::size_t count_ = 0;
};

}  // namespace

std::size_t countHandles(v8::HeapStatistics& statistics) {
    return statistics.used_global_handles_size() / kHandleSize;
}

std::size_t countOwnHandles(v8::Isolate* isolate) {
    Counter marked;
    isolate->VisitHandlesWithClassIds(&marked);
    return marked.count();
}

}  // namespace kx
