// MxtString: construction from automation strings, letter case beyond ASCII, search and editing.
#include "MxtString"

#include "core_test_support.h"

namespace {

TEST(MxtStringConstruction, NullTextOfEveryKindGivesTheEmptyString)
{
    const BSTR nullBstr = nullptr;
    const wchar_t* nullText = nullptr;
    EXPECT_TRUE(MxtString(nullBstr).isEmpty());
    EXPECT_TRUE(MxtString(_bstr_t()).isEmpty());
    MxtString assigned(L"before");
    assigned = nullText;
    EXPECT_TRUE(assigned.isEmpty());
    EXPECT_STREQ(MxtString().getStringW(), L"");

    BSTR text = SysAllocString(L"C:\\Support");
    EXPECT_EQ(MxtString(text), MxtString(L"C:\\Support"));
    SysFreeString(text);
    assigned = _bstr_t(L"from bstr_t");
    EXPECT_EQ(assigned, MxtString(L"from bstr_t"));
    EXPECT_EQ(assigned.length(), 11);
}

TEST(MxtStringCase, MapsLettersOfTheLatinGreekAndCyrillicAlphabetsAndLeavesTheRest)
{
    const MxtString mixed(L"Zürich Ærø ŁÓDŹ Ÿÿ Ωμέγα Жёлтый 42×ß");
    EXPECT_EQ(mixed.toUpper(), MxtString(L"ZÜRICH ÆRØ ŁÓDŹ ŸŸ ΩΜΈΓΑ ЖЁЛТЫЙ 42×ß"));
    EXPECT_EQ(mixed.toLower(), MxtString(L"zürich ærø łódź ÿÿ ωμέγα жёлтый 42×ß"));
    EXPECT_EQ(mixed, MxtString(L"Zürich Ærø ŁÓDŹ Ÿÿ Ωμέγα Жёлтый 42×ß")) << "the original stays as it was";

    EXPECT_EQ(MxtString(L"ςſµı").toUpper(), MxtString(L"ΣSΜI"));
    EXPECT_EQ(MxtString(L"İΣ").toLower(), MxtString(L"iσ"));
}

TEST(MxtStringCase, CompareNoCaseFoldsLettersAndOrdersByTheLowerCaseForm)
{
    EXPECT_EQ(MxtString::compareNoCase(L"ÄRGER Über ПУТЬ ΟΔΌΣ", L"ärger über путь οδός"), 0);
    EXPECT_NE(MxtString::compareNoCase(L"STRASSE", L"Straße"), 0);
    EXPECT_LT(MxtString::compareNoCase(L"_x", L"Ax"), 0);  // '_' sorts before 'a', though after 'A'
    EXPECT_GT(MxtString::compareNoCase(L"b", L"A"), 0);
    EXPECT_LT(MxtString::compareNoCase(L"menu", L"MENUS"), 0);
    EXPECT_GT(MxtString::compareNoCase(L"menus", L"MENU"), 0);
}

TEST(MxtStringSearch, FindsFirstAndLastOccurrences)
{
    const MxtString path(L"C:\\MX\\Support;C:\\MX\\Plot");
    EXPECT_EQ(path.find(L"MX"), 3);
    EXPECT_EQ(path.find(L"MX", 4), 17);
    EXPECT_EQ(path.find(L"MX", 17), 17);
    EXPECT_EQ(path.find(L"mx"), -1);
    EXPECT_EQ(path.find(L"MX", -1), -1);
    EXPECT_EQ(path.find(L"MX", path.length() + 1), -1);

    EXPECT_EQ(path.find_last_of(L'\\'), 19);
    EXPECT_EQ(path.find_last_of(L";:"), 15);
    EXPECT_EQ(path.find_last_of(L'/'), -1);
}

TEST(MxtStringEditing, ReplaceRightAndAppend)
{
    MxtString text(L"a/b/c");
    EXPECT_EQ(text.replace(L"/", L"//"), 2);  // what was inserted is not searched again
    EXPECT_EQ(text, MxtString(L"a//b//c"));
    EXPECT_EQ(text.replace(L"", L"x"), 0);
    EXPECT_EQ(text.replace(L"q", L"x"), 0);

    EXPECT_EQ(text.right(3), MxtString(L"//c"));
    EXPECT_EQ(text.right(100), text);
    EXPECT_TRUE(text.right(0).isEmpty());
    EXPECT_TRUE(text.right(-2).isEmpty());

    text += L";d";
    EXPECT_EQ(text, MxtString(L"a//b//c;d"));
    EXPECT_NE(text, MxtString(L"A//B//C;D"));
}

}  // namespace
