#include "c/kxjs_base.h"

static_assert(KXJS_VERSION_NUMBER == KXJS_BUILT_NUMBER, "the header has the project's version");

extern "C" {

char const* kxjs_status_text(kxjs_status status) {
    switch (status) {
        case KXJS_OK:
            return "success";
        case KXJS_RESULT_NAN:
            return "the result contains \"NaN\"";
        case KXJS_FORMULA_FAILED:
            return "the formula failed";
        case KXJS_ENDED:
            return "the evaluation was ended before its last record";
        case KXJS_NOT_FOUND:
            return "there is no such entry";
        case KXJS_REFUSED:
            return "the name or text is not allowed";
        case KXJS_NOT_COMPILED:
            return "the columns have no compiled formula";
        case KXJS_NULL_ARGUMENT:
            return "an argument is null that must not be";
        case KXJS_BAD_ARGUMENT:
            return "an argument is outside of what is allowed";
        case KXJS_BAD_HANDLE:
            return "the handle was freed, never made, or is of another kind";
        case KXJS_WRONG_THREAD:
            return "the script host belongs to another thread or to another engine isolate";
        case KXJS_INVALID_UTF8:
            return "a text is not valid UTF-8";
        case KXJS_TOO_LONG:
            return "a text or a table is too long";
        case KXJS_BUSY:
            return "a running evaluation uses the object";
        case KXJS_NO_MEMORY:
            return "out of memory";
        case KXJS_NO_WORKER:
            return "the worker process could not be started";
        case KXJS_SYSTEM_ERROR:
            return "the system refused what the library needs";
        case KXJS_INTERNAL_ERROR:
            return "the library has a mistake";
        default:
            return "unknown status";
    }
}

int32_t kxjs_version(void) { return KXJS_VERSION_NUMBER; }

char const* kxjs_version_text(void) { return KXJS_BUILT_TEXT; }

}  // extern "C"
