#pragma once

#include <chrono>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

#include "process/TestRequest.h"
#include "process/Worker.h"

/// The application's side of the tests' worker.
inline kx::WorkerSettings testSettings() {
    return {KXJS_TEST_WORKER, "test 1", std::uint64_t{64} << 20, 0};
}

struct TestReply {
    kx::Worker::Outcome outcome;
    std::string text;  ///< where it has arrived
};

inline TestReply ask(kx::Worker& worker, TestRequest request, std::uint64_t number = 0,
                     std::string_view rest = {},
                     std::optional<std::chrono::milliseconds> limit = std::nullopt) {
    std::vector<std::byte> bytes(1 + sizeof number + rest.size());
    bytes[0] = static_cast<std::byte>(request);
    std::memcpy(bytes.data() + 1, &number, sizeof number);
    if (!rest.empty()) std::memcpy(bytes.data() + 1 + sizeof number, rest.data(), rest.size());
    auto const end = limit ? kx::Deadline::Clock::now() + *limit : kx::Deadline::kNever;
    std::vector<std::byte> reply;
    worker.announce(end);
    worker.send(bytes);
    auto const outcome = worker.receive(reply);
    return {outcome, std::string(reinterpret_cast<char const*>(reply.data()), reply.size())};
}

/// Whether the worker still answers as it should.
inline bool isRight(kx::Worker& worker) {
    auto const reply = ask(worker, TestRequest::echo, 0, "as ever");
    return reply.outcome == kx::Worker::Outcome::arrived && reply.text == "as ever";
}

inline pid_t processOf(kx::Worker& worker) {
    return std::stoi(ask(worker, TestRequest::process).text);
}

/// Whether the process ends within some seconds.
bool endsSoon(pid_t process);
