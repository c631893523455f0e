#include "sim/journal.h"


namespace sim {
namespace {

const char* baseTypeName(VARTYPE type)
{
    switch (type) {
    case VT_EMPTY:
        return "VT_EMPTY";
    case VT_NULL:
        return "VT_NULL";
    case VT_I2:
        return "VT_I2";
    case VT_I4:
        return "VT_I4";
    case VT_R4:
        return "VT_R4";
    case VT_R8:
        return "VT_R8";
    case VT_CY:
        return "VT_CY";
    case VT_DATE:
        return "VT_DATE";
    case VT_BSTR:
        return "VT_BSTR";
    case VT_DISPATCH:
        return "VT_DISPATCH";
    case VT_ERROR:
        return "VT_ERROR";
    case VT_BOOL:
        return "VT_BOOL";
    case VT_VARIANT:
        return "VT_VARIANT";
    case VT_UNKNOWN:
        return "VT_UNKNOWN";
    case VT_DECIMAL:
        return "VT_DECIMAL";
    case VT_I1:
        return "VT_I1";
    case VT_UI1:
        return "VT_UI1";
    case VT_UI2:
        return "VT_UI2";
    case VT_UI4:
        return "VT_UI4";
    case VT_I8:
        return "VT_I8";
    case VT_UI8:
        return "VT_UI8";
    case VT_INT:
        return "VT_INT";
    case VT_UINT:
        return "VT_UINT";
    case VT_VOID:
        return "VT_VOID";
    case VT_HRESULT:
        return "VT_HRESULT";
    case VT_PTR:
        return "VT_PTR";
    case VT_LPSTR:
        return "VT_LPSTR";
    case VT_LPWSTR:
        return "VT_LPWSTR";
    default:
        return nullptr;
    }
}

bool isText(VARTYPE type)
{
    return type == VT_BSTR || type == VT_LPWSTR || type == VT_LPSTR;
}

}  // namespace

void Journal::record(JournalEntry entry)
{
    if (!m_enabled)
        return;
    m_entries.push_back(std::move(entry));
    if (m_observer)
        m_observer(m_entries.back());
}

std::vector<std::string> Journal::methods() const
{
    std::vector<std::string> methods;
    methods.reserve(m_entries.size());
    for (const JournalEntry& entry : m_entries)
        methods.push_back(entry.method);
    return methods;
}

std::vector<std::string> Journal::typedMethods() const
{
    std::vector<std::string> methods;
    methods.reserve(m_entries.size());
    for (const JournalEntry& entry : m_entries)
        methods.push_back(typedMethodOf(entry));
    return methods;
}

bool isRelease(const JournalEntry& entry)
{
    static const std::string kRelease = ".Release";
    return entry.method.size() > kRelease.size() &&
           entry.method.compare(entry.method.size() - kRelease.size(), kRelease.size(), kRelease) == 0;
}

std::string typedMethodOf(const JournalEntry& entry)
{
    std::string typed = entry.method + "(";
    for (size_t i = 0; i < entry.arguments.size(); ++i)
        typed += (i == 0 ? "" : ", ") + variantTypeName(entry.arguments[i].type);
    return typed + ")";
}

std::string variantTypeName(VARTYPE type)
{
    std::string name;
    if (type & VT_BYREF)
        name += "VT_BYREF|";
    if (type & VT_ARRAY)
        name += "VT_ARRAY|";
    if (type & VT_VECTOR)
        name += "VT_VECTOR|";
    const VARTYPE base = type & VT_TYPEMASK;
    if (const char* known = baseTypeName(base))
        return name + known;
    return name + "VT_" + std::to_string(base);
}

std::string formatJournalLine(const JournalEntry& entry)
{
    std::string line = entry.method;
    line += '(';
    for (size_t i = 0; i < entry.arguments.size(); ++i) {
        const JournalArgument& argument = entry.arguments[i];
        if (i > 0)
            line += ", ";
        line += variantTypeName(argument.type);
        if (isText(argument.type) && argument.isNull) {
            line += " null";
        }
        else if (isText(argument.type)) {
            line += " '";
            line += argument.value;
            line += '\'';
        }
        else if (!argument.value.empty()) {
            line += ' ';
            line += argument.value;
        }
    }
    line += ") on ";
    line += entry.object;
    line += " -> ";
    line += statusName(entry.status);
    if (entry.lateBound) {
        line += " [late-bound:";
        for (size_t i = 0; i < entry.lateBound->size(); ++i)
            line += (i == 0 ? " " : ", ") + variantTypeName((*entry.lateBound)[i]);
        line += ']';
    }
    return line;
}

}  // namespace sim
