// Type libraries: ITypeLib, the library of types a compiled type library file describes, and
// LoadTypeLib / LoadTypeLibEx that read one.
//
// The file format read is the one widl and the platform's type library compilers write ("MSFT").
// A library that imports the standard library ({00020430-0000-0000-C000-000000000046}, stdole2)
// finds its IUnknown and IDispatch in a description the runtime holds itself; any other imported
// library is looked for, by the file name the importing library gives, beside the importing file.
// There is no registry here: LoadTypeLibEx's REGKIND_REGISTER and REGKIND_DEFAULT load exactly as
// REGKIND_NONE does and register nothing.
#pragma once

#include "automation/type_info.h"

enum SYSKIND { SYS_WIN16, SYS_WIN32, SYS_MAC, SYS_WIN64 };
enum LIBFLAGS {
    LIBFLAG_FRESTRICTED = 0x1,
    LIBFLAG_FCONTROL = 0x2,
    LIBFLAG_FHIDDEN = 0x4,
    LIBFLAG_FHASDISKIMAGE = 0x8
};
enum REGKIND { REGKIND_DEFAULT, REGKIND_REGISTER, REGKIND_NONE };

struct TLIBATTR {
    GUID guid;
    LCID lcid;
    SYSKIND syskind;
    WORD wMajorVerNum;
    WORD wMinorVerNum;
    WORD wLibFlags;
};
typedef TLIBATTR* LPTLIBATTR;

struct ITypeLib : IUnknown {
    virtual UINT STDMETHODCALLTYPE GetTypeInfoCount() = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, ITypeInfo** typeInfo) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfoType(UINT index, TYPEKIND* kind) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTypeInfoOfGuid(REFGUID guid, ITypeInfo** typeInfo) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetLibAttr(TLIBATTR** attributes) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetTypeComp(ITypeComp** typeComp) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetDocumentation(INT index, BSTR* name, BSTR* docString, DWORD* helpContext,
                                                       BSTR* helpFile) = 0;
    virtual HRESULT STDMETHODCALLTYPE IsName(LPOLESTR name, ULONG hash, BOOL* found) = 0;
    virtual HRESULT STDMETHODCALLTYPE FindName(LPOLESTR name, ULONG hash, ITypeInfo** typeInfos, MEMBERID* ids,
                                               USHORT* found) = 0;
    virtual void STDMETHODCALLTYPE ReleaseTLibAttr(TLIBATTR* attributes) = 0;
};
AUTOMATION_DECLARE_UUID(ITypeLib, 0x00020402, 0x0000, 0x0000, 0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46)
typedef ITypeLib* LPTYPELIB;
inline constexpr const IID& IID_ITypeLib = __uuidof(ITypeLib);

// Reads the type library file at `path` and gives it with a reference for the caller (null on
// failure): E_INVALIDARG for a null argument, TYPE_E_CANTLOADLIBRARY for a file that cannot be
// read or is not a type library, or is cut short or malformed.
AUTOMATION_API HRESULT LoadTypeLibEx(LPCOLESTR path, REGKIND registration, ITypeLib** library);
AUTOMATION_API HRESULT LoadTypeLib(LPCOLESTR path, ITypeLib** library);
