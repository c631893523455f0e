// VARIANT: the tagged value of automation, with the platform's member names and V_ accessors.
//
// Owned contents: a VT_BSTR variant owns its string, VT_DISPATCH and VT_UNKNOWN one reference,
// VT_ARRAY its safe array. VT_BYREF variants own nothing.
#pragma once

#include "automation/bstr.h"
#include "automation/export.h"
#include "automation/hresult.h"

struct IUnknown;
struct IDispatch;
struct tagSAFEARRAY;
typedef tagSAFEARRAY SAFEARRAY;

enum VARENUM {
    VT_EMPTY = 0,
    VT_NULL = 1,
    VT_I2 = 2,
    VT_I4 = 3,
    VT_R4 = 4,
    VT_R8 = 5,
    VT_CY = 6,
    VT_DATE = 7,
    VT_BSTR = 8,
    VT_DISPATCH = 9,
    VT_ERROR = 10,
    VT_BOOL = 11,
    VT_VARIANT = 12,
    VT_UNKNOWN = 13,
    VT_DECIMAL = 14,
    VT_I1 = 16,
    VT_UI1 = 17,
    VT_UI2 = 18,
    VT_UI4 = 19,
    VT_I8 = 20,
    VT_UI8 = 21,
    VT_INT = 22,
    VT_UINT = 23,
    VT_VOID = 24,
    VT_HRESULT = 25,
    VT_PTR = 26,
    VT_SAFEARRAY = 27,
    VT_CARRAY = 28,
    VT_USERDEFINED = 29,
    VT_LPSTR = 30,
    VT_LPWSTR = 31,
    VT_RECORD = 36,
    VT_INT_PTR = 37,
    VT_UINT_PTR = 38,
    VT_CLSID = 72,
    VT_VECTOR = 0x1000,
    VT_ARRAY = 0x2000,
    VT_BYREF = 0x4000,
    VT_RESERVED = 0x8000,
    VT_ILLEGAL = 0xFFFF,
    VT_ILLEGALMASKED = 0x0FFF,
    VT_TYPEMASK = 0x0FFF
};

// A currency amount: a count of ten-thousandths, as the platform keeps it.
union tagCY {
    struct {
        std::uint32_t Lo;
        std::int32_t Hi;
    };
    LONGLONG int64;
};
typedef tagCY CY;

struct tagVARIANT {
    VARTYPE vt;
    WORD wReserved1;
    WORD wReserved2;
    WORD wReserved3;
    union {
        LONGLONG llVal;
        LONG lVal;
        BYTE bVal;
        SHORT iVal;
        FLOAT fltVal;
        DOUBLE dblVal;
        VARIANT_BOOL boolVal;
        SCODE scode;
        DATE date;
        CY cyVal;
        BSTR bstrVal;
        IUnknown* punkVal;
        IDispatch* pdispVal;
        SAFEARRAY* parray;
        CHAR cVal;
        USHORT uiVal;
        ULONG ulVal;
        ULONGLONG ullVal;
        INT intVal;
        UINT uintVal;
        BYTE* pbVal;
        SHORT* piVal;
        LONG* plVal;
        LONGLONG* pllVal;
        FLOAT* pfltVal;
        DOUBLE* pdblVal;
        VARIANT_BOOL* pboolVal;
        SCODE* pscode;
        DATE* pdate;
        CY* pcyVal;
        BSTR* pbstrVal;
        IUnknown** ppunkVal;
        IDispatch** ppdispVal;
        SAFEARRAY** pparray;
        tagVARIANT* pvarVal;
        CHAR* pcVal;
        USHORT* puiVal;
        ULONG* pulVal;
        ULONGLONG* pullVal;
        INT* pintVal;
        UINT* puintVal;
        PVOID byref;
    };
};
typedef tagVARIANT VARIANT;
typedef VARIANT VARIANTARG;
typedef VARIANT* LPVARIANT;

#define V_VT(X) ((X)->vt)
#define V_ISBYREF(X) (V_VT(X) & VT_BYREF)
#define V_ISARRAY(X) (V_VT(X) & VT_ARRAY)
#define V_UI1(X) ((X)->bVal)
#define V_I1(X) ((X)->cVal)
#define V_I2(X) ((X)->iVal)
#define V_UI2(X) ((X)->uiVal)
#define V_I4(X) ((X)->lVal)
#define V_UI4(X) ((X)->ulVal)
#define V_I8(X) ((X)->llVal)
#define V_UI8(X) ((X)->ullVal)
#define V_INT(X) ((X)->intVal)
#define V_UINT(X) ((X)->uintVal)
#define V_R4(X) ((X)->fltVal)
#define V_R8(X) ((X)->dblVal)
#define V_DATE(X) ((X)->date)
#define V_CY(X) ((X)->cyVal)
#define V_BOOL(X) ((X)->boolVal)
#define V_ERROR(X) ((X)->scode)
#define V_BSTR(X) ((X)->bstrVal)
#define V_DISPATCH(X) ((X)->pdispVal)
#define V_UNKNOWN(X) ((X)->punkVal)
#define V_ARRAY(X) ((X)->parray)
#define V_BYREF(X) ((X)->byref)
#define V_I4REF(X) ((X)->plVal)
#define V_R8REF(X) ((X)->pdblVal)
#define V_CYREF(X) ((X)->pcyVal)
#define V_BOOLREF(X) ((X)->pboolVal)
#define V_BSTRREF(X) ((X)->pbstrVal)
#define V_VARIANTREF(X) ((X)->pvarVal)
#define V_DISPATCHREF(X) ((X)->ppdispVal)
#define V_UNKNOWNREF(X) ((X)->ppunkVal)
#define V_ARRAYREF(X) ((X)->pparray)

