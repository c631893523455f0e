#include "environment/registry_access.h"

#include "automation.h"

#include <stdexcept>

namespace sim::detail {

#if defined(_WIN32)

namespace {

constexpr DWORD kLongestWait = 120000;  // milliseconds

}  // namespace

RegistryLock::RegistryLock()
{
    HANDLE mutex = CreateMutexW(nullptr, FALSE, L"Local\\MX.SimulatedHost.UserRegistry");
    if (mutex == nullptr)
        throw std::runtime_error("the simulated host cannot create its registry lock");
    const DWORD waited = WaitForSingleObject(mutex, kLongestWait);
    if (waited != WAIT_OBJECT_0 && waited != WAIT_ABANDONED) {
        CloseHandle(mutex);
        throw std::runtime_error("a simulated host of another process has kept the per-user registry for two "
                                 "minutes; destroy it before installing another");
    }
    m_mutex = mutex;
}

RegistryLock::~RegistryLock()
{
    ReleaseMutex(static_cast<HANDLE>(m_mutex));
    CloseHandle(static_cast<HANDLE>(m_mutex));
}

std::optional<bool> registryKeyExists(const std::wstring& key)
{
    HKEY opened = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, key.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS)
        return false;
    RegCloseKey(opened);
    return true;
}

std::wstring deepestExistingKeyAbove(const std::wstring& key)
{
    std::wstring above = key;
    for (size_t separator = above.find_last_of(L'\\'); separator != std::wstring::npos;
         separator = above.find_last_of(L'\\')) {
        above.resize(separator);
        if (*registryKeyExists(above))
            return above;
    }
    return L"";
}

void deleteEmptyKeysAbove(const std::wstring& key, const std::wstring& keep)
{
    std::wstring above = key;
    for (size_t separator = above.find_last_of(L'\\'); separator != std::wstring::npos;
         separator = above.find_last_of(L'\\')) {
        above.resize(separator);
        if (above.size() <= keep.size())
            return;
        HKEY opened = nullptr;
        if (RegOpenKeyExW(HKEY_CURRENT_USER, above.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS)
            return;
        DWORD subkeys = 0;
        DWORD values = 0;
        const LONG queried = RegQueryInfoKeyW(opened, nullptr, nullptr, nullptr, &subkeys, nullptr, nullptr,
                                              &values, nullptr, nullptr, nullptr, nullptr);
        RegCloseKey(opened);
        if (queried != ERROR_SUCCESS || subkeys != 0 || values != 0 ||
            RegDeleteKeyW(HKEY_CURRENT_USER, above.c_str()) != ERROR_SUCCESS)
            return;
    }
}

#else

RegistryLock::RegistryLock() = default;
RegistryLock::~RegistryLock() = default;

std::optional<bool> registryKeyExists(const std::wstring&) { return std::nullopt; }

std::wstring deepestExistingKeyAbove(const std::wstring&) { return L""; }

void deleteEmptyKeysAbove(const std::wstring&, const std::wstring&) {}

#endif

}  // namespace sim::detail
