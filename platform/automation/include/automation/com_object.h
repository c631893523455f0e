// The IUnknown of an object made with `new` that implements interfaces of its own: a thread-safe
// count of references that starts at one and deletes the object when it falls to zero, and a
// QueryInterface that gives what `Object::interfaceFor(iid)` names (null: not implemented).
// `Object` derives from ComObject<Object, Bases...> and is final, so that the delete reaches it.
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
        *object = static_cast<Object*>(this)->interfaceFor(iid);
        if (*object == nullptr)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --m_references;
        if (left == 0)
            delete static_cast<Object*>(this);
        return left;
    }

protected:
    ComObject() = default;
    ~ComObject() = default;

private:
    std::atomic<ULONG> m_references{1};
};

}  // namespace automation
