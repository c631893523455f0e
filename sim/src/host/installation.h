// The installed host as the SDK functions reach it: its core, its framework object and its
// services, and what it put into the process's environment (the per-user registry values and the
// MX support folder).
#pragma once

#include "host/framework_app.h"
#include "host/host_core.h"
#include "environment/user_registry.h"

#include "MxtString"
#include "host/sdk.h"

#include <memory>

namespace sim::detail {

class HostServices final : public ZbDbHostApplicationServices {
public:
    explicit HostServices(HostCore& core) : m_core(core) {}
    const wchar_t* getUserRegistryProductRootKey() const override;

private:
    HostCore& m_core;
};

class Installation {
public:
    explicit Installation(HostState state);
    ~Installation();
    Installation(const Installation&) = delete;
    Installation& operator=(const Installation&) = delete;

    HostCore& core() { return *m_core; }
    const std::shared_ptr<HostCore>& sharedCore() const { return m_core; }
    CWinApp* frameworkObject() { return &m_framework; }
    FrameworkApp& framework() { return m_framework; }
    ZbDbHostApplicationServices* services() { return &m_services; }

    void syncEnvironment();

private:
    std::shared_ptr<HostCore> m_core;
    FrameworkApp m_framework;
    HostServices m_services;
    UserRegistry m_registry;
    MxtString m_previousSupportFolder;
};

// The installed host's, or null when no host is installed.
Installation* installed();

}  // namespace sim::detail
