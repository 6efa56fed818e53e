#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace bench {

/// A formula over columns in the notation of each engine; empty where an engine has none.
struct ColumnFormula {
    std::string title;
    std::string library;  ///< the older language
    std::string muParser;
    std::string lua;
    bool isText = false;
};

/// The columns A and B, numbers, and NAME, texts of ASCII characters; and what comes of them.
struct ColumnData {
    std::vector<double> a, b;
    std::vector<std::string> names;
    std::vector<std::u16string> wideNames;
    std::vector<double> numbers;
    std::vector<std::string> texts;
    std::vector<std::u16string> wideTexts;
};

/// A compiled formula for columns: a call evaluates all records.
using ColumnWork = std::function<void()>;

/// Empty where the engine cannot do it.
ColumnWork columnsOfLibrary(ColumnFormula const& formula, ColumnData& data);
ColumnWork oneByOneOfLibrary(ColumnFormula const& formula, ColumnData& data);
ColumnWork columnsOfMuParser(ColumnFormula const& formula, ColumnData& data);
ColumnWork columnsOfLuaJit(ColumnFormula const& formula, ColumnData& data);

}  // namespace bench
