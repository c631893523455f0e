// Type information: the descriptions a type library gives of its types and their members
// (TYPEATTR, FUNCDESC, VARDESC ...), ITypeInfo and ITypeInfo2 that hand them out, ITypeComp that
// binds names to them, and the dispatcher that serves late-bound calls from them. Names, field
// order, values and vtable order are the platform's, so that code written against the platform's
// headers reads type information unchanged.
#pragma once

#include "automation/dispatch.h"
#include "automation/safearray.h"

struct ITypeLib;  // automation/type_lib.h
struct ITypeComp;

typedef DISPID MEMBERID;
typedef DWORD HREFTYPE;
#define MEMBERID_NIL DISPID_UNKNOWN  // the type itself, where a member could be named

enum TYPEKIND {
    TKIND_ENUM,
    TKIND_RECORD,
    TKIND_MODULE,
    TKIND_INTERFACE,
    TKIND_DISPATCH,
    TKIND_COCLASS,
    TKIND_ALIAS,
    TKIND_UNION,
    TKIND_MAX
};

enum INVOKEKIND {
    INVOKE_FUNC = DISPATCH_METHOD,
    INVOKE_PROPERTYGET = DISPATCH_PROPERTYGET,
    INVOKE_PROPERTYPUT = DISPATCH_PROPERTYPUT,
    INVOKE_PROPERTYPUTREF = DISPATCH_PROPERTYPUTREF,
};
enum FUNCKIND { FUNC_VIRTUAL, FUNC_PUREVIRTUAL, FUNC_NONVIRTUAL, FUNC_STATIC, FUNC_DISPATCH };
enum VARKIND { VAR_PERINSTANCE, VAR_STATIC, VAR_CONST, VAR_DISPATCH };
enum CALLCONV {
    CC_FASTCALL = 0,
    CC_CDECL = 1,
    CC_MSCPASCAL,
    CC_PASCAL = CC_MSCPASCAL,
    CC_MACPASCAL,
    CC_STDCALL,
    CC_FPFASTCALL,
    CC_SYSCALL,
    CC_MPWCDECL,
    CC_MPWPASCAL,
    CC_MAX
};
enum DESCKIND {
    DESCKIND_NONE,
    DESCKIND_FUNCDESC,
    DESCKIND_VARDESC,
    DESCKIND_TYPECOMP,
    DESCKIND_IMPLICITAPPOBJ,
    DESCKIND_MAX
};

#define TYPEFLAG_FAPPOBJECT 0x1
#define TYPEFLAG_FCANCREATE 0x2
#define TYPEFLAG_FLICENSED 0x4
#define TYPEFLAG_FPREDECLID 0x8
#define TYPEFLAG_FHIDDEN 0x10
#define TYPEFLAG_FCONTROL 0x20
#define TYPEFLAG_FDUAL 0x40
#define TYPEFLAG_FNONEXTENSIBLE 0x80
#define TYPEFLAG_FOLEAUTOMATION 0x100
#define TYPEFLAG_FRESTRICTED 0x200
#define TYPEFLAG_FAGGREGATABLE 0x400
#define TYPEFLAG_FREPLACEABLE 0x800
#define TYPEFLAG_FDISPATCHABLE 0x1000
#define TYPEFLAG_FREVERSEBIND 0x2000
#define TYPEFLAG_FPROXY 0x4000

#define FUNCFLAG_FRESTRICTED 0x1
#define FUNCFLAG_FSOURCE 0x2
#define FUNCFLAG_FBINDABLE 0x4
#define FUNCFLAG_FREQUESTEDIT 0x8
#define FUNCFLAG_FDISPLAYBIND 0x10
#define FUNCFLAG_FDEFAULTBIND 0x20
#define FUNCFLAG_FHIDDEN 0x40
#define FUNCFLAG_FUSESGETLASTERROR 0x80
#define FUNCFLAG_FDEFAULTCOLLELEM 0x100
#define FUNCFLAG_FUIDEFAULT 0x200
#define FUNCFLAG_FNONBROWSABLE 0x400
#define FUNCFLAG_FREPLACEABLE 0x800
#define FUNCFLAG_FIMMEDIATEBIND 0x1000

