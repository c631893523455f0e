// The current user's hive of the Windows registry.
#include "MxtRegistry"

#include <windows.h>

#include <vector>

int MxtRegistry::getRegValueCurrentUser(const MxtString& key, const MxtString& valueName, MxtString& value, int)
{
    // The value may change between asking for its size and reading it; ask again when it grew.
    std::vector<wchar_t> buffer;
    for (;;) {
        DWORD bytes = static_cast<DWORD>(buffer.size() * sizeof(wchar_t));
        const LONG status = RegGetValueW(HKEY_CURRENT_USER, key.getStringW(), valueName.getStringW(),
                                         RRF_RT_REG_SZ, nullptr, buffer.empty() ? nullptr : buffer.data(), &bytes);
        if (status == ERROR_SUCCESS && !buffer.empty()) {
            value = buffer.data();
            return 1;
        }
        if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA)
            return 0;
        buffer.assign(bytes / sizeof(wchar_t) + 1, L'\0');
    }
}

bool MxtRegistry::setRegValueCurrentUser(const MxtString& key, const MxtString& valueName, const MxtString& value)
{
    const auto bytes = static_cast<DWORD>((value.length() + 1) * sizeof(wchar_t));
    return RegSetKeyValueW(HKEY_CURRENT_USER, key.getStringW(), valueName.getStringW(), REG_SZ, value.getStringW(),
                           bytes) == ERROR_SUCCESS;
}

bool MxtRegistry::deleteKeyCurrentUser(const MxtString& key)
{
    // An empty key would name the hive itself.
    if (key.isEmpty())
        return false;
    return RegDeleteTreeW(HKEY_CURRENT_USER, key.getStringW()) == ERROR_SUCCESS;
}
