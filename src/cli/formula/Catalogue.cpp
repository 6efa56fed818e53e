#include "cli/formula/Catalogue.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

#include "library/Catalogues.h"
#include "translate/KxJsTranslator.h"

namespace kx {
namespace {

/// The Levenshtein distance: how many letters to insert, remove or replace.
std::size_t editDistance(std::u16string const& from, std::u16string const& to) {
    // One row of the table at a time: row[j] is the distance to the first j letters of `to`.
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < from.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < to.size(); ++j) {
            std::size_t const replaced = diagonal + (from[i] == to[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

bool contains(std::u16string const& text, std::u16string const& part) {
    return text.find(part) != std::u16string::npos;
}

constexpr std::size_t kMostNames = 5;

}  // namespace

std::vector<Catalogue> const& builtInCatalogues() {
    static std::vector<Catalogue> const catalogues = {
        {u"Mathematical functions", buildMathFunctions()},
        {u"String functions", buildStringFunctions()},
        {u"Miscellaneous functions", buildMiscFunctions()}};
    return catalogues;
}

std::vector<Catalogue> const& cataloguesOf(bool isTranslated) {
    if (!isTranslated) return builtInCatalogues();
    static std::vector<Catalogue> const translated = [] {
        std::vector<Catalogue> catalogues(1);
        catalogues[0].functions = KxJsTranslator::functions();
        catalogues[0].title = catalogues[0].functions.front().getCategory();
        return catalogues;
    }();
    return translated;
}

std::u16string signatureOf(KxJsFunction const& function) {
    std::u16string signature = function.getName() + u"(";
    for (KxJsFunction::Parameter const& parameter : function.getParameters()) {
        if (signature.back() != u'(') signature += u", ";
        signature += parameter.first;
    }
    return signature + u")";
}

std::vector<std::u16string> namesNear(std::u16string const& name,
                                      std::vector<Catalogue> const& catalogues) {
    // A third of the letters may differ. One or two letters match only exactly or as a part.
    std::size_t const tolerance = name.size() / 3;
    std::vector<std::pair<std::size_t, std::u16string>> ranked;
    for (Catalogue const& catalogue : catalogues) {
        for (KxJsFunction const& function : catalogue.functions) {
            std::u16string const& known = function.getName();
            std::size_t const distance = editDistance(name, known);
            bool const contained =
                !name.empty() && (contains(known, name) || contains(name, known));
            if (distance <= tolerance || contained) ranked.emplace_back(distance, known);
        }
    }
    // Stable: names at the same distance keep the catalogue's order.
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](auto const& a, auto const& b) { return a.first < b.first; });
    if (ranked.size() > kMostNames) ranked.resize(kMostNames);
    std::vector<std::u16string> names;
    names.reserve(ranked.size());
    for (auto& [distance, known] : ranked) names.push_back(std::move(known));
    return names;
}

}  // namespace kx
