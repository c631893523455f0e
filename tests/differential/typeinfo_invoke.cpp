// Calls through the loaded library and below it, on objects of the probe's own: ITypeInfo::Invoke
// on both faces of a dual interface, the IDispatch CreateStdDispatch makes, and DispCallFunc with
// every argument and result type a host member takes or gives.
#include "typeinfo_texts.h"
#include "untyped_dispatch.h"

#include "automation/com_object.h"

#include <string>
#include <vector>

using namespace typeinfo_probe;

namespace {

const IID kHostLayout = {0xc30ab642, 0x92ad, 0x4ebc, {0xbf, 0x34, 0x98, 0x06, 0x61, 0xd7, 0xcd, 0xd7}};

// What the probe's objects were called with, for the case to print.
std::string received;

// HostLayout's vtable as the host's library lays it out; a plot type is a 32-bit number.
struct LayoutInterface : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_Name(BSTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetWindowToPlot(VARIANT lowerLeft, VARIANT upperRight) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_PlotType(INT* plotType) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_PlotType(INT plotType) = 0;
};

// A layout whose window fails for a lower-left corner that is a text.
class ProbedLayout final : public automation::ComObject<ProbedLayout, EarlyBoundOnly<LayoutInterface>> {
public:
    void* interfaceFor(REFIID iid)
    {
        return iid == IID_IUnknown || iid == IID_IDispatch || iid == kHostLayout
                   ? static_cast<LayoutInterface*>(this)
                   : nullptr;
    }

    HRESULT STDMETHODCALLTYPE get_Name(BSTR* name) override
    {
        *name = SysAllocString(L"Layout1");
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetWindowToPlot(VARIANT lowerLeft, VARIANT upperRight) override
    {
        received = "window " + probe::value(lowerLeft) + " to " + probe::value(upperRight);
        return V_VT(&lowerLeft) == VT_BSTR ? static_cast<HRESULT>(0x80040201L) : S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_PlotType(INT* plotType) override
    {
        *plotType = m_plotType;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE put_PlotType(INT plotType) override
    {
        received = "plot type " + std::to_string(plotType);
        m_plotType = plotType;
        return S_OK;
    }

private:
    friend ComObject;  // only the last Release deletes it
    ~ProbedLayout() = default;

    INT m_plotType = -7;
};

// The two faces of HostLayout in the host's library.
ITypeInfoPtr dispatchFace()
{
    ITypeInfoPtr face;
    hostLibrary()->GetTypeInfoOfGuid(kHostLayout, &face);
    return face;
}

ITypeInfoPtr interfaceFace()
{
    ITypeInfoPtr face;
    HREFTYPE other = 0;
    const ITypeInfoPtr dispatch = dispatchFace();
    if (SUCCEEDED(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &other)))
        dispatch->GetRefTypeInfo(other, &face);
    return face;
}

// One Invoke of a HostLayout member on a fresh layout, through the interface face unless said.
struct InvokeCase {
    const char* name;
    DISPID member;
    WORD flags;
    std::vector<_variant_t> positional;  // in the caller's order; a put's value named as clients name it
    bool onDispatchFace = false;
};

// What the Invoke returned, gave and left in EXCEPINFO, and what the layout was called with.
std::string invoked(const InvokeCase& call)
{
    const ITypeInfoPtr typeInfo = call.onDispatchFace ? dispatchFace() : interfaceFace();
    received = "not called";
    std::vector<VARIANT> arguments(call.positional.rbegin(), call.positional.rend());
    DISPID named = DISPID_PROPERTYPUT;
    const bool put = call.flags == DISPATCH_PROPERTYPUT;
    DISPPARAMS parameters = {arguments.data(), put ? &named : nullptr, static_cast<UINT>(arguments.size()),
                             put ? 1u : 0u};
    const IUnknownPtr layout(static_cast<LayoutInterface*>(new ProbedLayout), false);
    _variant_t result;
    EXCEPINFO exception{};
    UINT argumentError = 99;
    const HRESULT status =
        typeInfo->Invoke(static_cast<LayoutInterface*>(layout.GetInterfacePtr()), call.member, call.flags,
                         &parameters, &result, &exception, &argumentError);
    std::string written = probe::status(status) + " result " + probe::value(result) + " " + received;
    if (status == DISP_E_EXCEPTION)
        written += " scode " + probe::status(exception.scode) + " " + probe::text(exception.bstrDescription);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrHelpFile);
    return written;
}

const bool kInvokeCases = [] {
    const WORD get = DISPATCH_PROPERTYGET;
    const WORD method = DISPATCH_METHOD;
    const InvokeCase cases[] = {
        {"interface_face_property_get", 1, get, {}},
        {"dispatch_face_property_get", 1, get, {}, true},
        {"interface_face_enumeration_get", 3, get, {}},
        {"interface_face_enumeration_put_coerced", 3, DISPATCH_PROPERTYPUT, {_variant_t(L"-2")}},
        {"interface_face_variants_by_value", 2, method, {_variant_t(1.5), _variant_t(short(-3))}},
        {"interface_face_member_failure", 2, method, {_variant_t(L"corner"), _variant_t()}},
        {"interface_face_too_few_arguments", 2, method, {_variant_t(1L)}},
        {"interface_face_inherited_member", 0x60010000, method, {}},
        {"interface_face_unknown_member", 42, method, {}},
    };
    for (const InvokeCase& call : cases)
        probe::add("invoke", call.name, [call] { return invoked(call); });
    return true;
}();

// CreateStdDispatch over a layout: the IDispatch it makes, asked as a client asks.
PROBE_CASE(std_dispatch, over_a_layout)
{
    ProbedLayout* layout = new ProbedLayout;
    const ITypeInfoPtr face = dispatchFace();
    IUnknown* made = nullptr;
    std::string written =
        probe::status(CreateStdDispatch(nullptr, static_cast<LayoutInterface*>(layout), face, &made));
    IDispatchPtr dispatch;
    written +=
        " query " + probe::status(made->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&dispatch)));
    made->Release();
    UINT count = 9;
    written += " count " + probe::status(dispatch->GetTypeInfoCount(&count));
    written += " " + std::to_string(count);
    ITypeInfoPtr given;
    written += " info " + probe::status(dispatch->GetTypeInfo(0, 0, &given));
    written += given == face ? " same" : " other";
    ITypeInfo* beyond = reinterpret_cast<ITypeInfo*>(1);
    written += " info 1 " + probe::status(dispatch->GetTypeInfo(1, 0, &beyond));
    std::wstring name = L"plottype";
    LPOLESTR names[] = {&name[0]};
    DISPID id = 77;
    written += " ids " + probe::status(dispatch->GetIDsOfNames(IID_NULL, names, 1, 0, &id));
    written += " " + std::to_string(id);
    DISPPARAMS none = {nullptr, nullptr, 0, 0};
    _variant_t result;
    written += " get " + probe::status(dispatch->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &result,
                                                        nullptr, nullptr));
    written += " " + probe::value(result);
    written += " reserved iid " + probe::status(dispatch->Invoke(id, IID_IDispatch, 0, DISPATCH_PROPERTYGET,
                                                                 &none, &result, nullptr, nullptr));
    dispatch = nullptr;
    layout->Release();
    return written;
}

