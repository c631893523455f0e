#include "core_library_watch.h"

#include "MxtGlobalStorage"
#include "automation/utf8.h"

namespace zorbsim {
namespace {

std::optional<std::string> supportPathsText()
{
    const MxtString* supportPaths = MxtGlobalStorage::g_pZorbSupportPaths;
    if (supportPaths == nullptr)
        return std::nullopt;
    return automation_text::toUtf8(supportPaths->getStringW());
}

}  // namespace

CoreLibraryWatch::CoreLibraryWatch()
    : m_supportPaths(MxtGlobalStorage::g_pZorbSupportPaths), m_supportPathsText(supportPathsText())
{
    MxtAssert::clearReports();
}

std::vector<MxtAssert::Report> CoreLibraryWatch::assertionReports() const
{
    return MxtAssert::reports();
}

std::optional<SupportPathsChange> CoreLibraryWatch::supportPathsChange() const
{
    std::optional<std::string> text = supportPathsText();
    if (MxtGlobalStorage::g_pZorbSupportPaths == m_supportPaths && text == m_supportPathsText)
        return std::nullopt;
    return SupportPathsChange{std::move(text)};
}

}  // namespace zorbsim
