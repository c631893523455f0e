// zorbsim: runs the MX host-utilities module against the simulated Zorb host.
#include "automation_failure.h"
#include "commands.h"
#include "demo_scenario.h"
#include "input_error.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>
#include <string>

namespace {

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

    ReportOptions reportOptions;
    CLI::App* demo = app.add_subcommand("demo", "Play the MX product's start-up on the built-in default host");
    addReportOptions(*demo, reportOptions);

    std::string scenarioPath;
    CLI::App* run = app.add_subcommand("run", "Run a scenario file (see docs/scenarios.md)");
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

    try {
        app.parse(argc, argv);
    }
    catch (const CLI::ParseError& error) {
        // Help exits 0; every usage error exits as bad input.
        return app.exit(error) == 0 ? kAllPassed : kBadInput;
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
        std::cerr << "zorbsim: " << error.what() << "\n";
        return kBadInput;
    }
    // Failures of the module are part of the report; these would be zorbsim's own faults.
    catch (const _com_error& error) {
        std::cerr << "zorbsim: internal error: automation failure " << statusWithMessage(error.Error()) << "\n";
        return kBadInput;
    }
    catch (const std::exception& error) {
        std::cerr << "zorbsim: internal error: " << error.what() << "\n";
        return kBadInput;
    }
}
