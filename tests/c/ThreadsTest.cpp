#include <array>
#include <atomic>
#include <cstdint>
#include <thread>
#include <vector>

#include "FreedElsewhere.h"
#include "Objects.h"
#include "TableOfColumns.h"

namespace {

using kx::test::Findings;
using kx::test::Host;
using kx::test::Table;
using kx::test::Text;
using kx::test::Translator;

TEST(CThreads, AHostBelongsToOne) {
    Host const host;
    Table const table;
    std::int32_t script = 17;
    ASSERT_EQ(kxjs_host_parse(host, KXJS_LITERAL("1"), &script, nullptr), KXJS_OK);
    Text const text;
    std::thread([&] {
        kxjs_failure failure{};
        failure.struct_size = sizeof failure;
        std::int32_t number = 17;
        std::uint32_t pieces = 0;
        kxjs_columns* columns = nullptr;
        double value = 0;
        EXPECT_EQ(kxjs_host_initialize(host), KXJS_WRONG_THREAD);
        EXPECT_EQ(kxjs_host_reset(host), KXJS_WRONG_THREAD);
        EXPECT_EQ(kxjs_host_set_int32(host, KXJS_LITERAL("A"), 1), KXJS_WRONG_THREAD);
        EXPECT_EQ(kxjs_host_variable_type(host, KXJS_LITERAL("A"), &number), KXJS_WRONG_THREAD);
        EXPECT_EQ(kxjs_host_parse(host, KXJS_LITERAL("1"), &number, text), KXJS_WRONG_THREAD);
        EXPECT_EQ(number, 17);
        EXPECT_EQ(kxjs_host_execute(host, 0, text, text), KXJS_WRONG_THREAD);
        EXPECT_EQ(kxjs_host_evaluate(host, KXJS_LITERAL("1"), text, text), KXJS_WRONG_THREAD);
        EXPECT_EQ(kxjs_host_failure(host, &failure, text, text), KXJS_WRONG_THREAD);
        EXPECT_EQ(kxjs_host_sandbox(host, &pieces), KXJS_WRONG_THREAD);
        EXPECT_EQ(kxjs_host_set_time_limit(host, 1), KXJS_WRONG_THREAD);
        EXPECT_EQ(kxjs_host_set_memory_limit(host, 1), KXJS_WRONG_THREAD);
        EXPECT_EQ(kxjs_host_set_native_evaluation(host, 1), KXJS_WRONG_THREAD);
        EXPECT_EQ(kxjs_columns_create(host, &columns), KXJS_WRONG_THREAD);
        EXPECT_EQ(kxjs_columns_bind_double(table, "A", 1, &value, 1), KXJS_WRONG_THREAD);
        EXPECT_EQ(kxjs_columns_compile(table, "1", 1, text), KXJS_WRONG_THREAD);
        EXPECT_EQ(kxjs_columns_evaluate_double(table, &value, 1, nullptr, text), KXJS_WRONG_THREAD);
        EXPECT_EQ(kxjs_host_terminate(host), KXJS_OK);
    }).join();
    EXPECT_EQ(text.str(), "");
    EXPECT_EQ(kxjs_host_execute(host, 0, text, nullptr), KXJS_OK);
}

TEST(CThreads, AnyMayTerminateAndFree) {
    kxjs_host* host = nullptr;
    Text const error;
    std::thread([&] {
        ASSERT_EQ(kxjs_host_create(&host), KXJS_OK);
        std::atomic<bool> hasEnded = false;
        std::thread killer([&] {
            while (!hasEnded) {
                EXPECT_EQ(kxjs_host_terminate(host), KXJS_OK);
                std::this_thread::yield();
            }
        });
        EXPECT_EQ(kxjs_host_evaluate(host, KXJS_LITERAL("for(;;);"), nullptr, error),
                  KXJS_FORMULA_FAILED);
        hasEnded = true;
        killer.join();
    }).join();
    EXPECT_NE(error.str(), "");
    EXPECT_EQ(kxjs_host_free(host), KXJS_OK);
}

TEST(CThreads, AnyMayFreeColumnsWhileTheirHostRuns) {
    Host const host;
    kx::test::freeColumnsElsewhere(host);
    kxjs_columns* columns = nullptr;
    ASSERT_EQ(kxjs_columns_create(host, &columns), KXJS_OK);
    std::thread([&] { EXPECT_EQ(kxjs_columns_free(columns), KXJS_OK); }).join();
    // The host ends with what the other thread has left to it.
}

TEST(CThreads, HandlesAreMadeAndFreedEverywhere) {
    constexpr int kThreads = 4;
    constexpr int kRounds = 2000;
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    std::atomic<int> mistakes = 0;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&mistakes] {
            std::array<kxjs_text*, 10> texts{};
            for (int round = 0; round < kRounds; ++round) {
                for (kxjs_text*& text : texts) {
                    if (kxjs_text_create(&text) != KXJS_OK) ++mistakes;
                }
                for (kxjs_text* const text : texts) {
                    if (kxjs_text_free(text) != KXJS_OK) ++mistakes;
                    if (kxjs_text_free(text) != KXJS_BAD_HANDLE) ++mistakes;
                }
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(mistakes, 0);
}

TEST(CThreads, ATranslatorServesMany) {
    Translator const translator;
    ASSERT_EQ(kxjs_translator_add_variable(translator, KXJS_LITERAL("Name"), KXJS_KIND_TEXT),
              KXJS_OK);
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&translator] {
            Text const javaScript;
            Findings const findings;
            for (int round = 0; round < 100; ++round) {
                EXPECT_EQ(kxjs_translator_translate(translator, KXJS_LITERAL("LEN(NAME)"),
                                                    javaScript, findings, nullptr),
                          KXJS_OK);
                EXPECT_EQ(javaScript.str(), "kx.len(Name)");
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
}

}  // namespace
