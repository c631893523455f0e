// SAFEARRAY: the bounded array of automation, one-dimensional here, with the platform's layout.
//
// Element types: VT_I1, VT_UI1, VT_I2, VT_UI2, VT_I4, VT_UI4, VT_INT, VT_UINT, VT_I8, VT_UI8,
// VT_R4, VT_R8, VT_CY, VT_DATE, VT_BOOL, VT_ERROR, VT_BSTR, VT_VARIANT, VT_DISPATCH and
// VT_UNKNOWN. The array owns its strings, variants and references, and frees them when destroyed.
#pragma once

#include "automation/export.h"
#include "automation/hresult.h"
#include "automation/variant.h"

struct SAFEARRAYBOUND {
    ULONG cElements;
    LONG lLbound;
};
typedef SAFEARRAYBOUND* LPSAFEARRAYBOUND;

#define FADF_AUTO 0x0001
#define FADF_STATIC 0x0002
#define FADF_EMBEDDED 0x0004
#define FADF_FIXEDSIZE 0x0010
#define FADF_RECORD 0x0020
#define FADF_HAVEIID 0x0040
#define FADF_HAVEVARTYPE 0x0080
#define FADF_BSTR 0x0100
#define FADF_UNKNOWN 0x0200
#define FADF_DISPATCH 0x0400
#define FADF_VARIANT 0x0800

struct tagSAFEARRAY {
    USHORT cDims;
    USHORT fFeatures;
    ULONG cbElements;
    ULONG cLocks;
    PVOID pvData;
    SAFEARRAYBOUND rgsabound[1];
};
typedef SAFEARRAY* LPSAFEARRAY;

// Null for an unsupported element type, more than one dimension, or short memory.
AUTOMATION_API SAFEARRAY* SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds);
AUTOMATION_API SAFEARRAY* SafeArrayCreateVector(VARTYPE type, LONG lowerBound, ULONG count);
// DISP_E_ARRAYISLOCKED while the data is accessed; a null array is accepted.
AUTOMATION_API HRESULT SafeArrayDestroy(SAFEARRAY* array);
// A deep copy into *copy; a null array gives a null copy.
AUTOMATION_API HRESULT SafeArrayCopy(SAFEARRAY* array, SAFEARRAY** copy);

// `value` points at the element's value, except for VT_BSTR, VT_DISPATCH and VT_UNKNOWN, where it
// is the string or the interface itself. The array stores a copy (a new string, a new reference)
// and frees the element it replaces.
AUTOMATION_API HRESULT SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* value);
// Copies the element out into *value: a new string, variant or reference that the caller owns.
AUTOMATION_API HRESULT SafeArrayGetElement(SAFEARRAY* array, LONG* indices, void* value);

AUTOMATION_API UINT SafeArrayGetDim(SAFEARRAY* array);
AUTOMATION_API UINT SafeArrayGetElemsize(SAFEARRAY* array);
AUTOMATION_API HRESULT SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* type);
// `dimension` counts from 1; DISP_E_BADINDEX outside the array's dimensions.
AUTOMATION_API HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* lowerBound);
AUTOMATION_API HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* upperBound);

// Locks the array and gives its elements; every access is ended by one SafeArrayUnaccessData.
AUTOMATION_API HRESULT SafeArrayAccessData(SAFEARRAY* array, void** data);
AUTOMATION_API HRESULT SafeArrayUnaccessData(SAFEARRAY* array);
