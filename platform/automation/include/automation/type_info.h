// ITypeInfo: the type information of an automation interface, and the dispatcher that serves
// late-bound calls from it (DispGetIDsOfNames, DispInvoke). The members declared are those the
// portable runtime serves, in the platform's order; the platform's others are left out, and so are
// the fields of its structures that describe nothing an automation interface here has.
#pragma once

#include "automation/dispatch.h"

typedef DISPID MEMBERID;
#define MEMBERID_NIL DISPID_UNKNOWN  // the type itself, where a member could be named

enum TYPEKIND { TKIND_ENUM, TKIND_RECORD, TKIND_MODULE, TKIND_INTERFACE, TKIND_DISPATCH, TKIND_COCLASS };
enum INVOKEKIND {
    INVOKE_FUNC = DISPATCH_METHOD,
    INVOKE_PROPERTYGET = DISPATCH_PROPERTYGET,
    INVOKE_PROPERTYPUT = DISPATCH_PROPERTYPUT,
    INVOKE_PROPERTYPUTREF = DISPATCH_PROPERTYPUTREF,
};
enum FUNCKIND { FUNC_VIRTUAL, FUNC_PUREVIRTUAL, FUNC_NONVIRTUAL, FUNC_STATIC, FUNC_DISPATCH };

#define PARAMFLAG_NONE 0x00
#define PARAMFLAG_FIN 0x01
#define PARAMFLAG_FOUT 0x02
#define PARAMFLAG_FRETVAL 0x08
#define PARAMFLAG_FOPT 0x10

#define FUNCFLAG_FRESTRICTED 0x1
#define FUNCFLAG_FHIDDEN 0x40

#define TYPEFLAG_FDUAL 0x40
#define TYPEFLAG_FDISPATCHABLE 0x1000

struct TYPEDESC {
    VARTYPE vt;  // VT_USERDEFINED for an enumeration, which crosses as VT_I4
};

struct PARAMDESC {
    USHORT wParamFlags;
};

struct ELEMDESC {
    TYPEDESC tdesc;
    PARAMDESC paramdesc;
};

struct FUNCDESC {
    MEMBERID memid;
    ELEMDESC* lprgelemdescParam;  // the parameters a caller passes (a [retval] one is the result)
    FUNCKIND funckind;
    INVOKEKIND invkind;
    SHORT cParams;
    SHORT cParamsOpt;
    ELEMDESC elemdescFunc;  // the result: VT_EMPTY for none
    WORD wFuncFlags;
};

struct TYPEATTR {
    GUID guid;
    TYPEKIND typekind;
    WORD cFuncs;
    WORD cVars;
    WORD wTypeFlags;
};

struct ITypeInfo : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetTypeAttr(TYPEATTR** attributes) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetFuncDesc(UINT index, FUNCDESC** function) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetNames(MEMBERID member, BSTR* names, UINT capacity, UINT* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetIDsOfNames(LPOLESTR* names, UINT count, MEMBERID* ids) = 0;
    virtual HRESULT STDMETHODCALLTYPE Invoke(PVOID instance, MEMBERID member, WORD flags, DISPPARAMS* parameters,
                                             VARIANT* result, EXCEPINFO* exception, UINT* argumentError) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetDocumentation(MEMBERID member, BSTR* name, BSTR* docString,
                                                       DWORD* helpContext, BSTR* helpFile) = 0;
    virtual void STDMETHODCALLTYPE ReleaseTypeAttr(TYPEATTR* attributes) = 0;
    virtual void STDMETHODCALLTYPE ReleaseFuncDesc(FUNCDESC* function) = 0;
};
AUTOMATION_DECLARE_UUID(ITypeInfo, 0x00020401, 0x0000, 0x0000, 0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46)
typedef ITypeInfo* LPTYPEINFO;

// The type information's own GetIDsOfNames and Invoke, as the platform offers them to objects
// whose IDispatch a type information describes.
AUTOMATION_API HRESULT DispGetIDsOfNames(ITypeInfo* typeInfo, LPOLESTR* names, UINT count, DISPID* ids);
AUTOMATION_API HRESULT DispInvoke(void* instance, ITypeInfo* typeInfo, DISPID member, WORD flags,
                                  DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                  UINT* argumentError);
