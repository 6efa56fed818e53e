#pragma once

#include <initializer_list>
#include <string_view>

namespace kx::test {

/// An example of the catalogues whose result is not what it says. It stays, because the texts of
/// the catalogues are never changed.
struct WrongExample {
    std::u16string_view example;
    std::u16string_view actual;  ///< the result when run; empty where it cannot be run
    char const* reason;
};

inline constexpr std::initializer_list<WrongExample> wrongExamples = {
    {u"IIF(true, 'abc','xyz') &rarr; xyz", u"abc",
     "the result is that of a false condition; the example before it has the right one"},
    {u"TALLRIM('abc') &rarr; 'abc'", u"", "misspells ALLTRIM, so the call names no function"},
    {u" ", u"", "LISTFUNCT has a blank for an example: no call and no result"},
};

}  // namespace kx::test
