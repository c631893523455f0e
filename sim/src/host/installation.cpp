#include "host/installation.h"

#include "faults/host_methods.h"
#include "calls/named_subject.h"

#include "MXSettings"

namespace sim::detail {

const wchar_t* HostServices::getUserRegistryProductRootKey() const
{
    static const NamedSubject subject("ZbDbHostApplicationServices");
    Call call(m_core, subject, undescribed::getUserRegistryProductRootKey.name);
    if (call.refused())
        return nullptr;
    call.succeed();
    return call.answer().kind == Answer::Kind::null ? nullptr : m_core.state.registryRootKey.c_str();
}

Installation::Installation(HostState state)
    : m_core(std::make_shared<HostCore>(std::move(state))), m_framework(m_core), m_services(*m_core),
      m_previousSupportFolder(MXSettings::getInstance()->getPathSupport())
{
    syncEnvironment();
}

Installation::~Installation()
{
    m_core->installed = false;
    MXSettings::getInstance()->setPathSupport(m_previousSupportFolder);
}

void Installation::syncEnvironment()
{
    m_registry.write(m_core->state.registryRootKey, m_core->state.registryValues);
    MXSettings::getInstance()->setPathSupport(m_core->state.mxSupportFolder.c_str());
}

}  // namespace sim::detail
