// Every type of the host's and the simulator's libraries as a client walks it: its attributes, each function and
// variable with its names, documentation and ids of names, the types it implements and refers
// to, the other face of a dual interface, ITypeComp and ITypeInfo2, and the errors of indexes,
// ids and names a type does not have.
#include "typeinfo_texts.h"

#include <vector>

using namespace typeinfo_probe;

namespace {

// A custom data GUID no type of the host's library has.
const GUID kUnknownData = {0x12345678, 0x1234, 0x1234, {1, 2, 3, 4, 5, 6, 7, 8}};

std::string names(ITypeInfo* typeInfo, MEMBERID member, UINT room)
{
    std::vector<BSTR> given(room + 1, nullptr);
    UINT count = 99;
    const HRESULT status = typeInfo->GetNames(member, given.data(), room, &count);
    std::string written = probe::status(status) + " " + std::to_string(count);
    for (UINT i = 0; SUCCEEDED(status) && i < count; ++i) {
        written += " " + probe::text(given[i]);
        SysFreeString(given[i]);
    }
    return written;
}

// GetIDsOfNames of a member and all its parameters' names, as GetNames gave them.
std::string idsOfNames(ITypeInfo* typeInfo, MEMBERID member)
{
    BSTR given[16] = {};
    UINT count = 0;
    if (FAILED(typeInfo->GetNames(member, given, 16, &count)) || count == 0)
        return "no names";
    std::vector<LPOLESTR> asked(given, given + count);
    std::vector<MEMBERID> ids(count, 77);
    const HRESULT status = typeInfo->GetIDsOfNames(asked.data(), count, ids.data());
    std::string written = probe::status(status);
    for (MEMBERID id : ids)
        written += " " + std::to_string(id);
    for (UINT i = 0; i < count; ++i)
        SysFreeString(given[i]);
    return written;
}

std::string bound(ITypeInfo* typeInfo, const wchar_t* name, WORD flags)
{
    ITypeCompPtr typeComp;
    const HRESULT got = typeInfo->GetTypeComp(&typeComp);
    if (FAILED(got))
        return probe::status(got);
    std::wstring buffer(name);
    ITypeInfoPtr boundInfo;
    DESCKIND kind = DESCKIND_MAX;
    BINDPTR result{};
    const HRESULT status = typeComp->Bind(buffer.data(), 0, flags, &boundInfo, &kind, &result);
    std::string written = probe::status(status);
    written += " kind " + std::to_string(kind);
    if (kind == DESCKIND_FUNCDESC) {
        written += " " + identity(boundInfo) + " " + function(*result.lpfuncdesc, boundInfo);
        boundInfo->ReleaseFuncDesc(result.lpfuncdesc);
    } else if (kind == DESCKIND_VARDESC) {
        written += " " + identity(boundInfo) + " " + variable(*result.lpvardesc, boundInfo);
        boundInfo->ReleaseVarDesc(result.lpvardesc);
    }
    return written;
}

std::string typeAttributes(ITypeInfo* typeInfo)
{
    TYPEATTR* a = nullptr;
    const HRESULT status = typeInfo->GetTypeAttr(&a);
    if (FAILED(status))
        return probe::status(status);
    const std::string written = attributes(*a, typeInfo);
    typeInfo->ReleaseTypeAttr(a);
    return written;
}

std::string secondInterface(ITypeInfo* typeInfo)
{
    ITypeInfo2Ptr second;
    const HRESULT got = typeInfo->QueryInterface(IID_ITypeInfo2, reinterpret_cast<void**>(&second));
    if (FAILED(got))
        return probe::status(got);
    TYPEKIND kind = TKIND_MAX;
    ULONG flags = 0;
    const HRESULT kindStatus = second->GetTypeKind(&kind);
    const HRESULT flagsStatus = second->GetTypeFlags(&flags);
    std::string written = "kind " + probe::status(kindStatus) + ":" + std::to_string(kind);
    written += " flags " + probe::status(flagsStatus) + ":" + std::to_string(flags);
    BSTR help = nullptr;
    BSTR dll = nullptr;
    DWORD context = 7;
    const HRESULT documented = second->GetDocumentation2(MEMBERID_NIL, 0, &help, &context, &dll);
    written += " doc2 " + probe::status(documented) + " " + probe::text(help) + " " + std::to_string(context) + " " + probe::text(dll);
    SysFreeString(help);
    SysFreeString(dll);
    _variant_t data;
    const HRESULT custom = second->GetCustData(kUnknownData, &data);
    written += " custom " + probe::status(custom) + " " + probe::value(data);
    CUSTDATA all{};
    const HRESULT allCustom = second->GetAllCustData(&all);
    written += " all " + probe::status(allCustom) + " " + std::to_string(all.cCustData);
    ClearCustData(&all);
    return written;
}

// One function, its names and what is found of it by id and by name.
std::string functionAt(ITypeInfo* typeInfo, UINT index)
{
    FUNCDESC* f = nullptr;
    const HRESULT status = typeInfo->GetFuncDesc(index, &f);
    if (FAILED(status))
        return probe::status(status);
    std::string written = function(*f, typeInfo);
    written += " || names " + names(typeInfo, f->memid, 16);
    written += " || doc " + documentation(typeInfo, f->memid);
    written += " || ids " + idsOfNames(typeInfo, f->memid);
    ITypeInfo2Ptr second(typeInfo);
    if (second) {
        UINT found = 99;
        const HRESULT indexed = second->GetFuncIndexOfMemId(f->memid, f->invkind, &found);
        written += " || index " + probe::status(indexed) + " " + std::to_string(found);
        _variant_t data;
        written += " || custom " + probe::status(second->GetFuncCustData(index, kUnknownData, &data));
    }
    typeInfo->ReleaseFuncDesc(f);
    return written;
}

std::string variableAt(ITypeInfo* typeInfo, UINT index)
{
    VARDESC* v = nullptr;
    const HRESULT status = typeInfo->GetVarDesc(index, &v);
    if (FAILED(status))
        return probe::status(status);
    std::string written = variable(*v, typeInfo);
    written += " || names " + names(typeInfo, v->memid, 4);
    written += " || doc " + documentation(typeInfo, v->memid);
    written += " || ids " + idsOfNames(typeInfo, v->memid);
    ITypeInfo2Ptr second(typeInfo);
    if (second) {
        UINT found = 99;
        const HRESULT indexed = second->GetVarIndexOfMemId(v->memid, &found);
        written += " || index " + probe::status(indexed) + " " + std::to_string(found);
    }
    typeInfo->ReleaseVarDesc(v);
    return written;
}

std::string implemented(ITypeInfo* typeInfo, UINT index)
{
    HREFTYPE reference = 0x7777;
    const HRESULT status = typeInfo->GetRefTypeOfImplType(index, &reference);
    std::string written = probe::status(status) + " " + std::to_string(static_cast<unsigned long>(reference) & 0xFFFFFFFFul);
    INT flags = 77;
    const HRESULT flagged = typeInfo->GetImplTypeFlags(index, &flags);
    written += " flags " + probe::status(flagged) + " " + std::to_string(flags);
    if (FAILED(status))
        return written;
    ITypeInfoPtr referenced;
    const HRESULT resolved = typeInfo->GetRefTypeInfo(reference, &referenced);
    written += " -> " + probe::status(resolved);
    if (SUCCEEDED(resolved))
        written += " " + identity(referenced) + " " + typeAttributes(referenced);
    return written;
}

// The other face of a dual interface: the TKIND_INTERFACE of its TKIND_DISPATCH (and back).
ITypeInfoPtr otherFace(ITypeInfo* typeInfo)
{
    HREFTYPE reference = 0;
    ITypeInfoPtr other;
    if (SUCCEEDED(typeInfo->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)))
        typeInfo->GetRefTypeInfo(reference, &other);
    return other;
}

