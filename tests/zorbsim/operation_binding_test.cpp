// The binding of exported functions into zorbsim's operation table, for the parameter kinds that
// later operations of the module bring (bool, long, double, output long, plot type), with a
// stand-in function in place of the module.
#include "operation_binding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
              "StandIn::plot(device: string, quiet: bool, copies: long, scale: double, type: plot type, "
              "jobs: output long, message: output string) -> bool");
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
    EXPECT_THAT(rejection(with("type", 4294967296ll)), HasSubstr("/args/type: expected a plot type number"));
    EXPECT_THAT(rejection(with("jobs", "many")), HasSubstr("/args/jobs: expected a whole number"));
    EXPECT_THAT(rejection(with("devise", "P1")), HasSubstr("/args/devise: unknown argument of StandIn::plot("));
    EXPECT_THAT(rejection(missing), HasSubstr("test.json: /args: missing argument \"device\""));
    EXPECT_THAT(rejection(json::array()), HasSubstr("/args: expected an object of arguments"));
}

}  // namespace
