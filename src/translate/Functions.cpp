#include "translate/Functions.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kx::translate {
namespace {

using Meaning = FunctionName::Meaning;

constexpr auto kInstalledOnly = std::to_array<std::u16string_view>({
    u"ANTILOG", u"BUMP",    u"CONCAT",   u"COND",      u"EVEN",     u"FRAC",
    u"IOCCURS", u"ISALNUM", u"ISASCII",  u"ISCNTRL",   u"ISGRAPH",  u"ISPRINT",
    u"ISPUNCT", u"ISSPACE", u"ISXDIGIT", u"LISTFUNCT", u"LOCATE",   u"ODD",
    u"REPLACE", u"RPAD",    u"STRZ",     u"SWITCH",    u"TRUNCATE",
});

struct Entry {
    std::u16string_view name;
    FunctionName meaning;
};

/// All names that formulas may use, sorted.
std::vector<Entry> makeIndex() {
    std::vector<Entry> index;
    for (LanguageFunction const* const function : languageFunctions()) {
        index.push_back({function->row.name, {Meaning::language, function}});
        for (char16_t const* const synonym : function->synonyms) {
            index.push_back({synonym, {Meaning::language, function}});
        }
    }
    for (auto const name : kInstalledOnly) index.push_back({name, {Meaning::installed}});
    index.push_back({u"ICASE", {Meaning::cases}});
    index.push_back({u"EVAL", {Meaning::evaluation}});
    index.push_back({u"EVALUATE", {Meaning::evaluation}});
    std::sort(index.begin(), index.end(),
              [](Entry const& a, Entry const& b) { return a.name < b.name; });
    return index;
}

/// The one function that all names beginning with `name` are names of. Those that only the
/// installed catalogue has cannot be cut.
FunctionName findCut(std::vector<Entry> const& index, std::vector<Entry>::const_iterator from,
                     std::u16string_view name) {
    FunctionName found;
    for (; from != index.end() && from->name.starts_with(name); ++from) {
        if (from->meaning.meaning == Meaning::installed) continue;
        bool const isOther =
            found.meaning != Meaning::unknown &&
            (found.meaning != from->meaning.meaning || found.function != from->meaning.function);
        if (isOther) return {Meaning::ambiguous};
        found = from->meaning;
    }
    return found;
}

}  // namespace

std::vector<LanguageFunction const*> const& languageFunctions() {
    static auto const& all = *[] {
        auto* const functions = new std::vector<LanguageFunction const*>;
        for (LanguageTable const* const table :
             {&textFunctions, &textSearchFunctions, &numberFunctions, &dateFunctions,
              &valueFunctions}) {
            for (LanguageFunction const& function : *table) functions->push_back(&function);
        }
        return functions;
    }();
    return all;
}

FunctionName findFunction(std::u16string_view name) {
    static auto const& index = *new std::vector<Entry>(makeIndex());
    auto const from = std::lower_bound(
        index.begin(), index.end(), name,
        [](Entry const& entry, std::u16string_view sought) { return entry.name < sought; });
    if (from != index.end() && from->name == name) return from->meaning;
    constexpr std::size_t kShortestCut = 4;
    return name.size() < kShortestCut ? FunctionName{} : findCut(index, from, name);
}

bool isInstalledOnly(std::u16string_view name) {
    return std::binary_search(kInstalledOnly.begin(), kInstalledOnly.end(), name);
}

}  // namespace kx::translate
