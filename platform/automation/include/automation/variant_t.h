// _variant_t: the owning wrapper of a VARIANT. It clears what it holds when it goes; copies are
// deep (VariantCopy). The constructors, assignments and conversions are the platform's, so that a
// value of a given C++ type becomes the same variant type on both builds: long is VT_I4, int is
// VT_INT, short is VT_I2, double is VT_R8, bool is VT_BOOL, strings are VT_BSTR.
// Failures raise _com_error.
//
// One addition: (int, VARTYPE) behaves as (long, VARTYPE), because status codes are int here and
// long on the platform, and _variant_t(DISP_E_PARAMNOTFOUND, VT_ERROR) must build on both.
#pragma once

#include "automation/bstr_t.h"
#include "automation/export.h"
#include "automation/variant.h"

class AUTOMATION_API _variant_t : public tagVARIANT {
public:
    _variant_t() noexcept;
    _variant_t(const VARIANT& varSrc);
    _variant_t(const VARIANT* pSrc);
    _variant_t(const _variant_t& varSrc);
    // Copies `varSrc`, or takes its contents over (leaving it VT_EMPTY) when !fCopy.
    _variant_t(VARIANT& varSrc, bool fCopy);
    // VT_I2 or VT_BOOL; other types raise E_INVALIDARG.
    _variant_t(short sSrc, VARTYPE vtSrc = VT_I2);
    // VT_I4, VT_ERROR or VT_BOOL; other types raise E_INVALIDARG.
    _variant_t(long lSrc, VARTYPE vtSrc = VT_I4);
    _variant_t(int lSrc, VARTYPE vtSrc);
    _variant_t(float fltSrc) noexcept;
    // VT_R8 or VT_DATE; other types raise E_INVALIDARG.
    _variant_t(double dblSrc, VARTYPE vtSrc = VT_R8);
    _variant_t(const _bstr_t& bstrSrc);
    _variant_t(const wchar_t* pSrc);
    _variant_t(const char* pSrc);
    _variant_t(IDispatch* pSrc, bool fAddRef = true) noexcept;
    _variant_t(bool boolSrc) noexcept;
    _variant_t(IUnknown* pSrc, bool fAddRef = true) noexcept;
    _variant_t(BYTE bSrc) noexcept;
    _variant_t(char cSrc) noexcept;
    _variant_t(unsigned short usSrc) noexcept;
    _variant_t(unsigned long ulSrc) noexcept;
    _variant_t(int iSrc) noexcept;
    _variant_t(unsigned int uiSrc) noexcept;
    _variant_t(long long i8Src) noexcept;
    _variant_t(unsigned long long ui8Src) noexcept;
    ~_variant_t();

    // Conversions: the value itself when the type matches, else VariantChangeType's result.
    // The interface conversions add a reference for the caller. (A plain VARIANT is had by
    // slicing, a bitwise copy that owns nothing.)
    operator short() const;
    operator long() const;
    operator float() const;
    operator double() const;
    operator _bstr_t() const;
    operator IDispatch*() const;
    operator bool() const;
    operator IUnknown*() const;
    operator BYTE() const;
    operator char() const;
    operator unsigned short() const;
    operator unsigned long() const;
    operator int() const;
    operator unsigned int() const;
    operator long long() const;
    operator unsigned long long() const;

    _variant_t& operator=(const VARIANT& varSrc);
    _variant_t& operator=(const VARIANT* pSrc);
    _variant_t& operator=(const _variant_t& varSrc);
    _variant_t& operator=(short sSrc);
    _variant_t& operator=(long lSrc);
    _variant_t& operator=(float fltSrc);
    _variant_t& operator=(double dblSrc);
    _variant_t& operator=(const _bstr_t& bstrSrc);
    _variant_t& operator=(const wchar_t* pSrc);
    _variant_t& operator=(const char* pSrc);
    _variant_t& operator=(IDispatch* pSrc);
    _variant_t& operator=(bool boolSrc);
    _variant_t& operator=(IUnknown* pSrc);
    _variant_t& operator=(BYTE bSrc);
    _variant_t& operator=(char cSrc);
    _variant_t& operator=(unsigned short usSrc);
    _variant_t& operator=(unsigned long ulSrc);
    _variant_t& operator=(int iSrc);
    _variant_t& operator=(unsigned int uiSrc);
    _variant_t& operator=(long long i8Src);
    _variant_t& operator=(unsigned long long ui8Src);

    // Same type and value; strings by content, interfaces by pointer. Arrays raise E_INVALIDARG.
    bool operator==(const VARIANT& varSrc) const;
    bool operator==(const VARIANT* pSrc) const;
    bool operator!=(const VARIANT& varSrc) const;
    bool operator!=(const VARIANT* pSrc) const;

    void Clear();
    // Takes the contents of `varSrc` over, leaving it VT_EMPTY.
    void Attach(VARIANT& varSrc);
    // Hands the contents over, leaving this VT_EMPTY.
    VARIANT Detach();
    VARIANT& GetVARIANT() noexcept;
    // Clears this and gives its address to receive a new value into.
    VARIANT* GetAddress();
    // Converts `pSrc` (this when null) to `vartype` into this.
    void ChangeType(VARTYPE vartype, const _variant_t* pSrc = nullptr);
    void SetString(const char* pSrc);

private:
    template <class Value>
    Value convertedTo(VARTYPE type, Value VARIANT::*member) const;
    template <class Value>
    _variant_t& assignPlain(VARTYPE type, Value VARIANT::*member, Value value);
};

// The argument of an optional parameter that is left out: VT_ERROR holding DISP_E_PARAMNOTFOUND.
extern AUTOMATION_API _variant_t vtMissing;

#define bstr_t _bstr_t
#define variant_t _variant_t