// Supported contents: VT_EMPTY, VT_NULL, the numbers (VT_I1 to VT_UI8, VT_INT, VT_UINT, VT_R4,
// VT_R8, VT_CY, VT_DATE), VT_BOOL, VT_ERROR, VT_BSTR, VT_DISPATCH, VT_UNKNOWN, VT_ARRAY of the
// element types a SAFEARRAY here holds, and VT_BYREF of any of them. Other types (VT_DECIMAL,
// VT_RECORD) give DISP_E_BADVARTYPE, as invalid types do on the platform.

AUTOMATION_API void VariantInit(VARIANTARG* variant);
// Frees what the variant owns and leaves it VT_EMPTY.
AUTOMATION_API HRESULT VariantClear(VARIANTARG* variant);
// Clears `destination`, then copies `source` deeply: a new string (an empty one for a null
// string, as the platform does), a new array, one more reference. On failure `destination` is
// left VT_EMPTY.
AUTOMATION_API HRESULT VariantCopy(VARIANTARG* destination, VARIANTARG* source);

// Copies what `source` refers to (or `source` itself when it is no reference) deeply into
// `destination`, which may be `source`; on failure `destination` is left as it was.
AUTOMATION_API HRESULT VariantCopyInd(VARIANT* destination, VARIANTARG* source);

#define VARIANT_NOVALUEPROP 0x01
#define VARIANT_ALPHABOOL 0x02

// Converts `source` (or what it refers to) to `type` into `destination`, which may be `source`;
// `destination` is left as it is on failure. The answers are the platform's for US English,
// the one locale this runtime knows ("." before decimals, "," between thousands, "$", dates
// M/D/YYYY h:mm:ss AM), for every pair of the supported types:
// - Numbers, dates, VT_CY and VT_BOOL among each other (VT_INT and VT_UINT as VT_I4 and VT_UI4):
//   rounded half to even, DISP_E_OVERFLOW out of the target's range; integers of one width keep
//   their bits across signedness (VT_UI4 0xFFFFFFFF is VT_I4 -1); VT_BOOL is -1 or 0 as a
//   number, and any nonzero number is VARIANT_TRUE; VT_EMPTY is zero.
// - To VT_BSTR: numbers to 7 (VT_R4) or 15 digits ("12", "-1.5", "1E-05", "1E+20"), VT_CY with
//   its decimals, dates as "1/2/2000 3:04:05 PM" (the day or the time alone when the other is
//   zero), VT_BOOL as "-1"/"0", or "True"/"False" with VARIANT_ALPHABOOL; VT_EMPTY as "".
// - From VT_BSTR: numbers with blanks, signs, parentheses, "$", thousands separators, decimals
//   and exponents, hexadecimal "&H1F" and octal "&O17"; dates and times in the forms the platform
//   reads ("1/2/2000", "January 2, 2000", "3:04 PM"); VT_BOOL also from "True"/"False" in any
//   case and "#TRUE#"/"#FALSE#". DISP_E_TYPEMISMATCH for a text that is none of these.
// - VT_DISPATCH to anything but VT_UNKNOWN: its default member (DISPID_VALUE), converted without
//   `flags`; DISP_E_BADVARTYPE for a null object, and DISP_E_TYPEMISMATCH when the object gives
//   no value or VARIANT_NOVALUEPROP is set. VT_UNKNOWN and VT_DISPATCH to each other by
//   QueryInterface.
// - Anything but VT_ERROR and VT_NULL to VT_EMPTY, and anything but VT_ERROR to VT_NULL.
// Other pairs give DISP_E_TYPEMISMATCH; so does a null reference.
AUTOMATION_API HRESULT VariantChangeType(VARIANTARG* destination, VARIANTARG* source, USHORT flags, VARTYPE type);
// As VariantChangeType, for a locale this runtime knows: US English (0x0409), the user's or the
// system's default (which are US English here) or the neutral locale; DISP_E_UNKNOWNLCID for any
// other.
AUTOMATION_API HRESULT VariantChangeTypeEx(VARIANTARG* destination, VARIANTARG* source, LCID locale, USHORT flags,
                                           VARTYPE type);
