#pragma once

#include <functional>
#include <windows.h>

namespace test {

/// A thread with a stack of a given size; the destructor waits for its end. A failure inside is
/// reported as a failed check.
class Thread {
  public:
    explicit Thread(std::function<void()> work, SIZE_T stackSize = 0);
    ~Thread() { join(); }
    Thread(Thread&& other) noexcept;
    Thread& operator=(Thread&&) = delete;

    void join();

  private:
    HANDLE handle_;
};

}  // namespace test
