// _variant_t, as the platform's compiler support defines it.
#include <cstring>

#include "automation.h"

namespace {

VARIANT* asVariant(const _variant_t* value) { return const_cast<VARIANT*>(static_cast<const VARIANT*>(value)); }

VARIANT_BOOL variantBool(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }

BSTR copyOrRaise(const _bstr_t& text)
{
    BSTR source = text;
    if (source == nullptr)
        return nullptr;
    BSTR copy = SysAllocStringByteLen(reinterpret_cast<LPCSTR>(source), SysStringByteLen(source));
    if (copy == nullptr)
        _com_issue_error(E_OUTOFMEMORY);
    return copy;
}

BSTR allocateOrRaise(const wchar_t* text)
{
    BSTR copy = SysAllocString(text);
    if (copy == nullptr && text != nullptr)
        _com_issue_error(E_OUTOFMEMORY);
    return copy;
}

}  // namespace

_variant_t::_variant_t() noexcept { VariantInit(this); }

_variant_t::_variant_t(const VARIANT& varSrc)
{
    VariantInit(this);
    _com_util::CheckError(VariantCopy(this, const_cast<VARIANT*>(&varSrc)));
}

_variant_t::_variant_t(const VARIANT* pSrc)
{
    VariantInit(this);
    if (pSrc == nullptr)
        _com_issue_error(E_POINTER);
    _com_util::CheckError(VariantCopy(this, const_cast<VARIANT*>(pSrc)));
}

_variant_t::_variant_t(const _variant_t& varSrc) : _variant_t(static_cast<const VARIANT&>(varSrc)) {}

_variant_t::_variant_t(VARIANT& varSrc, bool fCopy)
{
    VariantInit(this);
    if (fCopy)
        _com_util::CheckError(VariantCopy(this, &varSrc));
    else
        Attach(varSrc);
}

_variant_t::_variant_t(short sSrc, VARTYPE vtSrc)
{
    VariantInit(this);
    if (vtSrc != VT_I2 && vtSrc != VT_BOOL)
        _com_issue_error(E_INVALIDARG);
    V_VT(this) = vtSrc;
    if (vtSrc == VT_BOOL)
        V_BOOL(this) = variantBool(sSrc != 0);
    else
        V_I2(this) = sSrc;
}

_variant_t::_variant_t(long lSrc, VARTYPE vtSrc)
{
    VariantInit(this);
    if (vtSrc != VT_I4 && vtSrc != VT_ERROR && vtSrc != VT_BOOL)
        _com_issue_error(E_INVALIDARG);
    V_VT(this) = vtSrc;
    if (vtSrc == VT_ERROR)
        V_ERROR(this) = lSrc;
    else if (vtSrc == VT_BOOL)
        V_BOOL(this) = variantBool(lSrc != 0);
    else
        V_I4(this) = lSrc;
}

_variant_t::_variant_t(int lSrc, VARTYPE vtSrc) : _variant_t(static_cast<long>(lSrc), vtSrc) {}

_variant_t::_variant_t(float fltSrc) noexcept
{
    V_VT(this) = VT_R4;
    V_R4(this) = fltSrc;
}

_variant_t::_variant_t(double dblSrc, VARTYPE vtSrc)
{
    VariantInit(this);
    if (vtSrc != VT_R8 && vtSrc != VT_DATE)
        _com_issue_error(E_INVALIDARG);
    V_VT(this) = vtSrc;
    V_R8(this) = dblSrc;  // a DATE is a double in the same place
}

_variant_t::_variant_t(const _bstr_t& bstrSrc)
{
    V_VT(this) = VT_BSTR;
    V_BSTR(this) = copyOrRaise(bstrSrc);
}

_variant_t::_variant_t(const wchar_t* pSrc)
{
    V_VT(this) = VT_BSTR;
    V_BSTR(this) = allocateOrRaise(pSrc);
}

_variant_t::_variant_t(const char* pSrc)
{
    V_VT(this) = VT_BSTR;
    V_BSTR(this) = _com_util::ConvertStringToBSTR(pSrc);
}

