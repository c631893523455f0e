// The host's type library as a whole: loading it (and what is refused), its attributes and
// documentation, its types by index and GUID, names, and what its ITypeComp binds.
#include "typeinfo_texts.h"

#include "host/object_model.h"

using namespace typeinfo_probe;

namespace {

std::string loading(const wchar_t* path)
{
    ITypeLib* library = reinterpret_cast<ITypeLib*>(1);
    const HRESULT status = LoadTypeLibEx(path, REGKIND_NONE, &library);
    const std::string written = probe::status(status) + (library == nullptr ? " null" : " set");
    if (SUCCEEDED(status))
        library->Release();
    return written;
}

std::string documented(INT index)
{
    BSTR name = nullptr;
    BSTR doc = nullptr;
    BSTR file = nullptr;
    DWORD context = 7;
    const HRESULT status = hostLibrary()->GetDocumentation(index, &name, &doc, &context, &file);
    const std::string written = probe::status(status) + " " + probe::text(name) + " " + probe::text(doc) + " " +
                                std::to_string(context) + " " + probe::text(file);
    SysFreeString(name);
    SysFreeString(doc);
    SysFreeString(file);
    return written;
}

std::string found(const wchar_t* name, USHORT room)
{
    std::wstring buffer(name);
    ITypeInfo* typeInfos[4] = {};
    MEMBERID ids[4] = {};
    USHORT count = room;
    const HRESULT status = hostLibrary()->FindName(buffer.data(), 0, typeInfos, ids, &count);
    std::string written = probe::status(status) + " found " + std::to_string(count);
    for (USHORT i = 0; SUCCEEDED(status) && i < count; ++i) {
        written += " [" + identity(typeInfos[i]) + " " + std::to_string(ids[i]) + "]";
        typeInfos[i]->Release();
    }
    return written;
}

std::string named(const wchar_t* name)
{
    std::wstring buffer(name);
    BOOL is = 7;
    const HRESULT status = hostLibrary()->IsName(buffer.data(), 0, &is);
    return probe::status(status) + " " + std::to_string(is) + " " + probe::text(buffer.c_str(), buffer.size());
}

std::string bound(const wchar_t* name, WORD flags)
{
    ITypeCompPtr typeComp;
    const HRESULT got = hostLibrary()->GetTypeComp(&typeComp);
    if (FAILED(got))
        return probe::status(got);
    std::wstring buffer(name);
    ITypeInfoPtr typeInfo;
    DESCKIND kind = DESCKIND_MAX;
    BINDPTR result{};
    const HRESULT status = typeComp->Bind(buffer.data(), 0, flags, &typeInfo, &kind, &result);
    std::string written = probe::status(status);
    written += " kind " + std::to_string(kind);
    if (kind == DESCKIND_VARDESC) {
        written += " " + identity(typeInfo) + " " + variable(*result.lpvardesc, typeInfo);
        typeInfo->ReleaseVarDesc(result.lpvardesc);
    } else if (kind == DESCKIND_FUNCDESC) {
        written += " " + identity(typeInfo) + " " + function(*result.lpfuncdesc, typeInfo);
        typeInfo->ReleaseFuncDesc(result.lpfuncdesc);
    } else if (kind == DESCKIND_TYPECOMP) {
        written += result.lptcomp != nullptr ? " typecomp" : " null";
        if (result.lptcomp != nullptr)
            result.lptcomp->Release();
    }
    return written;
}

std::string boundType(const wchar_t* name)
{
    ITypeCompPtr typeComp;
    hostLibrary()->GetTypeComp(&typeComp);
    std::wstring buffer(name);
    ITypeInfoPtr typeInfo;
    ITypeCompPtr typeTypeComp;
    const HRESULT status = typeComp->BindType(buffer.data(), 0, &typeInfo, &typeTypeComp);
    return probe::status(status) + " " + (typeInfo ? identity(typeInfo) : "null") + " " +
           (typeTypeComp ? "typecomp" : "null");
}

}  // namespace

PROBE_CASE(library, loads) { return hostLibrary() != nullptr ? "loaded" : "not loaded"; }
PROBE_CASE(library, load_a_missing_file) { return loading(L"no-such-library.tlb"); }
PROBE_CASE(library, load_a_null_path) { return loading(nullptr); }

