// Error information records and the calling thread's slot for the latest one.
#include <new>
#include <optional>
#include <string>

#include "automation.h"
#include "automation/com_object.h"

namespace {

class ErrorRecord final : public automation::ComObject<ErrorRecord, IErrorInfo, ICreateErrorInfo> {
public:
    void* interfaceFor(REFIID iid)
    {
        if (iid == IID_IUnknown || iid == IID_IErrorInfo)
            return static_cast<IErrorInfo*>(this);
        if (iid == IID_ICreateErrorInfo)
            return static_cast<ICreateErrorInfo*>(this);
        return nullptr;
    }

    HRESULT STDMETHODCALLTYPE GetGUID(GUID* guid) override
    {
        if (guid == nullptr)
            return E_INVALIDARG;
        *guid = m_guid;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetSource(BSTR* source) override { return give(m_source, source); }
    HRESULT STDMETHODCALLTYPE GetDescription(BSTR* description) override { return give(m_description, description); }
    HRESULT STDMETHODCALLTYPE GetHelpFile(BSTR* helpFile) override { return give(m_helpFile, helpFile); }
    HRESULT STDMETHODCALLTYPE GetHelpContext(DWORD* helpContext) override
    {
        if (helpContext == nullptr)
            return E_INVALIDARG;
        *helpContext = m_helpContext;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE SetGUID(REFGUID guid) override
    {
        m_guid = guid;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetSource(LPOLESTR source) override { return keep(source, m_source); }
    HRESULT STDMETHODCALLTYPE SetDescription(LPOLESTR description) override { return keep(description, m_description); }
    HRESULT STDMETHODCALLTYPE SetHelpFile(LPOLESTR helpFile) override { return keep(helpFile, m_helpFile); }
    HRESULT STDMETHODCALLTYPE SetHelpContext(DWORD helpContext) override
    {
        m_helpContext = helpContext;
        return S_OK;
    }

private:
    // The texts are kept as plain strings: a pending record holds no BSTR. A text never set (or
    // set to null) is given as a null BSTR, as the platform gives it, not as an empty one.
    using Text = std::optional<std::wstring>;

    static HRESULT give(const Text& text, BSTR* copy)
    {
        if (copy == nullptr)
            return E_INVALIDARG;
        if (!text) {
            *copy = nullptr;
            return S_OK;
        }
        *copy = SysAllocStringLen(text->data(), static_cast<UINT>(text->size()));
        return *copy == nullptr ? E_OUTOFMEMORY : S_OK;
    }
    static HRESULT keep(LPCOLESTR text, Text& kept)
    {
        try {
            kept = text == nullptr ? Text() : Text(text);
            return S_OK;
        }
        catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        }
    }

    GUID m_guid{};
    Text m_source;
    Text m_description;
    Text m_helpFile;
    DWORD m_helpContext = 0;
};

// The calling thread's latest record.
thread_local IErrorInfoPtr currentError;

}  // namespace

HRESULT SetErrorInfo(ULONG reserved, IErrorInfo* info)
{
    if (reserved != 0)
        return E_INVALIDARG;
    currentError = info;
    return S_OK;
}

HRESULT GetErrorInfo(ULONG reserved, IErrorInfo** info)
{
    if (reserved != 0 || info == nullptr)
        return E_INVALIDARG;
    *info = currentError.Detach();
    return *info != nullptr ? S_OK : S_FALSE;
}

HRESULT CreateErrorInfo(ICreateErrorInfo** info)
{
    if (info == nullptr)
        return E_INVALIDARG;
    ErrorRecord* record = new (std::nothrow) ErrorRecord;
    *info = record;
    return record != nullptr ? S_OK : E_OUTOFMEMORY;
}
