// Merging folders into a ";"-separated search path.
#include "ZORBAppUtilities.h"

#include "support/mxt_text.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

using module_testing::mxtStrings;

namespace {

std::wstring merge(const wchar_t* current, std::initializer_list<const wchar_t*> folders)
{
    _bstr_t merged(L"left over");
    ZORBAppUtilities::preparePathes(mxtStrings(folders), _bstr_t(current), merged);
    return std::wstring(static_cast<const wchar_t*>(merged), merged.length());
}

TEST(PathMerging, AppendsOnlyFoldersTheCurrentPathDoesNotMentionInAnyLetterCase)
{
    EXPECT_EQ(merge(L"c:\\a;c:\\b", {L"C:\\B", L"c:\\c"}), L"c:\\a;c:\\b;c:\\c");
    EXPECT_EQ(merge(L"c:\\a", {L"D:\\Mx\\Support"}), L"c:\\a;D:\\Mx\\Support");
    EXPECT_EQ(merge(L"C:\\ZORB\\SUPPORT", {L"c:\\zorb\\support"}), L"C:\\ZORB\\SUPPORT");
}

TEST(PathMerging, PresenceIsASubstringTestOnTheWholePath)
{
    // A folder that is only the beginning of a longer entry counts as present.
    EXPECT_EQ(merge(L"c:\\abc", {L"c:\\ab"}), L"c:\\abc");
    // So does text spanning two entries.
    EXPECT_EQ(merge(L"c:\\a;c:\\b", {L"a;c:"}), L"c:\\a;c:\\b");
    // Only the path as it was is searched: a folder given twice is appended twice.
    EXPECT_EQ(merge(L"c:\\a", {L"d:\\n", L"D:\\N"}), L"c:\\a;d:\\n;D:\\N");
}

TEST(PathMerging, SeparatorPrecedesEveryAppendedFolderEvenInAnEmptyPath)
{
    EXPECT_EQ(merge(L"", {L"x", L"y"}), L";x;y");
    EXPECT_EQ(merge(nullptr, {L"x"}), L";x");
    // Folders are taken as they stand: nothing is trimmed or normalised.
    EXPECT_EQ(merge(L"c:\\a;", {L" \"d:\\b\\\" "}), L"c:\\a;; \"d:\\b\\\" ");
}

TEST(PathMerging, NoFoldersGiveTheCurrentPathItself)
{
    const _bstr_t current(L"c:\\a;c:\\b");
    _bstr_t merged(L"left over");
    ZORBAppUtilities::preparePathes(MxtArray<MxtString>(), current, merged);
    EXPECT_TRUE(merged == current);
    // The string is shared, not copied.
    EXPECT_EQ(static_cast<const wchar_t*>(merged), static_cast<const wchar_t*>(current));
}

TEST(PathMerging, MergedMayBeTheCurrentPath)
{
    _bstr_t path(L"c:\\a");
    ZORBAppUtilities::preparePathes(mxtStrings({L"C:\\A", L"c:\\b"}), path, path);
    EXPECT_EQ(std::wstring(static_cast<const wchar_t*>(path)), L"c:\\a;c:\\b");
}

}  // namespace
