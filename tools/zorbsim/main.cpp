// zorbsim: runs the MX host-utilities module against the simulated Zorb host.
#include "automation_failure.h"
#include "commands.h"
#include "demo_scenario.h"
#include "input_error.h"
#include "nearest_name.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstring>
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

namespace {

// A program that asks for JSON reads stdout, so an error comes there as a JSON document too, besides
// the text on stderr. Looked for on the whole line, since the error may come before it was parsed.
bool asksForJson(int argc, char** argv)
{
    return std::any_of(argv + 1, argv + argc,
                       [](const char* argument) { return std::strcmp(argument, "--json") == 0; });
}

int reportError(const std::string& message, int exitCode, bool json)
{
    std::cerr << "zorbsim: " << message << "\n";
    if (json)
        std::cout << nlohmann::json{{"error", message}, {"exitCode", exitCode}}.dump(2) << "\n";
    return exitCode;
}

// The first argument names the subcommand; CLI11 would only say that one is required.
std::optional<std::string> unknownSubcommand(int argc, char** argv,
                                             const std::vector<std::string>& subcommands)
{
    if (argc < 2 || argv[1][0] == '\0' || argv[1][0] == '-' ||
        std::find(subcommands.begin(), subcommands.end(), argv[1]) != subcommands.end())
        return std::nullopt;
    const std::optional<std::string> meant = zorbsim::nearestName(argv[1], subcommands);
    return "unknown subcommand \"" + std::string(argv[1]) + "\"" +
           (meant ? "; did you mean \"" + *meant + "\"?" : std::string()) + " (zorbsim --help lists them)";
}

void addReportOptions(CLI::App& command, zorbsim::ReportOptions& options)
{
    CLI::Option* trace =
        command.add_flag("--trace", options.trace, "Print the host calls of each call step under it");
    command
        .add_flag("--releases", options.releases,
                  "With --trace: also show each host object the module let go, in order with the calls")
        ->needs(trace);
    command.add_flag("--json", options.json, "Print the report as JSON instead of text");
    command
        .add_option_function<std::string>(
            "--dump-state",
            [&options](const std::string& path) {
                options.dumpState = true;
                options.dumpStatePath = path;
            },
            "Write the final host state (JSON) to FILE, a regular file or a new one")
        ->type_name("FILE");
    command
        .add_option_function<std::string>(
            "--html",
            [&options](const std::string& path) {
                options.html = true;
                options.htmlPath = path;
            },
            "Write the run as a page (HTML): the host before and after, and what each step changed")
        ->type_name("FILE");
}

}  // namespace

int main(int argc, char** argv)
{
    using namespace zorbsim;

    CLI::App app{"Runs the MX host-utilities module against the simulated Zorb host.", "zorbsim"};
    // Options are written --name on both builds: on Windows a path that starts with / is a path,
    // not a Windows-style option (subcommands take this over when they are added).
    app.allow_windows_style_options(false);
    app.require_subcommand(1);
    app.set_version_flag("--version", "zorbsim " ZORBSIM_VERSION);
    app.footer("The pages, in " ZORBSIM_DOC_FOLDER " of the installed package (docs/ in the sources): "
               "scenarios.md (scenarios and reports), simulated-host.md (host states, faults), "
               "testing-with-the-simulated-host.md (the GoogleTest helper), driving-by-name.md (late binding "
               "and scripts).");

    ReportOptions reportOptions;
    CLI::App* demo = app.add_subcommand("demo", "Play the MX product's start-up on the built-in default host");
    addReportOptions(*demo, reportOptions);

    std::string scenarioPath;
    CLI::App* run = app.add_subcommand("run", "Run a scenario file (its format: " ZORBSIM_DOC_FOLDER
                                              "/scenarios.md in the installed package, "
                                              "docs/scenarios.md in the sources)");
    run->add_option("SCENARIO", scenarioPath, "The scenario (JSON)")->required();
    addReportOptions(*run, reportOptions);

    std::string hostPath;
    CLI::App* state = app.add_subcommand("state", "Print a host state as JSON");
    state->add_option("--host", hostPath, "A host state file (default: the built-in default host)")->type_name("FILE");

    std::string viewPath;
    CLI::App* view = app.add_subcommand("view", "Write a host state as a page (HTML): its menus, toolbars and documents");
    view->add_option("--host", hostPath, "A host state file (default: the built-in default host)")->type_name("FILE");
    view->add_option("-o,--output", viewPath, "The page to write")->type_name("FILE")->required();

    app.add_subcommand("ops", "List every operation a scenario can call, with its arguments");

    const bool json = asksForJson(argc, argv);
    if (const auto unknown = unknownSubcommand(argc, argv, {"demo", "run", "state", "view", "ops"}))
        return reportError(*unknown, kBadInput, json);
    try {
        app.parse(argc, argv);
    }
    catch (const CLI::ParseError& error) {
        // Help exits 0; every usage error exits as bad input.
        if (app.exit(error) == 0)
            return kAllPassed;
        if (json)
            std::cout << nlohmann::json{{"error", error.what()}, {"exitCode", kBadInput}}.dump(2) << "\n";
        return kBadInput;
    }

    try {
        if (*demo)
            return runScenarioCommand(demoScenario(), reportOptions);
        if (*run)
            return runScenarioCommand(loadScenarioFile(scenarioPath), reportOptions);
        if (*state)
            return printStateCommand(hostPath);
        if (*view)
            return viewCommand(hostPath, viewPath);
        return listOperationsCommand();
    }
    catch (const InputError& error) {
        return reportError(error.what(), kBadInput, json);
    }
    // Failures of the module are part of the report; these would be zorbsim's own faults.
    catch (const _com_error& error) {
        return reportError("internal error: automation failure " + statusWithMessage(error.Error()),
                           kBadInput, json);
    }
    catch (const std::exception& error) {
        return reportError(std::string("internal error: ") + error.what(), kBadInput, json);
    }
}
