#pragma once

#include <cstdint>
#include <gtest/gtest.h>
#include <string>

#include "host/KxJsParser.h"
#include "support/HostKind.h"

/// An isolated host, and scripts that end its worker.
class Isolated : public testing::Test {
  protected:
    Isolated() { host_.initialize(); }

    std::u16string evaluate(std::u16string const& source) {
        error_.clear();
        return host_.evaluate(source, error_);
    }
    /// Ends the worker by itself: the engine gives up where an array does not fit into the memory.
    void crash() {
        EXPECT_EQ(evaluate(u"new Array(2**25).fill(1.5).length"), u"");
        EXPECT_TRUE(hasWorkerEnded());
    }
    /// Ends the worker by the time limit, in a call that never looks.
    void hang() {
        host_.setTimeLimit(std::chrono::milliseconds(50));
        EXPECT_EQ(evaluate(u"[new Array(4e9)].flat()"), u"");
        host_.setTimeLimit(std::chrono::milliseconds(0));
        EXPECT_TRUE(hasWorkerEnded());
    }
    bool hasWorkerEnded() const {
        KxJsFailure const* const failure = host_.lastFailure();
        return failure != nullptr && failure->kind == KxJsFailure::Kind::WORKER_ENDED &&
               failure->message == error_ && failure->line == 0;
    }

    static KxJsIsolation isolation() {
        KxJsIsolation isolation = testIsolation();
        isolation.memoryLimit = std::uint64_t{256} << 20;
        isolation.grace = std::chrono::milliseconds(300);  // several tests wait for its end
        return isolation;
    }

    KxJsParser host_{isolation()};
    std::u16string error_;
};
