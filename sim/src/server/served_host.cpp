#include "server/served_host.h"

#include "calls/error_info.h"
#include "model/text.h"

#include <memory>
#include <stdexcept>

namespace sim::detail {
namespace {

struct Served {
    std::unique_ptr<Host> host;
    unsigned generation = 0;
};

Served& served()
{
    static Served slot;
    return slot;
}

}  // namespace

HRESULT startServedHost(HostState state, const IID& iid, unsigned& generation)
{
    Served& slot = served();
    slot.host.reset();
    try {
        slot.host = std::make_unique<Host>(std::move(state));
    }
    catch (const std::exception& refused) {
        setErrorInformation(iid, L"Zorb.SimulatedHost",
                            text::fromUtf8(refused.what()).value_or(L"the host state was refused"));
        return E_FAIL;
    }
    generation = ++slot.generation;
    return S_OK;
}

Host* servedHost(unsigned generation)
{
    const Served& slot = served();
    return slot.generation == generation ? slot.host.get() : nullptr;
}

bool servedHostInUse()
{
    const Served& slot = served();
    return slot.host && slot.host->referencesHeld() > 0;
}

}  // namespace sim::detail
