#pragma once

/// Marks a name that the shared library exports. Everything else is hidden.
#if defined(_WIN32)
#define KXJS_API
#else
#define KXJS_API __attribute__((visibility("default")))
#endif
