// Hosts by the C interface give what KxJsParser gives: results, error texts, failures.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "Objects.h"
#include "host/KxJsParser.h"
#include "text/Utf8.h"

namespace {

using kx::test::evaluated;
using kx::test::Host;
using kx::test::itemsOf;
using kx::test::Text;
using kx::test::TextList;
using kx::test::Units;

constexpr auto kSources = std::to_array<char const*>({
    "1+1",
    R"('a'+'\u00e9'+'\ud83d\ude00')",
    "'half: '+'\\ud83d'",
    "A+B+C+D",
    "IIF(A>2,'OK','KO')",
    "0/0",
    "'NaN'",
    "",
    "1 +\n* 2",
    "unknown+1",
    "var f=function(){throw new Error('from f')};\nf()",
    "(function g(n){return n?g(n-1):unknown})(40)",
    "throw 'a text'",
    "({toString:function(){throw 1}})",
    "LISTFUNCT()",
});

/// The same variables by both interfaces.
void bindVariables(kxjs_host* host, KxJsParser& parser) {
    Units const key(u"C");
    Units const value(u"t\u00e9xt");
    EXPECT_EQ(kxjs_host_set_int32(host, KXJS_LITERAL("A"), 3), KXJS_OK);
    EXPECT_EQ(kxjs_host_set_double(host, KXJS_LITERAL("B"), 0.25), KXJS_OK);
    EXPECT_EQ(kxjs_host_set_text_utf16(host, key.data(), key.size(), value.data(), value.size()),
              KXJS_OK);
    EXPECT_EQ(kxjs_host_set_bool(host, KXJS_LITERAL("D"), 7), KXJS_OK);
    parser.addSetVariable(KxJsVariable(u"A", std::int32_t{3}));
    parser.addSetVariable(KxJsVariable(u"B", 0.25));
    parser.addSetVariable(KxJsVariable(u"C", u"t\u00e9xt"));
    parser.addSetVariable(KxJsVariable(u"D", true));
}

void compareFailures(kxjs_host* host, KxJsFailure const* expected) {
    Text const message;
    Text const line;
    kxjs_failure failure{};
    failure.struct_size = sizeof failure;
    kxjs_status const status = kxjs_host_failure(host, &failure, message, line);
    ASSERT_EQ(status, expected == nullptr ? KXJS_NOT_FOUND : KXJS_OK);
    if (expected == nullptr) return;
    EXPECT_EQ(failure.kind, static_cast<std::int32_t>(expected->kind));
    EXPECT_EQ(failure.line, expected->line);
    EXPECT_EQ(failure.column, expected->column);
    EXPECT_EQ(failure.end_column, expected->endColumn);
    EXPECT_EQ(failure.is_in_call, expected->isInCall ? 1 : 0);
    EXPECT_EQ(message.utf16(), expected->message);
    EXPECT_EQ(line.utf16(), expected->sourceLine);
    ASSERT_EQ(static_cast<std::size_t>(failure.frame_count), expected->frames.size());
    kxjs_frame frame{};
    frame.struct_size = sizeof frame;
    Text const function;
    for (std::int32_t i = 0; i < failure.frame_count; ++i) {
        ASSERT_EQ(kxjs_host_failure_frame(host, i, &frame, function), KXJS_OK);
        KxJsFailure::Frame const& it = expected->frames[static_cast<std::size_t>(i)];
        EXPECT_EQ(frame.line, it.line);
        EXPECT_EQ(frame.column, it.column);
        EXPECT_EQ(frame.is_in_source, it.isInSource ? 1 : 0);
        EXPECT_EQ(function.utf16(), it.function);
    }
    EXPECT_EQ(kxjs_host_failure_frame(host, failure.frame_count, &frame, function), KXJS_NOT_FOUND);
    EXPECT_EQ(kxjs_host_failure_frame(host, -1, &frame, function), KXJS_NOT_FOUND);
}

kxjs_status expectedStatus(std::u16string const& error, KxJsFailure const* failure) {
    if (failure != nullptr) return KXJS_FORMULA_FAILED;
    return error.empty() ? KXJS_OK : KXJS_RESULT_NAN;
}

/// A host of each kind, with the same functions and variables.
class CHost : public testing::TestWithParam<char const*> {
  protected:
    void SetUp() override {
        ASSERT_EQ(kxjs_host_initialize(host), KXJS_OK);
        parser.initialize();
        bindVariables(host, parser);
    }

