#pragma once

#include <cstdint>
#include <vector>

#include <v8.h>

namespace kx {

/// Typed arrays over memory that V8 does not own. The destructor detaches them: what still refers
/// to one then finds it empty. Lives inside a handle scope.
class ExternalArrays {
  public:
    explicit ExternalArrays(v8::Isolate* isolate) : isolate_(isolate) {}
    ~ExternalArrays();
    ExternalArrays(ExternalArrays const&) = delete;
    ExternalArrays& operator=(ExternalArrays const&) = delete;

    /// An array over `count` values at `values`. Scripts must only read where those are constant.
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
