#include "columns/NativeRun.h"

#include <algorithm>
#include <span>

namespace kx {

NativeRun::NativeRun(InProcessHost& host, HostScript const& script,
                     std::vector<Column> const& columns)
    : host_(host), script_(script) {
    auto const& variables = script.source().variables;
    for (std::size_t i = 0; i < variables.size(); ++i) {
        auto const column = std::find_if(columns.begin(), columns.end(), [&](Column const& each) {
            return each.name == variables[i]->key();
        });
        if (column != columns.end()) columns_.emplace_back(i, &*column);
    }
}

bool NativeRun::block(RecordResults& results, std::size_t last) {
    auto const& variables = script_.source().variables;
    Evaluator& evaluator = host_.evaluator();
    std::span<Value> const values = evaluator.variableValues(variables.size());
    std::transform(variables.begin(), variables.end(), values.begin(),
                   [](BoundVariable const* variable) { return variable->nativeValue(); });
    for (; results.next() < last; results.endRecord()) {
        for (auto const& [place, column] : columns_) {
            values[place] = column->nativeValue(results.next());
        }
        Value const* const value = evaluator.run(*script_.program(), values);
        if (value == nullptr || !results.convert(evaluator, *value)) return false;
        host_.noteMatch(evaluator.match());
    }
    return true;
}

bool NativeRun::readsTexts() const {
    return std::any_of(columns_.begin(), columns_.end(),
                       [](auto const& each) { return each.second->isText(); });
}

}  // namespace kx