_variant_t::_variant_t(IDispatch* pSrc, bool fAddRef) noexcept
{
    V_VT(this) = VT_DISPATCH;
    V_DISPATCH(this) = pSrc;
    if (fAddRef && pSrc != nullptr)
        pSrc->AddRef();
}

_variant_t::_variant_t(bool boolSrc) noexcept
{
    V_VT(this) = VT_BOOL;
    V_BOOL(this) = variantBool(boolSrc);
}

_variant_t::_variant_t(IUnknown* pSrc, bool fAddRef) noexcept
{
    V_VT(this) = VT_UNKNOWN;
    V_UNKNOWN(this) = pSrc;
    if (fAddRef && pSrc != nullptr)
        pSrc->AddRef();
}

_variant_t::_variant_t(BYTE bSrc) noexcept
{
    V_VT(this) = VT_UI1;
    V_UI1(this) = bSrc;
}

_variant_t::_variant_t(char cSrc) noexcept
{
    V_VT(this) = VT_I1;
    V_I1(this) = cSrc;
}

_variant_t::_variant_t(unsigned short usSrc) noexcept
{
    V_VT(this) = VT_UI2;
    V_UI2(this) = usSrc;
}

_variant_t::_variant_t(unsigned long ulSrc) noexcept
{
    V_VT(this) = VT_UI4;
    V_UI4(this) = ulSrc;
}

_variant_t::_variant_t(int iSrc) noexcept
{
    V_VT(this) = VT_INT;
    V_INT(this) = iSrc;
}

_variant_t::_variant_t(unsigned int uiSrc) noexcept
{
    V_VT(this) = VT_UINT;
    V_UINT(this) = uiSrc;
}

_variant_t::_variant_t(long long i8Src) noexcept
{
    V_VT(this) = VT_I8;
    V_I8(this) = i8Src;
}

_variant_t::_variant_t(unsigned long long ui8Src) noexcept
{
    V_VT(this) = VT_UI8;
    V_UI8(this) = ui8Src;
}

_variant_t::~_variant_t() { VariantClear(this); }

template <class Value>
Value _variant_t::convertedTo(VARTYPE type, Value VARIANT::*member) const
{
    if (V_VT(this) == type)
        return this->*member;
    _variant_t converted;
    converted.ChangeType(type, this);
    return converted.*member;
}

_variant_t::operator short() const { return convertedTo(VT_I2, &VARIANT::iVal); }
_variant_t::operator long() const { return convertedTo(VT_I4, &VARIANT::lVal); }
_variant_t::operator float() const { return convertedTo(VT_R4, &VARIANT::fltVal); }
_variant_t::operator double() const { return convertedTo(VT_R8, &VARIANT::dblVal); }
_variant_t::operator BYTE() const { return convertedTo(VT_UI1, &VARIANT::bVal); }
_variant_t::operator char() const { return convertedTo(VT_I1, &VARIANT::cVal); }
_variant_t::operator unsigned short() const { return convertedTo(VT_UI2, &VARIANT::uiVal); }
_variant_t::operator unsigned long() const { return convertedTo(VT_UI4, &VARIANT::ulVal); }
_variant_t::operator int() const { return convertedTo(VT_INT, &VARIANT::intVal); }
_variant_t::operator unsigned int() const { return convertedTo(VT_UINT, &VARIANT::uintVal); }
_variant_t::operator long long() const { return convertedTo(VT_I8, &VARIANT::llVal); }
_variant_t::operator unsigned long long() const { return convertedTo(VT_UI8, &VARIANT::ullVal); }

_variant_t::operator bool() const
{
    if (V_VT(this) == VT_BOOL)
        return V_BOOL(this) != VARIANT_FALSE;
    return convertedTo(VT_BOOL, &VARIANT::boolVal) == VARIANT_TRUE;
}

_variant_t::operator _bstr_t() const
{
    if (V_VT(this) == VT_BSTR)
        return V_BSTR(this);
    _variant_t converted;
    converted.ChangeType(VT_BSTR, this);
    return V_BSTR(&converted);
}

