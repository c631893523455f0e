// A fuzz input read as a sequence of choices, and the automation values those choices make: every
// kind of argument a late-bound caller can pass, by value or by reference. A value that names an
// object or a text takes it from what the calls before it gave.
#pragma once

#include "automation.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

namespace fuzz {

// The input's bytes, read front to back; once they run out every read gives 0, so that the last
// step of a cut input still ends in a defined way.
class Choices {
public:
    Choices(const std::uint8_t* data, std::size_t size) : m_next(data), m_end(data + size) {}

    bool exhausted() const { return m_next == m_end; }
    std::uint8_t byte() { return m_next == m_end ? 0 : *m_next++; }
    // One of `count` choices; 0 when there is none.
    std::size_t below(std::size_t count) { return count == 0 ? 0 : byte() % count; }
    // Four bytes, most significant first.
    std::int32_t word()
    {
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i)
            value = value << 8 | byte();
        return static_cast<std::int32_t>(value);
    }
    // Up to 63 characters: a byte 0x80-0x8F is a lone high surrogate, 0x90-0x9F a lone low one,
    // 0xF0-0xFF a character beyond the basic plane, and any other byte that character (0 an
    // embedded NUL).
    std::wstring text()
    {
        std::wstring text(byte() % 64, L'\0');
        for (wchar_t& character : text)
            character = characterOf(byte());
        return text;
    }

private:
    static wchar_t characterOf(std::uint8_t code)
    {
        if (code >= 0x80 && code < 0x90)
            return static_cast<wchar_t>(0xD800 + (code - 0x80) * 0x40);
        if (code >= 0x90 && code < 0xA0)
            return static_cast<wchar_t>(0xDC00 + (code - 0x90) * 0x40);
        if (code >= 0xF0)
            return static_cast<wchar_t>(0x1F600 + (code - 0xF0));
        return static_cast<wchar_t>(code);
    }

    const std::uint8_t* m_next;
    const std::uint8_t* m_end;
};

// The arguments of one call in DISPPARAMS order, and the values that those passed by reference
// point at; both are freed with it.
struct Arguments {
    // _variant_t adds nothing to VARIANT, so the vector's storage is the array DISPPARAMS takes.
    static_assert(sizeof(_variant_t) == sizeof(VARIANT));
    std::vector<_variant_t> values;
    std::deque<_variant_t> referents;  // a deque, so that their addresses stay put
};

// Makes argument values from the input's choices.
class ValueMaker {
public:
    ValueMaker(Choices& choices, const std::vector<IDispatchPtr>& objects,
               const std::vector<std::wstring>& texts)
        : m_choices(choices), m_objects(objects), m_texts(texts)
    {
    }

    // An argument for a parameter declared as `declared` (VT_VARIANT when nothing is known): one
    // byte below 0x80 makes a value such a parameter takes, any other a value of any kind, by
    // reference when its bit 0x40 is set.
    void makeArgument(VARTYPE declared, _variant_t& argument, std::deque<_variant_t>& referents)
    {
        const std::uint8_t choice = m_choices.byte();
        if (choice < 0x80)
            return make(suitedTo(declared, choice), argument, 0);
        const Kind kind = static_cast<Kind>(choice % kKinds);
        if ((choice & 0x40) == 0)
            return make(kind, argument, 0);
        _variant_t& referent = referents.emplace_back();
        make(kind, referent, 0);
        const bool typed = V_VT(&referent) != VT_EMPTY && V_VT(&referent) != VT_NULL && (choice & 0x20) == 0;
        if (typed) {
            V_VT(&argument) = static_cast<VARTYPE>(VT_BYREF | V_VT(&referent));
            V_BYREF(&argument) = &referent.llVal;  // every member of the union starts there
        }
        else {
            V_VT(&argument) = VT_BYREF | VT_VARIANT;
            V_VARIANTREF(&argument) = &referent;
        }
    }

private:
    // What a value byte above 0x7F makes (its value modulo the count of kinds), and what it reads.
    enum class Kind {
        empty,
        null,
        shortNumber,    // VT_I2 of a signed byte
        number,         // VT_I4 of a signed byte
        wideNumber,     // VT_I4 of a word
        machineNumber,  // VT_INT of a signed byte
        real,           // VT_R8 (see real())
        yesNo,          // VT_BOOL: a byte chooses -1, 0, 1 or 2
        text,           // VT_BSTR of a text
        knownText,      // VT_BSTR of a text given before (a byte chooses), else of a text
        nullText,       // VT_BSTR null
        missing,        // VT_ERROR DISP_E_PARAMNOTFOUND, a left-out optional argument
        object,         // VT_DISPATCH of a pool object (a byte chooses)
        nullObject,     // VT_DISPATCH null
        unknown,        // VT_UNKNOWN of a pool object (a byte chooses)
        variants,       // the arrays: see makeArray
        texts,
        reals,
        grid
    };
    static constexpr std::uint8_t kKinds = static_cast<std::uint8_t>(Kind::grid) + 1;

    static Kind suitedTo(VARTYPE declared, std::uint8_t choice)
    {
        switch (declared) {
        case VT_BSTR:
            return choice % 2 ? Kind::knownText : Kind::text;
        case VT_I4:
        case VT_USERDEFINED:
            return Kind::number;
        case VT_BOOL:
            return Kind::yesNo;
        default: {
            static constexpr Kind forVariants[] = {Kind::number, Kind::knownText, Kind::reals, Kind::variants,
                                                   Kind::missing};
            return forVariants[choice % std::size(forVariants)];
        }
        }
    }

