#include "host/framework_app.h"

#include "faults/host_methods.h"
#include "calls/named_subject.h"
#include "calls/host_references.h"
#include "objects/objects.h"

#include <stdexcept>

namespace sim::detail {

FrameworkApp::FrameworkApp(std::shared_ptr<HostCore> core) : m_core(std::move(core)) {}

FrameworkApp::~FrameworkApp()
{
    if (m_application != nullptr) {
        m_applicationReferences->letGoForHost();
        m_application->Release();
    }
}

void FrameworkApp::releaseCallerReferences(long count)
{
    // Only the callers' references may go: the framework object's own keeps the application alive.
    if (count < 0 || count > callerReferences())
        throw std::logic_error(
            "the callers hold fewer references on the host application than asked to release");
    for (long reference = 0; reference < count; ++reference)
        m_application->Release();
}

long FrameworkApp::callerReferences() const
{
    if (m_application == nullptr)
        return 0;
    m_application->AddRef();
    return static_cast<long>(m_application->Release()) - 1;  // less the framework object's own
}

IDispatch* FrameworkApp::automationDispatch()
{
    static const NamedSubject subject("CWinApp");
    Call call(*m_core, subject, undescribed::getIDispatch.name);
    if (call.refused())
        return nullptr;
    if (m_application == nullptr) {
        m_application = newApplication(m_core);
        // The newest of the host's objects is the one just made.
        m_applicationReferences = m_core->liveObjects;
        m_applicationReferences->keepForHost();
    }
    return call.giveSdkObject(static_cast<IDispatch*>(m_application), L"no automation object");
}

}  // namespace sim::detail
