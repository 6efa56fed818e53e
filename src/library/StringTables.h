#pragma once

#include "library/FunctionTable.h"

namespace kx {

// The five tables of the string catalogue, in its order.
extern FunctionTable const stringFormatting;            ///< LTRIM to RPAD
extern FunctionTable const stringExtraction;            ///< LEFT to IOCCURS
extern FunctionTable const stringClassification;        ///< ISALPHA to ISASCII
extern FunctionTable const stringSearchAndReplacement;  ///< REPLACE to CHRTRAN
extern FunctionTable const stringCodesAndCase;          ///< ASCII to LEN

}  // namespace kx
