#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "translate/Tree.h"

namespace kx::translate {

struct NameHash {
    using is_transparent = void;
    std::size_t operator()(std::u16string_view text) const {
        return std::hash<std::u16string_view>()(text);
    }
};

template <class T>
using NameMap = std::unordered_map<std::u16string, T, NameHash, std::equal_to<>>;

struct KnownVariable {
    std::u16string key;  // as the host has it
    Kind kind = Kind::unknown;
};

/// What the caller has told about its formulas. Names are in upper case.
struct Settings {
    bool isExact = false;
    bool isStrict = false;  // names that are not among the variables are findings
    NameMap<KnownVariable> variables;
    NameMap<std::u16string> functions;  // as the host has them
    std::u16string runTime = u"kx";     // how formulas reach the run-time part
    bool hasOwnDateFormat = false;
};

}  // namespace kx::translate