#define VARFLAG_FREADONLY 0x1
#define VARFLAG_FSOURCE 0x2
#define VARFLAG_FBINDABLE 0x4
#define VARFLAG_FREQUESTEDIT 0x8
#define VARFLAG_FDISPLAYBIND 0x10
#define VARFLAG_FDEFAULTBIND 0x20
#define VARFLAG_FHIDDEN 0x40
#define VARFLAG_FRESTRICTED 0x80
#define VARFLAG_FDEFAULTCOLLELEM 0x100
#define VARFLAG_FUIDEFAULT 0x200
#define VARFLAG_FNONBROWSABLE 0x400
#define VARFLAG_FREPLACEABLE 0x800
#define VARFLAG_FIMMEDIATEBIND 0x1000

#define IMPLTYPEFLAG_FDEFAULT 0x1
#define IMPLTYPEFLAG_FSOURCE 0x2
#define IMPLTYPEFLAG_FRESTRICTED 0x4
#define IMPLTYPEFLAG_FDEFAULTVTABLE 0x8

#define PARAMFLAG_NONE 0x00
#define PARAMFLAG_FIN 0x01
#define PARAMFLAG_FOUT 0x02
#define PARAMFLAG_FLCID 0x04
#define PARAMFLAG_FRETVAL 0x08
#define PARAMFLAG_FOPT 0x10
#define PARAMFLAG_FHASDEFAULT 0x20
#define PARAMFLAG_FHASCUSTDATA 0x40

#define IDLFLAG_NONE PARAMFLAG_NONE
#define IDLFLAG_FIN PARAMFLAG_FIN
#define IDLFLAG_FOUT PARAMFLAG_FOUT
#define IDLFLAG_FLCID PARAMFLAG_FLCID
#define IDLFLAG_FRETVAL PARAMFLAG_FRETVAL

struct ARRAYDESC;

// A type: vt, and for VT_PTR and VT_SAFEARRAY the type pointed at, for VT_CARRAY the array, for
// VT_USERDEFINED the reference that GetRefTypeInfo resolves.
struct TYPEDESC {
    union {
        TYPEDESC* lptdesc;
        ARRAYDESC* lpadesc;
        HREFTYPE hreftype;
    };
    VARTYPE vt;
};

struct ARRAYDESC {
    TYPEDESC tdescElem;
    USHORT cDims;
    SAFEARRAYBOUND rgbounds[1];  // cDims of them
};

struct IDLDESC {
    std::uintptr_t dwReserved;
    USHORT wIDLFlags;
};

// A parameter's default value, there when PARAMFLAG_FHASDEFAULT is.
struct PARAMDESCEX {
    ULONG cBytes;
    VARIANTARG varDefaultValue;
};
typedef PARAMDESCEX* LPPARAMDESCEX;

struct PARAMDESC {
    LPPARAMDESCEX pparamdescex;
    USHORT wParamFlags;
};

struct ELEMDESC {
    TYPEDESC tdesc;
    union {
        IDLDESC idldesc;
        PARAMDESC paramdesc;
    };
};

struct FUNCDESC {
    MEMBERID memid;
    SCODE* lprgscode;
    ELEMDESC* lprgelemdescParam;
    FUNCKIND funckind;
    INVOKEKIND invkind;
    CALLCONV callconv;
    SHORT cParams;
    SHORT cParamsOpt;
    SHORT oVft;
    SHORT cScodes;
    ELEMDESC elemdescFunc;
    WORD wFuncFlags;
};
typedef FUNCDESC* LPFUNCDESC;

struct VARDESC {
    MEMBERID memid;
    LPOLESTR lpstrSchema;
    union {
        ULONG oInst;
        VARIANT* lpvarValue;  // VAR_CONST: the constant's value
    };
    ELEMDESC elemdescVar;
    WORD wVarFlags;
    VARKIND varkind;
};
typedef VARDESC* LPVARDESC;

