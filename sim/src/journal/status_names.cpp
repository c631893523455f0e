#include "sim/journal.h"

#include "sim/model.h"

#include <cctype>
#include <cstdint>
#include <cstdio>

namespace sim {
namespace {

struct NamedStatus {
    const char* name;
    HRESULT status;
};

const NamedStatus kNamedStatuses[] = {
    {"S_OK", S_OK},
    {"S_FALSE", S_FALSE},
    {"E_UNEXPECTED", E_UNEXPECTED},
    {"E_NOTIMPL", E_NOTIMPL},
    {"E_NOINTERFACE", E_NOINTERFACE},
    {"E_POINTER", E_POINTER},
    {"E_ABORT", E_ABORT},
    {"E_FAIL", E_FAIL},
    {"E_ACCESSDENIED", E_ACCESSDENIED},
    {"E_HANDLE", E_HANDLE},
    {"E_OUTOFMEMORY", E_OUTOFMEMORY},
    {"E_INVALIDARG", E_INVALIDARG},
    {"DISP_E_UNKNOWNINTERFACE", DISP_E_UNKNOWNINTERFACE},
    {"DISP_E_MEMBERNOTFOUND", DISP_E_MEMBERNOTFOUND},
    {"DISP_E_PARAMNOTFOUND", DISP_E_PARAMNOTFOUND},
    {"DISP_E_TYPEMISMATCH", DISP_E_TYPEMISMATCH},
    {"DISP_E_UNKNOWNNAME", DISP_E_UNKNOWNNAME},
    {"DISP_E_BADVARTYPE", DISP_E_BADVARTYPE},
    {"DISP_E_EXCEPTION", DISP_E_EXCEPTION},
    {"DISP_E_OVERFLOW", DISP_E_OVERFLOW},
    {"DISP_E_BADINDEX", DISP_E_BADINDEX},
    {"DISP_E_PARAMNOTOPTIONAL", DISP_E_PARAMNOTOPTIONAL},
    {"HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND)", HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND)},
    {"HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND)", HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND)},
    {"HRESULT_FROM_WIN32(ERROR_CANCELLED)", kOpenStoppedForCheck},
    {"HRESULT_FROM_WIN32(ERROR_INVALID_PASSWORD)", kWrongPassword},
};

}  // namespace

std::string statusInHex(HRESULT status)
{
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "0x%08lX",
                  static_cast<unsigned long>(static_cast<std::uint32_t>(status)));
    return buffer;
}

std::string statusName(HRESULT status)
{
    for (const NamedStatus& named : kNamedStatuses)
        if (named.status == status)
            return named.name;
    return statusInHex(status);
}

std::optional<HRESULT> statusNamed(const std::string& name)
{
    for (const NamedStatus& named : kNamedStatuses)
        if (name == named.name)
            return named.status;
    if (name.size() < 3 || name.size() > 10 || name[0] != '0' || (name[1] != 'x' && name[1] != 'X'))
        return std::nullopt;
    std::uint32_t code = 0;
    for (size_t i = 2; i < name.size(); ++i) {
        const unsigned char digit = static_cast<unsigned char>(name[i]);
        if (!std::isxdigit(digit))
            return std::nullopt;
        code = code * 16 +
               static_cast<std::uint32_t>(std::isdigit(digit) ? digit - '0' : std::tolower(digit) - 'a' + 10);
    }
    return static_cast<HRESULT>(code);
}

}  // namespace sim
