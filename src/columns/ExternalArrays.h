#pragma once

#include <cstdint>
#include <vector>

#include <v8.h>

namespace kx {

/// Typed arrays over memory that the engine does not own. They are detached at the end, so that
/// whoever still holds one finds it empty. They belong to the handle scope around.
class ExternalArrays {
  public:
    explicit ExternalArrays(v8::Isolate* isolate) : isolate_(isolate) {}
    ~ExternalArrays();
    ExternalArrays(ExternalArrays const&) = delete;
    ExternalArrays& operator=(ExternalArrays const&) = delete;

    /// An array over `count` values at `values`. What only reads may be given what is constant.
    /// @{
    v8::Local<v8::Value> over(double const* values, std::size_t count);
    v8::Local<v8::Value> over(std::int32_t const* values, std::size_t count);
    v8::Local<v8::Value> over(std::uint32_t const* values, std::size_t count);
    v8::Local<v8::Value> over(std::uint8_t const* values, std::size_t count);
    /// @}

  private:
    v8::Local<v8::ArrayBuffer> buffer(void const* data, std::size_t bytes);

    v8::Isolate* isolate_;
    std::vector<v8::Local<v8::ArrayBuffer>> buffers_;
};

}  // namespace kx
