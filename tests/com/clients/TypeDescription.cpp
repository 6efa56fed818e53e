#include "TypeDescription.h"

#include <array>

#include "support/Com.h"

namespace test {

namespace {

std::wstring describeType(ITypeInfo* info, TYPEDESC const& type) {
    switch (type.vt) {
        case VT_I4:
            return L"LONG";
        case VT_INT:
            return L"INT";
        case VT_R8:
            return L"DOUBLE";
        case VT_BOOL:
            return L"VARIANT_BOOL";
        case VT_BSTR:
            return L"BSTR";
        case VT_VARIANT:
            return L"VARIANT";
        case VT_HRESULT:
            return L"HRESULT";
        case VT_PTR:
            return describeType(info, *type.lptdesc) + L"*";
        case VT_USERDEFINED: {
            Pointer<ITypeInfo> named;
            info->GetRefTypeInfo(type.hreftype, named.put());
            return nameOf(named.get());
        }
        default:
            return L"type " + std::to_wstring(type.vt);
    }
}

std::wstring describeDirection(USHORT flags) {
    std::wstring text;
    if (flags & PARAMFLAG_FIN) text += L"in ";
    if (flags & PARAMFLAG_FOUT) text += L"out ";
    if (flags & PARAMFLAG_FRETVAL) text += L"retval ";
    return text;
}

std::wstring describeMethod(ITypeInfo* info, FUNCDESC const& method) {
    std::array<BSTR, 16> names = {};
    UINT count = 0;
    info->GetNames(method.memid, names.data(), static_cast<UINT>(names.size()), &count);
    Bstr help;
    info->GetDocumentation(method.memid, nullptr, help.put(), nullptr, nullptr);

    std::wstring text = std::to_wstring(method.memid) + L" " + names[0] + L"(";
    for (SHORT i = 0; i < method.cParams; ++i) {
        ELEMDESC const& parameter = method.lprgelemdescParam[i];
        text += (i > 0 ? L", " : L"") + describeDirection(parameter.paramdesc.wParamFlags) +
                describeType(info, parameter.tdesc) + L" " + names[static_cast<std::size_t>(i) + 1];
    }
    text += L") \"" + help.text() + L"\"";
    std::wstring const result = describeType(info, method.elemdescFunc.tdesc);
    if (result != L"HRESULT") text = result + L" " + text;
    for (UINT i = 0; i < count; ++i) SysFreeString(names[i]);
    return text;
}

}  // namespace

std::wstring nameOf(ITypeInfo* info) {
    Bstr name;
    info->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr);
    return name.text();
}

std::vector<std::wstring> describeMethods(ITypeInfo* info) {
    std::vector<std::wstring> lines;
    FUNCDESC* method = nullptr;
    for (UINT i = 0; SUCCEEDED(info->GetFuncDesc(i, &method)); ++i) {
        lines.push_back(describeMethod(info, *method));
        info->ReleaseFuncDesc(method);
    }
    return lines;
}

std::vector<std::wstring> describeMembers(ITypeInfo* info) {
    std::vector<std::wstring> lines;
    VARDESC* member = nullptr;
    for (UINT i = 0; SUCCEEDED(info->GetVarDesc(i, &member)); ++i) {
        Bstr name;
        UINT count = 0;
        info->GetNames(member->memid, name.put(), 1, &count);
        lines.push_back(name.text() + L" = " + std::to_wstring(member->lpvarValue->lVal));
        info->ReleaseVarDesc(member);
    }
    return lines;
}

}  // namespace test
