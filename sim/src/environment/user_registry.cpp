#include "environment/user_registry.h"

#include "MxtRegistry"

namespace sim::detail {
namespace {

// Left in every key the host creates, so that a key a crashed simulator left behind is known as
// the simulator's own and not as the user's.
constexpr const wchar_t* kCreatedMark = L"MX.SimulatedHost";

bool holds(const std::wstring& key, const wchar_t* name, MxtString& value)
{
    return MxtRegistry::getRegValueCurrentUser(key.c_str(), name, value, 1) != 0;
}

}  // namespace

std::wstring registryKey(const std::wstring& rootKey, const std::wstring& subkey)
{
    return subkey.empty() ? rootKey : rootKey + L"\\" + subkey;
}

void UserRegistry::write(const std::wstring& rootKey, const Values& values)
{
    undo();
    bool anyValue = false;
    for (const auto& entry : values)
        anyValue = anyValue || !entry.second.empty();
    if (rootKey.empty() || !anyValue) {
        m_lock.reset();
        return;
    }
    if (!m_lock)
        m_lock = std::make_unique<RegistryLock>();
    m_rootKey = rootKey;
    for (const auto& [subkey, named] : values) {
        const std::wstring key = registryKey(rootKey, subkey);
        for (const auto& [name, value] : named) {
            MxtString previous;
            if (holds(key, name.c_str(), previous))
                m_overwritten.push_back({key, name, previous.getStringW()});
        }
    }
    // Where the hive cannot be asked, a value about to be overwritten shows the key was there.
    MxtString mark;
    const bool existed = registryKeyExists(rootKey).value_or(!m_overwritten.empty());
    m_createdRootKey = !existed || holds(rootKey, kCreatedMark, mark);
    if (m_createdRootKey) {
        m_overwritten.clear();
        m_keptAbove = deepestExistingKeyAbove(rootKey);
    }
    for (const auto& [subkey, named] : values) {
        const std::wstring key = registryKey(rootKey, subkey);
        for (const auto& [name, value] : named)
            MxtRegistry::setRegValueCurrentUser(key.c_str(), name.c_str(), value.c_str());
    }
    if (m_createdRootKey)
        MxtRegistry::setRegValueCurrentUser(rootKey.c_str(), kCreatedMark, L"created by the simulated host");
}

void UserRegistry::erase()
{
    undo();
    m_lock.reset();
}

void UserRegistry::undo()
{
    if (m_rootKey.empty())
        return;
    if (m_createdRootKey) {
        MxtRegistry::deleteKeyCurrentUser(m_rootKey.c_str());
        deleteEmptyKeysAbove(m_rootKey, m_keptAbove);
    }
    else {
        for (const Overwritten& value : m_overwritten)
            MxtRegistry::setRegValueCurrentUser(value.key.c_str(), value.name.c_str(),
                                                value.previous.c_str());
    }
    m_rootKey.clear();
    m_createdRootKey = false;
    m_keptAbove.clear();
    m_overwritten.clear();
}

}  // namespace sim::detail
