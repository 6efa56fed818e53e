/* An application in C: every step prints what it does not expect, and the exit status says whether
   there was anything. */
#include <kxjsparser.h>
#include <math.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>

static int mistakes = 0;

static void expect(int is_as_expected, char const* what) {
    if (is_as_expected) return;
    ++mistakes;
    printf("not as expected: %s\n", what);
}

#define EXPECT(condition) expect((condition) != 0, #condition)

static int is_text(kxjs_text* text, char const* expected) {
    char const* data = NULL;
    size_t length = 0;
    if (kxjs_text_utf8(text, &data, &length) != KXJS_OK) return 0;
    if (length == strlen(expected) && strcmp(data, expected) == 0) return 1;
    printf("the text is: %s\n", data);
    return 0;
}

static void one_formula(kxjs_host* host, kxjs_text* result, kxjs_text* error) {
    int32_t script = -1;
    EXPECT(kxjs_host_set_double(host, KXJS_LITERAL("PRICE"), 12.5) == KXJS_OK);
    EXPECT(kxjs_host_set_int32(host, KXJS_LITERAL("QTY"), 3) == KXJS_OK);
    EXPECT(kxjs_host_set_text(host, KXJS_LITERAL("NAME"), KXJS_LITERAL("J\xC3\xB6rg")) == KXJS_OK);
    EXPECT(kxjs_host_set_bool(host, KXJS_LITERAL("MEMBER"), 1) == KXJS_OK);
    EXPECT(kxjs_convert(KXJS_LITERAL("NAME+IIF(MEMBER .AND. QTY<>0,' pays ',' does not pay ')+PRICE"
                                     "*QTY"),
                        result) == KXJS_OK);
    char const* source = NULL;
    size_t length = 0;
    EXPECT(kxjs_text_utf8(result, &source, &length) == KXJS_OK);
    EXPECT(kxjs_host_parse(host, source, length, &script, error) == KXJS_OK);
    EXPECT(script == 0);
    EXPECT(kxjs_host_execute(host, script, result, error) == KXJS_OK);
    EXPECT(is_text(result, "J\xC3\xB6rg pays 37.5"));
    EXPECT(is_text(error, ""));
    EXPECT(kxjs_host_set_int32(host, KXJS_LITERAL("QTY"), 4) == KXJS_OK);
    EXPECT(kxjs_host_execute(host, script, result, NULL) == KXJS_OK);
    EXPECT(is_text(result, "J\xC3\xB6rg pays 50"));
}

static void failures(kxjs_host* host, kxjs_text* result, kxjs_text* error) {
    kxjs_failure failure;
    int32_t script = 0;
    memset(&failure, 0, sizeof failure);
    failure.struct_size = sizeof failure;
    EXPECT(kxjs_host_parse(host, KXJS_LITERAL("1 +\n* 2"), &script, error) == KXJS_FORMULA_FAILED);
    EXPECT(script == -1);
    EXPECT(kxjs_host_failure(host, &failure, result, NULL) == KXJS_OK);
    EXPECT(failure.kind == KXJS_FAILURE_COMPILE && failure.line == 2 && failure.column == 1);
    EXPECT(kxjs_host_evaluate(host, KXJS_LITERAL("PRICE*'x'"), result, error) == KXJS_RESULT_NAN);
    EXPECT(is_text(result, "NaN") && is_text(error, "Not A Number"));
    EXPECT(kxjs_host_failure(host, &failure, NULL, NULL) == KXJS_NOT_FOUND);
    EXPECT(kxjs_host_set_time_limit(host, 50) == KXJS_OK);
    EXPECT(kxjs_host_evaluate(host, KXJS_LITERAL("for(;;);"), result, error) ==
           KXJS_FORMULA_FAILED);
    EXPECT(kxjs_host_failure(host, &failure, NULL, NULL) == KXJS_OK);
    EXPECT(failure.kind == KXJS_FAILURE_LIMIT);
    EXPECT(kxjs_host_set_time_limit(host, 0) == KXJS_OK);
}

#define RECORDS 1000

static void columns(kxjs_host* host, kxjs_text* error) {
    static double prices[RECORDS];
    static double totals[RECORDS];
    static int32_t quantities[RECORDS];
    kxjs_columns* table = NULL;
    size_t records = 0;
    size_t failing = 1;
    int32_t i = 0;
    for (i = 0; i < RECORDS; ++i) {
        prices[i] = i / 4.0;
        quantities[i] = i % 7;
    }
    EXPECT(kxjs_columns_create(host, &table) == KXJS_OK);
    EXPECT(kxjs_columns_bind_double(table, KXJS_LITERAL("PRICE"), prices, RECORDS) == KXJS_OK);
    EXPECT(kxjs_columns_bind_int32(table, KXJS_LITERAL("QTY"), quantities, RECORDS) == KXJS_OK);
    EXPECT(kxjs_columns_compile(table, KXJS_LITERAL("PRICE*QTY"), error) == KXJS_OK);
    EXPECT(kxjs_columns_evaluate_double(table, totals, RECORDS, &records, error) == KXJS_OK);
    EXPECT(records == RECORDS);
    EXPECT(kxjs_columns_failure_count(table, &failing) == KXJS_OK && failing == 0);
    for (i = 0; i < RECORDS; ++i) EXPECT(totals[i] == prices[i] * quantities[i]);
    EXPECT(kxjs_columns_free(table) == KXJS_OK);
}

int main(void) {
    kxjs_host* host = NULL;
    kxjs_text* result = NULL;
    kxjs_text* error = NULL;
    EXPECT(kxjs_version() == KXJS_VERSION_NUMBER);
    EXPECT(strcmp(kxjs_status_text(KXJS_OK), "success") == 0);
    EXPECT(kxjs_host_create(&host) == KXJS_OK);
    EXPECT(kxjs_text_create(&result) == KXJS_OK);
    EXPECT(kxjs_text_create(&error) == KXJS_OK);
    EXPECT(kxjs_host_initialize(host) == KXJS_OK);
    one_formula(host, result, error);
    failures(host, result, error);
    columns(host, error);
    EXPECT(kxjs_host_free(host) == KXJS_OK);
    EXPECT(kxjs_host_free(host) == KXJS_BAD_HANDLE);
    EXPECT(kxjs_text_free(result) == KXJS_OK);
    EXPECT(kxjs_text_free(error) == KXJS_OK);
    return mistakes == 0 ? 0 : 1;
}
