#pragma once

#include <atomic>
#include <cstddef>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

#include "kxjsparser.h"

namespace kx::test {

/// Evaluates in `host` while another thread frees columns of it.
inline void freeColumnsElsewhere(kxjs_host* host) {
    constexpr std::size_t kColumns = 50;
    double const value = 2;
    for (int round = 0; round < 3; ++round) {
        std::vector<kxjs_columns*> all(kColumns);
        for (kxjs_columns*& columns : all) {
            ASSERT_EQ(kxjs_columns_create(host, &columns), KXJS_OK);
            ASSERT_EQ(kxjs_columns_bind_double(columns, "A", 1, &value, 1), KXJS_OK);
            ASSERT_EQ(kxjs_columns_compile(columns, KXJS_LITERAL("A*3"), nullptr), KXJS_OK);
        }
        std::atomic<bool> isDone = false;
        std::thread other([&] {
            for (kxjs_columns* const columns : all) EXPECT_EQ(kxjs_columns_free(columns), KXJS_OK);
            isDone = true;
        });
        do {
            kxjs_columns* columns = nullptr;
            double result = 0;
            ASSERT_EQ(kxjs_columns_create(host, &columns), KXJS_OK);
            ASSERT_EQ(kxjs_columns_bind_double(columns, "A", 1, &value, 1), KXJS_OK);
            ASSERT_EQ(kxjs_columns_compile(columns, KXJS_LITERAL("A*4"), nullptr), KXJS_OK);
            ASSERT_EQ(kxjs_columns_evaluate_double(columns, &result, 1, nullptr, nullptr), KXJS_OK);
            EXPECT_EQ(result, 8);
            EXPECT_EQ(kxjs_columns_free(columns), KXJS_OK);
        } while (!isDone);
        other.join();
    }
}

}  // namespace kx::test
