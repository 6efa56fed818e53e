#pragma once

#include <cstdint>

/// What the tests' worker understands: a request is one of these, then a number.
enum class TestRequest : std::uint8_t {
    echo,      ///< answers with everything after the number
    lengthen,  ///< answers with that many bytes
    process,   ///< answers with its process id
    spin,      ///< never answers, nor looks for interrupts
    wait,      ///< answers "interrupted" once it is interrupted
    allocate,  ///< takes that many bytes in one piece and writes to them; answers "done"
    exit,      ///< ends with that status
    abort,     ///< ends by SIGABRT
    threads,   ///< starts that many threads; answers how many ran
    random,    ///< answers with random bytes of the system
    attack,    ///< makes the attempt of that number; answers with its name, result and errno
    forge      ///< writes the forgery of that number into the channel itself
};