struct TYPEATTR {
    GUID guid;
    LCID lcid;
    DWORD dwReserved;
    MEMBERID memidConstructor;
    MEMBERID memidDestructor;
    LPOLESTR lpstrSchema;
    ULONG cbSizeInstance;
    TYPEKIND typekind;
    WORD cFuncs;
    WORD cVars;
    WORD cImplTypes;
    WORD cbSizeVft;
    WORD cbAlignment;
    WORD wTypeFlags;
    WORD wMajorVerNum;
    WORD wMinorVerNum;
    TYPEDESC tdescAlias;
    IDLDESC idldescType;
};
typedef TYPEATTR* LPTYPEATTR;

union BINDPTR {
    FUNCDESC* lpfuncdesc;
    VARDESC* lpvardesc;
    ITypeComp* lptcomp;
};

struct CUSTDATAITEM {
    GUID guid;
    VARIANTARG varValue;
};
struct CUSTDATA {
    DWORD cCustData;
    CUSTDATAITEM* prgCustData;  // CoTaskMemAlloc'd; ClearCustData frees it
};

struct ITypeInfo : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetTypeAttr(TYPEATTR** attributes) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTypeComp(ITypeComp** typeComp) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetFuncDesc(UINT index, FUNCDESC** function) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetVarDesc(UINT index, VARDESC** variable) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetNames(MEMBERID member, BSTR* names, UINT capacity, UINT* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetRefTypeOfImplType(UINT index, HREFTYPE* reference) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetImplTypeFlags(UINT index, INT* flags) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetIDsOfNames(LPOLESTR* names, UINT count, MEMBERID* ids) = 0;
    virtual HRESULT STDMETHODCALLTYPE Invoke(PVOID instance, MEMBERID member, WORD flags, DISPPARAMS* parameters,
                                             VARIANT* result, EXCEPINFO* exception, UINT* argumentError) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetDocumentation(MEMBERID member, BSTR* name, BSTR* docString,
                                                       DWORD* helpContext, BSTR* helpFile) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetDllEntry(MEMBERID member, INVOKEKIND kind, BSTR* dllName, BSTR* name,
                                                  WORD* ordinal) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetRefTypeInfo(HREFTYPE reference, ITypeInfo** typeInfo) = 0;
    virtual HRESULT STDMETHODCALLTYPE AddressOfMember(MEMBERID member, INVOKEKIND kind, PVOID* address) = 0;
    virtual HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, PVOID* object) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetMops(MEMBERID member, BSTR* mops) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetContainingTypeLib(ITypeLib** library, UINT* index) = 0;
    virtual void STDMETHODCALLTYPE ReleaseTypeAttr(TYPEATTR* attributes) = 0;
    virtual void STDMETHODCALLTYPE ReleaseFuncDesc(FUNCDESC* function) = 0;
    virtual void STDMETHODCALLTYPE ReleaseVarDesc(VARDESC* variable) = 0;
};
AUTOMATION_DECLARE_UUID(ITypeInfo, 0x00020401, 0x0000, 0x0000, 0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46)
typedef ITypeInfo* LPTYPEINFO;
inline constexpr const IID& IID_ITypeInfo = __uuidof(ITypeInfo);

