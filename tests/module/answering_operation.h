// Sweeps of operations that answer whether they succeeded and may fill in a text, on a host whose
// file-location preferences, registry and search path are arranged for them.
#pragma once

#include "support/fault_sweep.h"

#include "MxtString"

#include <functional>
#include <string>
#include <vector>

namespace module_testing {

// What the arranged host holds.
extern const std::wstring kSupportPath;
extern const std::wstring kPrinterStyleSheetPath;
extern const std::wstring kMXSupportFolder;
extern const std::wstring kSupportPathWithMX;
extern const std::wstring kPrinterPathWithMX;

// The text an output holds until an operation writes it.
extern const std::wstring kUntouched;

sim::HostState arrangedHost();

// Host calls in journal form: reaching the application, and the file-location preferences; the
// host services' registry root. The query for the application's interface is no host call, nor is
// reading the registry below the root the host's services name.
std::vector<std::string> reachingApplication(std::initializer_list<std::string> then = {});
std::vector<std::string> reachingPreferencesFiles(std::initializer_list<std::string> then);
std::vector<std::string> readingRegistry(std::initializer_list<std::string> then = {});

// An operation that answers whether it succeeded and may fill in a text; `call` runs it on an
// output that holds kUntouched. After success: true, `expected`, the preferences as `written`
// changes them. After a failure: false and `textAfterFailure`.
SweptOperation answeringOperation(std::string name, FailureHandling handling,
                                  std::function<bool(MxtString&)> call, std::vector<std::string> hostCalls,
                                  std::wstring expected,
                                  std::function<void(sim::PreferencesFiles&)> written = nullptr,
                                  std::wstring textAfterFailure = kUntouched);

}  // namespace module_testing
