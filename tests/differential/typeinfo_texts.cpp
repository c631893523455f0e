#include "typeinfo_texts.h"

#include <cstdio>

namespace typeinfo_probe {
namespace {

std::string hex(unsigned long value)
{
    char written[24];
    std::snprintf(written, sizeof written, "0x%lX", value);
    return written;
}

std::string number(long value) { return std::to_string(value); }

std::string element(const ELEMDESC& described, ITypeInfo* context, bool parameter)
{
    std::string written = type(described.tdesc, context);
    if (!parameter)
        return written;
    written += " flags " + hex(described.paramdesc.wParamFlags);
    if ((described.paramdesc.wParamFlags & PARAMFLAG_FHASDEFAULT) != 0 && described.paramdesc.pparamdescex != nullptr)
        written += " default " + probe::value(described.paramdesc.pparamdescex->varDefaultValue);
    return written;
}

ITypeLibPtr loaded(const wchar_t* path)
{
    ITypeLib* library = nullptr;
    LoadTypeLibEx(path, REGKIND_NONE, &library);
    return ITypeLibPtr(library, false);
}

}  // namespace

ITypeLib* hostLibrary()
{
    static const ITypeLibPtr library = loaded(MX_HOST_TYPE_LIBRARY_PATH);
    return library;
}

ITypeLib* simulatorLibrary()
{
    static const ITypeLibPtr library = loaded(MX_SIM_TYPE_LIBRARY_PATH);
    return library;
}

std::string described(HRESULT loaded, const std::string& description)
{
    return FAILED(loaded) ? probe::status(loaded) : probe::status(loaded) + " " + description;
}

std::string guid(const GUID& value)
{
    char written[40];
    std::snprintf(written, sizeof written, "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}",
                  static_cast<unsigned>(value.Data1), value.Data2, value.Data3, value.Data4[0], value.Data4[1],
                  value.Data4[2], value.Data4[3], value.Data4[4], value.Data4[5], value.Data4[6], value.Data4[7]);
    return written;
}

std::string type(const TYPEDESC& described, ITypeInfo* context)
{
    switch (described.vt) {
    case VT_PTR:
        return "PTR " + type(*described.lptdesc, context);
    case VT_SAFEARRAY:
        return "SAFEARRAY " + type(*described.lptdesc, context);
    case VT_CARRAY: {
        std::string written = "CARRAY";
        for (USHORT d = 0; d < described.lpadesc->cDims; ++d)
            written += "[" + number(described.lpadesc->rgbounds[d].lLbound) + "+" +
                       number(static_cast<long>(described.lpadesc->rgbounds[d].cElements)) + "]";
        return written + " " + type(described.lpadesc->tdescElem, context);
    }
    case VT_USERDEFINED: {
        std::string written = "USERDEFINED " + hex(static_cast<unsigned long>(described.hreftype) & 0xFFFFFFFFul);
        ITypeInfoPtr referenced;
        const HRESULT found = context->GetRefTypeInfo(described.hreftype, &referenced);
        return written + " " + (SUCCEEDED(found) ? identity(referenced) : probe::status(found));
    }
    default:
        return "VT " + number(described.vt);
    }
}

std::string attributes(const TYPEATTR& a, ITypeInfo* context)
{
    std::string written = guid(a.guid) + " lcid " + hex(a.lcid) + " reserved " + hex(a.dwReserved) +
                           " constructor " + number(a.memidConstructor) + " destructor " +
                           number(a.memidDestructor) + " schema " + (a.lpstrSchema ? "set" : "null") +
                           " size " + number(static_cast<long>(a.cbSizeInstance)) + " kind " + number(a.typekind) +
                           " funcs " + number(a.cFuncs) + " vars " + number(a.cVars) + " impls " +
                           number(a.cImplTypes) + " vft " + number(a.cbSizeVft) + " align " +
                           number(a.cbAlignment) + " flags " + hex(a.wTypeFlags) + " version " +
                           number(a.wMajorVerNum) + "." + number(a.wMinorVerNum) + " idl " +
                           hex(a.idldescType.wIDLFlags);
    if (a.typekind == TKIND_ALIAS)
        written += " alias " + type(a.tdescAlias, context);
    return written;
}

std::string function(const FUNCDESC& f, ITypeInfo* context)
{
    std::string written = "memid " + hex(static_cast<unsigned long>(f.memid) & 0xFFFFFFFFul) + " funckind " +
                          number(f.funckind) + " invkind " + number(f.invkind) + " callconv " +
                          number(f.callconv) + " params " + number(f.cParams) + " optional " +
                          number(f.cParamsOpt) + " vft " + number(f.oVft) + " scodes " + number(f.cScodes) +
                          " flags " + hex(f.wFuncFlags) + " result " + element(f.elemdescFunc, context, false);
    for (SHORT p = 0; p < f.cParams; ++p)
        written += " | " + element(f.lprgelemdescParam[p], context, true);
    return written;
}

std::string variable(const VARDESC& v, ITypeInfo* context)
{
    std::string written = "memid " + hex(static_cast<unsigned long>(v.memid) & 0xFFFFFFFFul) + " varkind " +
                          number(v.varkind) + " flags " + hex(v.wVarFlags) + " type " +
                          type(v.elemdescVar.tdesc, context) + " schema " + (v.lpstrSchema ? "set" : "null");
    if (v.varkind == VAR_CONST)
        written += " value " + probe::value(*v.lpvarValue);
    else
        written += " offset " + number(static_cast<long>(v.oInst));
    return written;
}

std::string documentation(ITypeInfo* typeInfo, MEMBERID member)
{
    BSTR name = nullptr;
    BSTR doc = nullptr;
    BSTR file = nullptr;
    DWORD context = 7;
    const HRESULT status = typeInfo->GetDocumentation(member, &name, &doc, &context, &file);
    const std::string written = probe::status(status) + " " + probe::text(name) + " " + probe::text(doc) + " " +
                                number(static_cast<long>(context)) + " " + probe::text(file);
    SysFreeString(name);
    SysFreeString(doc);
    SysFreeString(file);
    return written;
}

std::string identity(ITypeInfo* typeInfo)
{
    BSTR name = nullptr;
    typeInfo->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr);
    std::string written = probe::text(name);
    SysFreeString(name);
    ITypeLibPtr library;
    UINT index = 99;
    const HRESULT contained = typeInfo->GetContainingTypeLib(&library, &index);
    if (FAILED(contained))
        return written + " in " + probe::status(contained);
    BSTR libraryName = nullptr;
    library->GetDocumentation(-1, &libraryName, nullptr, nullptr, nullptr);
    written += " in " + probe::text(libraryName) + "#" + number(static_cast<long>(index));
    SysFreeString(libraryName);
    return written;
}

}  // namespace typeinfo_probe
