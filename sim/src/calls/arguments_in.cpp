#include "calls/arguments_in.h"

#include "sim/journal.h"

#include <algorithm>
#include <cmath>

namespace sim::detail {
namespace {

std::wstring typeName(VARTYPE type)
{
    return *text::fromUtf8(variantTypeName(type));
}
std::wstring typeName(const VARIANT& value)
{
    return typeName(V_VT(&value));
}

bool strict(const Call& call)
{
    return call.state().behaviour.strictArguments && !call.lateBound();
}

// The argument as the host reads it: what a reference points at (scripts pass their variables
// so). A strict host judges the variant as it crossed.
class Passed {
public:
    Passed(const Call& call, const VARIANT& given) : m_value(&given)
    {
        if (!strict(call) && (V_VT(&given) & VT_BYREF) &&
            SUCCEEDED(VariantCopyInd(&m_referred, const_cast<VARIANT*>(&given))))
            m_value = &m_referred;
    }
    const VARIANT& operator*() const { return *m_value; }

private:
    _variant_t m_referred;
    const VARIANT* m_value;
};

std::optional<long long> wholeNumber(const VARIANT& value)
{
    switch (V_VT(&value)) {
    case VT_I2:
        return V_I2(&value);
    case VT_I4:
        return V_I4(&value);
    case VT_INT:
        return V_INT(&value);
    default:
        return std::nullopt;
    }
}

// A whole number of the documented type, or of any whole-number type for a forgiving host.
std::optional<long long> position(const Call& call, const VARIANT& value, VARTYPE positionType)
{
    if (strict(call) && V_VT(&value) != positionType)
        return std::nullopt;
    return wholeNumber(value);
}

// The elements of a one-dimensional safe array of `type`, copied out, with its lower bound; null
// when it is not one.
template <class Element> struct ArrayContents {
    std::vector<Element> elements;
    LONG lowerBound = 0;
};

template <class Element> std::optional<ArrayContents<Element>> contentsOf(const VARIANT& value, VARTYPE type)
{
    if (V_VT(&value) != (VT_ARRAY | type) || V_ARRAY(&value) == nullptr ||
        SafeArrayGetDim(V_ARRAY(&value)) != 1)
        return std::nullopt;
    SAFEARRAY* array = V_ARRAY(&value);
    LONG lower = 0;
    LONG upper = -1;
    if (FAILED(SafeArrayGetLBound(array, 1, &lower)) || FAILED(SafeArrayGetUBound(array, 1, &upper)))
        return std::nullopt;
    void* data = nullptr;
    if (FAILED(SafeArrayAccessData(array, &data)))
        return std::nullopt;
    ArrayContents<Element> contents;
    contents.elements.assign(static_cast<const Element*>(data),
                             static_cast<const Element*>(data) + (upper - lower + 1));
    contents.lowerBound = lower;
    SafeArrayUnaccessData(array);
    return contents;
}

// The elements of a one-dimensional array of variants, each converted to `type` and read out;
// null when it is not one or an element does not convert. Scripts can build no other arrays, so a
// forgiving host takes these where an array of `type` is documented.
template <class Element, class Read>
std::optional<ArrayContents<Element>> convertedContentsOf(const VARIANT& value, VARTYPE type, Read read)
{
    const auto variants = contentsOf<VARIANT>(value, VT_VARIANT);
    if (!variants)
        return std::nullopt;
    ArrayContents<Element> contents;
    contents.lowerBound = variants->lowerBound;
    for (VARIANT element : variants->elements) {
        _variant_t converted;
        if (FAILED(VariantChangeType(&converted, &element, 0, type)))
            return std::nullopt;
        contents.elements.push_back(read(converted));
    }
    return contents;
}

// A strict host reads arrays from index 0, as its interface documents them.
template <class Element>
bool refusesLowerBound(Call& call, const ArrayContents<Element>& contents, const std::wstring& what)
{
    if (!strict(call) || contents.lowerBound == 0)
        return false;
    call.fail(E_INVALIDARG,
              L"the " + what + L" starts at index 0, not " + std::to_wstring(contents.lowerBound));
    return true;
}

std::wstring wholeNumberTypes(const Call& call, VARTYPE positionType)
{
    return strict(call) ? typeName(positionType) : L"VT_I2, VT_I4, VT_INT";
}

bool isYesNoValue(long long value)
{
    return value == VARIANT_TRUE || value == VARIANT_FALSE;
}

}  // namespace

CollectionIndex readCollectionIndex(const Call& call, const VARIANT& crossed, VARTYPE positionType)
{
    const Passed passed(call, crossed);
    const VARIANT& index = *passed;
    CollectionIndex read;
    if (const auto number = position(call, index, positionType)) {
        read.kind = CollectionIndex::Kind::position;
        read.position = *number;
    }
    else if (V_VT(&index) == VT_BSTR) {
        read.kind = CollectionIndex::Kind::name;
        read.name = text::fromBstr(V_BSTR(&index));
    }
    return read;
}

HRESULT refuseIndex(Call& call, const CollectionIndex& index, const VARIANT& given, VARTYPE positionType,
                    const std::wstring& what)
{
    switch (index.kind) {
    case CollectionIndex::Kind::position:
        return call.fail(DISP_E_BADINDEX, L"no " + what + L" at index " + std::to_wstring(index.position));
    case CollectionIndex::Kind::name:
        return call.fail(DISP_E_BADINDEX, L"no " + what + L" named '" + index.name + L"'");
    case CollectionIndex::Kind::unusable:
        break;
    }
    return call.fail(DISP_E_TYPEMISMATCH, L"a " + what + L" index is a whole number (" +
                                              wholeNumberTypes(call, positionType) +
                                              L") or a name (VT_BSTR), not " + typeName(given));
}

bool findInsertion(Call& call, const VARIANT& crossed, VARTYPE positionType, size_t count, BeyondEnd beyond,
                   const std::wstring& what, size_t& at)
{
    const Passed passed(call, crossed);
    const VARIANT& given = *passed;
    const auto number = position(call, given, positionType);
    if (!number) {
        call.fail(DISP_E_TYPEMISMATCH, L"the index to add a " + what + L" at is a whole number (" +
                                           wholeNumberTypes(call, positionType) + L"), not " +
                                           typeName(given));
        return false;
    }
    const long long last = static_cast<long long>(count);
    if (*number < 0 || (*number > last && beyond == BeyondEnd::refuse)) {
        call.fail(E_INVALIDARG, L"cannot add a " + what + L" at index " + std::to_wstring(*number) +
                                    L": indexes 0 to " + std::to_wstring(count) + L" are possible");
        return false;
    }
    at = static_cast<size_t>(std::min(*number, last));
    return true;
}

bool readPoint(Call& call, const VARIANT& crossed, const std::wstring& which, double& x, double& y)
{
    const Passed passed(call, crossed);
    const VARIANT& given = *passed;
    auto coordinates = contentsOf<double>(given, VT_R8);
    if (!coordinates && !strict(call))
        coordinates =
            convertedContentsOf<double>(given, VT_R8, [](const VARIANT& number) { return V_R8(&number); });
    if (!coordinates) {
        call.fail(DISP_E_TYPEMISMATCH, L"the " + which +
                                           L" is a one-dimensional array of doubles (VT_ARRAY|VT_R8), not " +
                                           typeName(given));
        return false;
    }
    if (refusesLowerBound(call, *coordinates, which))
        return false;
    if (coordinates->elements.size() != 2) {
        call.fail(E_INVALIDARG, L"the " + which + L" has 2 coordinates, not " +
                                    std::to_wstring(coordinates->elements.size()));
        return false;
    }
    // No drawing has a point at infinity or not a number, nor could a saved state hold one.
    if (!std::isfinite(coordinates->elements[0]) || !std::isfinite(coordinates->elements[1])) {
        call.fail(E_INVALIDARG, L"the " + which + L" has a coordinate that is not a finite number");
        return false;
    }
    x = coordinates->elements[0];
    y = coordinates->elements[1];
    return true;
}

bool isMissing(const Call& call, const VARIANT& crossed)
{
    const Passed passed(call, crossed);
    const VARIANT& given = *passed;
    if (V_VT(&given) == VT_ERROR && V_ERROR(&given) == DISP_E_PARAMNOTFOUND)
        return true;
    return V_VT(&given) == VT_EMPTY && !strict(call);
}

bool readOptionalYesNo(Call& call, const VARIANT& crossed, VARTYPE flagType, const std::wstring& what,
                       bool& value)
{
    const Passed passed(call, crossed);
    const VARIANT& given = *passed;
    if (isMissing(call, given))
        return true;
    if (strict(call)) {
        const bool documented = V_VT(&given) == flagType;
        if (!documented) {
            call.fail(DISP_E_TYPEMISMATCH, L"the " + what + L" is a yes/no value (" + typeName(flagType) +
                                               L"), not " + typeName(given));
            return false;
        }
        const long long number = flagType == VT_BOOL ? V_BOOL(&given) : *wholeNumber(given);
        if (!isYesNoValue(number)) {
            call.fail(E_INVALIDARG,
                      L"the " + what + L" is -1 (yes) or 0 (no), not " + std::to_wstring(number));
            return false;
        }
        value = number != 0;
        return true;
    }
    if (V_VT(&given) == VT_BOOL) {
        value = V_BOOL(&given) != VARIANT_FALSE;
        return true;
    }
    if (const auto number = wholeNumber(given)) {
        value = *number != 0;
        return true;
    }
    call.fail(DISP_E_TYPEMISMATCH,
              L"the " + what + L" is a yes/no value (VT_BOOL, VT_I2, VT_I4, VT_INT), not " + typeName(given));
    return false;
}

bool readFlag(Call& call, VARIANT_BOOL given, const std::wstring& what, bool& value)
{
    if (strict(call) && !isYesNoValue(given)) {
        call.fail(E_INVALIDARG, L"the " + what + L" is -1 (yes) or 0 (no), not " + std::to_wstring(given));
        return false;
    }
    value = given != VARIANT_FALSE;
    return true;
}

bool readOptionalText(Call& call, const VARIANT& given, const std::wstring& what, std::wstring& value)
{
    return isMissing(call, given) || readText(call, given, what, value);
}

bool readText(Call& call, const VARIANT& crossed, const std::wstring& what, std::wstring& value)
{
    const Passed passed(call, crossed);
    const VARIANT& given = *passed;
    if (V_VT(&given) != VT_BSTR) {
        call.fail(DISP_E_TYPEMISMATCH, L"the " + what + L" is a text (VT_BSTR), not " + typeName(given));
        return false;
    }
    value = text::fromBstr(V_BSTR(&given));
    return true;
}

bool readTexts(Call& call, const VARIANT& crossed, const std::wstring& what,
               std::vector<std::wstring>& values)
{
    const Passed passed(call, crossed);
    const VARIANT& given = *passed;
    std::optional<ArrayContents<std::wstring>> texts;
    if (const auto strings = contentsOf<BSTR>(given, VT_BSTR)) {
        texts.emplace();
        texts->lowerBound = strings->lowerBound;
        for (BSTR element : strings->elements)
            texts->elements.push_back(text::fromBstr(element));
    }
    else if (!strict(call)) {
        texts = convertedContentsOf<std::wstring>(
            given, VT_BSTR, [](const VARIANT& text) { return text::fromBstr(V_BSTR(&text)); });
    }
    if (!texts) {
        call.fail(DISP_E_TYPEMISMATCH, L"the " + what +
                                           L" is a one-dimensional array of texts (VT_ARRAY|VT_BSTR), not " +
                                           typeName(given));
        return false;
    }
    if (refusesLowerBound(call, *texts, what))
        return false;
    values = std::move(texts->elements);
    return true;
}

}  // namespace sim::detail
