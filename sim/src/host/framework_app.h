// The host's application framework object, whose automation face is the host application.
#pragma once

#include "host/host_core.h"

#include "framework.h"
#include "host/object_model.h"

#include <memory>

namespace sim::detail {

class FrameworkApp final : public CWinApp {
public:
    explicit FrameworkApp(std::shared_ptr<HostCore> core);
    ~FrameworkApp() override;

    // Releases references that callers hold on the application (see Host::releaseApplicationReferences).
    void releaseCallerReferences(long count);

protected:
    // The application, still owned by the framework object (GetIDispatch adds the caller's
    // reference), or null when a fault says so.
    IDispatch* automationDispatch() override;

private:
    long callerReferences() const;

    std::shared_ptr<HostCore> m_core;
    HostApplication* m_application = nullptr;  // one reference, made on first demand
    HostReferenceCount* m_applicationReferences =
        nullptr;  // the application's count, which knows that reference
};

}  // namespace sim::detail
