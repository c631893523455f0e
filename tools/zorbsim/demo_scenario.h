// The scenario `zorbsim demo` plays: an MX session on a fresh copy of the built-in default host,
// from its start-up to taking its menus away, with every operation of the module that exists.
#pragma once

#include "scenario.h"

namespace zorbsim {

Scenario demoScenario();

}  // namespace zorbsim
