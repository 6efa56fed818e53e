#include "ArrayReader.h"

#include <stdexcept>

#include "Check.h"

namespace test {

std::optional<std::wstring> element(VARIANT const& array, std::vector<LONG> indices) {
    BSTR text = nullptr;
    HRESULT const outcome = SafeArrayGetElement(array.parray, indices.data(), &text);
    if (FAILED(outcome)) throw std::runtime_error("no such element: " + show(indices));
    if (text == nullptr) return std::nullopt;
    std::wstring const result(text, SysStringLen(text));
    SysFreeString(text);
    return result;
}

void checkShape(VARIANT const& array, std::vector<LONG> const& counts, char const* file, int line) {
    report(array.vt == 0x2008, file, line, "the VARIANT's type is " + show(array.vt));
    if (array.vt != (VT_ARRAY | VT_BSTR)) return;
    VARTYPE type = VT_EMPTY;
    SafeArrayGetVartype(array.parray, &type);
    checkEqual(static_cast<int>(VT_BSTR), static_cast<int>(type), file, line, "element type");

    std::vector<LONG> lower;
    std::vector<LONG> actual;
    for (UINT dimension = 1; dimension <= SafeArrayGetDim(array.parray); ++dimension) {
        LONG first = -1;
        LONG last = -1;
        SafeArrayGetLBound(array.parray, dimension, &first);
        SafeArrayGetUBound(array.parray, dimension, &last);
        lower.push_back(first);
        actual.push_back(last - first + 1);
    }
    checkEqual(std::vector<LONG>(counts.size(), 0), lower, file, line, "lower bounds");
    checkEqual(counts, actual, file, line, "numbers of elements");
}

}  // namespace test
