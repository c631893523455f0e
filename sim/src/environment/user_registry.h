// The per-user registry values of the installed host, put below the current user's hive where
// the module reads them (the real hive on Windows). What the host puts there it takes away again,
// without harming a key it did not create; on Windows one simulated host at a time, of all the
// user's processes, owns the registry.
#pragma once

#include "environment/registry_access.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace sim::detail {

class UserRegistry {
public:
    using Values = std::map<std::wstring, std::map<std::wstring, std::wstring>>;  // subkey -> name -> text

    UserRegistry() = default;
    UserRegistry(const UserRegistry&) = delete;
    UserRegistry& operator=(const UserRegistry&) = delete;
    ~UserRegistry() { erase(); }

    // Replaces what was written before. An empty root key writes nothing: the hive's root is not
    // the host's to fill; no values write nothing either.
    void write(const std::wstring& rootKey, const Values& values);

    // Deletes the root key (and the empty keys above it) when writing created it; otherwise puts
    // back the values it overwrote (values that it added to an existing key stay).
    void erase();

private:
    struct Overwritten {
        std::wstring key;
        std::wstring name;
        std::wstring previous;
    };

    void undo();

    std::unique_ptr<RegistryLock> m_lock;
    std::wstring m_rootKey;
    bool m_createdRootKey = false;
    std::wstring m_keptAbove;  // the deepest key above the root that was there before
    std::vector<Overwritten> m_overwritten;
};

// The full key of a subkey below the root ("" is the root itself).
std::wstring registryKey(const std::wstring& rootKey, const std::wstring& subkey);

}  // namespace sim::detail
