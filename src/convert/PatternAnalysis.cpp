#include "convert/PatternAnalysis.h"

#include <algorithm>

#include "convert/FunctionNameAlphabet.h"

namespace kx {

namespace {

bool isSingle(Item const& item) { return item.count == Item::Count::one; }

bool isLiteral(Item const& item) { return isSingle(item) && item.units == Item::Units::literal; }

Word leadingWord(Branch const& branch, std::size_t maxLength) {
    Word word;
    for (Item const& item : branch.items) {
        if (!isSingle(item) || word.size() == maxLength) break;
        word.push_back(item.set);
    }
    return word;
}

/// The name of a branch of a call, or an empty text.
std::string calledName(Branch const& branch) {
    std::string name;
    for (std::size_t i = 0; i + 1 < branch.items.size(); ++i) {
        Item const& item = branch.items[i];
        if (isLiteral(item) && functionNameLetter(item.first) != 0) {
            name += static_cast<char>(item.first);
            continue;
        }
        Item const& next = branch.items[i + 1];
        bool const isCall = item.count == Item::Count::loop && item.set == whiteSpaceSet() &&
                            isLiteral(next) && next.first == u'(';
        return isCall ? name : std::string();
    }
    return {};
}

}  // namespace

std::vector<Word> leadingWords(Pattern const& pattern, std::size_t maxLength) {
    std::vector<Word> words;
    for (Branch const& branch : pattern.branches()) words.push_back(leadingWord(branch, maxLength));
    return words;
}

std::vector<Word> necessaryWords(Pattern const& pattern, std::size_t maxLength) {
    std::vector<Word> words;
    for (Branch const& branch : pattern.branches()) {
        auto const& items = branch.items;
        if (std::all_of(items.begin(), items.end(), isSingle)) {
            words.push_back(leadingWord(branch, maxLength));
            continue;
        }
        auto const literal = std::find_if(items.begin(), items.end(), isLiteral);
        if (literal == items.end()) return {};
        words.push_back({literal->set});
    }
    return words;
}

std::optional<std::vector<std::string>> calledNames(Pattern const& pattern) {
    std::vector<std::string> names;
    for (Branch const& branch : pattern.branches()) {
        std::string const name = calledName(branch);
        if (name.empty()) return std::nullopt;
        names.push_back(name);
    }
    std::sort(names.begin(), names.end(),
              [](auto const& a, auto const& b) { return a.size() > b.size(); });
    return names;
}

}  // namespace kx
