// _com_error, as the platform's compiler support defines it.
#include <cstring>
#include <cwchar>

#include "automation.h"

_com_error::_com_error(HRESULT hr, IErrorInfo* perrinfo, bool fAddRef) noexcept
    : m_hresult(hr), m_perrinfo(perrinfo), m_pszMsg(nullptr)
{
    if (m_perrinfo != nullptr && fAddRef)
        m_perrinfo->AddRef();
}

_com_error::_com_error(const _com_error& that) noexcept { Ctor(that); }

_com_error::~_com_error() { Dtor(); }

_com_error& _com_error::operator=(const _com_error& that) noexcept
{
    if (this != &that) {
        Dtor();
        Ctor(that);
    }
    return *this;
}

HRESULT _com_error::Error() const noexcept { return m_hresult; }

WORD _com_error::WCode() const noexcept { return HRESULTToWCode(m_hresult); }

IErrorInfo* _com_error::ErrorInfo() const noexcept
{
    if (m_perrinfo != nullptr)
        m_perrinfo->AddRef();
    return m_perrinfo;
}

_bstr_t _com_error::Description() const
{
    BSTR text = nullptr;
    if (m_perrinfo != nullptr)
        m_perrinfo->GetDescription(&text);
    return _bstr_t(text, false);
}

DWORD _com_error::HelpContext() const noexcept
{
    DWORD context = 0;
    if (m_perrinfo != nullptr)
        m_perrinfo->GetHelpContext(&context);
    return context;
}

_bstr_t _com_error::HelpFile() const
{
    BSTR text = nullptr;
    if (m_perrinfo != nullptr)
        m_perrinfo->GetHelpFile(&text);
    return _bstr_t(text, false);
}

_bstr_t _com_error::Source() const
{
    BSTR text = nullptr;
    if (m_perrinfo != nullptr)
        m_perrinfo->GetSource(&text);
    return _bstr_t(text, false);
}

GUID _com_error::GUID_() const noexcept
{
    GUID guid{};
    if (m_perrinfo != nullptr)
        m_perrinfo->GetGUID(&guid);
    return guid;
}

const TCHAR* _com_error::ErrorMessage() const noexcept
{
    if (m_pszMsg != nullptr)
        return m_pszMsg;
    FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                   nullptr, static_cast<std::uint32_t>(m_hresult), MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
                   reinterpret_cast<LPWSTR>(&m_pszMsg), 0, nullptr);
    if (m_pszMsg != nullptr) {
        const std::size_t length = std::wcslen(m_pszMsg);
        if (length > 1 && m_pszMsg[length - 1] == L'\n') {
            m_pszMsg[length - 1] = L'\0';
            if (m_pszMsg[length - 2] == L'\r')
                m_pszMsg[length - 2] = L'\0';
        }
        return m_pszMsg;
    }
    constexpr std::size_t capacity = 32;
    m_pszMsg = static_cast<TCHAR*>(LocalAlloc(LMEM_FIXED, capacity * sizeof(TCHAR)));
    if (m_pszMsg == nullptr)
        return nullptr;
    if (const WORD wCode = WCode(); wCode != 0)
        std::swprintf(m_pszMsg, capacity, L"IDispatch error #%d", wCode);
    else
        std::swprintf(m_pszMsg, capacity, L"Unknown error 0x%0lX",
                      static_cast<unsigned long>(static_cast<std::uint32_t>(m_hresult)));
    return m_pszMsg;
}

HRESULT _com_error::WCodeToHRESULT(WORD wCode) noexcept
{
    return wCode >= 0xFE00 ? WCODE_HRESULT_LAST : WCODE_HRESULT_FIRST + wCode;
}

WORD _com_error::HRESULTToWCode(HRESULT hr) noexcept
{
    return hr >= WCODE_HRESULT_FIRST && hr <= WCODE_HRESULT_LAST ? static_cast<WORD>(hr - WCODE_HRESULT_FIRST) : 0;
}

void _com_error::Dtor() noexcept
{
    if (m_perrinfo != nullptr)
        m_perrinfo->Release();
    if (m_pszMsg != nullptr)
        LocalFree(m_pszMsg);
}

void _com_error::Ctor(const _com_error& that) noexcept
{
    m_hresult = that.m_hresult;
    m_perrinfo = that.m_perrinfo;
    m_pszMsg = nullptr;
    if (m_perrinfo != nullptr)
        m_perrinfo->AddRef();
}
