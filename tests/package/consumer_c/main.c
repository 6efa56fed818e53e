/* Uses the installed C header. The exit status is 0 where the result is right. */
#include <kxjsparser.h>
#include <stdio.h>
#include <string.h>

int main(void) {
    kxjs_host* host = NULL;
    kxjs_text* result = NULL;
    char const* text = "";
    int is_right = 0;
    if (kxjs_host_create(&host) != KXJS_OK || kxjs_text_create(&result) != KXJS_OK) return 1;
    kxjs_host_initialize(host);
    kxjs_host_set_int32(host, KXJS_LITERAL("A"), 5);
    is_right =
        kxjs_host_evaluate(host, KXJS_LITERAL("IIF(A!=2,'OK','KO')"), result, NULL) == KXJS_OK &&
        kxjs_text_utf8(result, &text, NULL) == KXJS_OK && strcmp(text, "OK") == 0 &&
        kxjs_version() == KXJS_VERSION_NUMBER;
    printf("version %s: %s\n", kxjs_version_text(), text);
    kxjs_text_free(result);
    kxjs_host_free(host);
    return is_right ? 0 : 1;
}