_variant_t::operator IDispatch*() const
{
    IDispatch* dispatch = convertedTo(VT_DISPATCH, &VARIANT::pdispVal);
    if (dispatch != nullptr)
        dispatch->AddRef();
    return dispatch;
}

_variant_t::operator IUnknown*() const
{
    IUnknown* unknown = convertedTo(VT_UNKNOWN, &VARIANT::punkVal);
    if (unknown != nullptr)
        unknown->AddRef();
    return unknown;
}

_variant_t& _variant_t::operator=(const VARIANT& varSrc)
{
    _com_util::CheckError(VariantCopy(this, const_cast<VARIANT*>(&varSrc)));
    return *this;
}

_variant_t& _variant_t::operator=(const VARIANT* pSrc)
{
    if (pSrc == nullptr)
        _com_issue_error(E_POINTER);
    return *this = *pSrc;
}

_variant_t& _variant_t::operator=(const _variant_t& varSrc) { return *this = static_cast<const VARIANT&>(varSrc); }

template <class Value>
_variant_t& _variant_t::assignPlain(VARTYPE type, Value VARIANT::*member, Value value)
{
    if (V_VT(this) != type) {
        Clear();
        V_VT(this) = type;
    }
    this->*member = value;
    return *this;
}

// A short or long keeps VT_BOOL (and a long VT_ERROR) when the variant has it, as on the platform.
_variant_t& _variant_t::operator=(short sSrc)
{
    if (V_VT(this) == VT_BOOL)
        return assignPlain(VT_BOOL, &VARIANT::boolVal, variantBool(sSrc != 0));
    return assignPlain(VT_I2, &VARIANT::iVal, sSrc);
}

_variant_t& _variant_t::operator=(long lSrc)
{
    if (V_VT(this) == VT_BOOL)
        return assignPlain(VT_BOOL, &VARIANT::boolVal, variantBool(lSrc != 0));
    if (V_VT(this) == VT_ERROR)
        return assignPlain(VT_ERROR, &VARIANT::scode, lSrc);
    return assignPlain(VT_I4, &VARIANT::lVal, lSrc);
}

_variant_t& _variant_t::operator=(double dblSrc)
{
    if (V_VT(this) == VT_DATE)
        return assignPlain(VT_DATE, &VARIANT::date, dblSrc);
    return assignPlain(VT_R8, &VARIANT::dblVal, dblSrc);
}

_variant_t& _variant_t::operator=(float fltSrc) { return assignPlain(VT_R4, &VARIANT::fltVal, fltSrc); }
_variant_t& _variant_t::operator=(bool boolSrc) { return assignPlain(VT_BOOL, &VARIANT::boolVal, variantBool(boolSrc)); }
_variant_t& _variant_t::operator=(BYTE bSrc) { return assignPlain(VT_UI1, &VARIANT::bVal, bSrc); }
_variant_t& _variant_t::operator=(char cSrc) { return assignPlain(VT_I1, &VARIANT::cVal, cSrc); }
_variant_t& _variant_t::operator=(unsigned short usSrc) { return assignPlain(VT_UI2, &VARIANT::uiVal, usSrc); }
_variant_t& _variant_t::operator=(unsigned long ulSrc) { return assignPlain(VT_UI4, &VARIANT::ulVal, ulSrc); }
_variant_t& _variant_t::operator=(int iSrc) { return assignPlain(VT_INT, &VARIANT::intVal, iSrc); }
_variant_t& _variant_t::operator=(unsigned int uiSrc) { return assignPlain(VT_UINT, &VARIANT::uintVal, uiSrc); }
_variant_t& _variant_t::operator=(long long i8Src) { return assignPlain(VT_I8, &VARIANT::llVal, i8Src); }
_variant_t& _variant_t::operator=(unsigned long long ui8Src) { return assignPlain(VT_UI8, &VARIANT::ullVal, ui8Src); }

_variant_t& _variant_t::operator=(const _bstr_t& bstrSrc)
{
    Clear();
    V_VT(this) = VT_BSTR;
    V_BSTR(this) = nullptr;
    V_BSTR(this) = copyOrRaise(bstrSrc);
    return *this;
}

