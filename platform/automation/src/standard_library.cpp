// The part of the standard library (stdole2, "OLE Automation") that libraries importing it reach:
// IUnknown and IDispatch, and the records their functions take (GUID, DISPPARAMS, EXCEPINFO), at
// the positions and with the references the platform's 64-bit library gives them.
#include "type_library_object.h"

#include <initializer_list>

namespace automation::detail {
namespace {

const HREFTYPE kGuidReference = 0;
const HREFTYPE kDispParamsReference = 100;
const HREFTYPE kExcepInfoReference = 200;
const HREFTYPE kUnknownReference = 300;
const HREFTYPE kDispatchReference = 400;
const WORD kPointer = 8;

// Builds the library's types, keeping the TYPEDESC nodes they point at in the library.
class StandardLibrary {
public:
    StandardLibrary() : m_library(std::make_unique<LibraryModel>()) {}

    std::unique_ptr<const LibraryModel> build()
    {
        LibraryModel& library = *m_library;
        library.guid = kStandardLibraryGuid;
        library.name = L"stdole";
        library.docString = L"OLE Automation";
        library.system = SYS_WIN64;
        library.majorVersion = 2;
        library.flags = LIBFLAG_FHASDISKIMAGE;

        const TYPEDESC guid = userDefined(kGuidReference);
        TypeModel& guidType = record(L"GUID", kGuidReference, 16, 4);
        field(guidType, L"Data1", simple(VT_UI4), 0);
        field(guidType, L"Data2", simple(VT_UI2), 4);
        field(guidType, L"Data3", simple(VT_UI2), 6);
        field(guidType, L"Data4", bytes(8), 8);

        TypeModel& dispParams = record(L"DISPPARAMS", kDispParamsReference, 24, 8);
        field(dispParams, L"rgvarg", pointer(simple(VT_VARIANT)), 0);
        field(dispParams, L"rgdispidNamedArgs", pointer(simple(VT_I4)), 8);
        field(dispParams, L"cArgs", simple(VT_UINT), 16);
        field(dispParams, L"cNamedArgs", simple(VT_UINT), 20);

        TypeModel& excepInfo = record(L"EXCEPINFO", kExcepInfoReference, 64, 8);
        field(excepInfo, L"wCode", simple(VT_UI2), 0);
        field(excepInfo, L"wReserved", simple(VT_UI2), 2);
        field(excepInfo, L"bstrSource", simple(VT_BSTR), 8);
        field(excepInfo, L"bstrDescription", simple(VT_BSTR), 16);
        field(excepInfo, L"bstrHelpFile", simple(VT_BSTR), 24);
        field(excepInfo, L"dwHelpContext", simple(VT_UI4), 32);
        field(excepInfo, L"pvReserved", pointer(simple(VT_VOID)), 40);
        field(excepInfo, L"pfnDeferredFillIn", pointer(simple(VT_VOID)), 48);
        field(excepInfo, L"scode", simple(VT_ERROR), 56);

        const TYPEDESC hresult = simple(VT_HRESULT);
        TypeModel& unknown = interfaceType(L"IUnknown", IID_IUnknown, kUnknownReference, TYPEFLAG_FHIDDEN, 3);
        method(unknown, L"QueryInterface", 0x60000000, hresult,
               {{L"riid", pointer(guid), PARAMFLAG_FIN}, {L"ppvObj", pointer(pointer(simple(VT_VOID))), PARAMFLAG_FOUT}});
        method(unknown, L"AddRef", 0x60000001, simple(VT_UI4), {});
        method(unknown, L"Release", 0x60000002, simple(VT_UI4), {});

        TypeModel& dispatch =
            interfaceType(L"IDispatch", IID_IDispatch, kDispatchReference, TYPEFLAG_FRESTRICTED, 7);
        dispatch.implemented.push_back({kUnknownReference, 0, {}});
        method(dispatch, L"GetTypeInfoCount", 0x60010000, hresult,
               {{L"pctinfo", pointer(simple(VT_UINT)), PARAMFLAG_FOUT}});
        method(dispatch, L"GetTypeInfo", 0x60010001, hresult,
               {{L"itinfo", simple(VT_UINT), PARAMFLAG_FIN},
                {L"lcid", simple(VT_UI4), PARAMFLAG_FIN},
                {L"pptinfo", pointer(pointer(simple(VT_VOID))), PARAMFLAG_FOUT}});
        method(dispatch, L"GetIDsOfNames", 0x60010002, hresult,
               {{L"riid", pointer(guid), PARAMFLAG_FIN},
                {L"rgszNames", pointer(pointer(simple(VT_I1))), PARAMFLAG_FIN},
                {L"cNames", simple(VT_UINT), PARAMFLAG_FIN},
                {L"lcid", simple(VT_UI4), PARAMFLAG_FIN},
                {L"rgdispid", pointer(simple(VT_I4)), PARAMFLAG_FOUT}});
        method(dispatch, L"Invoke", 0x60010003, hresult,
               {{L"dispidMember", simple(VT_I4), PARAMFLAG_FIN},
                {L"riid", pointer(guid), PARAMFLAG_FIN},
                {L"lcid", simple(VT_UI4), PARAMFLAG_FIN},
                {L"wFlags", simple(VT_UI2), PARAMFLAG_FIN},
                {L"pdispparams", pointer(userDefined(kDispParamsReference)), PARAMFLAG_FIN},
                {L"pvarResult", pointer(simple(VT_VARIANT)), PARAMFLAG_FOUT},
                {L"pexcepinfo", pointer(userDefined(kExcepInfoReference)), PARAMFLAG_FOUT},
                {L"puArgErr", pointer(simple(VT_UINT)), PARAMFLAG_FOUT}});
        return std::move(m_library);
    }

private:
    struct Parameter {
        const wchar_t* name;
        TYPEDESC type;
        USHORT flags;
    };

