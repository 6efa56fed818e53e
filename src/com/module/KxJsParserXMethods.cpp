#include "Arrays.h"
#include "KxJsParserX.h"
#include "StackLimits.h"
#include "Texts.h"

// The methods of IKxJsParserX: turning COM's types into the bridge's and back.

using kx::asHresult;
using kx::OutArray;
using kx::OutText;
using kx::textOf;

namespace {

/// Only VARIANT_TRUE is true; clients rely on 1 counting as false.
bool isTrue(VARIANT_BOOL value) { return value == VARIANT_TRUE; }

VARIANT_BOOL variantBool(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }

/// Hands a flag to the caller where the call was done.
HRESULT deliverFlag(kx::BridgeResult result, bool flag, VARIANT_BOOL* destination) {
    HRESULT const outcome = asHresult(result);
    if (SUCCEEDED(outcome) && destination != nullptr) *destination = variantBool(flag);
    return outcome;
}

}  // namespace

STDMETHODIMP KxJsParserX::initialize() { return asHresult(bridge_.initialize(parser_)); }

STDMETHODIMP KxJsParserX::variableExist(BSTR strVarName, VARIANT_BOOL* pbRetVal) {
    bool exists = false;
    kx::BridgeResult const result = bridge_.variableExist(parser_, textOf(strVarName), exists);
    return deliverFlag(result, exists, pbRetVal);
}

STDMETHODIMP KxJsParserX::getVariableType(BSTR strVarName, TypeOfVariable* pTypeOfVariable) {
    std::int32_t type = TYPE_OF_VAR_UNDEFINED;
    HRESULT const outcome = asHresult(bridge_.getVariableType(parser_, textOf(strVarName), type));
    if (FAILED(outcome) || pTypeOfVariable == nullptr) return outcome;
    bool const known = type >= TYPE_OF_VAR_LONG && type <= TYPE_OF_VAR_BOOLEAN;
    *pTypeOfVariable = known ? static_cast<TypeOfVariable>(type) : TYPE_OF_VAR_UNDEFINED;
    return outcome;
}

STDMETHODIMP KxJsParserX::parse(BSTR strSource, BSTR* pstrError, LONG* plScriptIndex) {
    OutText error(pstrError);
    // The text of a success is allocated beforehand: afterwards the script would be stored and
    // its index lost.
    if (!error.prepare()) return E_OUTOFMEMORY;
    std::int32_t index = -1;
    kx::BridgeResult const result =
        bridge_.parse(parser_, textOf(strSource), error.receiver(), index);
    HRESULT const outcome = deliver(result, error);
    if (SUCCEEDED(outcome) && plScriptIndex != nullptr) *plScriptIndex = index;
    return outcome;
}

STDMETHODIMP KxJsParserX::execute(LONG lScriptIndex, BSTR* pstrError, BSTR* pstrRetVal) {
    if (pstrError == nullptr || pstrRetVal == nullptr) return E_POINTER;
    OutText error(pstrError);
    OutText text(pstrRetVal);
    return deliver(bridge_.execute(parser_, lScriptIndex, error.receiver(), text.receiver()), error,
                   text);
}

STDMETHODIMP KxJsParserX::addSetVariableString(BSTR strVarName, BSTR strValue,
                                               VARIANT_BOOL* pbRetVal) {
    if (pbRetVal == nullptr) return E_POINTER;
    bool stored = false;
    kx::BridgeResult const result =
        bridge_.addSetString(parser_, textOf(strVarName), textOf(strValue), stored);
    return deliverFlag(result, stored, pbRetVal);
}

STDMETHODIMP KxJsParserX::addSetVariableLong(BSTR strVarName, LONG lValue, VARIANT_BOOL* pbRetVal) {
    if (pbRetVal == nullptr) return E_POINTER;
    bool stored = false;
    kx::BridgeResult const result = bridge_.addSetLong(parser_, textOf(strVarName), lValue, stored);
    return deliverFlag(result, stored, pbRetVal);
}

STDMETHODIMP KxJsParserX::addSetVariableDouble(BSTR strVarName, DOUBLE dValue,
                                               VARIANT_BOOL* pbRetVal) {
    if (pbRetVal == nullptr) return E_POINTER;
    bool stored = false;
    kx::BridgeResult const result =
        bridge_.addSetDouble(parser_, textOf(strVarName), dValue, stored);
    return deliverFlag(result, stored, pbRetVal);
}

STDMETHODIMP KxJsParserX::addSetVariableBool(BSTR strVarName, VARIANT_BOOL bValue,
                                             VARIANT_BOOL* pbRetVal) {
    if (pbRetVal == nullptr) return E_POINTER;
    bool stored = false;
    kx::BridgeResult const result =
        bridge_.addSetBool(parser_, textOf(strVarName), isTrue(bValue), stored);
    return deliverFlag(result, stored, pbRetVal);
}

STDMETHODIMP KxJsParserX::convert(BSTR strFormula, BSTR* pstrRetVal) {
    if (pstrRetVal == nullptr) return E_POINTER;
    OutText text(pstrRetVal);
    return deliver(bridge_.convert(textOf(strFormula), text.receiver()), text);
}

STDMETHODIMP KxJsParserX::getUserDocumentationOnePage(VARIANT_BOOL bStandalone,
                                                      VARIANT_BOOL bWithExample, BSTR* pstrRetVal) {
    if (pstrRetVal == nullptr) return E_POINTER;
    OutText page(pstrRetVal);
    return deliver(
        bridge_.documentationOnePage(isTrue(bStandalone), isTrue(bWithExample), page.receiver()),
        page);
}

STDMETHODIMP KxJsParserX::getUserDocumentationManyPages(VARIANT* pRetVal) {
    if (pRetVal == nullptr) return E_POINTER;
    OutArray pages(pRetVal, kx::ArrayShape::pairs);
    return deliver(bridge_.documentationManyPages(pages.receiver()), pages);
}

STDMETHODIMP KxJsParserX::extractVariable(BSTR strSource, BSTR* pstrError, VARIANT* pRetVal) {
    if (pRetVal == nullptr) return E_POINTER;
    OutText error(pstrError);
    OutArray names(pRetVal, kx::ArrayShape::list);
    kx::StackLimits const stack;
    return deliver(bridge_.extractVariable(stack.low, stack.high, textOf(strSource),
                                           error.receiver(), names.receiver()),
                   error, names);
}

STDMETHODIMP KxJsParserX::reset() { return asHresult(bridge_.reset(parser_)); }

HRESULT KxJsParserX::listCatalogue(kx::BridgeCatalogue which, VARIANT* vector) {
    OutArray records(vector, kx::ArrayShape::square);
    return deliver(bridge_.catalogue(which, records.receiver()), records);
}

// The count is declared and never written; clients read the bounds of the array.

STDMETHODIMP KxJsParserX::getMathFunctions(VARIANT* MathFunctionsVector, INT* /*piCount*/) {
    return listCatalogue(kx::BridgeCatalogue::math, MathFunctionsVector);
}

STDMETHODIMP KxJsParserX::getStringFunctions(VARIANT* StringFunctionsVector, INT* /*piCount*/) {
    return listCatalogue(kx::BridgeCatalogue::string, StringFunctionsVector);
}

STDMETHODIMP KxJsParserX::getOtherFunctions(VARIANT* OtherFunctionsVector, INT* /*piCount*/) {
    return listCatalogue(kx::BridgeCatalogue::other, OtherFunctionsVector);
}
