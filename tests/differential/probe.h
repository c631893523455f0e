// A differential probe: named cases, each giving one line that says what the automation runtime
// answered. The same probe is built on both builds; the windows build's test runs both and
// compares them line by line (compare.py), the platform's runtime under Wine being the reference
// for the portable one. An outcome must therefore read the same on both builds: statuses by name,
// numbers in full, texts with every character outside printable ASCII escaped.
#pragma once

#include "automation.h"

#include <functional>
#include <string>

namespace probe {

using Case = std::function<std::string()>;

// Registers a case under "group.name"; the cases run in the order they were registered, file by
// file. A name registered twice stops the probe before any case runs.
bool add(const char* group, const char* name, Case body);

// A status as its symbolic name where it has one ("S_OK", "DISP_E_TYPEMISMATCH"), otherwise as
// eight hex digits ("0x8002000B" is named, "0x80041234" is not).
std::string status(HRESULT value);

// A variant's type and value: "EMPTY", "I4 -1", "BOOL -1", "R8 0.5" (shortest text that reads back
// exactly; "NaN", "Infinity"), "CY 12.5" (every decimal kept), "BSTR \"a\\u00e9\"", "BSTR null",
// "DISPATCH object", "DISPATCH null", "ERROR DISP_E_PARAMNOTFOUND", "BYREF I4 7", "ARRAY VARIANT [2]".
// Types it does not know print as "VT 0x...".
std::string value(const VARIANT& variant);

// A wide text in double quotes, escaped as value() escapes a BSTR; "null" for a null pointer.
std::string text(const wchar_t* characters, size_t length);
std::string text(BSTR string);

}  // namespace probe

#define PROBE_CONCAT_(a, b) a##b
#define PROBE_CONCAT(a, b) PROBE_CONCAT_(a, b)
// PROBE_CASE(group, name) { ...; return outcome; } defines and registers a case.
#define PROBE_CASE(group, name)                                                                     \
    static std::string PROBE_CONCAT(probe_case_, PROBE_CONCAT(group, PROBE_CONCAT(_, name)))();   \
    static const bool PROBE_CONCAT(probe_added_, PROBE_CONCAT(group, PROBE_CONCAT(_, name))) =    \
        probe::add(#group, #name, PROBE_CONCAT(probe_case_, PROBE_CONCAT(group, PROBE_CONCAT(_, name)))); \
    static std::string PROBE_CONCAT(probe_case_, PROBE_CONCAT(group, PROBE_CONCAT(_, name)))()
