#include "MxtAssert"

#include <cstdio>
#include <mutex>
#include <utility>

namespace {

std::mutex& logMutex()
{
    static std::mutex mutex;
    return mutex;
}

std::vector<MxtAssert::Report>& log()
{
    static std::vector<MxtAssert::Report> reports;
    return reports;
}

}  // namespace

void MxtAssert::mxtAssert(const char* condition, const char* path, int line)
{
    Report report{condition != nullptr ? condition : "", path != nullptr ? path : "", line};
    // The stream copy is what a developer sees, and what survives a report that the caller's
    // going on then turns into a crash.
    std::fprintf(stderr, "MxtAssert: \"%s\" failed at %s:%d\n", report.condition.c_str(), report.path.c_str(),
                 line);
    std::fflush(stderr);
    const std::lock_guard<std::mutex> lock(logMutex());
    log().push_back(std::move(report));
}

std::vector<MxtAssert::Report> MxtAssert::reports()
{
    const std::lock_guard<std::mutex> lock(logMutex());
    return log();
}

void MxtAssert::clearReports()
{
    const std::lock_guard<std::mutex> lock(logMutex());
    log().clear();
}
