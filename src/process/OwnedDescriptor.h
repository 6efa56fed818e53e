#pragma once

#include <unistd.h>
#include <utility>

namespace kx {

/// A file descriptor that is closed with its owner.
class OwnedDescriptor {
  public:
    OwnedDescriptor() = default;
    explicit OwnedDescriptor(int value) : value_(value) {}
    OwnedDescriptor(OwnedDescriptor&& other) noexcept : value_(std::exchange(other.value_, -1)) {}
    OwnedDescriptor& operator=(OwnedDescriptor&& other) noexcept {
        if (this != &other) {
            close();
            value_ = std::exchange(other.value_, -1);
        }
        return *this;
    }
    OwnedDescriptor(OwnedDescriptor const&) = delete;
    OwnedDescriptor& operator=(OwnedDescriptor const&) = delete;
    ~OwnedDescriptor() { close(); }

    int get() const { return value_; }
    explicit operator bool() const { return value_ >= 0; }
    void close() {
        if (value_ >= 0) ::close(std::exchange(value_, -1));
    }

  private:
    int value_ = -1;
};

}  // namespace kx
