// What the JSON text of host states and scenarios may not hold, though the parser would take it,
// and what reading a file refuses: each is refused with its place before anything is built.
#include "sim/json_text.h"
#include "sim/state_json.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

std::string refusal(const std::string& text)
{
    try {
        sim::parseJsonText(text, "t.json");
    }
    catch (const sim::StateError& error) {
        return error.what();
    }
    return "(parsed)";
}

std::string nested(std::size_t depth) { return std::string(depth, '[') + std::string(depth, ']'); }

TEST(JsonText, RefusesNulCharactersRawOrEscapedWhereverTheyStand)
{
    using namespace std::string_literals;
    EXPECT_EQ(refusal("{\"a\": 1}\0trailing"s), "t.json:1:9: a NUL character is not allowed in the input");
    EXPECT_EQ(refusal("{\"a\": \"x\0y\"}"s), "t.json:1:9: a NUL character is not allowed in the input");
    EXPECT_EQ(refusal("// note\0\n{}"s), "t.json:1:8: a NUL character is not allowed in the input");
    EXPECT_EQ(refusal("{\"a\":\n \"C:\\\\a\\u0000b\"}"), "t.json:2:8: a NUL character (\\u0000) is not allowed in a text");
    EXPECT_EQ(refusal("{\"\\u0000\": 1}"), "t.json:1:3: a NUL character (\\u0000) is not allowed in a text");
    // An escaped backslash before "u0000" is text, not a NUL.
    EXPECT_EQ(refusal("{\"a\": \"\\\\u0000\"}"), "(parsed)");
}

TEST(JsonText, RefusesAMemberNamedTwiceInOneObjectHoweverItIsSpelt)
{
    EXPECT_EQ(refusal("{\"steps\": [1], \"steps\": []}"),
              "t.json:1:16: duplicate member \"steps\" (each member may appear once)");
    EXPECT_EQ(refusal("{\"a\": 1, /* \"a\" */ \"\\u0061\": 2}"),
              "t.json:1:20: duplicate member \"a\" (each member may appear once)");
    EXPECT_EQ(refusal("{\"a\": {\"a\": 1, \"b\": {\"a\": 2}}, \"b\": [{\"a\": 1}, {\"a\": 2}]}"), "(parsed)");
    EXPECT_EQ(refusal("{\"a\": \"a\", \"b\": [\"a\", \"a\"]}"), "(parsed)");
}

TEST(JsonText, RefusesNestingBeyondTheLimitWithoutRecursingIntoIt)
{
    EXPECT_EQ(refusal(nested(256)), "(parsed)");
    EXPECT_EQ(refusal(nested(257)), "t.json:1:257: nested deeper than 256 levels (the limit)");
    EXPECT_EQ(refusal("{\"x\": " + nested(200000) + "}"), "t.json:1:262: nested deeper than 256 levels (the limit)");
}

TEST(JsonText, RefusesNumbersBeyondADoublesRangeAndTrailingText)
{
    EXPECT_EQ(refusal("[1e308, -1.7e308, 1e-400, 123456789012345678901234567890]"), "(parsed)");
    EXPECT_EQ(refusal("{\"n\": 1e400}"), "t.json:1:7: number out of range (a number's size is at most about 1.8e308)");
    EXPECT_EQ(refusal("[-2e999]"), "t.json:1:2: number out of range (a number's size is at most about 1.8e308)");
    EXPECT_NE(refusal("{} {}").find("t.json:1:4: "), std::string::npos) << refusal("{} {}");
}

// A host state nested far beyond any real menu is refused at once rather than read slowly.
TEST(JsonText, AHostStateWithSubmenusNestedThousandsDeepIsRefusedByTheLimit)
{
    std::string menu = "{\"name\": \"M\", \"items\": []}";
    for (int level = 0; level < 2000; ++level)
        menu = "{\"name\": \"M\", \"items\": [{\"type\": \"submenu\", \"submenu\": " + menu + "}]}";
    const std::string state = "{\"menuGroups\": [{\"name\": \"G\", \"menus\": [" + menu + "]}]}";
    EXPECT_NE(refusal(state).find("nested deeper than 256 levels (the limit)"), std::string::npos);
}

class JsonFile : public testing::Test {
protected:
    // One folder per test: CTest runs the tests of this program side by side.
    const std::string folder =
        testing::TempDir() + "json_file_test_" + testing::UnitTest::GetInstance()->current_test_info()->name();
    const std::string path = folder + "/state.json";

    void SetUp() override { std::filesystem::create_directories(folder); }
    void TearDown() override { std::filesystem::remove_all(folder); }

    std::string loadRefusal(const std::string& file)
    {
        try {
            sim::loadStateFile(file);
        }
        catch (const sim::StateError& error) {
            return error.what();
        }
        return "(loaded)";
    }
};

TEST_F(JsonFile, UnreadableFilesAreRefusedWithTheReason)
{
    EXPECT_EQ(loadRefusal(folder), folder + ": cannot be read: it is a folder");
    EXPECT_EQ(loadRefusal(folder + "/none.json").rfind(folder + "/none.json: cannot be read: ", 0), 0u)
        << loadRefusal(folder + "/none.json");
}

TEST_F(JsonFile, AFileBeyondTheSizeLimitIsRefusedUnparsed)
{
    {
        std::ofstream file(path, std::ios::binary);
        file << "[" << std::string(sim::kJsonFileLimit, ' ') << "]";
    }
    EXPECT_EQ(loadRefusal(path), path + ": larger than 64 MiB (the limit)");
}

TEST_F(JsonFile, ARootLevelComplaintNamesTheFileAlone)
{
    std::ofstream(path) << "[]";
    EXPECT_EQ(loadRefusal(path), path + ": expected an object");
}

}  // namespace
