// One call on the simulated host, from its arrival to its status: whether the host is still
// there, what armed faults make of it, the journal entry, and the error information a failure
// leaves. Every host object method and SDK function goes through one.
#pragma once

#include "faults/plan.h"
#include "host/host_core.h"
#include "calls/arguments.h"

#include <chrono>
#include <initializer_list>
#include <optional>
#include <string>

namespace sim::detail {

// Who a call is made on, as the journal and the error information name it.
class CallSubject {
public:
    virtual std::string journalName() const = 0;
    // Why the subject can no longer be used (its node left the host); empty while it can.
    virtual std::wstring goneReason() const { return {}; }
    // Where the error information of a failure comes from; none for the SDK functions, which
    // report failure by their results.
    struct ErrorOrigin {
        const IID* iid;
        std::wstring source;
    };
    virtual std::optional<ErrorOrigin> errorOrigin() const { return std::nullopt; }

protected:
    ~CallSubject() = default;
};

class Call {
public:
    // What a call on a subject whose node left the host does: most fail, a few reads still answer
    // with what the subject last was (a real host keeps an unloaded group's name, say).
    enum class WhenGone { fails, answers };

    Call(HostCore& core, const CallSubject& subject, const char* method,
         std::initializer_list<Arg> arguments = {}, WhenGone whenGone = WhenGone::fails);
    ~Call() { m_core.callUnderWay = m_outerCall; }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    // True when the call has already ended (the host is gone, a fault failed it, or the subject's
    // node is gone); return status() at once.
    bool refused() const { return m_ended; }
    HRESULT status() const { return m_status; }

    // Whether the call goes on to write `output`. The output is cleared first, whatever happens,
    // as a failed call must leave it: false when the call has already ended (refused) or when
    // `output` is null (the call then ends with E_POINTER).
    template <class T> bool accepts(T* output);

    HRESULT succeed();
    // Ends a call that did less than it was asked (an enumeration with fewer members left than
    // were asked for): S_FALSE.
    HRESULT succeedInPart();
    HRESULT fail(HRESULT status, const std::wstring& description);

    // Each ends the call giving its result: an object (none when a fault withholds it), a text, a
    // value, or what an answer fault gives in their place.
    template <class Interface, class Make> HRESULT giveObject(Interface** output, Make make);
    HRESULT giveText(BSTR* output, const std::wstring& value);
    template <class T> HRESULT giveValue(T* output, T value);

    // Ends an SDK call that gives an object: none when a fault withholds it, which the SDK function
    // reports as its failure (`missing` says what was withheld).
    template <class T> T* giveSdkObject(T* object, const wchar_t* missing);

    // Whether a fault makes this call give no object (for calls that then must not act).
    bool givesNull() const { return m_verdict.giveNull; }
    // What an answer fault makes this call give in place of the host's own value (for the SDK
    // functions, which give their results in their own ways).
    const Answer& answer() const { return m_verdict.answer; }

    HostState& state() const { return m_core.state; }
    // Made through IDispatch::Invoke: strict mode judges only early-bound calls, whose variant
    // types are the caller's own choice rather than a script's or the dispatcher's.
    bool lateBound() const { return m_lateBound; }

private:
    void end(HRESULT status);

    HostCore& m_core;
    const CallSubject& m_subject;
    const char* m_outerCall;  // the call under way when this one came, which it interrupts
    JournalEntry m_entry;
    bool m_recording = false;
    bool m_lateBound = false;
    FaultVerdict m_verdict;
    bool m_ended = false;
    HRESULT m_status = S_OK;
    std::chrono::steady_clock::time_point m_started;  // only while the core times calls
};

template <class T> bool Call::accepts(T* output)
{
    if (output != nullptr)
        *output = T{};
    if (m_ended)
        return false;
    if (output == nullptr) {
        fail(E_POINTER, L"no place to store the result was given");
        return false;
    }
    return true;
}

template <class Interface, class Make> HRESULT Call::giveObject(Interface** output, Make make)
{
    *output = m_verdict.giveNull ? nullptr : make();
    m_entry.gaveObject = *output != nullptr;
    return succeed();
}

template <class T> T* Call::giveSdkObject(T* object, const wchar_t* missing)
{
    if (m_verdict.giveNull) {
        fail(E_FAIL, missing);
        return nullptr;
    }
    m_entry.gaveObject = true;
    succeed();
    return object;
}

// An answer's number is taken as the raw bits of the result type: 0xFFFF gives a VARIANT_BOOL -1.
template <class T> HRESULT Call::giveValue(T* output, T value)
{
    *output = m_verdict.answer.kind == Answer::Kind::number ? static_cast<T>(m_verdict.answer.number) : value;
    return succeed();
}

}  // namespace sim::detail
