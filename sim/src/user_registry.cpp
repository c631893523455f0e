#include "user_registry.h"

#include "MxtRegistry"

#include "automation.h"

namespace sim::detail {
namespace {

// Whether the key is there before the host writes to it. The real hive is asked directly; the
// portable build's in-memory hive holds only what the simulator and tests put there, so a value
// the host is about to overwrite is taken as the sign of a key it did not create.
bool keyExisted(const std::wstring& rootKey, bool anyValueOverwritten)
{
#if defined(_WIN32)
    (void)anyValueOverwritten;
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, rootKey.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return false;
    RegCloseKey(key);
    return true;
#else
    (void)rootKey;
    return anyValueOverwritten;
#endif
}

}  // namespace

std::wstring registryKey(const std::wstring& rootKey, const std::wstring& subkey)
{
    return subkey.empty() ? rootKey : rootKey + L"\\" + subkey;
}

void UserRegistry::write(const std::wstring& rootKey, const Values& values)
{
    erase();
    bool anyValue = false;
    for (const auto& entry : values)
        anyValue = anyValue || !entry.second.empty();
    if (rootKey.empty() || !anyValue)
        return;
    m_rootKey = rootKey;
    for (const auto& [subkey, named] : values) {
        const std::wstring key = registryKey(rootKey, subkey);
        for (const auto& [name, value] : named) {
            MxtString previous;
            if (MxtRegistry::getRegValueCurrentUser(key.c_str(), name.c_str(), previous, 1))
                m_overwritten.push_back({key, name, previous.getStringW()});
        }
    }
    m_createdRootKey = !keyExisted(rootKey, !m_overwritten.empty());
    for (const auto& [subkey, named] : values) {
        const std::wstring key = registryKey(rootKey, subkey);
        for (const auto& [name, value] : named)
            MxtRegistry::setRegValueCurrentUser(key.c_str(), name.c_str(), value.c_str());
    }
}

void UserRegistry::erase()
{
    if (m_rootKey.empty())
        return;
    if (m_createdRootKey) {
        MxtRegistry::deleteKeyCurrentUser(m_rootKey.c_str());
    }
    else {
        for (const Overwritten& value : m_overwritten)
            MxtRegistry::setRegValueCurrentUser(value.key.c_str(), value.name.c_str(),
                                                value.previous.c_str());
    }
    m_rootKey.clear();
    m_createdRootKey = false;
    m_overwritten.clear();
}

}  // namespace sim::detail