    Host const host;
    KxJsParser parser;
    std::string const source = GetParam();
    std::u16string const wide = kx::utf16FromUtf8(source);
    Units const units{wide};
    std::u16string expectedError;
    Text const result{};
    Text const error{};
};

TEST_P(CHost, EvaluatesAsTheClassDoes) {
    std::u16string const expected = parser.evaluate(wide, expectedError);
    for (bool const isWide : {false, true}) {
        kxjs_status const status =
            isWide ? kxjs_host_evaluate_utf16(host, units.data(), units.size(), result, error)
                   : kxjs_host_evaluate(host, source.data(), source.size(), result, error);
        EXPECT_EQ(status, expectedStatus(expectedError, parser.lastFailure()));
        EXPECT_EQ(result.utf16(), expected);
        EXPECT_EQ(error.utf16(), expectedError);
        compareFailures(host, parser.lastFailure());
    }
}

TEST_P(CHost, ParsesAndExecutesAsTheClassDoes) {
    std::int32_t const expected = parser.parse(wide, expectedError);
    std::int32_t script = 17;
    EXPECT_EQ(kxjs_host_parse(host, source.data(), source.size(), &script, error),
              expected < 0 ? KXJS_FORMULA_FAILED : KXJS_OK);
    EXPECT_EQ(script, expected);
    EXPECT_EQ(error.utf16(), expectedError);
    compareFailures(host, parser.lastFailure());
    if (expected < 0) return;
    EXPECT_EQ(kxjs_host_parse_utf16(host, units.data(), units.size(), &script, error), KXJS_OK);
    EXPECT_EQ(script, 1);
    for (std::int32_t const index : {0, 1}) {
        expectedError.clear();
        std::u16string const expectedResult = parser.execute(0, expectedError);
        EXPECT_EQ(kxjs_host_execute(host, index, result, error),
                  expectedStatus(expectedError, parser.lastFailure()));
        EXPECT_EQ(result.utf16(), expectedResult);
        EXPECT_EQ(error.utf16(), expectedError);
    }
}

INSTANTIATE_TEST_SUITE_P(Sources, CHost, testing::ValuesIn(kSources));

TEST(CHostLife, ScriptsAreCountedFromZeroAfterAReset) {
    Host const host;
    std::int32_t script = -1;
    Text const result;
    ASSERT_EQ(kxjs_host_parse(host, KXJS_LITERAL("1"), &script, nullptr), KXJS_OK);
    ASSERT_EQ(kxjs_host_parse(host, KXJS_LITERAL("2"), &script, nullptr), KXJS_OK);
    EXPECT_EQ(script, 1);
    EXPECT_EQ(kxjs_host_reset(host), KXJS_OK);
    for (std::int32_t const index : {0, 1, -1, INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(kxjs_host_execute(host, index, result, nullptr), KXJS_NOT_FOUND);
    }
    ASSERT_EQ(kxjs_host_parse(host, KXJS_LITERAL("3"), &script, nullptr), KXJS_OK);
    EXPECT_EQ(script, 0);
    ASSERT_EQ(kxjs_host_execute(host, 0, result, nullptr), KXJS_OK);
    EXPECT_EQ(result.str(), "3");
}

TEST(CHostLife, VariablesAreTypedAndSomeNamesRefused) {
    Host const host;
    Units const name(u"D");
    std::int32_t type = -1;
    EXPECT_EQ(kxjs_host_variable_type(host, KXJS_LITERAL("D"), &type), KXJS_NOT_FOUND);
    EXPECT_EQ(kxjs_host_set_int32_utf16(host, name.data(), name.size(), 5), KXJS_OK);
    EXPECT_EQ(kxjs_host_variable_type(host, KXJS_LITERAL("D"), &type), KXJS_OK);
    EXPECT_EQ(type, KXJS_TYPE_INT32);
    EXPECT_EQ(kxjs_host_set_double_utf16(host, name.data(), name.size(), 0.5), KXJS_OK);
    EXPECT_EQ(kxjs_host_variable_type_utf16(host, name.data(), name.size(), &type), KXJS_OK);
    EXPECT_EQ(type, KXJS_TYPE_DOUBLE);
    EXPECT_EQ(evaluated(host, "D"), "0.5");
    EXPECT_EQ(kxjs_host_set_bool_utf16(host, name.data(), name.size(), 0), KXJS_OK);
    EXPECT_EQ(evaluated(host, "D"), "false");
    EXPECT_EQ(kxjs_host_set_text(host, KXJS_LITERAL("D"), KXJS_LITERAL("text")), KXJS_OK);
    EXPECT_EQ(kxjs_host_variable_type(host, KXJS_LITERAL("D"), &type), KXJS_OK);
    EXPECT_EQ(type, KXJS_TYPE_TEXT);
    EXPECT_EQ(evaluated(host, "D"), "text");
    for (std::string const key : {"", " \t", "ouraccessor"}) {
        EXPECT_EQ(kxjs_host_set_int32(host, key.data(), key.size(), 1), KXJS_REFUSED) << key;
    }
}

TEST(CHostLife, LimitsEndRuns) {
    Host const host;
    ASSERT_EQ(kxjs_host_set_time_limit(host, 50), KXJS_OK);
    EXPECT_EQ(evaluated(host, "for(;;);"),
              "2: The script was ended: it ran longer than its time limit of 50 ms");
    EXPECT_EQ(kxjs_host_set_time_limit(host, -1), KXJS_BAD_ARGUMENT);
    EXPECT_EQ(kxjs_host_set_time_limit(host, INT64_MAX), KXJS_OK);
    EXPECT_EQ(evaluated(host, "1+1"), "2");
    ASSERT_EQ(kxjs_host_set_memory_limit(host, std::uint64_t{32} << 20), KXJS_OK);
    EXPECT_EQ(evaluated(host, "var a=[];for(;;)a.push(new Array(1000).fill(1.5))").substr(0, 2),
              "2:");
    EXPECT_EQ(kxjs_host_set_native_evaluation(host, 0), KXJS_OK);
    EXPECT_EQ(evaluated(host, "1+1"), "2");
}

TEST(CHostLife, OtherHostsHaveNoSandbox) {
    Host const host;
    std::uint32_t pieces = 0;
    EXPECT_EQ(kxjs_host_sandbox(host, &pieces), KXJS_NOT_FOUND);
}

TEST(CExtraction, FindsNamesAndSaysWhatEndedIt) {
    TextList const names;
    Text const error;
    EXPECT_EQ(kxjs_extract(KXJS_LITERAL("PRICE*QTY+PRICE"), 0, nullptr, names, error), KXJS_OK);
    EXPECT_EQ(itemsOf(names), (std::vector<std::string>{"PRICE", "QTY"}));
    Units const source(u"ONE+\u00c4");
    EXPECT_EQ(kxjs_extract_utf16(source.data(), source.size(), 1000, nullptr, names, error),
              KXJS_OK);
    EXPECT_EQ(itemsOf(names), (std::vector<std::string>{"ONE", "\u00c4"}));
    EXPECT_EQ(kxjs_extract(KXJS_LITERAL("1+"), 0, nullptr, names, error), KXJS_FORMULA_FAILED);
    EXPECT_NE(error.str(), "");
    EXPECT_EQ(kxjs_extract(KXJS_LITERAL("A;for(;;);"), 50, nullptr, names, error),
              KXJS_FORMULA_FAILED);
    EXPECT_EQ(itemsOf(names), std::vector<std::string>{"A"});
    EXPECT_EQ(kxjs_extract(KXJS_LITERAL("A"), -1, nullptr, names, error), KXJS_BAD_ARGUMENT);
}

}  // namespace
