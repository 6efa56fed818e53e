#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// What went wrong in the last call of a host, with its place in the source as the caller wrote it.
/// The error text tells the same failure, but counts the lines that bound variables add in front of
/// a script. docs/errors.md compares the two.
///
///     if (KxJsFailure const* failure = parser.lastFailure(); failure && failure->line > 0)
///         editor.underline(failure->line, failure->column, failure->endColumn);
///
/// A plain value; one thread at a time.
struct KxJsFailure {
    /// Which step failed.
    enum class Kind : std::int32_t {
        COMPILE_ERROR = 0,  ///< the source did not compile
        RUN_ERROR = 1,      ///< the script threw an exception
        LIMIT = 2,          ///< a limit or terminate() ended the script, not its process
        WORKER_ENDED = 3    ///< an isolated host's worker process ended with the script
    };

    /// A call that was going on when the exception was made.
    struct Frame {
        std::u16string function;  ///< name of the function; empty for a script's own level
        std::int32_t line = 0;    ///< counted from 1, in the text that the frame lies in
        std::int32_t column = 0;  ///< counted from 1, in UTF-16 code units
        bool isInSource = false;  ///< whether that text is the caller's source
    };

    Kind kind = Kind::RUN_ERROR;  ///< the step that failed
    std::u16string message;       ///< the exception's text, as in the error text

    std::int32_t line = 0;       ///< in the caller's source, from 1; 0 where no place is known
    std::int32_t column = 0;     ///< of the mistake's begin, from 1, in UTF-16 code units; or 0
    std::int32_t endColumn = 0;  ///< the first column behind the mistake, on the same line; or 0
    /// The exception comes from elsewhere (a built-in function, another script, evaluated text),
    /// and the place is the call in the source that led there.
    bool isInCall = false;
    std::u16string sourceLine;  ///< the text of that line, without its end

    /// The calls, innermost first; empty where none were captured. At most 32.
    std::vector<Frame> frames;
};
