// Names that the JSON state uses for enumerations of the model, both ways.
#pragma once

#include "sim/faults.h"
#include "sim/model.h"

#include <optional>
#include <string>

namespace sim::detail {

const char* nameOfItemType(ItemType type);
std::optional<ItemType> itemTypeNamed(const std::string& name);

const char* nameOfFaultKind(FaultKind kind);
std::optional<FaultKind> faultKindNamed(const std::string& name);

const char* nameOfBeyondEnd(BeyondEnd choice);
std::optional<BeyondEnd> beyondEndNamed(const std::string& name);

}  // namespace sim::detail