PROBE_CASE(std_dispatch, without_an_instance)
{
    IUnknown* made = reinterpret_cast<IUnknown*>(1);
    const HRESULT status = CreateStdDispatch(nullptr, nullptr, dispatchFace(), &made);
    return probe::status(status) + (made == nullptr ? " null" : " set");
}

// A vtable of the probe's own: a member that takes an argument of every type and members that
// return one type each.
class ProbedTarget {
public:
    explicit ProbedTarget(IUnknown* expected) : m_expected(expected) {}

    virtual HRESULT STDMETHODCALLTYPE takeAll(SHORT i2, INT i4, FLOAT r4, DOUBLE r8, CY cy, DATE date,
                                              BSTR text, VARIANT_BOOL flag, SCODE error, IUnknown* unknown,
                                              IDispatch* object, VARIANT value, UINT ui4, LONGLONG i8,
                                              INT integer, INT* out)
    {
        received = "i2 " + std::to_string(i2) + " i4 " + std::to_string(i4) + " r4 " +
                   std::to_string(static_cast<double>(r4)) + " r8 " + std::to_string(r8) + " cy " +
                   std::to_string(cy.int64) + " date " + std::to_string(date) + " text " + probe::text(text) +
                   " bool " + std::to_string(flag) + " error " + probe::status(error) + " unknown " +
                   (unknown == m_expected ? "expected" : "other") + " object " +
                   (object == nullptr ? "null" : "set") + " variant " + probe::value(value) + " ui4 " +
                   std::to_string(ui4) + " i8 " + std::to_string(i8) + " int " + std::to_string(integer);
        *out = 42;
        return static_cast<HRESULT>(0x00040123L);
    }
    virtual FLOAT STDMETHODCALLTYPE giveSingle() { return -2.5f; }
    virtual DOUBLE STDMETHODCALLTYPE giveDate() { return 36526.25; }
    virtual LONGLONG STDMETHODCALLTYPE giveEight() { return -0x123456789LL; }
    virtual VARIANT_BOOL STDMETHODCALLTYPE giveBool() { return VARIANT_TRUE; }
    virtual BSTR STDMETHODCALLTYPE giveText() { return SysAllocString(L"given"); }
    virtual CY STDMETHODCALLTYPE giveCurrency()
    {
        CY amount;
        amount.int64 = -125000;
        return amount;
    }
    virtual INT STDMETHODCALLTYPE giveNegative() { return -5; }
    virtual HRESULT STDMETHODCALLTYPE fail() { return E_FAIL; }

private:
    IUnknown* m_expected;
};

// A function without an instance, called by address.
VARIANT STDMETHODCALLTYPE scaledVariant(INT by, VARIANT value)
{
    VARIANT scaled;
    VariantInit(&scaled);
    V_VT(&scaled) = VT_I4;
    V_I4(&scaled) = by * (V_VT(&value) == VT_I4 ? static_cast<INT>(V_I4(&value)) : -1);
    return scaled;
}

