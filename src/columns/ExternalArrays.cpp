#include "columns/ExternalArrays.h"

#include <utility>

namespace kx {

ExternalArrays::~ExternalArrays() {
    for (v8::Local<v8::ArrayBuffer> const buffer : buffers_) buffer->Detach();
}

v8::Local<v8::ArrayBuffer> ExternalArrays::buffer(void const* data, std::size_t bytes) {
    auto store = v8::ArrayBuffer::NewBackingStore(const_cast<void*>(data), bytes,
                                                  v8::BackingStore::EmptyDeleter, nullptr);
    buffers_.push_back(v8::ArrayBuffer::New(isolate_, std::move(store)));
    return buffers_.back();
}

v8::Local<v8::Value> ExternalArrays::over(double const* values, std::size_t count) {
    return v8::Float64Array::New(buffer(values, count * sizeof *values), 0, count);
}

v8::Local<v8::Value> ExternalArrays::over(std::int32_t const* values, std::size_t count) {
    return v8::Int32Array::New(buffer(values, count * sizeof *values), 0, count);
}

v8::Local<v8::Value> ExternalArrays::over(std::uint32_t const* values, std::size_t count) {
    return v8::Uint32Array::New(buffer(values, count * sizeof *values), 0, count);
}

v8::Local<v8::Value> ExternalArrays::over(std::uint8_t const* values, std::size_t count) {
    return v8::Uint8Array::New(buffer(values, count), 0, count);
}

}  // namespace kx
