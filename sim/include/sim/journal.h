// Every call made on the simulated host, in order: host object calls and SDK function calls.
#pragma once

#include "sim/export.h"

#include "automation.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace sim {

struct JournalArgument {
    VARTYPE type = VT_EMPTY;  // the variant type the argument crossed as (VT_BSTR for strings, VT_I4 ...)
    std::string value;        // readable text of the value, UTF-8 ("3", "C:\\a", "DISP_E_PARAMNOTFOUND")
    bool isNull = false;      // a text that is no text at all (a null string), unlike an empty one
};

struct JournalEntry {
    std::string object;  // the host object: "HostMenuGroup 'MX'"; "sdk" for SDK functions
    std::string
        method;  // "Interface.method": "HostMenuGroups.Item", "HostToolbar.put_Visible", "sdk.zbedGetVar"
    std::vector<JournalArgument> arguments;
    HRESULT status = S_OK;    // SDK functions: S_OK, or E_FAIL when they reported failure
    bool gaveObject = false;  // the call gave its caller an object (which a nullObject fault could withhold)
    // Late-bound calls (by IDispatch::Invoke) only: the variant types of the caller's arguments as
    // they arrived, before the dispatcher coerced them to the declared types (which `arguments`
    // hold).
    std::optional<std::vector<VARTYPE>> lateBound;
};

class SIM_API Journal {
public:
    void record(JournalEntry entry);
    const std::vector<JournalEntry>& entries() const { return m_entries; }
    void clear() { m_entries.clear(); }

    // Off: nothing is recorded (faults still count calls).
    void setEnabled(bool enabled) { m_enabled = enabled; }
    bool enabled() const { return m_enabled; }

    // On: each release of a host object by its caller is recorded too, in order with the calls, as
    // a call of "Interface.Release" without arguments that returns S_OK, so that a test can see
    // when an object was let go. Off unless asked (the journal then holds calls only).
    void setRecordingReleases(bool on) { m_releases = on; }
    bool recordsReleases() const { return m_releases; }

    // The methods called, in order ("HostMenuGroups.Item", ...): the handiest form for tests.
    std::vector<std::string> methods() const;
    // The same with the variant types the arguments crossed as ("HostMenuGroups.Item(VT_I4)").
    std::vector<std::string> typedMethods() const;

    // Called with each entry as it is recorded, after the call took effect: a test that follows
    // the host's state call by call installs one. An empty function removes it.
    void setObserver(std::function<void(const JournalEntry&)> observer) { m_observer = std::move(observer); }

private:
    std::vector<JournalEntry> m_entries;
    bool m_enabled = true;
    bool m_releases = false;
    std::function<void(const JournalEntry&)> m_observer;
};

// Whether the entry records a release rather than a call (Journal::setRecordingReleases).
SIM_API bool isRelease(const JournalEntry& entry);

// One readable line: HostMenuGroups.Item(VT_I4 0) on HostMenuGroups -> S_OK; a late-bound call ends
// with what arrived: " [late-bound: VT_I2]".
SIM_API std::string formatJournalLine(const JournalEntry& entry);
// The method with its arguments' variant types: HostMenuGroups.Item(VT_I4)
SIM_API std::string typedMethodOf(const JournalEntry& entry);
SIM_API std::string variantTypeName(VARTYPE type);  // "VT_I4", "VT_ARRAY|VT_BSTR", ...
// Status texts, printed and read here only, so that journals, states and reports agree.
SIM_API std::string statusName(HRESULT status);     // "S_OK", "E_FAIL", else "0x80040205"
SIM_API std::string statusInHex(HRESULT status);    // "0x80004005" for every status
// The status a name of statusName's or a hex code ("0x80040205") stands for; none for other text.
SIM_API std::optional<HRESULT> statusNamed(const std::string& name);

}  // namespace sim