struct ITypeInfo2 : ITypeInfo {
    virtual HRESULT STDMETHODCALLTYPE GetTypeKind(TYPEKIND* kind) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTypeFlags(ULONG* flags) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetFuncIndexOfMemId(MEMBERID member, INVOKEKIND kind, UINT* index) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetVarIndexOfMemId(MEMBERID member, UINT* index) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCustData(REFGUID guid, VARIANT* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetFuncCustData(UINT index, REFGUID guid, VARIANT* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetParamCustData(UINT function, UINT parameter, REFGUID guid,
                                                       VARIANT* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetVarCustData(UINT index, REFGUID guid, VARIANT* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetImplTypeCustData(UINT index, REFGUID guid, VARIANT* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetDocumentation2(MEMBERID member, LCID locale, BSTR* helpString,
                                                        DWORD* helpStringContext, BSTR* helpStringDll) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetAllCustData(CUSTDATA* data) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetAllFuncCustData(UINT index, CUSTDATA* data) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetAllParamCustData(UINT function, UINT parameter, CUSTDATA* data) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetAllVarCustData(UINT index, CUSTDATA* data) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetAllImplTypeCustData(UINT index, CUSTDATA* data) = 0;
};
AUTOMATION_DECLARE_UUID(ITypeInfo2, 0x00020412, 0x0000, 0x0000, 0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46)
inline constexpr const IID& IID_ITypeInfo2 = __uuidof(ITypeInfo2);

// Binds a name to what it names: a member of a type (the FUNCDESC or VARDESC, released through the
// ITypeInfo given with it), or a type of a library.
struct ITypeComp : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Bind(LPOLESTR name, ULONG hash, WORD flags, ITypeInfo** typeInfo,
                                           DESCKIND* kind, BINDPTR* bound) = 0;
    virtual HRESULT STDMETHODCALLTYPE BindType(LPOLESTR name, ULONG hash, ITypeInfo** typeInfo,
                                               ITypeComp** typeComp) = 0;
};
AUTOMATION_DECLARE_UUID(ITypeComp, 0x00020403, 0x0000, 0x0000, 0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46)
inline constexpr const IID& IID_ITypeComp = __uuidof(ITypeComp);

// Frees what GetAll...CustData gave and empties `data`.
AUTOMATION_API void ClearCustData(CUSTDATA* data);

// The type information's own GetIDsOfNames and Invoke, as the platform offers them to objects
// whose IDispatch a type information describes. ITypeInfo::Invoke of a loaded interface (either
// face of a dual one) calls the member through the instance's vtable with DispCallFunc, binding
// and coercing the caller's arguments as the platform does; members of pure dispinterfaces, and
// parameters that take the locale, a default value, a variable count or an [in] reference, are
// not served (E_NOTIMPL).
AUTOMATION_API HRESULT DispGetIDsOfNames(ITypeInfo* typeInfo, LPOLESTR* names, UINT count, DISPID* ids);
AUTOMATION_API HRESULT DispInvoke(void* instance, ITypeInfo* typeInfo, DISPID member, WORD flags,
                                  DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                  UINT* argumentError);

// An object whose IDispatch serves `instance` from `typeInfo` (which it holds a reference on):
// one type information, names through DispGetIDsOfNames, calls through DispInvoke. `outer` is not
// aggregated with, as on the platform. E_INVALIDARG for a null instance, type information or
// `dispatch`, and for a reserved interface id other than IID_NULL.
AUTOMATION_API HRESULT CreateStdDispatch(IUnknown* outer, void* instance, ITypeInfo* typeInfo, IUnknown** dispatch);

// Calls the function in the vtable of `instance` at byte offset `vtableOffset` (with `instance`
// as its first argument), or for a null instance the function at address `vtableOffset`, with
// `count` arguments, the i-th read from *arguments[i] as types[i] whatever its own type, and puts
// what the function returns in *result as `returnType` (VT_EMPTY: nothing). Arguments are passed
// as this runtime's compiler passes them: integers (VT_I1 to VT_UI8, VT_INT, VT_UINT, VT_BOOL,
// VT_ERROR, VT_CY) widened to 64 bits with their sign, VT_R4 as float, VT_R8 and VT_DATE as
// double, strings, objects, arrays and VT_BYREF types as pointers, VT_VARIANT as the structure
// by value; a VT_VARIANT result is the structure returned. E_INVALIDARG for a calling convention
// other than CC_STDCALL and CC_CDECL, a VT_HRESULT result (a status is returned as VT_ERROR),
// and null arrays or result; DISP_E_BADVARTYPE for a type it does not pass. The called
// function's own status is what *result holds, not what this returns.
AUTOMATION_API HRESULT DispCallFunc(void* instance, ULONG_PTR vtableOffset, CALLCONV convention, VARTYPE returnType,
                                    UINT count, VARTYPE* types, VARIANTARG** arguments, VARIANT* result);
