#include "framework_app.h"

#include "named_subject.h"
#include "objects/objects.h"

namespace sim::detail {

FrameworkApp::FrameworkApp(std::shared_ptr<HostCore> core) : m_core(std::move(core)) {}

FrameworkApp::~FrameworkApp()
{
    if (m_application != nullptr) {
        --m_core->hostReferences;
        m_application->Release();
    }
}

IDispatch* FrameworkApp::automationDispatch()
{
    static const NamedSubject subject("CWinApp");
    Call call(*m_core, subject, kGetDispatch);
    if (call.refused())
        return nullptr;
    if (m_application == nullptr) {
        m_application = newApplication(m_core);
        ++m_core->hostReferences;
    }
    return call.giveSdkObject(static_cast<IDispatch*>(m_application), L"no automation object");
}

}  // namespace sim::detail
