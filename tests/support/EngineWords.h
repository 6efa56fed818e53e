#pragma once

#include <array>
#include <regex>
#include <string>

#include <v8-version.h>

/// Whether the engine under test is V8 `major`.`minor` or newer.
constexpr bool isSinceV8(int major, int minor) {
    return V8_MAJOR_VERSION > major || (V8_MAJOR_VERSION == major && V8_MINOR_VERSION >= minor);
}

/// Until V8 `major`.`minor`, the engine said `older` where it says what `newer` matches.
struct EngineWording {
    int major;
    int minor;
    wchar_t const* newer;
    wchar_t const* older;
};

inline constexpr std::array kEngineWordings{
    EngineWording{11, 3, L"(Unexpected identifier) '[^']*'", L"$1"},
    EngineWording{11, 3, L"(Invalid count value): -1", L"$1"},
};

/// `result`, which the documentation states, as Math.pow of the engine under test gives it.
inline std::u16string fromEnginesMath(std::u16string const& result) {
    if (isSinceV8(13, 6) && result == u"316.2277660168379") return u"316.22776601683796";
    return result;
}

/// `text`, in the words of the newest engine, in those of the engine under test.
template <class Text>
Text inEnginesWords(Text const& text) {
    std::wstring words(text.begin(), text.end());
    for (EngineWording const& wording : kEngineWordings) {
        if (isSinceV8(wording.major, wording.minor)) continue;
        words = std::regex_replace(words, std::wregex(wording.newer), wording.older);
    }
    return {words.begin(), words.end()};
}
