// Pairing the entries of two versions of a list: what a page marks added, removed or changed.
#include "change_marks.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using zorbsim::Change;

// An entry known by its key, whose value may change.
using Entry = std::pair<char, int>;

bool sameKey(const Entry& a, const Entry& b)
{
    return a.first == b.first;
}

std::vector<Entry> entries(const std::string& keys, int value = 0)
{
    std::vector<Entry> list;
    for (const char key : keys)
        list.emplace_back(key, value);
    return list;
}

const char* markOf(Change change)
{
    switch (change) {
    case Change::added:
        return "+";
    case Change::removed:
        return "-";
    case Change::changed:
        return "~";
    case Change::none:
        break;
    }
    return "";
}

// The pairing as text: each entry's key and mark, "a b+ c- d~".
std::string marks(const std::vector<Entry>& before, const std::vector<Entry>& after)
{
    std::string text;
    for (const auto& pair : zorbsim::alignLists(before, after, sameKey))
        text += (text.empty() ? "" : " ") + std::string(1, pair.shown().first) + markOf(pair.change);
    return text;
}

TEST(ChangeMarks, EntriesComeAndGoWhereTheyStand)
{
    EXPECT_EQ(marks(entries("abc"), entries("abc")), "a b c");
    EXPECT_EQ(marks(entries("abc"), entries("axbc")), "a x+ b c");
    EXPECT_EQ(marks(entries("abc"), entries("ac")), "a b- c");
    EXPECT_EQ(marks(entries("abc"), entries("adc")), "a b- d+ c");
    EXPECT_EQ(marks(entries(""), entries("ab")), "a+ b+");
    EXPECT_EQ(marks(entries("ab"), entries("")), "a- b-");
    // A moved entry leaves its old place and arrives at its new one.
    EXPECT_EQ(marks(entries("abcd"), entries("bcda")), "a- b c d a+");
}

TEST(ChangeMarks, EntriesOfOneKeyPairInOrder)
{
    // Separators are one entry: the two that stayed pair up, the new one is the one added.
    EXPECT_EQ(marks(entries("s1s2"), entries("s1sns2")), "s 1 s n+ s+ 2");
    EXPECT_EQ(marks(entries("sss"), entries("ss")), "s s s-");
}

TEST(ChangeMarks, AnEntryWithANewValueIsChanged)
{
    const std::vector<Entry> before = entries("abc");
    std::vector<Entry> after = entries("abc");
    after[1].second = 7;
    EXPECT_EQ(marks(before, after), "a b~ c");
    const auto pairs = zorbsim::alignLists(before, after, sameKey);
    EXPECT_EQ(pairs[1].before->second, 0);
    EXPECT_EQ(pairs[1].after->second, 7);
}

TEST(ChangeMarks, NullNodesAreEntriesEqualOnlyToNull)
{
    const auto node = [](int value) { return std::make_shared<int>(value); };
    const std::vector<std::shared_ptr<int>> before{node(1), nullptr, node(3)};
    const std::vector<std::shared_ptr<int>> after{node(1), nullptr, node(4)};
    const auto pairs =
        zorbsim::alignLists(before, after, [](const auto& a, const auto& b) { return !a == !b; });
    ASSERT_EQ(pairs.size(), 3u);
    EXPECT_EQ(pairs[0].change, Change::none);  // equal content, not the same node
    EXPECT_EQ(pairs[1].change, Change::none);
    EXPECT_EQ(pairs[2].change, Change::changed);
}

TEST(ChangeMarks, ListsTooLongToPairAreRemovedAndAddedWhole)
{
    std::vector<Entry> before{{'a', 0}};
    std::vector<Entry> after{{'a', 0}};
    for (int i = 0; i < 1100; ++i) {
        before.emplace_back('x', i);
        after.emplace_back('y', i);
    }
    before.emplace_back('z', 0);
    after.emplace_back('z', 0);
    const auto pairs =
        zorbsim::alignLists(before, after, [](const Entry& a, const Entry& b) { return a == b; });
    ASSERT_EQ(pairs.size(), 2u + 2 * 1100);
    EXPECT_EQ(pairs.front().change, Change::none);
    EXPECT_EQ(pairs[1].change, Change::removed);
    EXPECT_EQ(pairs[1100].change, Change::removed);
    EXPECT_EQ(pairs[1101].change, Change::added);
    EXPECT_EQ(pairs.back().change, Change::none);
}

TEST(ChangeMarks, MapsPairByKey)
{
    const std::map<std::string, int> before{{"a", 1}, {"b", 2}, {"d", 5}};
    const std::map<std::string, int> after{{"b", 3}, {"c", 4}, {"d", 5}};
    std::string text;
    for (const auto& [key, value] : zorbsim::alignMaps(before, after))
        text += (text.empty() ? "" : " ") + *key + "=" + std::to_string(value.shown()) + markOf(value.change);
    EXPECT_EQ(text, "a=1- b=3~ c=4+ d=5");
}

}  // namespace
