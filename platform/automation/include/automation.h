// The automation runtime as the module and the simulated host see it.
//
// On Windows this is the platform's own runtime (<windows.h>, <comdef.h>, <comip.h>, oleaut32);
// elsewhere it is our portable implementation of the same names with the same behaviour, so that
// one source builds on both. wchar_t is the character type on both builds: 16 bits wide on
// Windows, 32 bits on Linux (BSTR lengths are counted in wchar_t units on both).
#pragma once

#ifdef _WIN32
#include <windows.h>
#include <oleauto.h>
#include <comdef.h>
#include <comip.h>

// Gives an interface its IID so that __uuidof(Interface) works (MinGW emulates __uuidof).
#define AUTOMATION_DECLARE_UUID(type, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8) \
    __CRT_UUID_DECL(type, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8)

// MinGW's comdef.h leaves out the smart pointers of the platform's own interfaces when __uuidof
// is emulated; both builds have these.
_COM_SMARTPTR_TYPEDEF(IUnknown, __uuidof(IUnknown));
_COM_SMARTPTR_TYPEDEF(IDispatch, __uuidof(IDispatch));
_COM_SMARTPTR_TYPEDEF(IErrorInfo, __uuidof(IErrorInfo));
_COM_SMARTPTR_TYPEDEF(ICreateErrorInfo, __uuidof(ICreateErrorInfo));
_COM_SMARTPTR_TYPEDEF(ISupportErrorInfo, __uuidof(ISupportErrorInfo));
_COM_SMARTPTR_TYPEDEF(ITypeInfo, __uuidof(ITypeInfo));
_COM_SMARTPTR_TYPEDEF(ITypeInfo2, __uuidof(ITypeInfo2));
_COM_SMARTPTR_TYPEDEF(ITypeComp, __uuidof(ITypeComp));
_COM_SMARTPTR_TYPEDEF(ITypeLib, __uuidof(ITypeLib));
_COM_SMARTPTR_TYPEDEF(IEnumVARIANT, __uuidof(IEnumVARIANT));

#define AUTOMATION_HAS_TEST_HOOKS 0
#else
#include "automation/portable.h"
#endif