// Calls vtable slot `slot` of a fresh target without arguments, as returning `returned`.
std::string called(UINT slot, VARTYPE returned, CALLCONV convention)
{
    received = "not called";
    ProbedTarget target(nullptr);
    VARIANT result;
    VariantInit(&result);
    V_VT(&result) = VT_I2;
    V_I2(&result) = 7;
    const HRESULT status =
        DispCallFunc(&target, slot * sizeof(void*), convention, returned, 0, nullptr, nullptr, &result);
    const std::string written = probe::status(status) + " " + probe::value(result) + " " + received;
    VariantClear(&result);
    return written;
}

PROBE_CASE(call, every_argument_type)
{
    IUnknownPtr unknown(static_cast<IUnknown*>(new ProbedLayout), false);
    ProbedTarget target(unknown);
    INT out = 0;
    _variant_t values[] = {_variant_t(short(-2)),
                           _variant_t(-70000L),
                           _variant_t(0.25f),
                           _variant_t(-1.5e3),
                           _variant_t(),
                           _variant_t(36526.5, VT_DATE),
                           _variant_t(L"t\u00e9xt"),
                           _variant_t(true),
                           _variant_t(),
                           _variant_t(unknown.GetInterfacePtr()),
                           _variant_t(static_cast<IDispatch*>(nullptr)),
                           _variant_t(L"inner"),
                           _variant_t(),
                           _variant_t(),
                           _variant_t(),
                           _variant_t()};
    V_VT(&values[4]) = VT_CY;
    V_CY(&values[4]).int64 = 15000;
    V_VT(&values[8]) = VT_ERROR;
    V_ERROR(&values[8]) = DISP_E_PARAMNOTFOUND;
    V_VT(&values[12]) = VT_UI4;
    V_UI4(&values[12]) = 0xFFFFFFF0u;
    V_VT(&values[13]) = VT_I8;
    V_I8(&values[13]) = -0x100000000LL;
    V_VT(&values[14]) = VT_INT;
    V_INT(&values[14]) = -9;
    V_VT(&values[15]) = VT_BYREF | VT_I4;
    V_BYREF(&values[15]) = &out;
    VARTYPE types[] = {VT_I2,   VT_I4,   VT_R4,    VT_R8,           VT_CY,       VT_DATE,
                       VT_BSTR, VT_BOOL, VT_ERROR, VT_UNKNOWN,      VT_DISPATCH, VT_VARIANT,
                       VT_UI4,  VT_I8,   VT_INT,   VT_BYREF | VT_I4};
    VARIANTARG* arguments[16];
    for (int i = 0; i < 16; ++i)
        arguments[i] = &values[i];
    VARIANT result;
    VariantInit(&result);
    const HRESULT status = DispCallFunc(&target, 0, CC_STDCALL, VT_ERROR, 16, types, arguments, &result);
    return probe::status(status) + " " + probe::value(result) + " " + received + " out " +
           std::to_string(out);
}

// Each result type from a member of its own, and the calling conventions refused.
const bool kResultCases = [] {
    struct ResultCase {
        const char* name;
        UINT slot;
        VARTYPE returned;
        CALLCONV convention;
    };
    const ResultCase cases[] = {
        {"gives_single", 1, VT_R4, CC_STDCALL},
        {"gives_date", 2, VT_DATE, CC_STDCALL},
        {"gives_eight_bytes", 3, VT_I8, CC_STDCALL},
        {"gives_bool", 4, VT_BOOL, CC_STDCALL},
        {"gives_text", 5, VT_BSTR, CC_STDCALL},
        {"gives_currency", 6, VT_CY, CC_STDCALL},
        {"gives_negative_number", 7, VT_I4, CC_STDCALL},
        {"gives_failure_status", 8, VT_ERROR, CC_STDCALL},
        {"gives_nothing", 8, VT_EMPTY, CC_STDCALL},
        {"refuses_a_status_result", 8, VT_HRESULT, CC_STDCALL},
        {"refuses_pascal", 8, VT_ERROR, CC_PASCAL},
        {"refuses_fastcall", 8, VT_ERROR, CC_FASTCALL},
        {"cdecl_taken", 8, VT_ERROR, CC_CDECL},
    };
    for (const ResultCase& call : cases)
        probe::add("call", call.name, [call] { return called(call.slot, call.returned, call.convention); });
    return true;
}();

PROBE_CASE(call, function_without_instance)
{
    _variant_t by(6L);
    _variant_t value(-7L);
    VARTYPE types[] = {VT_I4, VT_VARIANT};
    VARIANTARG* arguments[] = {&by, &value};
    VARIANT result;
    VariantInit(&result);
    const HRESULT status = DispCallFunc(nullptr, reinterpret_cast<ULONG_PTR>(&scaledVariant), CC_STDCALL,
                                        VT_VARIANT, 2, types, arguments, &result);
    return probe::status(status) + " " + probe::value(result);
}

}  // namespace
