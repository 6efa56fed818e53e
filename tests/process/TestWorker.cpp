// A worker for tests of processes, channel and sandbox: it does what it is asked for, harm too.
#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <sys/random.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "process/Attacks.h"
#include "process/Forgeries.h"
#include "process/TestRequest.h"
#include "worker/WorkerEnd.h"
#include "worker/WorkerService.h"
#include "worker/Zygote.h"

namespace {

using Bytes = std::vector<std::byte>;

Bytes bytesOf(std::string const& text) {
    auto const* const first = reinterpret_cast<std::byte const*>(text.data());
    return {first, first + text.size()};
}

/// Where the channel is: a worker that forges messages has found it out.
std::byte* findChannel() {
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        if (line.find("memfd:kxjs") == std::string::npos) continue;
        std::uint64_t const address = std::stoull(line, nullptr, 16);
        return std::bit_cast<std::byte*>(address);
    }
    return nullptr;
}

class TestService final : public kx::WorkerService {
  public:
    char const* version() const override { return "test 1"; }
    void prepareWorker() override { channel_ = findChannel(); }
    void interrupt() override { isInterrupted_ = true; }

    void serve(kx::WorkerEnd& end) override {
        Bytes request;
        for (unsigned turn = 1;; ++turn) {
            end.receive(request);
            std::uint64_t number = 0;
            std::memcpy(&number, request.data() + 1, sizeof number);
            end.send(answer(static_cast<TestRequest>(request[0]), number,
                            Bytes(request.begin() + 1 + sizeof number, request.end()), turn));
        }
    }

  private:
    Bytes answer(TestRequest request, std::uint64_t number, Bytes const& rest, unsigned turn) {
        switch (request) {
            case TestRequest::echo:
                return rest;
            case TestRequest::lengthen:
                return Bytes(number, std::byte{7});
            case TestRequest::process:
                return bytesOf(std::to_string(getpid()));
            case TestRequest::spin:
                for (std::atomic<bool> const forEver = true; forEver;) {
                }
                return {};
            case TestRequest::wait:
                return waitForInterrupt();
            case TestRequest::allocate:
                return allocate(number);
            case TestRequest::exit:
                _exit(static_cast<int>(number));
            case TestRequest::abort:
                std::abort();
            case TestRequest::threads:
                return startThreads(number);
            case TestRequest::random:
                return random();
            case TestRequest::attack:
                return makeAttempt(number, rest);
            case TestRequest::forge:
                forge(number, channel_, turn, 3);
                while (true) std::this_thread::sleep_for(std::chrono::hours(1));
        }
        return {};
    }

    Bytes waitForInterrupt() {
        while (!isInterrupted_) std::this_thread::sleep_for(std::chrono::milliseconds(1));
        isInterrupted_ = false;
        return bytesOf("interrupted");
    }

    static Bytes allocate(std::uint64_t number) {
        auto* const memory = static_cast<unsigned char*>(std::malloc(number));
        if (memory == nullptr) return bytesOf("no memory");
        for (std::size_t i = 0; i < number; i += 4096) memory[i] = 1;
        unsigned char const last = memory[number / 4096 * 4096 - 4096];
        std::free(memory);
        return bytesOf(last == 1 ? "done" : "lost");
    }

    static Bytes startThreads(std::uint64_t number) {
        std::atomic<int> ran = 0;
        std::vector<std::thread> threads;
        for (std::uint64_t i = 0; i < number; ++i) threads.emplace_back([&ran] { ++ran; });
        for (std::thread& thread : threads) thread.join();
        return bytesOf(std::to_string(ran));
    }

    static Bytes random() {
        Bytes bytes(16);
        if (getrandom(bytes.data(), bytes.size(), 0) != 16) return {};
        return bytes;
    }

    /// `target` is the process to attack, then the file to make.
    static Bytes makeAttempt(std::uint64_t number, Bytes const& target) {
        std::string const text(reinterpret_cast<char const*>(target.data()), target.size());
        std::size_t const blank = text.find(' ');
        AttackResult const result = attack(number, std::stoi(text), text.substr(blank + 1).c_str());
        return bytesOf(std::to_string(result.value) + " " + std::to_string(result.error) + " " +
                       result.name);
    }

    std::byte* channel_ = nullptr;
    std::atomic<bool> isInterrupted_ = false;
};

}  // namespace

int main() {
    TestService service;
    return kx::Zygote(service).run();
}
