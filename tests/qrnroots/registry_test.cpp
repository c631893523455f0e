// Reads and writes below the current user's hive: the real registry under Windows (Wine keeps one
// per prefix), the in-memory hive elsewhere. Every test works below its own key and removes it.
#include "MxtRegistry"

#include "core_test_support.h"

namespace {

const MxtString testRoot(L"Software\\MX Host Utilities Tests");
const MxtString generalKey(L"Software\\MX Host Utilities Tests\\R1\\FixedProfile\\General");

MxtString belowTestRoot(const wchar_t* subkey)
{
    MxtString key(testRoot);
    key += L"\\";
    key += subkey;
    return key;
}

class Registry : public CoreTest {
protected:
    void SetUp() override
    {
        CoreTest::SetUp();
        MxtRegistry::deleteKeyCurrentUser(testRoot);
    }
    void TearDown() override
    {
        MxtRegistry::deleteKeyCurrentUser(testRoot);
        CoreTest::TearDown();
    }
};

TEST_F(Registry, ReadsWhatWasWrittenMatchingKeyAndValueNamesWithoutRegardToCase)
{
    ASSERT_TRUE(MxtRegistry::setRegValueCurrentUser(generalKey, L"LinetypeFile", L"C:\\Zorb\\Support\\zorb.lin"));
    MxtString value;
    EXPECT_NE(MxtRegistry::getRegValueCurrentUser(generalKey, L"LinetypeFile", value, 1), 0);
    EXPECT_EQ(value, MxtString(L"C:\\Zorb\\Support\\zorb.lin"));

    MxtString folded;
    const MxtString otherCase(L"SOFTWARE\\mx host utilities tests\\r1\\fixedprofile\\GENERAL");
    EXPECT_NE(MxtRegistry::getRegValueCurrentUser(otherCase, L"linetypefile", folded, 1), 0);
    EXPECT_EQ(folded, value);

    ASSERT_TRUE(MxtRegistry::setRegValueCurrentUser(generalKey, L"LINETYPEFILE", L""));
    EXPECT_NE(MxtRegistry::getRegValueCurrentUser(generalKey, L"LinetypeFile", value, 1), 0);
    EXPECT_TRUE(value.isEmpty()) << "an existing empty value is read as such";
}

TEST_F(Registry, MissingKeysAndValuesLeaveTheOutputUntouched)
{
    ASSERT_TRUE(MxtRegistry::setRegValueCurrentUser(generalKey, L"HatchFile", L"zorb.pat"));
    MxtString value(L"unchanged");
    EXPECT_EQ(MxtRegistry::getRegValueCurrentUser(generalKey, L"NoSuchValue", value, 1), 0);
    EXPECT_EQ(MxtRegistry::getRegValueCurrentUser(belowTestRoot(L"R2"), L"HatchFile", value, 1), 0);
    EXPECT_EQ(value, MxtString(L"unchanged"));
}

TEST_F(Registry, LongValuesArriveWhole)
{
    std::wstring longText(5000, L'p');
    longText += L"Ωend";
    ASSERT_TRUE(MxtRegistry::setRegValueCurrentUser(generalKey, L"Long", longText.c_str()));
    MxtString value;
    ASSERT_NE(MxtRegistry::getRegValueCurrentUser(generalKey, L"Long", value, 1), 0);
    EXPECT_EQ(value, MxtString(longText.c_str()));
}

TEST_F(Registry, DeletingAKeyRemovesEverythingBelowIt)
{
    ASSERT_TRUE(MxtRegistry::setRegValueCurrentUser(generalKey, L"HatchFile", L"zorb.pat"));
    ASSERT_TRUE(MxtRegistry::setRegValueCurrentUser(belowTestRoot(L"R1"), L"ZorbLocation", L"C:\\Zorb"));
    ASSERT_TRUE(MxtRegistry::setRegValueCurrentUser(belowTestRoot(L"R10"), L"ZorbLocation", L"C:\\Zorb 10"));

    EXPECT_TRUE(MxtRegistry::deleteKeyCurrentUser(belowTestRoot(L"r1")));
    MxtString value;
    EXPECT_EQ(MxtRegistry::getRegValueCurrentUser(generalKey, L"HatchFile", value, 1), 0);
    EXPECT_EQ(MxtRegistry::getRegValueCurrentUser(belowTestRoot(L"R1"), L"ZorbLocation", value, 1), 0);
    EXPECT_NE(MxtRegistry::getRegValueCurrentUser(belowTestRoot(L"R10"), L"ZorbLocation", value, 1), 0)
        << "a sibling whose name starts with the deleted key's name stays";

    EXPECT_FALSE(MxtRegistry::deleteKeyCurrentUser(belowTestRoot(L"R1")));
    EXPECT_FALSE(MxtRegistry::deleteKeyCurrentUser(L""));
}

}  // namespace
