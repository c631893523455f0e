#include "sim/state_json.h"

namespace sim {

nlohmann::ordered_json journalEntryToJson(const JournalEntry& entry)
{
    nlohmann::ordered_json arguments = nlohmann::ordered_json::array();
    for (const JournalArgument& argument : entry.arguments)
        arguments.push_back({{"type", variantTypeName(argument.type)},
                             {"value", argument.isNull ? nlohmann::ordered_json(nullptr)
                                                       : nlohmann::ordered_json(argument.value)}});
    nlohmann::ordered_json json = {{"object", entry.object},
                           {"method", entry.method},
                           {"arguments", std::move(arguments)},
                           {"status", statusName(entry.status)}};
    if (entry.lateBound) {
        nlohmann::ordered_json arrived = nlohmann::ordered_json::array();
        for (VARTYPE type : *entry.lateBound)
            arrived.push_back(variantTypeName(type));
        json["lateBound"] = std::move(arrived);
    }
    return json;
}

}  // namespace sim
