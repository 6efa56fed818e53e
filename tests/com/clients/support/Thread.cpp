#include "Thread.h"

#include <exception>
#include <memory>
#include <stdexcept>
#include <utility>

#include "Check.h"

namespace test {

namespace {

DWORD WINAPI runWork(void* parameter) {
    std::unique_ptr<std::function<void()>> const work(
        static_cast<std::function<void()>*>(parameter));
    try {
        (*work)();
    } catch (std::exception const& failure) {
        report(false, "thread", 0, failure.what());
    }
    return 0;
}

}  // namespace

Thread::Thread(std::function<void()> work, SIZE_T stackSize) {
    auto parameter = std::make_unique<std::function<void()>>(std::move(work));
    handle_ = CreateThread(nullptr, stackSize, &runWork, parameter.get(),
                           STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
    if (handle_ == nullptr) throw std::runtime_error("no thread");
    [[maybe_unused]] auto* const owned = parameter.release();  // by the thread
}

Thread::Thread(Thread&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}

void Thread::join() {
    if (handle_ == nullptr) return;
    WaitForSingleObject(handle_, INFINITE);
    CloseHandle(std::exchange(handle_, nullptr));
}

}  // namespace test
