// The descriptions an ITypeInfo hands out belong to it until they are given back; these hold one
// and give it back on every path.
#pragma once

#include "automation.h"

namespace typelib_import {

template <class Description, void (STDMETHODCALLTYPE ITypeInfo::*release)(Description*)>
class HeldDescription {
public:
    HeldDescription(ITypeInfo* owner, Description* description) : owner_(owner), description_(description) {}
    HeldDescription(const HeldDescription&) = delete;
    HeldDescription& operator=(const HeldDescription&) = delete;
    ~HeldDescription()
    {
        if (description_)
            (owner_->*release)(description_);
    }

    const Description* operator->() const { return description_; }
    const Description& operator*() const { return *description_; }

private:
    ITypeInfoPtr owner_;
    Description* description_;
};

using HeldTypeAttr = HeldDescription<TYPEATTR, &ITypeInfo::ReleaseTypeAttr>;
using HeldFuncDesc = HeldDescription<FUNCDESC, &ITypeInfo::ReleaseFuncDesc>;
using HeldVarDesc = HeldDescription<VARDESC, &ITypeInfo::ReleaseVarDesc>;

}  // namespace typelib_import
