// _bstr_t and its shared record, as the platform's compiler support defines them.
#include <algorithm>
#include <atomic>
#include <memory>

#include "automation.h"

namespace {

BSTR copyOf(BSTR text)
{
    return SysAllocStringByteLen(reinterpret_cast<LPCSTR>(text), SysStringByteLen(text));
}

}  // namespace

// The string that copies of one _bstr_t share, with its narrow form once asked for.
class _bstr_t::Data_t {
public:
    explicit Data_t(const char* s) : m_wstr(_com_util::ConvertStringToBSTR(s)) {}
    explicit Data_t(const wchar_t* s) : m_wstr(SysAllocString(s))
    {
        if (m_wstr == nullptr && s != nullptr)
            _com_issue_error(E_OUTOFMEMORY);
    }
    Data_t(BSTR bstr, bool fCopy) : m_wstr(fCopy && bstr != nullptr ? copyOf(bstr) : bstr)
    {
        if (m_wstr == nullptr && bstr != nullptr)
            _com_issue_error(E_OUTOFMEMORY);
    }
    Data_t(const _bstr_t& s1, const _bstr_t& s2)
        : m_wstr(SysAllocStringLen(nullptr, s1.length() + s2.length()))
    {
        if (m_wstr == nullptr)
            _com_issue_error(E_OUTOFMEMORY);
        std::copy_n(static_cast<const wchar_t*>(s1), s1.length(), m_wstr);
        std::copy_n(static_cast<const wchar_t*>(s2), s2.length(), m_wstr + s1.length());
    }
    Data_t(const Data_t&) = delete;
    Data_t& operator=(const Data_t&) = delete;

    void AddRef() noexcept { ++m_RefCount; }
    void Release() noexcept
    {
        if (--m_RefCount == 0)
            delete this;
    }
    unsigned long RefCount() const noexcept { return m_RefCount; }

    BSTR& GetWString() noexcept { return m_wstr; }
    const char* GetString() const
    {
        if (!m_str)
            m_str.reset(_com_util::ConvertBSTRToString(m_wstr));
        return m_str.get();
    }
    BSTR Copy() const
    {
        if (m_wstr == nullptr)
            return nullptr;
        BSTR copy = copyOf(m_wstr);
        if (copy == nullptr)
            _com_issue_error(E_OUTOFMEMORY);
        return copy;
    }
    unsigned int Length() const noexcept { return SysStringLen(m_wstr); }

    // Character by character, then by length; a null string before every other.
    int Compare(const Data_t& other) const noexcept
    {
        if (m_wstr == nullptr)
            return other.m_wstr != nullptr ? -1 : 0;
        if (other.m_wstr == nullptr)
            return 1;
        const unsigned int mine = Length();
        const unsigned int theirs = other.Length();
        for (unsigned int i = 0; i < std::min(mine, theirs); ++i) {
            if (m_wstr[i] != other.m_wstr[i])
                return m_wstr[i] - other.m_wstr[i];
        }
        return mine < theirs ? -1 : mine == theirs ? 0 : 1;
    }

private:
    ~Data_t() { SysFreeString(m_wstr); }

    BSTR m_wstr;
    mutable std::unique_ptr<char[]> m_str;
    std::atomic<unsigned long> m_RefCount{1};
};

_bstr_t::_bstr_t() noexcept : m_Data(nullptr) {}

_bstr_t::_bstr_t(const _bstr_t& s) noexcept : m_Data(s.m_Data) { _AddRef(); }

_bstr_t::_bstr_t(const char* s) : m_Data(new Data_t(s)) {}

_bstr_t::_bstr_t(const wchar_t* s) : m_Data(new Data_t(s)) {}

_bstr_t::_bstr_t(BSTR bstr, bool fCopy) : m_Data(new Data_t(bstr, fCopy)) {}

_bstr_t::_bstr_t(const _variant_t& var) : m_Data(nullptr) { *this = var; }

_bstr_t::~_bstr_t() { _Free(); }

_bstr_t& _bstr_t::operator=(const _bstr_t& s) noexcept
{
    if (this != &s) {
        _Free();
        m_Data = s.m_Data;
        _AddRef();
    }
    return *this;
}

_bstr_t& _bstr_t::operator=(const char* s)
{
    if (s == nullptr || static_cast<const char*>(*this) != s) {
        _Free();
        m_Data = new Data_t(s);
    }
    return *this;
}

