#include "cli/prompt/NameCompletion.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "cli/formula/Catalogue.h"
#include "text/NameUnits.h"

namespace kx {
namespace {

constexpr std::array<std::u16string_view, 6> kCommands = {u":help",  u":js",   u":quit",
                                                          u":reset", u":time", u":vars"};

/// Commands are words that begin with a colon.
bool isInWord(char16_t unit) { return mayBeNamePart(unit) || unit == u':'; }

/// Whether `name` begins with `start`, in any case of ASCII letters.
bool beginsWith(std::u16string_view name, std::u16string_view start) {
    auto const lower = [](char16_t unit) {
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
    };
    return name.size() >= start.size() &&
           std::equal(start.begin(), start.end(), name.begin(),
                      [&](char16_t a, char16_t b) { return lower(a) == lower(b); });
}

}  // namespace

Completion completeName(std::u16string const& beforeCursor,
                        std::map<std::u16string, KxJsVariable> const& variables,
                        std::vector<Catalogue> const& catalogues) {
    std::size_t start = beforeCursor.size();
    while (start > 0 && isInWord(beforeCursor[start - 1])) --start;
    std::u16string const word = beforeCursor.substr(start);
    Completion found;
    found.wordLength = word.size();
    if (word.empty()) return found;
    bool const isHelp = beforeCursor.starts_with(u":help");
    for (std::u16string_view const command : kCommands) {
        if (start == 0 && command.starts_with(word)) found.candidates.emplace_back(command);
    }
    for (auto const& [name, variable] : variables) {
        if (!isHelp && name.starts_with(word)) found.candidates.push_back(name);
    }
    for (Catalogue const& catalogue : catalogues) {
        for (KxJsFunction const& function : catalogue.functions) {
            if (!beginsWith(function.getName(), word)) continue;
            found.candidates.push_back(function.getName() + (isHelp ? u"" : u"("));
        }
    }
    std::sort(found.candidates.begin(), found.candidates.end());
    return found;
}

}  // namespace kx
