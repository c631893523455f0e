// The current user's hive, held in memory: what the simulated host and tests put in place.
#include "MxtRegistry"

#include "CaseMapping.h"

#include <map>
#include <mutex>
#include <string>

namespace {

// Keys and value names are stored case-folded, as the registry matches them without regard to
// case; the values keep their text as written.
using Values = std::map<std::wstring, MxtString>;

struct Hive {
    std::mutex mutex;
    std::map<std::wstring, Values> keys;
};

Hive& hive()
{
    static Hive instance;
    return instance;
}

std::wstring folded(const MxtString& name)
{
    return qrnroots::foldCase(name.getStringW());
}

bool isSameOrBelow(const std::wstring& candidate, const std::wstring& key)
{
    return candidate.compare(0, key.size(), key) == 0 &&
           (candidate.size() == key.size() || candidate[key.size()] == L'\\');
}

}  // namespace

int MxtRegistry::getRegValueCurrentUser(const MxtString& key, const MxtString& valueName, MxtString& value, int)
{
    Hive& registry = hive();
    const std::lock_guard<std::mutex> lock(registry.mutex);
    const auto keyEntry = registry.keys.find(folded(key));
    if (keyEntry == registry.keys.end())
        return 0;
    const auto valueEntry = keyEntry->second.find(folded(valueName));
    if (valueEntry == keyEntry->second.end())
        return 0;
    value = valueEntry->second;
    return 1;
}

bool MxtRegistry::setRegValueCurrentUser(const MxtString& key, const MxtString& valueName, const MxtString& value)
{
    Hive& registry = hive();
    const std::lock_guard<std::mutex> lock(registry.mutex);
    registry.keys[folded(key)][folded(valueName)] = value;
    return true;
}

bool MxtRegistry::deleteKeyCurrentUser(const MxtString& key)
{
    // An empty key would name the hive itself.
    if (key.isEmpty())
        return false;
    const std::wstring doomed = folded(key);
    Hive& registry = hive();
    const std::lock_guard<std::mutex> lock(registry.mutex);
    bool deleted = false;
    for (auto entry = registry.keys.lower_bound(doomed);
         entry != registry.keys.end() && entry->first.compare(0, doomed.size(), doomed) == 0;) {
        if (isSameOrBelow(entry->first, doomed)) {
            entry = registry.keys.erase(entry);
            deleted = true;
        }
        else {
            ++entry;
        }
    }
    return deleted;
}
