// Isolated hosts by the C interface.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "FreedElsewhere.h"
#include "Objects.h"
#include "support/HostKind.h"

namespace {

using kx::test::evaluated;
using kx::test::itemsOf;
using kx::test::Text;
using kx::test::TextList;

/// The structure of the first applications.
constexpr std::size_t kFirstSize = offsetof(kxjs_isolation, shared_memory);

kxjs_isolation settings() {
    kxjs_isolation isolation;
    EXPECT_EQ(kxjs_isolation_init(&isolation, sizeof isolation), KXJS_OK);
    isolation.worker = KXJS_TEST_WORKER;
    isolation.worker_length = std::strlen(isolation.worker);
    return isolation;
}

TEST(CIsolation, BeginsWithTheDefaults) {
    KxJsIsolation const defaults;
    kxjs_isolation isolation;
    ASSERT_EQ(kxjs_isolation_init(&isolation, sizeof isolation), KXJS_OK);
    EXPECT_EQ(isolation.struct_size, sizeof isolation);
    EXPECT_EQ(isolation.memory_limit, defaults.memoryLimit);
    EXPECT_EQ(isolation.grace_ms, defaults.grace.count());
    EXPECT_EQ(isolation.worker, nullptr);
    EXPECT_EQ(isolation.required_sandbox, 0U);
}

TEST(CIsolation, RefusesStructuresThatItDoesNotUnderstand) {
    struct Newer {
        kxjs_isolation known;
        std::uint64_t added;
    } newer{settings(), 0};
    newer.known.struct_size = sizeof newer;
    kxjs_host* host = nullptr;
    EXPECT_EQ(kxjs_isolation_init(&newer.known, kFirstSize - 1), KXJS_BAD_ARGUMENT);
    EXPECT_EQ(kxjs_isolation_init(nullptr, sizeof(kxjs_isolation)), KXJS_NULL_ARGUMENT);
    ASSERT_EQ(kxjs_host_create_isolated(&newer.known, &host, nullptr), KXJS_OK);
    EXPECT_EQ(kxjs_host_free(host), KXJS_OK);
    newer.added = 1;
    EXPECT_EQ(kxjs_host_create_isolated(&newer.known, &host, nullptr), KXJS_BAD_ARGUMENT);
    for (std::size_t const size : {std::size_t{0}, kFirstSize - 1, ~std::size_t{0}}) {
        newer.known.struct_size = size;
        EXPECT_EQ(kxjs_host_create_isolated(&newer.known, &host, nullptr), KXJS_BAD_ARGUMENT);
    }
    kxjs_isolation isolation = settings();
    isolation.grace_ms = -1;
    EXPECT_EQ(kxjs_host_create_isolated(&isolation, &host, nullptr), KXJS_BAD_ARGUMENT);
    isolation = settings();
    isolation.required_sandbox = 16;
    EXPECT_EQ(kxjs_host_create_isolated(&isolation, &host, nullptr), KXJS_BAD_ARGUMENT);
    isolation = settings();
    isolation.reserved = 1;
    EXPECT_EQ(kxjs_host_create_isolated(&isolation, &host, nullptr), KXJS_BAD_ARGUMENT);
}

TEST(CIsolation, TakesTheFirstStructureWithoutLookingBehindIt) {
    kxjs_isolation isolation = settings();
    isolation.shared_memory = 12345;
    ASSERT_EQ(kxjs_isolation_init(&isolation, kFirstSize), KXJS_OK);
    EXPECT_EQ(isolation.shared_memory, 12345U) << "behind the structure's end";
    isolation.worker = KXJS_TEST_WORKER;
    isolation.worker_length = std::strlen(isolation.worker);
    kxjs_host* host = nullptr;
    ASSERT_EQ(kxjs_host_create_isolated(&isolation, &host, nullptr), KXJS_OK);
    void* memory = &isolation;
    std::size_t length = 1;
    EXPECT_EQ(kxjs_host_shared_memory(host, &memory, &length), KXJS_NOT_FOUND);
    EXPECT_EQ(memory, nullptr);
    EXPECT_EQ(length, 0U);
    EXPECT_EQ(kxjs_host_free(host), KXJS_OK);
}

TEST(CIsolation, SharesMemoryThatColumnsUse) {
    constexpr std::size_t kCount = 1000;
    kxjs_isolation isolation = settings();
    isolation.shared_memory = 2 * kCount * sizeof(double);
    kxjs_host* host = nullptr;
    ASSERT_EQ(kxjs_host_create_isolated(&isolation, &host, nullptr), KXJS_OK);
    void* memory = nullptr;
    std::size_t length = 0;
    ASSERT_EQ(kxjs_host_shared_memory(host, &memory, &length), KXJS_OK);
    ASSERT_GE(length, isolation.shared_memory);
    auto* const values = static_cast<double*>(memory);
    double* const results = values + kCount;
    for (std::size_t i = 0; i < kCount; ++i) values[i] = static_cast<double>(i);
    kxjs_columns* columns = nullptr;
    ASSERT_EQ(kxjs_columns_create(host, &columns), KXJS_OK);
    ASSERT_EQ(kxjs_columns_bind_double(columns, "A", 1, values, kCount), KXJS_OK);
    ASSERT_EQ(kxjs_columns_compile(columns, KXJS_LITERAL("A*2"), nullptr), KXJS_OK);
    ASSERT_EQ(kxjs_columns_evaluate_double(columns, results, kCount, nullptr, nullptr), KXJS_OK);
    EXPECT_EQ(results[kCount - 1], 2.0 * (kCount - 1));
    EXPECT_EQ(kxjs_columns_free(columns), KXJS_OK);
    EXPECT_EQ(kxjs_host_free(host), KXJS_OK);
}

TEST(CIsolation, SaysWhyThereIsNoWorker) {
    kxjs_isolation isolation = settings();
    isolation.worker = "/nowhere/kxjs-worker";
    isolation.worker_length = std::strlen(isolation.worker);
    kxjs_host* host = nullptr;
    Text const error;
    EXPECT_EQ(kxjs_host_create_isolated(&isolation, &host, error), KXJS_NO_WORKER);
    EXPECT_NE(error.str(), "");
    EXPECT_EQ(host, nullptr);
    TextList const names;
    EXPECT_EQ(kxjs_extract(KXJS_LITERAL("A"), 0, &isolation, names, error), KXJS_NO_WORKER);
}

TEST(CIsolation, RunsWhatOtherHostsRun) {
    kxjs_isolation const isolation = settings();
    kxjs_host* host = nullptr;
    ASSERT_EQ(kxjs_host_create_isolated(&isolation, &host, nullptr), KXJS_OK);
    EXPECT_EQ(kxjs_host_initialize(host), KXJS_OK);
    EXPECT_EQ(kxjs_host_set_double(host, KXJS_LITERAL("PRICE"), 12.5), KXJS_OK);
    EXPECT_EQ(evaluated(host, "ROUND(PRICE*1.19,2)"), "14.88");
    std::uint32_t pieces = 0;
    EXPECT_EQ(kxjs_host_sandbox(host, &pieces), KXJS_OK);
    EXPECT_NE(pieces & KXJS_SANDBOX_NO_NEW_PRIVILEGES, 0U);
    ASSERT_EQ(kxjs_host_set_time_limit(host, 50), KXJS_OK);
    EXPECT_EQ(evaluated(host, "for(;;);").substr(0, 2), "2:");
    ASSERT_EQ(kxjs_host_set_time_limit(host, 0), KXJS_OK);
    EXPECT_EQ(evaluated(host, "PRICE"), "12.5");
    TextList const names;
    EXPECT_EQ(kxjs_extract(KXJS_LITERAL("A+B"), 0, &isolation, names, nullptr), KXJS_OK);
    EXPECT_EQ(itemsOf(names), (std::vector<std::string>{"A", "B"}));

    std::vector<std::int32_t> const values{1, 2, 3};
    std::vector<double> results(3);
    kxjs_columns* columns = nullptr;
    ASSERT_EQ(kxjs_columns_create(host, &columns), KXJS_OK);
    ASSERT_EQ(kxjs_columns_bind_int32(columns, "Q", 1, values.data(), 3), KXJS_OK);
    ASSERT_EQ(kxjs_columns_compile(columns, KXJS_LITERAL("PRICE*Q"), nullptr), KXJS_OK);
    EXPECT_EQ(kxjs_columns_evaluate_double(columns, results.data(), 3, nullptr, nullptr), KXJS_OK);
    EXPECT_EQ(results, (std::vector<double>{12.5, 25, 37.5}));
    EXPECT_EQ(kxjs_host_free(host), KXJS_OK);
    EXPECT_EQ(kxjs_columns_free(columns), KXJS_OK);
}

TEST(CIsolation, AnyThreadMayFreeColumnsWhileTheirHostRuns) {
    kxjs_isolation const isolation = settings();
    kxjs_host* host = nullptr;
    ASSERT_EQ(kxjs_host_create_isolated(&isolation, &host, nullptr), KXJS_OK);
    kx::test::freeColumnsElsewhere(host);
    EXPECT_EQ(kxjs_host_free(host), KXJS_OK);
}

}  // namespace
