#include "columns/ColumnsBackend.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "host/KxJsParser.h"

namespace kx {

void ColumnsBackend::bind(std::u16string const& name, Column::Values values) {
    refuseWhileEvaluating();
    auto const found = std::find_if(columns_.begin(), columns_.end(),
                                    [&](Column const& column) { return column.name == name; });
    if (found != columns_.end()) {
        if (found->values.index() != values.index()) typeWasChanged();
        found->values = values;
        return;
    }
    forgetFormula();
    columns_.push_back({name, values});
}

void ColumnsBackend::setProgress(KxJsColumns::Progress progress) {
    refuseWhileEvaluating();
    progress_ = std::move(progress);
}

bool ColumnsBackend::bindToHost(std::u16string& error) {
    for (Column const& column : columns_) {
        if (parser_.addSetVariable(column.blank())) continue;
        error = u"A column cannot have the name \"" + column.name + u"\"";
        return false;
    }
    return true;
}

void ColumnsBackend::refuseWhileEvaluating() const {
    if (isEvaluating_) throw std::logic_error("the columns are being evaluated");
}

}  // namespace kx
