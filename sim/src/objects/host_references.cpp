#include "objects/host_references.h"

namespace sim::detail {

void journalRelease(HostCore& core, const CallSubject& object, const char* interfaceName)
{
    if (!core.installed || !core.journal.enabled() || !core.journal.recordsReleases())
        return;
    JournalEntry entry;
    entry.object = object.journalName();
    entry.method = std::string(interfaceName) + ".Release";
    core.journal.record(std::move(entry));
}

}  // namespace sim::detail
