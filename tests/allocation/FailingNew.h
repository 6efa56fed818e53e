#pragma once

#include <cstddef>

/// Lets one allocation of the library fail, as if there were no memory, while it lives. Only what
/// code of libKxJsParser asks for counts, directly or through the standard library: V8
/// would end the process.
class FailingNew {
  public:
    /// The allocation `which`, counted from 1.
    explicit FailingNew(std::size_t which);
    ~FailingNew();
    FailingNew(FailingNew const&) = delete;
    FailingNew& operator=(FailingNew const&) = delete;

    /// Whether it has come to that.
    static bool hasFailed();
};