    void make(Kind kind, _variant_t& value, int depth)
    {
        switch (kind) {
        case Kind::empty:
            return;
        case Kind::null:
            V_VT(&value) = VT_NULL;
            return;
        case Kind::shortNumber:
            V_VT(&value) = VT_I2;
            V_I2(&value) = static_cast<std::int8_t>(m_choices.byte());
            return;
        case Kind::number:
            V_VT(&value) = VT_I4;
            V_I4(&value) = static_cast<std::int8_t>(m_choices.byte());
            return;
        case Kind::wideNumber:
            V_VT(&value) = VT_I4;
            V_I4(&value) = m_choices.word();
            return;
        case Kind::machineNumber:
            V_VT(&value) = VT_INT;
            V_INT(&value) = static_cast<std::int8_t>(m_choices.byte());
            return;
        case Kind::real:
            V_VT(&value) = VT_R8;
            V_R8(&value) = real();
            return;
        case Kind::yesNo: {
            static constexpr VARIANT_BOOL answers[] = {VARIANT_TRUE, VARIANT_FALSE, 1, 2};
            V_VT(&value) = VT_BOOL;
            V_BOOL(&value) = answers[m_choices.below(std::size(answers))];
            return;
        }
        case Kind::text:
        case Kind::knownText:
        case Kind::nullText: {
            V_VT(&value) = VT_BSTR;
            V_BSTR(&value) = nullptr;
            if (kind != Kind::nullText)
                V_BSTR(&value) = allocated(kind == Kind::knownText && !m_texts.empty()
                                               ? m_texts[m_choices.below(m_texts.size())]
                                               : m_choices.text());
            return;
        }
        case Kind::missing:
            V_VT(&value) = VT_ERROR;
            V_ERROR(&value) = DISP_E_PARAMNOTFOUND;
            return;
        case Kind::object:
        case Kind::nullObject:
        case Kind::unknown: {
            IDispatch* object = kind == Kind::nullObject || m_objects.empty()
                                    ? nullptr
                                    : m_objects[m_choices.below(m_objects.size())].GetInterfacePtr();
            V_VT(&value) = kind == Kind::unknown ? VT_UNKNOWN : VT_DISPATCH;
            V_UNKNOWN(&value) = nullptr;
            if (object != nullptr)
                object->QueryInterface(kind == Kind::unknown ? IID_IUnknown : IID_IDispatch,
                                       reinterpret_cast<void**>(&V_UNKNOWN(&value)));
            return;
        }
        case Kind::variants:
        case Kind::texts:
        case Kind::reals:
        case Kind::grid:
            return makeArray(kind, value, depth);
        }
    }

    // A one-dimensional array of 0 to 4 elements from index 0 or 1, or a 2 by 2 grid of doubles.
    // Arrays of variants hold values of any kind, arrays among them down to two levels.
    void makeArray(Kind kind, _variant_t& value, int depth)
    {
        const std::uint8_t shape = m_choices.byte();
        const VARTYPE element = kind == Kind::variants ? VT_VARIANT : kind == Kind::texts ? VT_BSTR : VT_R8;
        SAFEARRAYBOUND bounds[2] = {{shape % 5u, (shape & 0x80) ? 1 : 0}, {2, 0}};
        if (kind == Kind::grid)
            bounds[0] = {2, 0};
        SAFEARRAY* array = SafeArrayCreate(element, kind == Kind::grid ? 2 : 1, bounds);
        if (array == nullptr)
            return;
        V_VT(&value) = static_cast<VARTYPE>(VT_ARRAY | element);
        V_ARRAY(&value) = array;
        void* data = nullptr;
        if (FAILED(SafeArrayAccessData(array, &data)))
            return;
        const ULONG count = bounds[0].cElements * (kind == Kind::grid ? 2 : 1);
        for (ULONG i = 0; i < count; ++i) {
            if (element == VT_R8) {
                static_cast<double*>(data)[i] = real();
            }
            else if (element == VT_BSTR) {
                static_cast<BSTR*>(data)[i] = allocated(m_choices.text());
            }
            else {
                _variant_t held;
                const Kind heldKind = static_cast<Kind>(m_choices.byte() % kKinds);
                const bool nested = heldKind == Kind::variants || heldKind == Kind::texts ||
                                    heldKind == Kind::reals || heldKind == Kind::grid;
                make(nested && depth >= 2 ? Kind::number : heldKind, held, depth + 1);
                static_cast<VARIANT*>(data)[i] = held.Detach();
            }
        }
        SafeArrayUnaccessData(array);
    }

    // Whole numbers around the ones that count, and the doubles that break arithmetic.
    double real()
    {
        const std::uint8_t choice = m_choices.byte();
        switch (choice % 8) {
        case 0:
            return std::numeric_limits<double>::quiet_NaN();
        case 1:
            return std::numeric_limits<double>::infinity();
        case 2:
            return -0.0;
        case 3:
            return 1e300;
        case 4:
            return 2147483648.0;
        default:
            return static_cast<std::int8_t>(choice) / 2.0;
        }
    }

    // Null when the allocation fails (an armed fault can make it), which a BSTR may be.
    static BSTR allocated(const std::wstring& text)
    {
        return SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    }

    Choices& m_choices;
    const std::vector<IDispatchPtr>& m_objects;
    const std::vector<std::wstring>& m_texts;
};

}  // namespace fuzz
