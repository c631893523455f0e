// What every host object of the simulator is: a reference-counted automation object answering
// for IUnknown, IDispatch, its own interface and ISupportErrorInfo. Its IDispatch serves calls by
// name from the host's type library (objects/late_binding.h), reaching the same typed methods.
#pragma once

#include "faults/plan.h"
#include "host/host_core.h"
#include "faults/host_methods.h"
#include "calls/call.h"
#include "objects/enumeration.h"
#include "calls/host_references.h"
#include "late_binding/dispatch.h"
#include "model/text.h"

#include "host/members.h"
#include "host/object_model.h"

#include <memory>
#include <type_traits>

namespace sim::detail {

template <class Interface>
class HostObject : public DispatchedByName<Interface>, public ISupportErrorInfo, public CallSubject {
public:
    HostObject(const HostObject&) = delete;
    HostObject& operator=(const HostObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        if (object == nullptr)
            return E_POINTER;
        *object = nullptr;
        if (iid == __uuidof(Interface) && refusesInterface())
            return E_NOINTERFACE;
        if (iid == IID_IUnknown || iid == IID_IDispatch || iid == __uuidof(Interface))
            *object = static_cast<Interface*>(this);
        else if (iid == IID_ISupportErrorInfo)
            *object = static_cast<ISupportErrorInfo*>(this);
        else
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return m_references.add(); }

    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = m_references.release(*this, [this] { return interfaceName(); });
        if (left == 0)
            delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override
    {
        return iid == __uuidof(Interface) ? S_OK : S_FALSE;
    }

    std::optional<ErrorOrigin> errorOrigin() const override
    {
        return ErrorOrigin{&__uuidof(Interface), L"Zorb." + *text::fromUtf8(interfaceName())};
    }

protected:
    explicit HostObject(std::shared_ptr<HostCore> core)
        : m_core(std::move(core)), m_references(*m_core, *this)
    {
    }
    virtual ~HostObject() = default;

    // The interface's name, which starts the object's journal name.
    virtual const char* interfaceName() const = 0;

    HostCore& core() const { return *m_core; }
    HostCore* lateBoundHost() const override { return m_core.get(); }
    HostState& state() const { return m_core->state; }
    const std::shared_ptr<HostCore>& sharedCore() const { return m_core; }

    // Starts a call of `method`, a member of the host's type library, on this object.
    Call begin(const members::Member& method, std::initializer_list<Arg> arguments = {},
               Call::WhenGone whenGone = Call::WhenGone::fails)
    {
        return Call(*m_core, *this, method.name, arguments, whenGone);
    }

    // The answer of a collection's _NewEnum (`method`): an enumeration of `collection`, this object's.
    HRESULT giveEnumeration(const members::Member& method, EnumerableCollection& collection,
                            IUnknown** enumeration)
    {
        Call call = begin(method);
        if (!call.accepts(enumeration))
            return call.status();
        return call.giveObject(enumeration, [&] {
            return newEnumeration(m_core, static_cast<Interface*>(this), *this, collection);
        });
    }

private:
    // Only the application may be refused, and only when a fault says so.
    bool refusesInterface()
    {
        if constexpr (std::is_same_v<Interface, HostApplication>) {
            if (!m_core->installed || m_core->state.faults.empty())
                return false;
            return FAILED(consultFaults(m_core->state.faults, undescribed::queryApplication.name, [this] {
                              return journalName();
                          }).failure);
        }
        else {
            return false;
        }
    }

    std::shared_ptr<HostCore> m_core;
    HostReferenceCount m_references;
};

}  // namespace sim::detail
