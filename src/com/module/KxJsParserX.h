#pragma once

#include <atomic>
#include <windows.h>

#include "KxJsParserLib.h"
#include "com/Bridge.h"

/// The automation object: one script host of the library behind the dual interface IKxJsParserX.
///
/// A client that uses the parser's state calls initialize() first; the object never does. All
/// calls come in on the thread of the object's apartment, so nothing here takes a lock.
///
/// Methods return S_OK, E_OUTOFMEMORY, E_FAIL where the library fails otherwise, or E_POINTER where
/// a required pointer is null. A result whose pointer is null and not required is dropped. Script
/// errors are texts.
class KxJsParserX final : public IKxJsParserX {
  public:
    /// Makes an object, stand-alone or as the inner object of `outer`, and returns its interface
    /// `riid`.
    static HRESULT create(IUnknown* outer, REFIID riid, void** result);

    // The identity that clients see: the outer object's, where there is one.
    STDMETHODIMP QueryInterface(REFIID riid, void** result) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID riid, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID riid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

    STDMETHODIMP initialize() override;
    STDMETHODIMP variableExist(BSTR strVarName, VARIANT_BOOL* pbRetVal) override;
    STDMETHODIMP getVariableType(BSTR strVarName, TypeOfVariable* pTypeOfVariable) override;
    STDMETHODIMP parse(BSTR strSource, BSTR* pstrError, LONG* plScriptIndex) override;
    STDMETHODIMP execute(LONG lScriptIndex, BSTR* pstrError, BSTR* pstrRetVal) override;
    STDMETHODIMP addSetVariableString(BSTR strVarName, BSTR strValue,
                                      VARIANT_BOOL* pbRetVal) override;
    STDMETHODIMP addSetVariableLong(BSTR strVarName, LONG lValue, VARIANT_BOOL* pbRetVal) override;
    STDMETHODIMP addSetVariableDouble(BSTR strVarName, DOUBLE dValue,
                                      VARIANT_BOOL* pbRetVal) override;
    STDMETHODIMP addSetVariableBool(BSTR strVarName, VARIANT_BOOL bValue,
                                    VARIANT_BOOL* pbRetVal) override;
    STDMETHODIMP convert(BSTR strFormula, BSTR* pstrRetVal) override;
    STDMETHODIMP getUserDocumentationOnePage(VARIANT_BOOL bStandalone, VARIANT_BOOL bWithExample,
                                             BSTR* pstrRetVal) override;
    STDMETHODIMP getUserDocumentationManyPages(VARIANT* pRetVal) override;
    STDMETHODIMP extractVariable(BSTR strSource, BSTR* pstrError, VARIANT* pRetVal) override;
    STDMETHODIMP reset() override;
    STDMETHODIMP getMathFunctions(VARIANT* MathFunctionsVector, INT* piCount) override;
    STDMETHODIMP getStringFunctions(VARIANT* StringFunctionsVector, INT* piCount) override;
    STDMETHODIMP getOtherFunctions(VARIANT* OtherFunctionsVector, INT* piCount) override;

  private:
    /// The object's own identity, which counts the references and never delegates.
    class Identity final : public IUnknown {
      public:
        explicit Identity(KxJsParserX& object) : object_(object) {}
        STDMETHODIMP QueryInterface(REFIID riid, void** result) override;
        STDMETHODIMP_(ULONG) AddRef() override;
        STDMETHODIMP_(ULONG) Release() override;

      private:
        KxJsParserX& object_;
        std::atomic<ULONG> references_{0};
    };

    KxJsParserX(IUnknown* outer, kx::Bridge const& bridge);
    ~KxJsParserX();
    HRESULT construct();
    HRESULT listCatalogue(kx::BridgeCatalogue which, VARIANT* vector);

    kx::Bridge const& bridge_;
    kx::BridgeParser* parser_ = nullptr;
    Identity identity_;
    IUnknown* outer_;  // not counted: the outer object lives longer than its inner one
};
