// The drawing summary properties holder: it exists, stays empty and says so.
#include "DWGPropsXWrap.h"

#include "support/mxt_text.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

using module_testing::text;

static_assert(std::has_virtual_destructor_v<DWGPropsXWrap>, "callers delete through the class itself");

namespace {

std::vector<std::wstring> allTexts(DWGPropsXWrap& props)
{
    std::vector<std::wstring> texts = {text(props.Title()),       text(props.Subject()),
                                       text(props.Author()),      text(props.Comments()),
                                       text(props.Keywords()),    text(props.LastSavedBy()),
                                       text(props.RevisionNumber()), text(props.HyperlinkBase())};
    for (int index = -2; index <= 11; ++index)
        texts.push_back(text(props.Custom(index)));
    return texts;
}

TEST(DrawingProps, NewObjectHasNoPropertiesAndClearedDatesAndLoadingReadsNothing)
{
    DWGPropsXWrap props;
    EXPECT_FALSE(props.HasProps());
    for (const std::wstring& each : allTexts(props))
        EXPECT_EQ(each, L"");
    for (ATL::COleDateTime* date : {&props.EditTime(), &props.Created(), &props.Updated()}) {
        EXPECT_EQ(date->m_dt, 0.0);
        EXPECT_EQ(date->GetStatus(), ATL::COleDateTime::valid);
    }

    props.Created().SetDateTime(2021, 3, 4, 5, 6, 7);
    const DATE created = props.Created();
    for (const wchar_t* path : {L"D:\\Projects\\Bridge.dwg", L"", L"Z:\\missing\\none.dwg"}) {
        props.Load(MxtString(path));
        EXPECT_FALSE(props.HasProps());
        for (const std::wstring& each : allTexts(props))
            EXPECT_EQ(each, L"");
        EXPECT_EQ(props.Created().m_dt, created);
    }
}

TEST(DrawingProps, DatesChangeThroughTheReturnedReferencesAndTravelWithCopiesBitForBit)
{
    DWGPropsXWrap props;
    props.Created().SetDateTime(2020, 2, 29, 13, 45, 0);
    props.Updated().SetStatus(ATL::COleDateTime::invalid);
    props.EditTime().m_dt = 1e9;  // outside the date range yet marked valid: a copy does not judge it again
    DWGPropsXWrap copy(props);
    DWGPropsXWrap assigned;
    EXPECT_EQ(&(assigned = props), &assigned);
    for (DWGPropsXWrap* each : {&copy, &assigned}) {
        EXPECT_EQ(each->Created().GetHour(), 13);
        EXPECT_EQ(each->Updated().GetStatus(), ATL::COleDateTime::invalid);
        EXPECT_EQ(each->EditTime().m_dt, 1e9);
        EXPECT_EQ(each->EditTime().GetStatus(), ATL::COleDateTime::valid);
    }

    // Copies are independent.
    copy.Created().SetDateTime(1999, 1, 1, 0, 0, 0);
    EXPECT_EQ(props.Created().GetYear(), 2020);
}

}  // namespace
