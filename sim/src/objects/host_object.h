// What every host object of the simulator is: a reference-counted automation object answering
// for IUnknown, IDispatch, its own interface and ISupportErrorInfo. Its IDispatch serves calls by
// name from the host's type library (late_binding/dispatch.h), reaching the same typed methods.
#pragma once

#include "faults/plan.h"
#include "host/host_core.h"
#include "faults/host_methods.h"
#include "calls/call.h"
#include "calls/host_references.h"
#include "late_binding/dispatch.h"
#include "model/text.h"

#include "host/members.h"
#include "host/object_model.h"

#include <memory>
#include <type_traits>

namespace sim::detail {

template <class Interface>
class HostObject
    : public CountedByHost<HostObject<Interface>, DispatchedByName<Interface>, ISupportErrorInfo> {
public:
    // Only the application's own interface may be refused, and only when a fault says so.
    void* interfaceFor(REFIID iid)
    {
        if (iid == __uuidof(Interface) && refusesInterface())
            return nullptr;
        if (iid == IID_IUnknown || iid == IID_IDispatch || iid == __uuidof(Interface))
            return static_cast<Interface*>(this);
        if (iid == IID_ISupportErrorInfo)
            return static_cast<ISupportErrorInfo*>(this);
        return nullptr;
    }

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override
    {
        return iid == __uuidof(Interface) ? S_OK : S_FALSE;
    }

    std::optional<CallSubject::ErrorOrigin> errorOrigin() const override
    {
        const std::wstring source = L"Zorb." + *text::fromUtf8(this->interfaceName());
        return CallSubject::ErrorOrigin{&__uuidof(Interface), source};
    }

protected:
    using Counted = CountedByHost<HostObject<Interface>, DispatchedByName<Interface>, ISupportErrorInfo>;
    using Counted::core;
    using Counted::sharedCore;

    explicit HostObject(std::shared_ptr<HostCore> core) : Counted(std::move(core)) {}
    virtual ~HostObject() = default;

    HostCore* lateBoundHost() const override { return &core(); }
    HostState& state() const { return core().state; }

    // Starts a call of `method`, a member of the host's type library, on this object.
    Call begin(const members::Member& method, std::initializer_list<Arg> arguments = {},
               Call::WhenGone whenGone = Call::WhenGone::fails)
    {
        return Call(core(), *this, method.name, arguments, whenGone);
    }

    // A property read that does nothing but give its result once the call accepts `output`: the
    // text or value `value()` makes, or the object it makes (none when a fault withholds one).
    template <class Output, class Value>
    HRESULT give(const members::Member& method, Output* output, Value value,
                 Call::WhenGone whenGone = Call::WhenGone::fails)
    {
        Call call = begin(method, {}, whenGone);
        if (!call.accepts(output))
            return call.status();
        if constexpr (std::is_same_v<Output, BSTR>)
            return call.giveText(output, value());
        else if constexpr (std::is_pointer_v<Output>)
            return call.giveObject(output, value);
        else
            return call.giveValue(output, static_cast<Output>(value()));
    }

private:
    friend automation::ComObject<HostObject, DispatchedByName<Interface>, ISupportErrorInfo>;  // deletes it

    bool refusesInterface()
    {
        if constexpr (std::is_same_v<Interface, HostApplication>) {
            if (!core().installed || state().faults.empty())
                return false;
            return FAILED(consultFaults(state().faults, undescribed::queryApplication.name, [this] {
                              return this->journalName();
                          }).failure);
        }
        else {
            return false;
        }
    }
};

}  // namespace sim::detail
