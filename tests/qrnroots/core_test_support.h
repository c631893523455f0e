// Shared by the core library's tests: every test starts with an empty assertion log and must give
// back every block of array storage it took.
#pragma once

#include "MxtAssert"
#include "MxtMemoryControllerController"
#include "MxtString"
#include "support/mxt_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>

class CoreTest : public testing::Test {
protected:
    void SetUp() override
    {
        MxtAssert::clearReports();
        m_liveBlocks = MxtMemoryControllerController::liveBlocks();
        m_liveBytes = MxtMemoryControllerController::liveBytes();
    }

    void TearDown() override
    {
        EXPECT_EQ(MxtMemoryControllerController::liveBlocks(), m_liveBlocks) << "array storage leaked or freed twice";
        EXPECT_EQ(MxtMemoryControllerController::liveBytes(), m_liveBytes);
    }

private:
    std::size_t m_liveBlocks = 0;
    std::size_t m_liveBytes = 0;
};

inline void PrintTo(const MxtAssert::Report& report, std::ostream* out)
{
    *out << '"' << report.condition << "\" at " << report.path << ':' << report.line;
}

MATCHER_P2(IsReport, condition, line, "")
{
    return arg.condition == condition && arg.path == "Sources/Base/QRNRoots/Exp/MxtArray" && arg.line == line;
}
