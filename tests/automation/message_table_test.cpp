// FormatMessageW over the system message table, as automation failures use it.
#include <gtest/gtest.h>

#include "automation.h"
#include "test_text.h"

TEST(MessageTable, AnUnknownCodeFailsWithTheLastErrorSet)
{
    wchar_t* text = nullptr;
    SetLastError(0);
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM |
                                            FORMAT_MESSAGE_IGNORE_INSERTS,
                                        nullptr, 0xA0001234u, 0, reinterpret_cast<LPWSTR>(&text), 0, nullptr);
    EXPECT_EQ(length, 0u);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_MR_MID_NOT_FOUND));
}

TEST(MessageTable, AStatusOfTheWin32FacilityHasTheTextOfItsErrorNumber)
{
    EXPECT_EQ(platformMessage(E_INVALIDARG), platformMessage(static_cast<HRESULT>(ERROR_INVALID_PARAMETER)));
    EXPECT_EQ(platformMessage(E_ACCESSDENIED), platformMessage(static_cast<HRESULT>(ERROR_ACCESS_DENIED)));
    EXPECT_NE(platformMessage(E_INVALIDARG), L"");
}

TEST(MessageTable, CopiesIntoTheCallersBufferWhenTheTextFits)
{
    const std::wstring expected = platformMessage(E_OUTOFMEMORY);
    wchar_t buffer[256];
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        static_cast<DWORD>(E_OUTOFMEMORY), MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
                                        buffer, 256, nullptr);
    EXPECT_EQ(std::wstring(buffer, length), expected);

    EXPECT_EQ(FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                             static_cast<DWORD>(E_OUTOFMEMORY), 0, buffer, 8, nullptr),
              0u);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INSUFFICIENT_BUFFER));
}

#ifndef _WIN32
// The portable table holds the platform's English texts of the codes automation code meets, each
// ending in a line break as the system's do.
TEST(MessageTable, KnowsTheCommonCodes)
{
    EXPECT_EQ(platformMessage(E_FAIL), L"Unspecified error\r\n");
    EXPECT_EQ(platformMessage(E_POINTER), L"Invalid pointer\r\n");
    EXPECT_EQ(platformMessage(E_OUTOFMEMORY),
              L"Not enough memory resources are available to complete this operation.\r\n");
    EXPECT_EQ(platformMessage(E_INVALIDARG), L"The parameter is incorrect.\r\n");
    for (HRESULT code : {S_OK, E_NOINTERFACE, E_NOTIMPL, E_ACCESSDENIED, E_ABORT, E_UNEXPECTED, E_HANDLE,
                         DISP_E_MEMBERNOTFOUND, DISP_E_PARAMNOTFOUND, DISP_E_TYPEMISMATCH, DISP_E_UNKNOWNNAME,
                         DISP_E_BADVARTYPE, DISP_E_EXCEPTION, DISP_E_OVERFLOW, DISP_E_BADINDEX,
                         DISP_E_ARRAYISLOCKED, DISP_E_BADPARAMCOUNT, DISP_E_PARAMNOTOPTIONAL}) {
        const std::wstring text = platformMessage(code);
        ASSERT_GT(text.size(), 2u) << std::hex << code;
        EXPECT_EQ(text.substr(text.size() - 2), L"\r\n") << std::hex << code;
    }
}

TEST(MessageTable, RefusesWhatItCannotDo)
{
    wchar_t buffer[8];
    EXPECT_EQ(FormatMessageW(FORMAT_MESSAGE_FROM_STRING, L"text", 0, 0, buffer, 8, nullptr), 0u);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, static_cast<DWORD>(E_FAIL),
                             MAKELANGID(0x07, SUBLANG_DEFAULT), buffer, 8, nullptr),
              0u);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_RESOURCE_LANG_NOT_FOUND));
}
#endif
