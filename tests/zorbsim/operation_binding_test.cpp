// The binding of exported functions into zorbsim's operation table, for the parameter kinds that
// later operations of the module bring (bool, long, double, output long, plot type, menu items),
// with stand-in functions in place of the module.
#include "operation_binding.h"

#include "MxtMemoryControllerController"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cwchar>
#include <string>

namespace {

using nlohmann::json;
using testing::HasSubstr;
using zorbsim::InputError;
using zorbsim::InputPlace;
using zorbsim::Operation;

// Adds the copies to the jobs counted so far and describes what it was asked.
bool plotStandIn(const MxtString& device, bool quiet, long copies, double scale, ZbDbPlotSettings::PlotType type,
                 long& jobs, MxtString& message)
{
    jobs += copies;
    message = MxtString((std::wstring(device.getStringW()) + L" x" + std::to_wstring(scale).substr(0, 3) +
                         L" type " + std::to_wstring(static_cast<int>(type)))
                            .c_str());
    return quiet;
}

Operation plotOperation()
{
    return zorbsim::bindOperation("StandIn", "plot", &plotStandIn, "device", "quiet", "copies", "scale", "type",
                                  "jobs", "message");
}

std::string rejection(const json& arguments)
{
    try {
        (void)plotOperation().bind(arguments, InputPlace("test.json") / "args");
    }
    catch (const InputError& error) {
        return error.what();
    }
    return "accepted";
}

const json kValidArguments = {{"device", "P1"}, {"quiet", true}, {"copies", 3}, {"scale", 0.5}, {"type", 4}};

TEST(OperationBinding, DescribesEveryParameterWithItsKind)
{
    EXPECT_EQ(plotOperation().signature(),
              "StandIn::plot(device: in string, quiet: in bool, copies: in long, scale: in double, "
              "type: in plot type, jobs: out long, message: out string) -> bool");
}

TEST(OperationBinding, PassesArgumentsAndReadsOutputsBackFromTheirStartingValues)
{
    json arguments = kValidArguments;
    arguments["jobs"] = 7;
    const zorbsim::BoundCall call = plotOperation().bind(arguments, InputPlace("test.json"));

    // Each run starts from the bound values again: the stand-in's update of `jobs` does not stick.
    for (int run = 0; run < 2; ++run) {
        const zorbsim::CallOutcome outcome = call.run();
        EXPECT_EQ(outcome.result, json(true));
        ASSERT_EQ(outcome.outputs.size(), 2u);
        EXPECT_EQ(outcome.outputs[0], std::make_pair(std::string("jobs"), json(10)));
        EXPECT_EQ(outcome.outputs[1], std::make_pair(std::string("message"), json("P1 x0.5 type 4")));
    }
}

TEST(OperationBinding, OutputsNotGivenStartEmpty)
{
    const zorbsim::BoundCall call = plotOperation().bind(kValidArguments, InputPlace("test.json"));
    EXPECT_EQ(call.arguments.at("jobs"), json(0));
    EXPECT_EQ(call.arguments.at("message"), json(""));
    EXPECT_EQ(call.run().outputs[0].second, json(3));
}

TEST(OperationBinding, RejectsBadArgumentsNamingTheirPlace)
{
    auto with = [](const char* name, const json& value) {
        json arguments = kValidArguments;
        arguments[name] = value;
        return arguments;
    };
    json missing = kValidArguments;
    missing.erase("device");

    EXPECT_THAT(rejection(with("device", 1)), HasSubstr("test.json: /args/device: expected a string"));
    EXPECT_THAT(rejection(with("quiet", "yes")), HasSubstr("/args/quiet: expected true or false"));
    EXPECT_THAT(rejection(with("copies", 2.5)), HasSubstr("/args/copies: expected a whole number"));
    EXPECT_THAT(rejection(with("copies", 9223372036854775808ull)), HasSubstr("/args/copies: expected a whole number"));
    EXPECT_THAT(rejection(with("scale", "half")), HasSubstr("/args/scale: expected a number"));
    EXPECT_THAT(rejection(with("type", 4294967296ll)),
                HasSubstr("/args/type: expected a whole number from -2147483648 to 2147483647"));
    EXPECT_THAT(rejection(with("jobs", "many")), HasSubstr("/args/jobs: expected a whole number"));
    EXPECT_THAT(rejection(with("devise", "P1")), HasSubstr("/args/devise: unknown argument of StandIn::plot("));
    EXPECT_THAT(rejection(missing), HasSubstr("test.json: /args: missing argument \"device\""));
    EXPECT_THAT(rejection(json::array()), HasSubstr("/args: expected an object of arguments"));
}

// Moves `left` on by the length of the name. Both are references, but the name is only read.
bool placeStandIn(MxtString& name, long& left)
{
    left += static_cast<long>(std::wcslen(name.getStringW()));
    return true;
}

TEST(OperationBinding, TakesTheDirectionsTheTableDeclares)
{
    const Operation place =
        zorbsim::bindOperation("StandIn", "place", &placeStandIn, zorbsim::input("name"), zorbsim::inOut("left"));
    EXPECT_EQ(place.signature(), "StandIn::place(name: in string, left: in/out long) -> bool");
    const auto rejection = [&](const json& arguments) -> std::string {
        try {
            (void)place.bind(arguments, InputPlace("test.json") / "args");
        }
        catch (const InputError& error) {
            return error.what();
        }
        return "accepted";
    };
    EXPECT_THAT(rejection({{"name", "MX"}}), HasSubstr("missing argument \"left\""));
    EXPECT_THAT(rejection({{"left", 1}}), HasSubstr("missing argument \"name\""));

    // The input is not reported back; the in/out value is, as the call left it.
    const zorbsim::CallOutcome outcome = place.bind({{"name", "MX"}, {"left", 10}}, InputPlace("test.json")).run();
    ASSERT_EQ(outcome.outputs.size(), 1u);
    EXPECT_EQ(outcome.outputs[0], std::make_pair(std::string("left"), json(12)));
}

// Describes each item as "index|label|macro" on a line of its own, so that a test sees every field
// of every item in the order the call received them.
MxtString listMenuItems(const MxtArray<ZORBAppUtilities::ZORBMenuItem>& items)
{
    std::wstring text;
    for (int i = 0; i < items.getLength(); ++i)
        text += std::to_wstring(items[i].index) + L"|" + items[i].label.getStringW() + L"|" +
                items[i].macro.getStringW() + L"\n";
    return MxtString(text.c_str());
}

Operation menuItemsOperation()
{
    return zorbsim::bindOperation("StandIn", "listMenuItems", &listMenuItems, "items");
}

std::string menuItemsRejection(const json& items)
{
    try {
        (void)menuItemsOperation().bind({{"items", items}}, InputPlace("test.json") / "args");
    }
    catch (const InputError& error) {
        return error.what();
    }
    return "accepted";
}

TEST(MenuItemBinding, PassesEveryItemWithItsFieldsInOrder)
{
    EXPECT_EQ(menuItemsOperation().signature(), "StandIn::listMenuItems(items: in menu item array) -> string");
    const json items = json::array({
        {{"index", 2147483647}, {"label", "&Größe"}, {"macro", "^C^C_MXSIZE"}},
        {{"index", -2147483648ll}, {"label", ""}, {"macro", ""}},
        {{"index", 0}, {"label", "&None"}, {"macro", "_non"}},
    });
    const zorbsim::CallOutcome outcome =
        menuItemsOperation().bind({{"items", items}}, InputPlace("test.json")).run();
    EXPECT_EQ(outcome.result, json("2147483647|&Größe|^C^C_MXSIZE\n-2147483648||\n0|&None|_non\n"));
}

TEST(MenuItemBinding, AnEmptyArrayPassesNoItems)
{
    EXPECT_EQ(menuItemsOperation().bind({{"items", json::array()}}, InputPlace("test.json")).run().result,
              json(""));
}

TEST(MenuItemBinding, RejectsMalformedItemsNamingTheirPlace)
{
    const json good = {{"index", 1}, {"label", "&Beams..."}, {"macro", "^C^C_MXBEAM"}};
    auto second = [&](const json& item) { return json::array({good, item}); };
    auto changed = [&](const char* name, const json& value) {
        json item = good;
        item[name] = value;
        return second(item);
    };
    auto without = [&](const char* name) {
        json item = good;
        item.erase(name);
        return second(item);
    };

    EXPECT_THAT(menuItemsRejection(good),
                HasSubstr("test.json: /args/items: expected an array of menu items"));
    EXPECT_THAT(menuItemsRejection(second("&Beams...")), HasSubstr("/args/items/1: expected a menu item"));
    EXPECT_THAT(menuItemsRejection(without("index")), HasSubstr("/args/items/1: missing \"index\""));
    EXPECT_THAT(menuItemsRejection(without("label")), HasSubstr("/args/items/1: missing \"label\""));
    EXPECT_THAT(menuItemsRejection(without("macro")), HasSubstr("/args/items/1: missing \"macro\""));
    EXPECT_THAT(
        menuItemsRejection(changed("tag", "ID_MxBeam")),
        HasSubstr("/args/items/1/tag: unknown member; expected one of \"index\", \"label\", \"macro\""));
    EXPECT_THAT(menuItemsRejection(changed("index", "1")),
                HasSubstr("/args/items/1/index: expected a whole number from -2147483648 to 2147483647"));
    EXPECT_THAT(menuItemsRejection(changed("index", 2147483648ll)),
                HasSubstr("/args/items/1/index: expected a whole"));
    EXPECT_THAT(menuItemsRejection(changed("index", -2147483649ll)),
                HasSubstr("/args/items/1/index: expected a whole"));
    EXPECT_THAT(menuItemsRejection(changed("index", 1.5)),
                HasSubstr("/args/items/1/index: expected a whole"));
    EXPECT_THAT(menuItemsRejection(changed("label", 7)), HasSubstr("/args/items/1/label: expected a string"));
    EXPECT_THAT(menuItemsRejection(changed("macro", nullptr)),
                HasSubstr("/args/items/1/macro: expected a string"));
}

// Reads back what a point variant holds, the way the host does.
MxtString describePoints(const _variant_t& lowerLeft, const _variant_t& upperRight)
{
    std::wstring text;
    for (const _variant_t* point : {&lowerLeft, &upperRight}) {
        double* xy = nullptr;
        SafeArrayAccessData(V_ARRAY(point), reinterpret_cast<void**>(&xy));
        text += std::to_wstring(V_VT(point)) + L":" + std::to_wstring(xy[0]) + L"," + std::to_wstring(xy[1]) + L" ";
        SafeArrayUnaccessData(V_ARRAY(point));
    }
    return MxtString(text.c_str());
}

const Operation kPoints = zorbsim::bindOperation("StandIn", "describePoints", &describePoints, "lowerLeft", "upperRight");

std::string pointRejection(const json& lowerLeft)
{
    try {
        (void)kPoints.bind({{"lowerLeft", lowerLeft}, {"upperRight", {0, 0}}}, InputPlace("test.json") / "args");
    }
    catch (const InputError& error) {
        return error.what();
    }
    return "accepted";
}

TEST(PointBinding, PassesEachPointAsTheHostsDoubleArrayVariant)
{
    EXPECT_EQ(kPoints.signature(), "StandIn::describePoints(lowerLeft: in point, upperRight: in point) -> string");
    const zorbsim::CallOutcome outcome =
        kPoints.bind({{"lowerLeft", {1.5, -2}}, {"upperRight", {300, 400.25}}}, InputPlace("test.json")).run();
    const std::string doubleArray = std::to_string(VT_ARRAY | VT_R8);
    EXPECT_EQ(outcome.result, json(doubleArray + ":1.500000,-2.000000 " + doubleArray + ":300.000000,400.250000 "));

    EXPECT_THAT(pointRejection(json::array({1.0})), HasSubstr("/args/lowerLeft: expected a point [x, y]"));
    EXPECT_THAT(pointRejection({{"x", 1}, {"y", 2}}), HasSubstr("/args/lowerLeft: expected a point [x, y]"));
    EXPECT_THAT(pointRejection(json::array({1, 2, 3})), HasSubstr("/args/lowerLeft: expected a point [x, y]"));
    EXPECT_THAT(pointRejection(json::array({1, "2"})), HasSubstr("/args/lowerLeft/1: expected a number"));
}

// A long array is given its storage at once, not grown eight elements at a time: binding ten
// thousand folders allocates as often as binding one.
TEST(OperationBinding, AStringArrayArgumentIsAllocatedAtOnceWhateverItsLength)
{
    const auto firstFolder = [](const MxtArray<MxtString>& folders) { return folders[0]; };
    const Operation operation = zorbsim::bindOperation("StandIn", "firstFolder", +firstFolder, "folders");
    const auto allocationsToBind = [&](std::size_t count) {
        const std::size_t before = MxtMemoryControllerController::allocationCount();
        const zorbsim::BoundCall call =
            operation.bind({{"folders", std::vector<std::string>(count, "C:\\MX")}}, InputPlace("test.json"));
        EXPECT_EQ(call.run().result, json("C:\\MX"));
        return MxtMemoryControllerController::allocationCount() - before;
    };
    EXPECT_EQ(allocationsToBind(10000), allocationsToBind(1));
}

}  // namespace
