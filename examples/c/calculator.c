/* A command-line calculator in C: formulas of the older language, with variables.

       calculator [LINE]...      without arguments, lines come from standard input

   A line is a formula, or NAME = FORMULA, which stores the result in a variable. */

#include <ctype.h>
#include <kxjsparser.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

/* Everything that the calculator needs from the library, made once. */
struct calculator {
    kxjs_host* host;
    kxjs_text* java_script;
    kxjs_text* result;
    kxjs_text* error;
};

/* What is no mistake in a formula ends the program. */
static void check(kxjs_status status) {
    if (status == KXJS_OK) return;
    fprintf(stderr, "calculator: %s\n", kxjs_status_text(status));
    exit(EXIT_FAILURE);
}

static char const* utf8(kxjs_text* text) {
    char const* data = NULL;
    check(kxjs_text_utf8(text, &data, NULL));
    return data;
}

/* Shows where in the JavaScript the mistake is: under the line, which the library's error text
   would repeat with the lines that bind variables. */
static void show_failure(struct calculator* calculator) {
    kxjs_failure failure;
    memset(&failure, 0, sizeof failure);
    failure.struct_size = sizeof failure;
    if (kxjs_host_failure(calculator->host, &failure, calculator->error, calculator->result) !=
        KXJS_OK) {
        printf("%s\n", utf8(calculator->error)); /* the result is no number */
        return;
    }
    if (failure.line > 0) {
        printf("    %s\n%*s\n", utf8(calculator->result), 4 + failure.column, "^");
    }
    printf("%s\n", utf8(calculator->error));
}

/* The result of `formula` as text, or null after a message. It lives until the next call. */
static char const* evaluate(struct calculator* calculator, char const* formula) {
    char const* source = NULL;
    size_t length = 0;
    kxjs_status status = kxjs_convert(formula, strlen(formula), calculator->java_script);
    if (status == KXJS_OK) {
        check(kxjs_text_utf8(calculator->java_script, &source, &length));
        status = kxjs_host_evaluate(calculator->host, source, length, calculator->result,
                                    calculator->error);
    }
    if (status == KXJS_OK) return utf8(calculator->result);
    if (status == KXJS_FORMULA_FAILED || status == KXJS_RESULT_NAN) {
        show_failure(calculator);
    } else {
        printf("%s\n", kxjs_status_text(status)); /* for example, no UTF-8 */
    }
    return NULL;
}

/* The length of the name in front of "=", or 0 where the line is a formula. */
static size_t length_of_name(char const* line) {
    size_t length = 0;
    size_t at = 0;
    while (isalnum((unsigned char)line[length]) || line[length] == '_') ++length;
    at = length + strspn(line + length, " \t");
    return line[at] == '=' && line[at + 1] != '=' ? length : 0;
}

/* Results are texts. One that reads as a number becomes a number. */
static void store(struct calculator* calculator, char const* name, size_t length,
                  char const* value) {
    char* end = NULL;
    double const number = strtod(value, &end);
    kxjs_status const status =
        *value != '\0' && *end == '\0'
            ? kxjs_host_set_double(calculator->host, name, length, number)
            : kxjs_host_set_text(calculator->host, name, length, value, strlen(value));
    if (status != KXJS_OK) printf("%s\n", kxjs_status_text(status));
}

static void run_line(struct calculator* calculator, char const* line) {
    size_t const name = length_of_name(line);
    char const* const formula = name > 0 ? strchr(line, '=') + 1 : line;
    char const* const value = evaluate(calculator, formula);
    if (value == NULL) return;
    if (name > 0) {
        store(calculator, line, name, value);
    } else {
        printf("%s\n", value);
    }
}

int main(int argc, char** argv) {
    struct calculator calculator;
    char line[4096];
    int i = 0;
    memset(&calculator, 0, sizeof calculator);
    check(kxjs_host_create(&calculator.host));
    check(kxjs_text_create(&calculator.java_script));
    check(kxjs_text_create(&calculator.result));
    check(kxjs_text_create(&calculator.error));
    check(kxjs_host_initialize(calculator.host));
    check(kxjs_host_set_time_limit(calculator.host, 5000)); /* a user's mistake is no hang */

    for (i = 1; i < argc; ++i) run_line(&calculator, argv[i]);
    while (argc == 1 && fgets(line, sizeof line, stdin) != NULL) {
        line[strcspn(line, "\n")] = '\0';
        if (*line != '\0') run_line(&calculator, line);
    }

    check(kxjs_text_free(calculator.error));
    check(kxjs_text_free(calculator.result));
    check(kxjs_text_free(calculator.java_script));
    check(kxjs_host_free(calculator.host));
    return EXIT_SUCCESS;
}
