#include "calls/call.h"

#include "calls/error_info.h"

#include <utility>

namespace sim::detail {

Call::Call(HostCore& core, const CallSubject& subject, const char* method,
           std::initializer_list<Arg> arguments, WhenGone whenGone)
    : m_core(core), m_subject(subject), m_outerCall(std::exchange(core.callUnderWay, method))
{
    // Taken by this call alone: calls the host makes while serving it are not the caller's.
    std::optional<std::vector<VARTYPE>> arrived = std::exchange(core.lateBoundArrival, std::nullopt);
    m_lateBound = arrived.has_value();
    if (core.timingCalls)
        m_started = std::chrono::steady_clock::now();
    if (!core.installed) {
        // The journal belongs to the host that is gone; nothing is recorded.
        m_ended = true;
        m_status = E_UNEXPECTED;
        if (const auto origin = subject.errorOrigin())
            setErrorInformation(*origin->iid, origin->source, L"the simulated host was shut down");
        return;
    }
    m_recording = core.journal.enabled();
    if (m_recording) {
        m_entry.object = subject.journalName();
        m_entry.method = method;
        m_entry.arguments.reserve(arguments.size());
        for (const Arg& argument : arguments)
            m_entry.arguments.push_back(argument.describe());
        m_entry.lateBound = std::move(arrived);
    }
    if (!core.state.faults.empty()) {
        m_verdict = consultFaults(core.state.faults, method,
                                  [&] { return m_recording ? m_entry.object : subject.journalName(); });
        if (FAILED(m_verdict.failure)) {
            fail(m_verdict.failure, L"the call failed as a fault armed on the simulated host asked");
            return;
        }
    }
    for (const Arg& argument : arguments) {
        if (!argument.fitsInterface()) {
            fail(DISP_E_OVERFLOW, L"a whole number beyond 32 bits is out of the host's range");
            return;
        }
    }
    if (whenGone == WhenGone::answers)
        return;
    const std::wstring gone = subject.goneReason();
    if (!gone.empty())
        fail(E_FAIL, gone);
}

HRESULT Call::succeed()
{
    end(m_verdict.success);
    return m_verdict.success;
}

HRESULT Call::succeedInPart()
{
    end(S_FALSE);
    return S_FALSE;
}

HRESULT Call::fail(HRESULT status, const std::wstring& description)
{
    if (const auto origin = m_subject.errorOrigin())
        setErrorInformation(*origin->iid, origin->source, description);
    end(status);
    return status;
}

HRESULT Call::giveText(BSTR* output, const std::wstring& value)
{
    if (m_verdict.answer.kind == Answer::Kind::null) {
        *output = nullptr;
        return succeed();
    }
    *output = SysAllocStringLen(value.data(), static_cast<UINT>(value.size()));
    if (*output == nullptr)
        return fail(E_OUTOFMEMORY, L"out of memory for the text");
    return succeed();
}

void Call::end(HRESULT status)
{
    m_ended = true;
    m_status = status;
    if (m_core.timingCalls)
        m_core.callTime += std::chrono::steady_clock::now() - m_started;
    if (m_recording) {
        m_entry.status = status;
        m_core.journal.record(std::move(m_entry));
        m_recording = false;
    }
}

}  // namespace sim::detail
