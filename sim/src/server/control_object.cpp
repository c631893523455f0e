#include "server/control_object.h"

#include "host/installation.h"
#include "calls/error_info.h"
#include "late_binding/dispatch.h"
#include "objects/objects.h"
#include "server/served_host.h"

#include "sim/state_json.h"
#include "model/text.h"

#include "automation/com_object.h"

#include <atomic>
#include <exception>

namespace sim::detail {
namespace {

std::atomic<long> g_liveControls{0};

class ControlObject final
    : public automation::ComObject<ControlObject, DispatchedByName<SimulatorControl>, ISupportErrorInfo> {
public:
    explicit ControlObject(unsigned generation) : m_generation(generation) { ++g_liveControls; }

    void* interfaceFor(REFIID iid)
    {
        if (iid == IID_IUnknown || iid == IID_IDispatch || iid == __uuidof(SimulatorControl))
            return static_cast<SimulatorControl*>(this);
        if (iid == IID_ISupportErrorInfo)
            return static_cast<ISupportErrorInfo*>(this);
        return nullptr;
    }

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override
    {
        return iid == __uuidof(SimulatorControl) ? S_OK : S_FALSE;
    }

    HRESULT STDMETHODCALLTYPE get_Application(HostApplication** application) override
    {
        return act(application, [&](Host&) {
            *application = newApplication(installed()->sharedCore());
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE raw_LoadState(BSTR stateFile) override
    {
        const std::string path = text::toUtf8(stateFile != nullptr ? stateFile : L"");
        return act(&path, [&](Host&) {
            HostState state = loadStateFile(path);
            return startServedHost(std::move(state), __uuidof(SimulatorControl), m_generation);
        });
    }

    HRESULT STDMETHODCALLTYPE get_State(BSTR* json) override
    {
        return act(json, [&](Host& host) { return giveText(json, stateToJson(host.state()).dump(2)); });
    }

    HRESULT STDMETHODCALLTYPE get_Journal(BSTR* json) override
    {
        return act(json, [&](Host& host) {
            nlohmann::ordered_json calls = nlohmann::ordered_json::array();
            for (const JournalEntry& entry : host.journal().entries())
                calls.push_back(journalEntryToJson(entry));
            return giveText(json, calls.dump(2));
        });
    }

    HRESULT STDMETHODCALLTYPE raw_ClearJournal() override
    {
        return act(this, [](Host& host) {
            host.journal().clear();
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE raw_ArmFault(BSTR fault) override
    {
        const std::string written = text::toUtf8(fault != nullptr ? fault : L"");
        return act(this, [&](Host& host) {
            const nlohmann::json faults = nlohmann::json::array({nlohmann::json::parse(written)});
            for (Fault& armed : faultsFromJson(faults))
                host.armFault(std::move(armed));
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE raw_ClearFaults() override
    {
        return act(this, [](Host& host) {
            host.clearFaults();
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE get_ReferencesHeld(LONG* count) override
    {
        return act(count, [&](Host& host) {
            *count = host.referencesHeld();
            return S_OK;
        });
    }

private:
    friend ComObject;  // only the last Release deletes a control
    ~ControlObject() { --g_liveControls; }

    // Runs `action` on the served host this control started: a null output, a replaced host or a
    // refusal (bad JSON, a state or fault the host cannot take) fails with error information.
    template <class Output, class Action> HRESULT act(Output* output, Action action)
    {
        if (output == nullptr)
            return fail(E_POINTER, L"no place to store the result was given");
        Host* host = servedHost(m_generation);
        if (host == nullptr)
            return fail(E_UNEXPECTED, L"the simulated host this control started was replaced by another");
        try {
            return action(*host);
        }
        catch (const std::exception& refused) {
            return fail(E_INVALIDARG, text::fromUtf8(refused.what()).value_or(L"the input was refused"));
        }
    }

    static HRESULT giveText(BSTR* output, const std::string& utf8)
    {
        const std::wstring wide = text::fromUtf8(utf8).value_or(L"");
        *output = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
        return *output != nullptr ? S_OK : E_OUTOFMEMORY;
    }

    static HRESULT fail(HRESULT status, const std::wstring& description)
    {
        setErrorInformation(__uuidof(SimulatorControl), L"Zorb.SimulatorControl", description);
        return status;
    }

    unsigned m_generation;
};

}  // namespace

long liveControls()
{
    return g_liveControls;
}

HRESULT newSimulatorControl(SimulatorControl** control)
{
    *control = nullptr;
    unsigned generation = 0;
    const HRESULT started = startServedHost(defaultHostState(), __uuidof(SimulatorControl), generation);
    if (FAILED(started))
        return started;
    *control = new ControlObject(generation);
    return S_OK;
}

}  // namespace sim::detail