_variant_t& _variant_t::operator=(const wchar_t* pSrc)
{
    Clear();
    V_VT(this) = VT_BSTR;
    V_BSTR(this) = nullptr;
    V_BSTR(this) = allocateOrRaise(pSrc);
    return *this;
}

_variant_t& _variant_t::operator=(const char* pSrc)
{
    Clear();
    V_VT(this) = VT_BSTR;
    V_BSTR(this) = nullptr;
    V_BSTR(this) = _com_util::ConvertStringToBSTR(pSrc);
    return *this;
}

_variant_t& _variant_t::operator=(IDispatch* pSrc)
{
    if (pSrc != nullptr)
        pSrc->AddRef();  // before Clear, which may release the same object
    Clear();
    V_VT(this) = VT_DISPATCH;
    V_DISPATCH(this) = pSrc;
    return *this;
}

_variant_t& _variant_t::operator=(IUnknown* pSrc)
{
    if (pSrc != nullptr)
        pSrc->AddRef();
    Clear();
    V_VT(this) = VT_UNKNOWN;
    V_UNKNOWN(this) = pSrc;
    return *this;
}

bool _variant_t::operator==(const VARIANT& varSrc) const { return *this == &varSrc; }

bool _variant_t::operator==(const VARIANT* pSrc) const
{
    if (pSrc == nullptr)
        return false;
    if (pSrc == this)
        return true;
    if (V_VT(this) != V_VT(pSrc))
        return false;
    switch (V_VT(this)) {
    case VT_EMPTY:
    case VT_NULL:
        return true;
    case VT_I1:
    case VT_UI1:
        return V_UI1(this) == V_UI1(pSrc);
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        return V_UI2(this) == V_UI2(pSrc);
    case VT_I4:
    case VT_ERROR:
        return V_I4(this) == V_I4(pSrc);
    case VT_UI4:
        return V_UI4(this) == V_UI4(pSrc);
    case VT_INT:
    case VT_UINT:
        return V_UINT(this) == V_UINT(pSrc);
    case VT_I8:
    case VT_UI8:
        return V_UI8(this) == V_UI8(pSrc);
    case VT_R4:
        return V_R4(this) == V_R4(pSrc);
    case VT_R8:
    case VT_DATE:
        return V_R8(this) == V_R8(pSrc);
    case VT_BSTR:
        return SysStringByteLen(V_BSTR(this)) == SysStringByteLen(V_BSTR(pSrc)) &&
               std::memcmp(V_BSTR(this), V_BSTR(pSrc), SysStringByteLen(V_BSTR(this))) == 0;
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return V_UNKNOWN(this) == V_UNKNOWN(pSrc);
    default:
        _com_issue_error(E_INVALIDARG);
        return false;
    }
}

bool _variant_t::operator!=(const VARIANT& varSrc) const { return !(*this == &varSrc); }

bool _variant_t::operator!=(const VARIANT* pSrc) const { return !(*this == pSrc); }

void _variant_t::Clear() { _com_util::CheckError(VariantClear(this)); }

void _variant_t::Attach(VARIANT& varSrc)
{
    Clear();
    std::memcpy(static_cast<VARIANT*>(this), &varSrc, sizeof(VARIANT));
    V_VT(&varSrc) = VT_EMPTY;
}

VARIANT _variant_t::Detach()
{
    VARIANT detached = *this;
    V_VT(this) = VT_EMPTY;
    return detached;
}

VARIANT& _variant_t::GetVARIANT() noexcept { return *this; }

VARIANT* _variant_t::GetAddress()
{
    Clear();
    return this;
}

void _variant_t::ChangeType(VARTYPE vartype, const _variant_t* pSrc)
{
    if (pSrc == nullptr)
        pSrc = this;
    if (pSrc != this || vartype != V_VT(this))
        _com_util::CheckError(VariantChangeType(this, asVariant(pSrc), 0, vartype));
}

void _variant_t::SetString(const char* pSrc) { *this = pSrc; }
