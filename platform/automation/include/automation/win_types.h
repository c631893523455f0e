// The Win32 scalar types and calling-convention macros that automation code is written against.
//
// Widths follow the source rather than the bits: LONG, ULONG and DWORD are `long` and
// `unsigned long` as on Windows, so that `long` and `LONG` stay one type and overloads such as
// _variant_t(long) pick the same variant type on both builds (they are 64 bits wide here, which
// only widens their range). HRESULT is 32 bits so that failure codes stay negative.
// wchar_t is the character type on both builds: 16 bits on Windows, 32 bits here.
#pragma once

#include <cstddef>
#include <cstdint>

typedef int BOOL;
#define TRUE 1
#define FALSE 0

typedef unsigned char BYTE;
typedef unsigned short WORD;
typedef unsigned long DWORD;
typedef char CHAR;
typedef short SHORT;
typedef unsigned short USHORT;
typedef int INT;
typedef unsigned int UINT;
typedef long LONG;
typedef unsigned long ULONG;
typedef long long LONGLONG;
typedef unsigned long long ULONGLONG;
typedef std::uintptr_t ULONG_PTR;
typedef float FLOAT;
typedef double DOUBLE;

typedef void* PVOID;
typedef void* LPVOID;
typedef const void* LPCVOID;

typedef wchar_t WCHAR;
typedef WCHAR* LPWSTR;
typedef const WCHAR* LPCWSTR;
typedef char* LPSTR;
typedef const char* LPCSTR;
typedef WCHAR OLECHAR;
typedef OLECHAR* LPOLESTR;
typedef const OLECHAR* LPCOLESTR;
typedef WCHAR TCHAR;  // the project builds the platform's Unicode variant only
typedef TCHAR* LPTSTR;
typedef const TCHAR* LPCTSTR;

typedef DWORD LCID;
typedef LONG DISPID;
typedef LONG SCODE;
typedef unsigned short VARTYPE;
typedef short VARIANT_BOOL;
#define VARIANT_TRUE ((VARIANT_BOOL)-1)
#define VARIANT_FALSE ((VARIANT_BOOL)0)
typedef double DATE;

#define WINAPI
#define STDMETHODCALLTYPE
#define STDMETHOD(method) virtual HRESULT STDMETHODCALLTYPE method
#define STDMETHOD_(type, method) virtual type STDMETHODCALLTYPE method
#define STDMETHODIMP HRESULT STDMETHODCALLTYPE
#define STDMETHODIMP_(type) type STDMETHODCALLTYPE
#define PURE = 0

#define MAKELANGID(primary, sub) ((WORD)((((WORD)(sub)) << 10) | (WORD)(primary)))
#define LANG_NEUTRAL 0x00
#define LANG_ENGLISH 0x09
#define SUBLANG_NEUTRAL 0x00
#define SUBLANG_DEFAULT 0x01

// Reference counts of COM objects are changed atomically, as on the platform.
inline LONG InterlockedIncrement(LONG volatile* value) { return __atomic_add_fetch(value, 1, __ATOMIC_SEQ_CST); }
inline LONG InterlockedDecrement(LONG volatile* value) { return __atomic_sub_fetch(value, 1, __ATOMIC_SEQ_CST); }
