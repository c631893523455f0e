// What the simulated host needs of the current user's registry beyond the core library's
// MxtRegistry: on Windows, where the hive is the real one shared by every process of the user,
// a lock that lets one simulated host at a time own its keys, whether a key is there, and the
// removal of the empty keys above a deleted one. The portable build's hive is the process's own:
// there the lock is no lock and the key checks know nothing.
#pragma once

#include <optional>
#include <string>

namespace sim::detail {

class RegistryLock {
public:
    // Waits until no simulated host of another process owns the per-user registry; throws
    // std::runtime_error when one keeps it for minutes.
    RegistryLock();
    ~RegistryLock();
    RegistryLock(const RegistryLock&) = delete;
    RegistryLock& operator=(const RegistryLock&) = delete;

private:
#if defined(_WIN32)
    void* m_mutex = nullptr;  // the portable build's lock holds nothing
#endif
};

// Whether the key is there; unknown on the portable build.
std::optional<bool> registryKeyExists(const std::wstring& key);

// The deepest key above `key` that is there ("" for the hive itself, and always on the portable
// build).
std::wstring deepestExistingKeyAbove(const std::wstring& key);

// Deletes the keys above `key`, nearest first and down to (not including) `keep`, while they hold
// neither values nor subkeys. Does nothing on the portable build.
void deleteEmptyKeysAbove(const std::wstring& key, const std::wstring& keep);

}  // namespace sim::detail
