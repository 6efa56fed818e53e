#include "library/FunctionTable.h"

namespace kx {

KxJsFunction buildRecord(char16_t const* category, FunctionRow const& row) {
    KxJsFunction function;
    function.setCategory(category);
    function.setName(row.name);
    for (auto const& [name, description] : row.parameters) {
        function.addParameter({name, description});
    }
    function.setDescription(row.description);
    function.setReturnDescription(row.returns);
    function.setBody(row.body);
    for (char16_t const* example : row.examples) function.addExample(example);
    return function;
}

std::vector<KxJsFunction> buildRecords(char16_t const* category,
                                       std::initializer_list<FunctionTable> tables) {
    std::vector<KxJsFunction> records;
    for (FunctionTable const& table : tables) {
        for (FunctionRow const& row : table) records.push_back(buildRecord(category, row));
    }
    return records;
}

}  // namespace kx
