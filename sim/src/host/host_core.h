// What the installed host and every host object it gave out share. Host objects keep the core
// alive, so that an object a caller still holds after the host went away fails its calls instead
// of touching freed memory.
#pragma once

#include "model/menu_owners.h"
#include "model/name_index.h"
#include "model/seats.h"
#include "model/text_index.h"
#include "sim/journal.h"
#include "sim/model.h"

#include <chrono>
#include <optional>
#include <vector>

namespace sim::detail {

class HostReferenceCount;

struct HostCore {
    explicit HostCore(HostState initial) : state(std::move(initial)) {}

    HostState state;
    Journal journal;
    bool installed = true;    // false once the Host was destroyed
    long references = 0;      // on all host objects of this host
    long hostReferences = 0;  // of those, the ones the host itself keeps (the framework object's)
    // The objects of this host still counting references, newest first (objects/host_references.h).
    HostReferenceCount* liveObjects = nullptr;
    // The host call under way ("HostMenuGroups.Item"), to which the references taken meanwhile are
    // owed; null between calls. Methods are named by literals, which outlive every call.
    const char* callUnderWay = nullptr;
    // Off unless a benchmark asks: reading the clock twice per call would slow every other use.
    bool timingCalls = false;
    std::chrono::steady_clock::duration callTime{};  // spent inside calls while timingCalls
    Seats seats;  // where the calls last found the nodes of the objects called
    MenuOwners menuOwners;  // the loaded group of each menu, for the menu bar's menus
    NameIndex names;        // the nodes of each collection asked by name, by name
    TextIndex texts;        // the entries of the state's lists and maps of names and paths
    // Set while the dispatcher serves a late-bound call: the variant types of the caller's
    // arguments, which the call it reaches takes over.
    std::optional<std::vector<VARTYPE>> lateBoundArrival;
};

}  // namespace sim::detail
