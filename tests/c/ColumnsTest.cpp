#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "Objects.h"
#include "TableOfColumns.h"

namespace {

using kx::test::Host;
using kx::test::itemsOf;
using kx::test::Table;
using kx::test::Text;
using kx::test::TextList;
using kx::test::Units;

constexpr std::size_t kHuge = std::numeric_limits<std::size_t>::max();

TEST(CColumns, BindEveryTypeByEitherEncoding) {
    std::array<double, 2> const doubles{0.5, 1.5};
    std::array<std::int32_t, 2> const wholes{-3, 4};
    std::array<std::uint8_t, 2> const bools{0, 1};
    std::array<std::uint16_t, 3> const units{0xe4, 'b', 'c'};
    std::array<kxjs_span_utf16, 2> const spans{{{units.data(), 2}, {nullptr, 0}}};
    TextList const texts;
    ASSERT_EQ(kxjs_texts_add(texts, KXJS_LITERAL("one")), KXJS_OK);
    ASSERT_EQ(kxjs_texts_add(texts, KXJS_LITERAL("two")), KXJS_OK);
    for (bool const isWide : {false, true}) {
        Table const table;
        Units const d(u"D");
        Units const i(u"I");
        Units const b(u"B");
        Units const s(u"S");
        Units const t(u"T");
        if (isWide) {
            ASSERT_EQ(kxjs_columns_bind_double_utf16(table, d.data(), 1, doubles.data(), 2),
                      KXJS_OK);
            ASSERT_EQ(kxjs_columns_bind_int32_utf16(table, i.data(), 1, wholes.data(), 2), KXJS_OK);
            ASSERT_EQ(kxjs_columns_bind_bool_utf16(table, b.data(), 1, bools.data(), 2), KXJS_OK);
            ASSERT_EQ(kxjs_columns_bind_spans_utf16(table, s.data(), 1, spans.data(), 2), KXJS_OK);
            ASSERT_EQ(kxjs_columns_bind_texts_utf16(table, t.data(), 1, texts), KXJS_OK);
        } else {
            ASSERT_EQ(kxjs_columns_bind_double(table, "D", 1, doubles.data(), 2), KXJS_OK);
            ASSERT_EQ(kxjs_columns_bind_int32(table, "I", 1, wholes.data(), 2), KXJS_OK);
            ASSERT_EQ(kxjs_columns_bind_bool(table, "B", 1, bools.data(), 2), KXJS_OK);
            ASSERT_EQ(kxjs_columns_bind_spans(table, "S", 1, spans.data(), 2), KXJS_OK);
            ASSERT_EQ(kxjs_columns_bind_texts(table, "T", 1, texts), KXJS_OK);
        }
        ASSERT_EQ(table.compile("D+'/'+I+'/'+B+'/'+S+'/'+T"), KXJS_OK);
        TextList const results;
        std::size_t records = 0;
        ASSERT_EQ(kxjs_columns_evaluate_texts(table, results, 2, &records, nullptr), KXJS_OK);
        EXPECT_EQ(records, 2U);
        EXPECT_EQ(itemsOf(results),
                  (std::vector<std::string>{"0.5/-3/false/\u00e4b/one", "1.5/4/true//two"}));
    }
}

TEST(CColumns, GiveNumbersAndTruthValues) {
    Table const table;
    std::array<std::int32_t, 3> const values{1, 2, 3};
    ASSERT_EQ(kxjs_columns_bind_int32(table, "A", 1, values.data(), 3), KXJS_OK);
    Units const source(u"A*A-4");
    ASSERT_EQ(kxjs_columns_compile_utf16(table, source.data(), source.size(), nullptr), KXJS_OK);
    std::array<double, 3> numbers{};
    std::array<std::uint8_t, 3> bools{7, 7, 7};
    ASSERT_EQ(kxjs_columns_evaluate_double(table, numbers.data(), 3, nullptr, nullptr), KXJS_OK);
    ASSERT_EQ(kxjs_columns_evaluate_bool(table, bools.data(), 3, nullptr, nullptr), KXJS_OK);
    EXPECT_EQ(numbers, (std::array<double, 3>{-3, 0, 5}));
    EXPECT_EQ(bools, (std::array<std::uint8_t, 3>{1, 0, 1}));
}

TEST(CColumns, TellFailingRecordsWithTheirPlaces) {
    Table const table;
    std::array<std::int32_t, 4> const values{1, 2, 3, 4};
    ASSERT_EQ(kxjs_columns_bind_int32(table, "A", 1, values.data(), 4), KXJS_OK);
    ASSERT_EQ(table.compile("A+\n(A%2?A:unknown)"), KXJS_OK);
    std::array<double, 4> numbers{};
    std::size_t records = 0;
    ASSERT_EQ(kxjs_columns_evaluate_double(table, numbers.data(), 4, &records, nullptr), KXJS_OK);
    EXPECT_EQ(records, 4U);
    EXPECT_EQ(numbers[2], 6);
    EXPECT_TRUE(std::isnan(numbers[3]));
    ASSERT_EQ(table.failures(), 2U);
    std::array<std::size_t, 2> failing{};
    ASSERT_EQ(kxjs_columns_failure_records(table, failing.data(), 2), KXJS_OK);
    EXPECT_EQ(failing, (std::array<std::size_t, 2>{1, 3}));
    EXPECT_EQ(kxjs_columns_failure_records(table, failing.data(), 3), KXJS_BAD_ARGUMENT);
    kxjs_column_failure failure{};
    failure.struct_size = sizeof failure;
    Text const error;
    Text const message;
    ASSERT_EQ(kxjs_columns_failure(table, 1, &failure, error, message), KXJS_OK);
    EXPECT_EQ(failure.record, 3U);
    EXPECT_EQ(failure.line, 2);
    EXPECT_EQ(failure.column, 8);
    EXPECT_EQ(message.str(), "ReferenceError: unknown is not defined");
    EXPECT_EQ(error.str().substr(0, 14), "Error in line:");
    EXPECT_EQ(kxjs_columns_failure(table, 2, &failure, error, message), KXJS_NOT_FOUND);
}

TEST(CColumns, NeedAFormulaThatTheHostStillHas) {
    Table const table;
    std::array<double, 2> const values{1, 2};
    std::array<double, 2> results{};
    auto const evaluate = [&] {
        return kxjs_columns_evaluate_double(table, results.data(), 2, nullptr, nullptr);
    };
    ASSERT_EQ(kxjs_columns_bind_double(table, "A", 1, values.data(), 2), KXJS_OK);
    EXPECT_EQ(evaluate(), KXJS_NOT_COMPILED);
    EXPECT_EQ(table.compile("A+"), KXJS_FORMULA_FAILED);
    EXPECT_EQ(evaluate(), KXJS_NOT_COMPILED);
    EXPECT_EQ(table.compile("A+1"), KXJS_OK);
    EXPECT_EQ(evaluate(), KXJS_OK);
    // The next block of the table.
    EXPECT_EQ(kxjs_columns_bind_double(table, "A", 1, results.data(), 2), KXJS_OK);
    EXPECT_EQ(evaluate(), KXJS_OK);
    EXPECT_EQ(kxjs_columns_bind_double(table, "B", 1, values.data(), 2), KXJS_OK);
    EXPECT_EQ(evaluate(), KXJS_NOT_COMPILED);
    EXPECT_EQ(table.compile("A+B"), KXJS_OK);
    EXPECT_EQ(evaluate(), KXJS_OK);
    EXPECT_EQ(kxjs_host_reset(table.host()), KXJS_OK);
    EXPECT_EQ(evaluate(), KXJS_NOT_COMPILED);
}

TEST(CColumns, RefuseNamesThatNoVariableCanHave) {
    Table const table;
    std::array<double, 1> const values{1};
    ASSERT_EQ(kxjs_columns_bind_double(table, " ", 1, values.data(), 1), KXJS_OK);
    EXPECT_EQ(table.compile("1"), KXJS_FORMULA_FAILED);
}

TEST(CColumns, CheckLengthsAndContents) {
    Table const table;
    std::array<double, 2> const values{1, 2};
    std::array<std::uint8_t, 2> const noBools{1, 2};
    std::array<kxjs_span_utf16, 2> const spans{{{nullptr, 0}, {nullptr, 3}}};
    std::array<double, 3> results{};
    auto const evaluate = [&](std::size_t count) {
        return kxjs_columns_evaluate_double(table, results.data(), count, nullptr, nullptr);
    };
    EXPECT_EQ(kxjs_columns_bind_double(table, "A", 1, values.data(), kHuge), KXJS_TOO_LONG);
    EXPECT_EQ(kxjs_columns_bind_double(table, "A", 1, nullptr, 1), KXJS_NULL_ARGUMENT);
    ASSERT_EQ(kxjs_columns_bind_double(table, "A", 1, values.data(), 2), KXJS_OK);
    ASSERT_EQ(table.compile("A"), KXJS_OK);
    EXPECT_EQ(evaluate(3), KXJS_BAD_ARGUMENT);
    EXPECT_EQ(evaluate(kHuge), KXJS_TOO_LONG);
    EXPECT_EQ(evaluate(0), KXJS_OK);
    ASSERT_EQ(kxjs_columns_bind_bool(table, "B", 1, noBools.data(), 2), KXJS_OK);
    ASSERT_EQ(table.compile("A+B"), KXJS_OK);
    EXPECT_EQ(evaluate(1), KXJS_OK);
    EXPECT_EQ(evaluate(2), KXJS_BAD_ARGUMENT);
    ASSERT_EQ(kxjs_columns_bind_spans(table, "B", 1, spans.data(), 2), KXJS_OK);
    EXPECT_EQ(evaluate(1), KXJS_OK);
    EXPECT_EQ(evaluate(2), KXJS_NULL_ARGUMENT);
}

TEST(CColumns, OutliveTheHandlesThatTheyKeep) {
    Host host;
    kxjs_columns* columns = nullptr;
    ASSERT_EQ(kxjs_columns_create(host, &columns), KXJS_OK);
    kxjs_texts* texts = nullptr;
    ASSERT_EQ(kxjs_texts_create(&texts), KXJS_OK);
    ASSERT_EQ(kxjs_texts_add(texts, KXJS_LITERAL("kept")), KXJS_OK);
    ASSERT_EQ(kxjs_columns_bind_texts(columns, "T", 1, texts), KXJS_OK);
    ASSERT_EQ(kxjs_columns_compile(columns, "T+T", 3, nullptr), KXJS_OK);
    kxjs_host* const freed = host.leave();
    EXPECT_EQ(kxjs_texts_free(texts), KXJS_OK);
    EXPECT_EQ(kxjs_host_free(freed), KXJS_OK);
    EXPECT_EQ(kxjs_host_reset(freed), KXJS_BAD_HANDLE);
    TextList const results;
    EXPECT_EQ(kxjs_columns_evaluate_texts(columns, results, 1, nullptr, nullptr), KXJS_OK);
    EXPECT_EQ(itemsOf(results), std::vector<std::string>{"keptkept"});
    EXPECT_EQ(kxjs_columns_free(columns), KXJS_OK);
}

TEST(CColumns, ReadAListAsItIsAtEachEvaluation) {
    Table const table;
    TextList const texts;
    ASSERT_EQ(kxjs_columns_bind_texts(table, "T", 1, texts), KXJS_OK);
    ASSERT_EQ(table.compile("T.length"), KXJS_OK);
    std::array<double, 100> results{};
    EXPECT_EQ(kxjs_columns_evaluate_double(table, results.data(), 1, nullptr, nullptr),
              KXJS_BAD_ARGUMENT);
    for (std::size_t i = 0; i < results.size(); ++i) {
        std::string const text(i, 'x');
        ASSERT_EQ(kxjs_texts_add(texts, text.data(), text.size()), KXJS_OK);
    }
    EXPECT_EQ(kxjs_columns_evaluate_double(table, results.data(), 100, nullptr, nullptr), KXJS_OK);
    EXPECT_EQ(results[99], 99);
    // It is not to be filled from itself.
    EXPECT_EQ(kxjs_columns_evaluate_texts(table, texts, 1, nullptr, nullptr), KXJS_BUSY);
    EXPECT_EQ(itemsOf(texts).size(), 100U);
}

}  // namespace
