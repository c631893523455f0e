// The type library loader: any file either loads or is refused with TYPE_E_CANTLOADLIBRARY, and a
// library that loads can be walked the way a client walks one (every type, on both faces of a dual
// interface, its functions, variables, names, documentation, implemented and referenced types and
// bindings) without reading outside the file; everything handed out is given back.
#include "automation.h"

#include "fuzz_check.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <unistd.h>

namespace {

void walkType(const TYPEDESC& type, ITypeInfo* context, int depth)
{
    if (depth > 8)
        return;
    if (type.vt == VT_PTR || type.vt == VT_SAFEARRAY)
        walkType(*type.lptdesc, context, depth + 1);
    else if (type.vt == VT_CARRAY)
        walkType(type.lpadesc->tdescElem, context, depth + 1);
    else if (type.vt == VT_USERDEFINED) {
        ITypeInfoPtr referenced;
        if (SUCCEEDED(context->GetRefTypeInfo(type.hreftype, &referenced)))
            fuzz::require(referenced != nullptr, "a resolved reference gives a type");
    }
}

void walkNames(ITypeInfo* typeInfo, MEMBERID member)
{
    BSTR names[8] = {};
    UINT count = 0;
    if (SUCCEEDED(typeInfo->GetNames(member, names, 8, &count))) {
        fuzz::require(count <= 8, "names fit the room given");
        LPOLESTR asked[8] = {};
        for (UINT i = 0; i < count; ++i)
            asked[i] = names[i] != nullptr ? names[i] : const_cast<OLECHAR*>(L"");
        MEMBERID ids[8] = {};
        if (count > 0)
            typeInfo->GetIDsOfNames(asked, count, ids);
        ITypeCompPtr typeComp;
        if (count > 0 && SUCCEEDED(typeInfo->GetTypeComp(&typeComp))) {
            ITypeInfoPtr bound;
            DESCKIND kind = DESCKIND_NONE;
            BINDPTR result{};
            if (SUCCEEDED(typeComp->Bind(asked[0], 0, 0, &bound, &kind, &result))) {
                if (kind == DESCKIND_FUNCDESC)
                    bound->ReleaseFuncDesc(result.lpfuncdesc);
                else if (kind == DESCKIND_VARDESC)
                    bound->ReleaseVarDesc(result.lpvardesc);
                else if (kind == DESCKIND_TYPECOMP)
                    result.lptcomp->Release();
            }
        }
    }
    for (UINT i = 0; i < count; ++i)
        SysFreeString(names[i]);
    BSTR name = nullptr;
    BSTR doc = nullptr;
    BSTR file = nullptr;
    typeInfo->GetDocumentation(member, &name, &doc, nullptr, &file);
    SysFreeString(name);
    SysFreeString(doc);
    SysFreeString(file);
}

void walkTypeInfo(ITypeInfo* typeInfo, bool otherFace)
{
    TYPEATTR* attributes = nullptr;
    fuzz::require(SUCCEEDED(typeInfo->GetTypeAttr(&attributes)), "every type gives its attributes");
    const WORD functions = attributes->cFuncs;
    const WORD variables = attributes->cVars;
    const WORD implemented = attributes->cImplTypes;
    walkType(attributes->tdescAlias, typeInfo, 0);
    typeInfo->ReleaseTypeAttr(attributes);
    walkNames(typeInfo, MEMBERID_NIL);
    for (UINT f = 0; f < functions; ++f) {
        FUNCDESC* function = nullptr;
        if (FAILED(typeInfo->GetFuncDesc(f, &function)))
            continue;
        walkType(function->elemdescFunc.tdesc, typeInfo, 0);
        for (SHORT p = 0; p < function->cParams; ++p)
            walkType(function->lprgelemdescParam[p].tdesc, typeInfo, 0);
        const MEMBERID id = function->memid;
        typeInfo->ReleaseFuncDesc(function);
        walkNames(typeInfo, id);
    }
    for (UINT v = 0; v < variables; ++v) {
        VARDESC* variable = nullptr;
        if (FAILED(typeInfo->GetVarDesc(v, &variable)))
            continue;
        walkType(variable->elemdescVar.tdesc, typeInfo, 0);
        const MEMBERID id = variable->memid;
        typeInfo->ReleaseVarDesc(variable);
        walkNames(typeInfo, id);
    }
    for (UINT i = 0; i <= implemented; ++i) {
        HREFTYPE reference = 0;
        ITypeInfoPtr referenced;
        if (SUCCEEDED(typeInfo->GetRefTypeOfImplType(i, &reference)))
            typeInfo->GetRefTypeInfo(reference, &referenced);
    }
    HREFTYPE other = 0;
    ITypeInfoPtr face;
    if (!otherFace && SUCCEEDED(typeInfo->GetRefTypeOfImplType(static_cast<UINT>(-1), &other)) &&
        SUCCEEDED(typeInfo->GetRefTypeInfo(other, &face)))
        walkTypeInfo(face, true);
    ITypeInfo2Ptr second(typeInfo);
    CUSTDATA all{};
    if (second && SUCCEEDED(second->GetAllCustData(&all)))
        ClearCustData(&all);
}

// The input as a file of its own, since libraries are loaded from files.
std::string inputFile(const std::uint8_t* data, std::size_t size)
{
    const std::string path = "/tmp/type_library_fuzzer-" + std::to_string(getpid()) + ".tlb";
    std::FILE* file = std::fopen(path.c_str(), "wb");
    fuzz::require(file != nullptr, "the input can be written to a file");
    fuzz::require(std::fwrite(data, 1, size, file) == size || size == 0, "the whole input is written");
    std::fclose(file);
    return path;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string path = inputFile(data, size);
    const std::wstring widePath(path.begin(), path.end());
    ITypeLib* loaded = nullptr;
    const HRESULT status = LoadTypeLibEx(widePath.c_str(), REGKIND_NONE, &loaded);
    std::remove(path.c_str());
    if (FAILED(status)) {
        fuzz::require(status == TYPE_E_CANTLOADLIBRARY, "a file that does not load is refused as no library");
        fuzz::require(loaded == nullptr, "a refused library gives nothing");
        return 0;
    }
    {
        const ITypeLibPtr library(loaded, false);
        TLIBATTR* attributes = nullptr;
        fuzz::require(SUCCEEDED(library->GetLibAttr(&attributes)), "a library gives its attributes");
        library->ReleaseTLibAttr(attributes);
        for (UINT t = 0; t < library->GetTypeInfoCount(); ++t) {
            ITypeInfoPtr typeInfo;
            fuzz::require(SUCCEEDED(library->GetTypeInfo(t, &typeInfo)), "every type of the count is there");
            walkTypeInfo(typeInfo, false);
        }
    }
    fuzz::require(automation_testing::liveStrings() == 0, "every string handed out is freed");
    return 0;
}
