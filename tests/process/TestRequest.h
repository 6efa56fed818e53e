#pragma once

#include <cstdint>

/// What the tests' worker understands: a request is one of these, then a number.
enum class TestRequest : std::uint8_t {
    ECHO,      ///< answers with everything after the number
    LENGTHEN,  ///< answers with that many bytes
    PROCESS,   ///< answers with its process id
    SPIN,      ///< never answers, nor looks for interrupts
    WAIT,      ///< answers "interrupted" once it is interrupted
    ALLOCATE,  ///< takes that many bytes in one piece and writes to them; answers "done"
    EXIT,      ///< ends with that status
    ABORT,     ///< ends by SIGABRT
    THREADS,   ///< starts that many threads; answers how many ran
    RANDOM,    ///< answers with random bytes of the system
    ATTACK,    ///< makes the attempt of that number; answers with its name, result and errno
    LIE        ///< tells the lie of that number, over the channel itself
};
