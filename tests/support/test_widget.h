// A small automation object for the tests. The test owns it (it is never deleted through Release),
// so the references its callers hold can be read after every one is gone. It answers
// QueryInterface for IUnknown, IDispatch, ITestWidget and ISupportErrorInfo, and says it leaves
// error information for ITestWidget only. Queries for anything else get the refusal it was made with.
#pragma once

#include "automation.h"
#include "untyped_dispatch.h"

struct ITestWidget : IDispatch {
    // Leaves an error record with `description` for the calling thread and returns `status`.
    virtual HRESULT STDMETHODCALLTYPE Fail(HRESULT status, LPOLESTR description) = 0;
};

// An interface no test object has.
struct ITestGadget : IUnknown {
};

AUTOMATION_DECLARE_UUID(ITestWidget, 0x02710e5d, 0x9ea5, 0x4353, 0x9f, 0xfb, 0xc7, 0xf5, 0x04, 0xab, 0xe0, 0xc4)
AUTOMATION_DECLARE_UUID(ITestGadget, 0xed174930, 0x5f74, 0x4550, 0xa5, 0x42, 0xc2, 0x7b, 0x01, 0x25, 0xae, 0x62)
_COM_SMARTPTR_TYPEDEF(ITestWidget, __uuidof(ITestWidget));
_COM_SMARTPTR_TYPEDEF(ITestGadget, __uuidof(ITestGadget));

class TestWidget final : public EarlyBoundOnly<ITestWidget>, public ISupportErrorInfo {
public:
    explicit TestWidget(HRESULT refusal = E_NOINTERFACE) : m_refusal(refusal) {}
    TestWidget(const TestWidget&) = delete;
    TestWidget& operator=(const TestWidget&) = delete;

    // The references held now, without changing them.
    ULONG references() const { return m_references; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch) ||
            IsEqualIID(iid, __uuidof(ITestWidget)))
            *object = static_cast<ITestWidget*>(this);
        else if (IsEqualIID(iid, IID_ISupportErrorInfo))
            *object = static_cast<ISupportErrorInfo*>(this);
        else {
            *object = nullptr;
            return m_refusal;
        }
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override { return --m_references; }

    HRESULT STDMETHODCALLTYPE Fail(HRESULT status, LPOLESTR description) override
    {
        ICreateErrorInfo* created = nullptr;
        if (FAILED(CreateErrorInfo(&created)))
            return E_UNEXPECTED;
        ICreateErrorInfoPtr record(created, false);
        record->SetDescription(description);
        record->SetSource(const_cast<LPOLESTR>(L"TestWidget"));
        record->SetGUID(__uuidof(ITestWidget));
        IErrorInfoPtr info(record);
        SetErrorInfo(0, info);
        return status;
    }

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override
    {
        return IsEqualIID(iid, __uuidof(ITestWidget)) ? S_OK : S_FALSE;
    }

private:
    ULONG m_references = 0;
    HRESULT m_refusal;
};
