#include "library/Catalogues.h"
#include "library/StringTables.h"

std::vector<KxJsFunction> buildStringFunctions() {
    return kx::buildRecords(u"String functions",
                            {kx::stringFormatting, kx::stringExtraction, kx::stringClassification,
                             kx::stringSearchAndReplacement, kx::stringCodesAndCase});
}