// Takes over the caller's reference to `typeInfo`.
void addTypeCases(const std::string& prefix, ITypeInfo* typeInfo)
{
    const ITypeInfoPtr held(typeInfo, false);
    TYPEATTR* a = nullptr;
    if (FAILED(typeInfo->GetTypeAttr(&a)))
        return;
    const WORD functions = a->cFuncs;
    const WORD variables = a->cVars;
    const WORD implementedTypes = a->cImplTypes;
    typeInfo->ReleaseTypeAttr(a);
    const char* group = "type";
    probe::add(group, (prefix + ".attributes").c_str(), [held] { return typeAttributes(held); });
    probe::add(group, (prefix + ".documentation").c_str(), [held] { return documentation(held, MEMBERID_NIL); });
    probe::add(group, (prefix + ".second_interface").c_str(), [held] { return secondInterface(held); });
    probe::add(group, (prefix + ".containing_library").c_str(), [held] { return identity(held); });
    for (UINT f = 0; f <= functions; ++f)
        probe::add(group, (prefix + ".function_" + std::to_string(f)).c_str(), [held, f] { return functionAt(held, f); });
    for (UINT v = 0; v <= variables; ++v)
        probe::add(group, (prefix + ".variable_" + std::to_string(v)).c_str(), [held, v] { return variableAt(held, v); });
    for (UINT i = 0; i <= implementedTypes; ++i)
        probe::add(group, (prefix + ".implemented_" + std::to_string(i)).c_str(), [held, i] { return implemented(held, i); });
    probe::add(group, (prefix + ".implemented_minus_1").c_str(),
               [held] { return implemented(held, static_cast<UINT>(-1)); });
    probe::add(group, (prefix + ".names_of_nothing").c_str(), [held] { return names(held, 0x7777, 4); });
    probe::add(group, (prefix + ".names_of_query_interface").c_str(), [held] { return names(held, 0x60000000, 4); });
    probe::add(group, (prefix + ".names_with_room_for_one").c_str(), [held] { return names(held, 0, 1); });
    probe::add(group, (prefix + ".documentation_of_nothing").c_str(), [held] { return documentation(held, 0x7777); });
    probe::add(group, (prefix + ".documentation_of_invoke").c_str(), [held] { return documentation(held, 0x60010003); });
    probe::add(group, (prefix + ".ids_of_unknown_names").c_str(), [held] {
        OLECHAR first[] = L"Nothing";
        OLECHAR second[] = L"nothing";
        LPOLESTR asked[] = {first, second};
        MEMBERID ids[2] = {77, 77};
        const HRESULT status = held->GetIDsOfNames(asked, 2, ids);
        return probe::status(status) + " " + std::to_string(ids[0]) + " " + std::to_string(ids[1]);
    });
    probe::add(group, (prefix + ".ids_of_an_inherited_name").c_str(), [held] {
        OLECHAR first[] = L"invoke";
        OLECHAR second[] = L"PUARGERR";
        LPOLESTR asked[] = {first, second};
        MEMBERID ids[2] = {77, 77};
        const HRESULT status = held->GetIDsOfNames(asked, 2, ids);
        return probe::status(status) + " " + std::to_string(ids[0]) + " " + std::to_string(ids[1]);
    });
    probe::add(group, (prefix + ".bind_item").c_str(), [held] { return bound(held, L"item", 0); });
    probe::add(group, (prefix + ".bind_count_as_put").c_str(), [held] { return bound(held, L"Count", INVOKE_PROPERTYPUT); });
    probe::add(group, (prefix + ".bind_add_ref").c_str(), [held] { return bound(held, L"AddRef", INVOKE_FUNC); });
    probe::add(group, (prefix + ".bind_a_constant").c_str(), [held] { return bound(held, L"zbPlotView", 0); });
    probe::add(group, (prefix + ".bind_nothing").c_str(), [held] { return bound(held, L"Nothing", 0); });
    probe::add(group, (prefix + ".bind_type").c_str(), [held] {
        ITypeCompPtr typeComp;
        held->GetTypeComp(&typeComp);
        OLECHAR name[] = L"HostDocument";
        ITypeInfo* boundInfo = reinterpret_cast<ITypeInfo*>(1);
        ITypeComp* boundComp = reinterpret_cast<ITypeComp*>(1);
        const HRESULT status = typeComp->BindType(name, 0, &boundInfo, &boundComp);
        return probe::status(status) + (boundInfo == nullptr ? " null" : " set") + (boundComp == nullptr ? " null" : " set");
    });
    probe::add(group, (prefix + ".dll_entry").c_str(), [held] {
        BSTR dll = nullptr;
        BSTR name = nullptr;
        WORD ordinal = 7;
        const HRESULT status = held->GetDllEntry(0, INVOKE_FUNC, &dll, &name, &ordinal);
        const std::string written = probe::status(status) + " " + probe::text(dll) + " " + probe::text(name) + " " +
                                    std::to_string(ordinal);
        SysFreeString(dll);
        SysFreeString(name);
        return written;
    });
    probe::add(group, (prefix + ".create_instance_aggregated").c_str(), [held] {
        IUnknownPtr outer(held);
        void* object = nullptr;
        return probe::status(held->CreateInstance(outer, IID_IUnknown, &object));
    });
    probe::add(group, (prefix + ".mops").c_str(), [held] {
        BSTR mops = reinterpret_cast<BSTR>(1);
        const HRESULT status = held->GetMops(0, &mops);
        const std::string written = probe::status(status) + " " + probe::text(mops);
        if (SUCCEEDED(status))
            SysFreeString(mops);
        return written;
    });
    probe::add(group, (prefix + ".function_into_null").c_str(), [held] { return probe::status(held->GetFuncDesc(0, nullptr)); });
    probe::add(group, (prefix + ".variable_past_the_end_into_null").c_str(),
               [held, variables] { return probe::status(held->GetVarDesc(variables, nullptr)); });
    probe::add(group, (prefix + ".implemented_flags_into_null").c_str(),
               [held] { return probe::status(held->GetImplTypeFlags(0, nullptr)); });
    probe::add(group, (prefix + ".reference_to_nothing").c_str(), [held] {
        ITypeInfoPtr referenced;
        return probe::status(held->GetRefTypeInfo(0x7770, &referenced));
    });
}

// Registers the cases of every type of a library, and of the other face of each dual one.
void addLibraryCases(ITypeLib* library)
{
    if (library == nullptr)
        return;
    for (UINT t = 0; t < library->GetTypeInfoCount(); ++t) {
        ITypeInfo* typeInfo = nullptr;
        if (FAILED(library->GetTypeInfo(t, &typeInfo)))
            continue;
        BSTR name = nullptr;
        typeInfo->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr);
        const std::string prefix = probe::text(name).substr(1, SysStringLen(name));
        SysFreeString(name);
        ITypeInfoPtr other = otherFace(typeInfo);
        addTypeCases(prefix, typeInfo);
        if (other)
            addTypeCases(prefix + ".other_face", other.Detach());
    }
}

// The simulator's library refers to the host's types through its import, which each build resolves
// in its own way (the portable runtime beside the importing file).
const bool kTypes = [] {
    addLibraryCases(hostLibrary());
    addLibraryCases(simulatorLibrary());
    return true;
}();

}  // namespace