PROBE_CASE(library, attributes)
{
    TLIBATTR* attributes = nullptr;
    const HRESULT status = hostLibrary()->GetLibAttr(&attributes);
    if (FAILED(status))
        return probe::status(status);
    const std::string written = guid(attributes->guid) + " lcid " + std::to_string(attributes->lcid) + " syskind " +
                                std::to_string(attributes->syskind) + " version " +
                                std::to_string(attributes->wMajorVerNum) + "." +
                                std::to_string(attributes->wMinorVerNum) + " flags " +
                                std::to_string(attributes->wLibFlags);
    hostLibrary()->ReleaseTLibAttr(attributes);
    return written;
}
PROBE_CASE(library, attributes_into_null) { return probe::status(hostLibrary()->GetLibAttr(nullptr)); }

PROBE_CASE(library, documentation) { return documented(-1); }
PROBE_CASE(library, documentation_of_the_first_type) { return documented(0); }
PROBE_CASE(library, documentation_past_the_types) { return documented(99); }

PROBE_CASE(library, types)
{
    std::string written = std::to_string(hostLibrary()->GetTypeInfoCount());
    for (UINT i = 0; i <= hostLibrary()->GetTypeInfoCount(); ++i) {
        TYPEKIND kind = TKIND_MAX;
        const HRESULT status = hostLibrary()->GetTypeInfoType(i, &kind);
        written += " " + probe::status(status) + ":" + std::to_string(kind);
    }
    return written;
}
PROBE_CASE(library, type_past_the_end)
{
    ITypeInfo* typeInfo = reinterpret_cast<ITypeInfo*>(1);
    const HRESULT status = hostLibrary()->GetTypeInfo(99, &typeInfo);
    return probe::status(status) + (typeInfo == nullptr ? " null" : " untouched");
}
PROBE_CASE(library, type_into_null) { return probe::status(hostLibrary()->GetTypeInfo(0, nullptr)); }
PROBE_CASE(library, type_kind_into_null) { return probe::status(hostLibrary()->GetTypeInfoType(0, nullptr)); }

PROBE_CASE(library, type_of_guid)
{
    ITypeInfoPtr typeInfo;
    const HRESULT status = hostLibrary()->GetTypeInfoOfGuid(__uuidof(HostApplication), &typeInfo);
    return described(status, typeInfo ? identity(typeInfo) : "");
}
PROBE_CASE(library, type_of_an_unknown_guid)
{
    ITypeInfo* typeInfo = reinterpret_cast<ITypeInfo*>(1);
    const HRESULT status = hostLibrary()->GetTypeInfoOfGuid(IID_IDispatch, &typeInfo);
    return probe::status(status) + (typeInfo == nullptr ? " null" : " untouched");
}

PROBE_CASE(library, is_name_of_a_type) { return named(L"HostApplication"); }
PROBE_CASE(library, is_name_in_other_case) { return named(L"hostapplication"); }
PROBE_CASE(library, is_name_of_a_member) { return named(L"ZoomWindow"); }
PROBE_CASE(library, is_name_of_a_parameter) { return named(L"lowerLeft"); }
PROBE_CASE(library, is_name_of_a_constant) { return named(L"zbPlotWindow"); }
PROBE_CASE(library, is_name_of_nothing) { return named(L"Nothing"); }

PROBE_CASE(library, find_a_type) { return found(L"HostApplication", 4); }
PROBE_CASE(library, find_a_member_many_have) { return found(L"Count", 4); }
PROBE_CASE(library, find_with_room_for_one) { return found(L"Count", 1); }
PROBE_CASE(library, find_in_other_case) { return found(L"count", 4); }
PROBE_CASE(library, find_a_constant) { return found(L"zbPlotLayout", 4); }
PROBE_CASE(library, find_nothing) { return found(L"Nothing", 4); }

PROBE_CASE(library, bind_a_constant) { return bound(L"zbPlotWindow", 0); }
PROBE_CASE(library, bind_an_enumeration) { return bound(L"ZbPlotType", 0); }
PROBE_CASE(library, bind_an_interface) { return bound(L"HostApplication", 0); }
PROBE_CASE(library, bind_nothing) { return bound(L"Nothing", 0); }
PROBE_CASE(library, bind_type_of_an_interface) { return boundType(L"HostDocument"); }
PROBE_CASE(library, bind_type_in_other_case) { return boundType(L"hostdocument"); }
PROBE_CASE(library, bind_type_of_nothing) { return boundType(L"Nothing"); }
