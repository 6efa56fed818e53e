// What a progress function may do, and what it may not.
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Objects.h"
#include "TableOfColumns.h"

namespace {

using kx::test::itemsOf;
using kx::test::Table;
using kx::test::Text;
using kx::test::TextList;

/// A column that takes long enough for calls of the progress function, in V8's slow way.
constexpr std::size_t kRecords = 200000;
constexpr std::string_view kSource =
    "(function(){var s=0;for(var i=0;i<1000;i++)s+=i;return s+A})()";

struct Work {
    Table table;
    std::vector<std::int32_t> values = std::vector<std::int32_t>(kRecords, 1);
    std::vector<double> results = std::vector<double>(kRecords);
    std::size_t calls = 0;
    std::size_t seen = 0;

    Work() {
        EXPECT_EQ(kxjs_columns_bind_int32(table, "A", 1, values.data(), kRecords), KXJS_OK);
        EXPECT_EQ(table.compile(kSource), KXJS_OK);
    }
    kxjs_status run(kxjs_progress progress, std::size_t* records = nullptr,
                    kxjs_text* error = nullptr) {
        EXPECT_EQ(kxjs_columns_set_progress(table, progress, this), KXJS_OK);
        return kxjs_columns_evaluate_double(table, results.data(), kRecords, records, error);
    }
};

Work& workOf(void* context, std::size_t records) {
    Work& work = *static_cast<Work*>(context);
    ++work.calls;
    work.seen = records;
    return work;
}

TEST(CProgress, EndsAnEvaluation) {
    Work work;
    std::size_t records = kRecords;
    Text const error;
    EXPECT_EQ(work.run(
                  [](void* context, std::size_t done) -> std::int32_t {
                      workOf(context, done);
                      return 0;
                  },
                  &records, error),
              KXJS_ENDED);
    EXPECT_EQ(work.calls, 1U);
    EXPECT_EQ(records, work.seen);
    EXPECT_LT(records, kRecords);
    EXPECT_NE(error.str(), "");
    work.calls = 0;
    work.values.resize(10);
    EXPECT_EQ(kxjs_columns_set_progress(work.table, nullptr, nullptr), KXJS_OK);
    EXPECT_EQ(kxjs_columns_evaluate_double(work.table, work.results.data(), 10, nullptr, nullptr),
              KXJS_OK);
    EXPECT_EQ(work.calls, 0U);
}

TEST(CProgress, ItsColumnsAreBusy) {
    Work work;
    EXPECT_EQ(work.run([](void* context, std::size_t done) -> std::int32_t {
        Work& it = workOf(context, done);
        std::size_t count = 0;
        EXPECT_EQ(kxjs_columns_failure_count(it.table, &count), KXJS_BUSY);
        EXPECT_EQ(kxjs_columns_bind_int32(it.table, "A", 1, it.values.data(), 1), KXJS_BUSY);
        EXPECT_EQ(it.table.compile("1"), KXJS_BUSY);
        EXPECT_EQ(kxjs_columns_set_progress(it.table, nullptr, nullptr), KXJS_BUSY);
        EXPECT_EQ(kxjs_columns_evaluate_double(it.table, it.results.data(), 1, nullptr, nullptr),
                  KXJS_BUSY);
        EXPECT_EQ(kxjs_columns_free(it.table), KXJS_BUSY);
        return 0;
    }),
              KXJS_ENDED);
    EXPECT_EQ(work.calls, 1U);
}

TEST(CProgress, TheHostIsFree) {
    Work work;
    EXPECT_EQ(work.run([](void* context, std::size_t done) -> std::int32_t {
        Work& it = workOf(context, done);
        EXPECT_EQ(kx::test::evaluated(it.table.host(), "6*7"), "42");
        EXPECT_EQ(kxjs_host_reset(it.table.host()), KXJS_OK);
        return 1;
    }),
              KXJS_ENDED);
    EXPECT_EQ(work.calls, 1U);
}

struct Lists {
    Table table;
    TextList input;
    kxjs_texts* output = nullptr;
    kxjs_text* error = nullptr;
    std::size_t calls = 0;
};

TEST(CProgress, ListsAndTextsOfTheEvaluationAreSafe) {
    Lists lists;
    std::vector<std::string> const texts(kRecords, "ab");
    for (std::string const& text : texts) {
        ASSERT_EQ(kxjs_texts_add(lists.input, text.data(), text.size()), KXJS_OK);
    }
    ASSERT_EQ(kxjs_texts_create(&lists.output), KXJS_OK);
    ASSERT_EQ(kxjs_text_create(&lists.error), KXJS_OK);
    ASSERT_EQ(kxjs_columns_bind_texts(lists.table, "A", 1, lists.input), KXJS_OK);
    ASSERT_EQ(lists.table.compile(kSource), KXJS_OK);
    auto const progress = [](void* context, std::size_t) -> std::int32_t {
        Lists& it = *static_cast<Lists*>(context);
        if (++it.calls > 1) return 0;
        EXPECT_EQ(kxjs_texts_add(it.input, KXJS_LITERAL("x")), KXJS_BUSY);
        EXPECT_EQ(itemsOf(it.input).size(), kRecords);
        char const* data = nullptr;
        std::size_t const* offsets = nullptr;
        std::size_t count = 0;
        EXPECT_EQ(kxjs_texts_utf8(it.output, &data, &offsets, &count), KXJS_BUSY);
        std::uint16_t const* wide = nullptr;
        EXPECT_EQ(kxjs_texts_separated_utf16(it.output, 0, &wide, &count), KXJS_BUSY);
        EXPECT_EQ(kxjs_texts_add(it.output, KXJS_LITERAL("x")), KXJS_BUSY);
        EXPECT_EQ(kxjs_texts_free(it.output), KXJS_OK);
        EXPECT_EQ(kxjs_text_free(it.error), KXJS_OK);
        return 1;
    };
    ASSERT_EQ(kxjs_columns_set_progress(lists.table, progress, &lists), KXJS_OK);
    EXPECT_EQ(
        kxjs_columns_evaluate_texts(lists.table, lists.output, kRecords, nullptr, lists.error),
        KXJS_ENDED);
    EXPECT_EQ(lists.calls, 2U);
    EXPECT_EQ(kxjs_texts_add(lists.input, KXJS_LITERAL("x")), KXJS_OK);
    EXPECT_EQ(kxjs_texts_free(lists.output), KXJS_BAD_HANDLE);
}

}  // namespace
