// The IUnknown of an object that implements interfaces of its own: a thread-safe count of
// references, and a QueryInterface that gives what `Object::interfaceFor(iid)` names, or
// E_NOINTERFACE and null where it names nothing.
//
// `Object` derives from ComObject<Object, Bases...>. It may hide these steps, which the base calls
// on it (making the base a friend where they are private):
//   referenceAdded(count)    after a reference was added; `count` is the number now held
//   referenceReleased(left)  after one was let go, before the object may go
//   lastReferenceGone()      when none are left; by default deletes the object through `Object`,
//                            which is final or has a virtual destructor
// An object made without a reference for its maker passes its first count, 0, to the constructor.
#pragma once

#include "automation.h"

#include <atomic>

namespace automation {

template <class Object, class... Bases> class ComObject : public Bases... {
public:
    // Each reference is counted; a copy would start with the original's count of them.
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        if (object == nullptr)
            return E_POINTER;
        *object = self().interfaceFor(iid);
        if (*object == nullptr)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override
    {
        const ULONG count = ++m_references;
        self().referenceAdded(count);
        return count;
    }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --m_references;
        self().referenceReleased(left);
        if (left == 0)
            self().lastReferenceGone();
        return left;
    }

protected:
    explicit ComObject(ULONG references = 1) : m_references(references) {}
    ~ComObject() = default;

    ULONG referenceCount() const { return m_references; }

    void referenceAdded(ULONG) {}
    void referenceReleased(ULONG) {}
    void lastReferenceGone() { delete &self(); }

private:
    Object& self() { return static_cast<Object&>(*this); }

    std::atomic<ULONG> m_references;
};

}  // namespace automation
