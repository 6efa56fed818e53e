#pragma once

#include <array>
#include <cstddef>
#include <memory_resource>
#include <string>

#include "convert/CallIndex.h"
#include "convert/Matcher.h"

namespace kx {

/// The text under conversion and the memory that its rules use in turn. Formulas of ordinary
/// length need no memory from the heap but for their text.
class Workspace {
    std::array<std::byte, 4096> near;
    std::pmr::monotonic_buffer_resource memory{near.data(), near.size()};

  public:
    explicit Workspace(std::u16string& text) : text(text) {}
    Workspace(Workspace const&) = delete;
    Workspace& operator=(Workspace const&) = delete;

    std::u16string& text;  ///< a rule exchanges it for its result when that is complete
    std::u16string rewritten;
    Calls calls{&memory};  ///< of the text, while call rules are applied
    Calls rewrittenCalls{&memory};
    MatcherMemory matching{&memory};
};

}  // namespace kx
