// Its bulk mode: variables are arrays, and one call evaluates all records.
#include <memory>
#include <muParser.h>

#include "columns/ColumnPeer.h"

namespace bench {

ColumnWork columnsOfMuParser(ColumnFormula const& formula, ColumnData& data) {
    if (formula.muParser.empty()) return {};
    auto const parser = std::make_shared<mu::Parser>();
    parser->DefineVar("A", data.a.data());
    parser->DefineVar("B", data.b.data());
    parser->SetExpr(formula.muParser);
    return [&data, parser] { parser->Eval(data.numbers.data(), static_cast<int>(data.a.size())); };
}

}  // namespace bench
