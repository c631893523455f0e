// The framework stand-ins: the application object's automation face and the date-time class.
#include "framework.h"

#include "test_widget.h"

#include <gtest/gtest.h>

namespace {

class HostApp : public CWinApp {
public:
    IDispatch* application = nullptr;

protected:
    IDispatch* automationDispatch() override { return application; }
};

TEST(FrameworkApp, GetIDispatchAddsAReferenceOnlyWhenAskedAndOnlyToAnObjectThatExists)
{
    TestWidget application;
    HostApp app;
    EXPECT_EQ(app.GetIDispatch(TRUE), nullptr);

    app.application = &application;
    IDispatch* owned = app.GetIDispatch(TRUE);
    EXPECT_EQ(owned, static_cast<IDispatch*>(&application));
    EXPECT_EQ(application.references(), 1u);
    EXPECT_EQ(app.GetIDispatch(FALSE), owned);
    EXPECT_EQ(application.references(), 1u);
    owned->Release();
}

struct Moment {
    int year, month, day, hour, minute, second;
};

void expectMoment(const ATL::COleDateTime& value, const Moment& expected)
{
    EXPECT_EQ(value.GetYear(), expected.year);
    EXPECT_EQ(value.GetMonth(), expected.month);
    EXPECT_EQ(value.GetDay(), expected.day);
    EXPECT_EQ(value.GetHour(), expected.hour);
    EXPECT_EQ(value.GetMinute(), expected.minute);
    EXPECT_EQ(value.GetSecond(), expected.second);
}

TEST(OleDateTime, ValuesCountDaysFromTheLastDaysOf1899)
{
    const ATL::COleDateTime zero;
    EXPECT_EQ(zero.GetStatus(), ATL::COleDateTime::valid);
    EXPECT_EQ(static_cast<DATE>(zero), 0.0);
    expectMoment(zero, {1899, 12, 30, 0, 0, 0});

    ATL::COleDateTime leapDay;
    EXPECT_EQ(leapDay.SetDateTime(2024, 2, 29, 18, 0, 0), 0);
    EXPECT_DOUBLE_EQ(leapDay.m_dt, 45351.75);
    expectMoment(leapDay, {2024, 2, 29, 18, 0, 0});

    // Before the epoch the whole days count back and the time of day still counts forward.
    const ATL::COleDateTime earlier(-1.25);
    expectMoment(earlier, {1899, 12, 29, 6, 0, 0});
    ATL::COleDateTime rebuilt;
    rebuilt.SetDateTime(1899, 12, 29, 6, 0, 0);
    EXPECT_EQ(rebuilt, earlier);

    expectMoment(ATL::COleDateTime(1.0 - 0.1 / 86400), {1899, 12, 31, 0, 0, 0});  // rounded to the second
    expectMoment(ATL::COleDateTime(2958465.0), {9999, 12, 31, 0, 0, 0});
    expectMoment(ATL::COleDateTime(-657434.0), {100, 1, 1, 0, 0, 0});
}

TEST(OleDateTime, InvalidDatesAreMarkedAndHaveNoParts)
{
    ATL::COleDateTime date(12.5);
    EXPECT_EQ(date.SetDateTime(2023, 2, 29, 0, 0, 0), 1);
    EXPECT_EQ(date.GetStatus(), ATL::COleDateTime::invalid);
    EXPECT_EQ(date.m_dt, 0.0);
    EXPECT_EQ(date.GetYear(), -1);
    EXPECT_EQ(date.SetDateTime(2023, 1, 1, 24, 0, 0), 1);
    EXPECT_EQ(ATL::COleDateTime(2958466.0).GetStatus(), ATL::COleDateTime::invalid);

    // Values that are not valid compare by status alone.
    ATL::COleDateTime other(99.0);
    other.SetStatus(ATL::COleDateTime::invalid);
    EXPECT_EQ(date, other);
    other.SetStatus(ATL::COleDateTime::null);
    EXPECT_NE(date, other);
    EXPECT_NE(ATL::COleDateTime(1.0), ATL::COleDateTime(2.0));

    date = 3.0;
    EXPECT_EQ(date.GetStatus(), ATL::COleDateTime::valid);
    expectMoment(date, {1900, 1, 2, 0, 0, 0});
}

}  // namespace
