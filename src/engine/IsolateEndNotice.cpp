// Compiled without run-time type information, which V8's library lacks: a class derived
// from one of V8's would not link otherwise.
#include "engine/IsolateEndNotice.h"

#include <memory>
#include <utility>

namespace kx {

namespace {

class EndNotice final : public v8::String::ExternalOneByteStringResource {
  public:
    explicit EndNotice(std::function<void()> action) : action_(std::move(action)) {}
    EndNotice(EndNotice const&) = delete;
    EndNotice& operator=(EndNotice const&) = delete;
    ~EndNotice() override = default;

    char const* data() const override { return " "; }
    std::size_t length() const override { return 1; }

  protected:
    void Dispose() override {
        action_();
        delete this;
    }

  private:
    std::function<void()> action_;
};

}  // namespace

void notifyAtIsolateEnd(v8::Isolate* isolate, std::function<void()> action) {
    v8::HandleScope const handles(isolate);
    auto notice = std::make_unique<EndNotice>(std::move(action));
    v8::Local<v8::String> text;
    if (!v8::String::NewExternalOneByte(isolate, notice.get()).ToLocal(&text)) return;
    (void)notice.release();  // V8's now
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
    v8::Eternal<v8::String> const keptToTheEnd(isolate, text);
}

}  // namespace kx
