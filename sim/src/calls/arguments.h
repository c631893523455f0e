// Arguments of a host call as the journal records them. An Arg only points at the caller's value;
// it is turned into text when the journal is recording, and not otherwise.
#pragma once

#include "sim/journal.h"

#include "automation.h"

namespace sim::detail {

class Arg {
public:
    static Arg variant(const VARIANT& value) { return Arg(Kind::variant, &value, nullptr, 0); }
    static Arg text(BSTR value) { return Arg(Kind::automationText, nullptr, value, 0); }
    // A wide C string of the SDK (not an automation string).
    static Arg sdkText(const wchar_t* value) { return Arg(Kind::sdkText, nullptr, value, 0); }
    static Arg flag(VARIANT_BOOL value) { return Arg(Kind::flag, nullptr, nullptr, value); }
    static Arg number(long value) { return Arg(Kind::number, nullptr, nullptr, value); }
    static Arg shortNumber(short value) { return Arg(Kind::shortNumber, nullptr, nullptr, value); }
    // A pointer the call received, described rather than printed (its value differs from run to run).
    static Arg pointer(const wchar_t* description) { return Arg(Kind::pointer, nullptr, description, 0); }

    JournalArgument describe() const;

    // Whether a whole number fits the 32 bits the host's interface gives it: a LONG argument or a
    // VT_I4 variant is wider where long is 64 bits, and a host cannot hold more.
    bool fitsInterface() const;

private:
    enum class Kind { variant, automationText, sdkText, flag, number, shortNumber, pointer };
    Arg(Kind kind, const VARIANT* variant, const wchar_t* text, long number)
        : m_kind(kind), m_variant(variant), m_text(text), m_number(number)
    {
    }

    Kind m_kind;
    const VARIANT* m_variant;
    const wchar_t* m_text;
    long m_number;
};

// The readable value of a variant, as the journal shows it.
std::string describeVariantValue(const VARIANT& value);

}  // namespace sim::detail