    static TYPEDESC simple(VARTYPE type)
    {
        TYPEDESC described{};
        described.vt = type;
        return described;
    }
    static TYPEDESC userDefined(HREFTYPE reference)
    {
        TYPEDESC described = simple(VT_USERDEFINED);
        described.hreftype = reference;
        return described;
    }
    TYPEDESC pointer(const TYPEDESC& to)
    {
        TYPEDESC described = simple(VT_PTR);
        described.lptdesc = &m_library->typeNodes.emplace_back(to);
        return described;
    }
    TYPEDESC bytes(ULONG count)
    {
        auto& storage = m_library->arrayNodes.emplace_back(new unsigned char[sizeof(ARRAYDESC)]());
        auto* array = new (storage.get()) ARRAYDESC{};
        array->tdescElem.vt = VT_UI1;
        array->cDims = 1;
        array->rgbounds[0].cElements = count;
        TYPEDESC described = simple(VT_CARRAY);
        described.lpadesc = array;
        return described;
    }

    TypeModel& type(const wchar_t* name, HREFTYPE reference, TYPEKIND kind)
    {
        TypeModel& added = m_library->types.emplace_back();
        added.name = name;
        added.reference = reference;
        added.kind = kind;
        return added;
    }
    TypeModel& record(const wchar_t* name, HREFTYPE reference, ULONG size, WORD alignment)
    {
        TypeModel& added = type(name, reference, TKIND_RECORD);
        added.instanceSize = size;
        added.alignment = alignment;
        return added;
    }
    TypeModel& interfaceType(const wchar_t* name, const GUID& guid, HREFTYPE reference, WORD flags, WORD functions)
    {
        TypeModel& added = type(name, reference, TKIND_INTERFACE);
        added.guid = guid;
        added.flags = flags;
        added.instanceSize = kPointer;
        added.alignment = kPointer;
        added.vtableSize = static_cast<WORD>(functions * kPointer);
        return added;
    }
    static void field(TypeModel& record, const wchar_t* name, const TYPEDESC& type, ULONG offset)
    {
        VariableModel& added = record.variables.emplace_back();
        added.id = static_cast<MEMBERID>(0x40000000 + record.variables.size() - 1);
        added.name = name;
        added.type = type;
        added.instanceOffset = offset;
    }
    // A restricted method, after those its interface inherits in the vtable.
    static void method(TypeModel& owner, const wchar_t* name, MEMBERID id, const TYPEDESC& result,
                       std::initializer_list<Parameter> parameters)
    {
        FunctionModel& added = owner.functions.emplace_back();
        added.id = id;
        added.name = name;
        added.result = result;
        added.flags = FUNCFLAG_FRESTRICTED;
        // IDispatch's own functions follow IUnknown's three.
        const size_t position = (owner.implemented.empty() ? 0 : 3) + owner.functions.size() - 1;
        added.vtableOffset = static_cast<SHORT>(position * kPointer);
        for (const Parameter& parameter : parameters)
            added.parameters.push_back({parameter.name, parameter.type, parameter.flags, std::nullopt, {}});
    }

    std::unique_ptr<LibraryModel> m_library;
};

}  // namespace

std::unique_ptr<const LibraryModel> standardLibraryModel() { return StandardLibrary().build(); }

}  // namespace automation::detail
