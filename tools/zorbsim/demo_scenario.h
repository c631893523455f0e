// The scenario `zorbsim demo` plays: the MX product's start-up in a fresh session of the built-in
// default host, with every operation of the module that exists.
#pragma once

#include "scenario.h"

namespace zorbsim {

Scenario demoScenario();

}  // namespace zorbsim
