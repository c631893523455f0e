// The system message table behind FormatMessageW: the platform's English texts of the codes
// automation code meets.
#include <algorithm>
#include <cwchar>

#include "automation.h"

namespace {

struct Message {
    std::uint32_t code;
    const wchar_t* text;
};

// Status codes with a facility of their own.
constexpr Message statusMessages[] = {
    {0x8000FFFF, L"Catastrophic failure\r\n"},
    {0x80004001, L"Not implemented\r\n"},
    {0x80004002, L"No such interface supported\r\n"},
    {0x80004003, L"Invalid pointer\r\n"},
    {0x80004004, L"Operation aborted\r\n"},
    {0x80004005, L"Unspecified error\r\n"},
    {0x80020001, L"Unknown interface.\r\n"},
    {0x80020003, L"Member not found.\r\n"},
    {0x80020004, L"Parameter not found.\r\n"},
    {0x80020005, L"Type mismatch.\r\n"},
    {0x80020006, L"Unknown name.\r\n"},
    {0x80020007, L"No named arguments.\r\n"},
    {0x80020008, L"Bad variable type.\r\n"},
    {0x80020009, L"Exception occurred.\r\n"},
    {0x8002000A, L"Out of present range.\r\n"},
    {0x8002000B, L"Invalid index.\r\n"},
    {0x8002000C, L"Unknown language.\r\n"},
    {0x8002000D, L"Memory is locked.\r\n"},
    {0x8002000E, L"Invalid number of parameters.\r\n"},
    {0x8002000F, L"Parameter not optional.\r\n"},
    {0x80020010, L"Invalid callee.\r\n"},
    {0x80020011, L"Does not support a collection.\r\n"},
    {0x80020012, L"Division by zero.\r\n"},
};

// Win32 error numbers; a status code of the Win32 facility has the text of its number.
constexpr Message win32Messages[] = {
    {ERROR_SUCCESS, L"The operation completed successfully.\r\n"},
    {ERROR_INVALID_FUNCTION, L"Incorrect function.\r\n"},
    {ERROR_FILE_NOT_FOUND, L"The system cannot find the file specified.\r\n"},
    {ERROR_PATH_NOT_FOUND, L"The system cannot find the path specified.\r\n"},
    {ERROR_ACCESS_DENIED, L"Access is denied.\r\n"},
    {ERROR_INVALID_HANDLE, L"The handle is invalid.\r\n"},
    {ERROR_NOT_ENOUGH_MEMORY, L"Not enough memory resources are available to process this command.\r\n"},
    {ERROR_OUTOFMEMORY, L"Not enough memory resources are available to complete this operation.\r\n"},
    {ERROR_INVALID_PARAMETER, L"The parameter is incorrect.\r\n"},
    {ERROR_INSUFFICIENT_BUFFER, L"The data area passed to a system call is too small.\r\n"},
};

template <std::size_t N>
const wchar_t* find(const Message (&table)[N], std::uint32_t code)
{
    const auto found = std::find_if(std::begin(table), std::end(table),
                                    [code](const Message& message) { return message.code == code; });
    return found == std::end(table) ? nullptr : found->text;
}

const wchar_t* systemMessage(std::uint32_t code)
{
    if (code <= 0xFFFF)
        return find(win32Messages, code);
    if ((code & 0xFFFF0000) == 0x80070000)
        return find(win32Messages, code & 0xFFFF);
    return find(statusMessages, code);
}

bool languageKnown(DWORD languageId)
{
    const DWORD primary = languageId & 0x3FF;
    return languageId == 0 || primary == LANG_NEUTRAL || primary == LANG_ENGLISH;
}

DWORD fail(DWORD error)
{
    SetLastError(error);
    return 0;
}

}  // namespace

DWORD FormatMessageW(DWORD flags, LPCVOID source, DWORD messageId, DWORD languageId, LPWSTR buffer, DWORD size,
                     va_list* /*arguments: the table's texts have no inserts*/)
{
    const bool allocate = (flags & FORMAT_MESSAGE_ALLOCATE_BUFFER) != 0;
    if (allocate && buffer != nullptr)
        *reinterpret_cast<LPWSTR*>(buffer) = nullptr;
    if ((flags & FORMAT_MESSAGE_FROM_SYSTEM) == 0 || (flags & FORMAT_MESSAGE_FROM_STRING) != 0 ||
        ((flags & FORMAT_MESSAGE_FROM_HMODULE) != 0 && source != nullptr) || buffer == nullptr)
        return fail(ERROR_INVALID_PARAMETER);
    if (!languageKnown(languageId))
        return fail(ERROR_RESOURCE_LANG_NOT_FOUND);
    // A status code passed as a signed value arrives sign-extended.
    const wchar_t* text = systemMessage(static_cast<std::uint32_t>(messageId));
    if (text == nullptr)
        return fail(ERROR_MR_MID_NOT_FOUND);

    const DWORD length = static_cast<DWORD>(std::wcslen(text));
    LPWSTR target = buffer;
    if (allocate) {
        target = static_cast<LPWSTR>(LocalAlloc(LMEM_FIXED, std::max<DWORD>(length + 1, size) * sizeof(wchar_t)));
        if (target == nullptr)
            return fail(ERROR_NOT_ENOUGH_MEMORY);
        *reinterpret_cast<LPWSTR*>(buffer) = target;
    }
    else if (size < length + 1) {
        return fail(ERROR_INSUFFICIENT_BUFFER);
    }
    std::wmemcpy(target, text, length + 1);
    return length;
}
