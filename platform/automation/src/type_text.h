// Names and texts of type libraries as callers receive and compare them.
#pragma once

#include "type_library_model.h"

#include <cwctype>

namespace automation::detail {

// A new BSTR of `text`; null for a text the library leaves out.
inline BSTR allocateText(const OptionalText& text)
{
    return text ? SysAllocStringLen(text->data(), static_cast<UINT>(text->size())) : nullptr;
}

// Names as the platform compares them: equal without regard to case.
inline bool sameName(const OptionalText& name, const wchar_t* other)
{
    if (!name || other == nullptr)
        return false;
    const wchar_t* a = name->c_str();
    for (; *a != L'\0' && *other != L'\0'; ++a, ++other) {
        if (std::towlower(static_cast<wint_t>(*a)) != std::towlower(static_cast<wint_t>(*other)))
            return false;
    }
    return *a == *other;
}

}  // namespace automation::detail