_bstr_t& _bstr_t::operator=(const wchar_t* s)
{
    if (s == nullptr || static_cast<const wchar_t*>(*this) != s) {
        _Free();
        m_Data = new Data_t(s);
    }
    return *this;
}

_bstr_t& _bstr_t::operator=(const _variant_t& var)
{
    if (V_VT(&var) == VT_BSTR)
        return *this = V_BSTR(&var);
    _variant_t text;
    text.ChangeType(VT_BSTR, &var);
    return *this = V_BSTR(&text);
}

_bstr_t& _bstr_t::operator+=(const _bstr_t& s)
{
    Data_t* joined = new Data_t(*this, s);
    _Free();
    m_Data = joined;
    return *this;
}

_bstr_t _bstr_t::operator+(const _bstr_t& s) const
{
    _bstr_t joined = *this;
    joined += s;
    return joined;
}

_bstr_t operator+(const char* s1, const _bstr_t& s2)
{
    _bstr_t joined = s1;
    joined += s2;
    return joined;
}

_bstr_t operator+(const wchar_t* s1, const _bstr_t& s2)
{
    _bstr_t joined = s1;
    joined += s2;
    return joined;
}

_bstr_t::operator const wchar_t*() const noexcept { return m_Data != nullptr ? m_Data->GetWString() : nullptr; }

_bstr_t::operator wchar_t*() const noexcept { return m_Data != nullptr ? m_Data->GetWString() : nullptr; }

_bstr_t::operator const char*() const { return m_Data != nullptr ? m_Data->GetString() : nullptr; }

_bstr_t::operator char*() const { return const_cast<char*>(static_cast<const char*>(*this)); }

bool _bstr_t::operator!() const noexcept { return m_Data == nullptr || m_Data->GetWString() == nullptr; }

bool _bstr_t::operator==(const _bstr_t& str) const noexcept { return _Compare(str) == 0; }
bool _bstr_t::operator!=(const _bstr_t& str) const noexcept { return _Compare(str) != 0; }
bool _bstr_t::operator<(const _bstr_t& str) const noexcept { return _Compare(str) < 0; }
bool _bstr_t::operator>(const _bstr_t& str) const noexcept { return _Compare(str) > 0; }
bool _bstr_t::operator<=(const _bstr_t& str) const noexcept { return _Compare(str) <= 0; }
bool _bstr_t::operator>=(const _bstr_t& str) const noexcept { return _Compare(str) >= 0; }

BSTR _bstr_t::copy(bool fCopy) const
{
    if (m_Data == nullptr)
        return nullptr;
    return fCopy ? m_Data->Copy() : m_Data->GetWString();
}

unsigned int _bstr_t::length() const noexcept { return m_Data != nullptr ? m_Data->Length() : 0; }

void _bstr_t::Assign(BSTR s)
{
    if (s == nullptr || m_Data == nullptr || m_Data->GetWString() != s) {
        _Free();
        m_Data = new Data_t(s, true);
    }
}

BSTR& _bstr_t::GetBSTR()
{
    if (m_Data == nullptr)
        m_Data = new Data_t(nullptr, false);
    return m_Data->GetWString();
}

BSTR* _bstr_t::GetAddress()
{
    Attach(nullptr);
    return &m_Data->GetWString();
}

void _bstr_t::Attach(BSTR s)
{
    _Free();
    m_Data = new Data_t(s, false);
}

BSTR _bstr_t::Detach()
{
    if (m_Data == nullptr || m_Data->RefCount() != 1) {
        _com_issue_error(E_POINTER);
        return nullptr;
    }
    BSTR detached = m_Data->GetWString();
    m_Data->GetWString() = nullptr;
    _Free();
    return detached;
}

void _bstr_t::_AddRef() noexcept
{
    if (m_Data != nullptr)
        m_Data->AddRef();
}

void _bstr_t::_Free() noexcept
{
    if (m_Data != nullptr) {
        m_Data->Release();
        m_Data = nullptr;
    }
}

int _bstr_t::_Compare(const _bstr_t& str) const noexcept
{
    if (m_Data == str.m_Data)
        return 0;
    if (m_Data == nullptr)
        return -1;
    if (str.m_Data == nullptr)
        return 1;
    return m_Data->Compare(*str.m_Data);
}
