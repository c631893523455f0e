// _bstr_t: the owning wrapper of a BSTR. Copies share one reference-counted record; the narrow
// form of the text is made on first request and kept with it. Allocation failures raise
// _com_error(E_OUTOFMEMORY).
//
// As on the platform: a default-constructed _bstr_t has no record and converts to null; one made
// from a null string has a record holding null; the two compare unequal, and both are
// less than any string. There is no conversion to bool (the pointer conversions would make it
// ambiguous); test with `!` or length().
#pragma once

#include "automation/bstr.h"
#include "automation/export.h"

class _variant_t;

class AUTOMATION_API _bstr_t {
public:
    _bstr_t() noexcept;
    _bstr_t(const _bstr_t& s) noexcept;
    _bstr_t(const char* s);
    _bstr_t(const wchar_t* s);
    _bstr_t(const _variant_t& var);
    // Takes `bstr` over, or copies it when `fCopy`.
    _bstr_t(BSTR bstr, bool fCopy);
    ~_bstr_t();

    _bstr_t& operator=(const _bstr_t& s) noexcept;
    _bstr_t& operator=(const char* s);
    _bstr_t& operator=(const wchar_t* s);
    _bstr_t& operator=(const _variant_t& var);

    _bstr_t& operator+=(const _bstr_t& s);
    _bstr_t operator+(const _bstr_t& s) const;
    friend AUTOMATION_API _bstr_t operator+(const char* s1, const _bstr_t& s2);
    friend AUTOMATION_API _bstr_t operator+(const wchar_t* s1, const _bstr_t& s2);

    operator const wchar_t*() const noexcept;
    operator wchar_t*() const noexcept;
    operator const char*() const;
    operator char*() const;

    bool operator!() const noexcept;
    bool operator==(const _bstr_t& str) const noexcept;
    bool operator!=(const _bstr_t& str) const noexcept;
    bool operator<(const _bstr_t& str) const noexcept;
    bool operator>(const _bstr_t& str) const noexcept;
    bool operator<=(const _bstr_t& str) const noexcept;
    bool operator>=(const _bstr_t& str) const noexcept;

    // A new BSTR that the caller owns, or the shared one itself when !fCopy.
    BSTR copy(bool fCopy = true) const;
    unsigned int length() const noexcept;
    // Replaces the text by a copy of `s`.
    void Assign(BSTR s);
    BSTR& GetBSTR();
    // Empties this string and gives the address to receive a new BSTR into.
    BSTR* GetAddress();
    // Takes `s` over.
    void Attach(BSTR s);
    // Hands the BSTR over; raises E_POINTER when the record is shared or absent (where the
    // platform, whose Detach is declared not to throw, ends the program).
    BSTR Detach();

private:
    class Data_t;
    Data_t* m_Data;

    void _AddRef() noexcept;
    void _Free() noexcept;
    int _Compare(const _bstr_t& str) const noexcept;
};
