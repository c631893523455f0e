// DispCallFunc: a call whose signature is known only at run time, made through libffi so that
// every argument lands where this compiler's calling convention puts it.
#include "automation.h"

#include <ffi.h>

#include <cstdint>
#include <vector>

namespace {

static_assert(sizeof(VARIANT) == 16 && alignof(VARIANT) == 8, "a VARIANT is two eight-byte words");

// A VARIANT by value: its type and reserved words, then eight bytes of value. Every field is an
// integer as libffi sees it, which classifies the structure as the compiler does (the value's
// union holds pointers, so its word goes in an integer register even when it holds a double).
ffi_type* variantStructure()
{
    static ffi_type* fields[] = {&ffi_type_uint16, &ffi_type_uint16, &ffi_type_uint16,
                                 &ffi_type_uint16, &ffi_type_uint64, nullptr};
    // Size and alignment given, so that libffi never fills them in (shared between threads).
    static ffi_type structure = {sizeof(VARIANT), alignof(VARIANT), FFI_TYPE_STRUCT, fields};
    return &structure;
}

bool isPointer(VARTYPE type)
{
    if ((type & (VT_BYREF | VT_ARRAY)) != 0)
        return true;
    return type == VT_BSTR || type == VT_DISPATCH || type == VT_UNKNOWN;
}

// How an argument of `type` is passed: integers of any width as 64 bits, extended by their sign,
// as the 64-bit platform passes them; null for a type that is not passed.
ffi_type* argumentType(VARTYPE type)
{
    if (isPointer(type))
        return &ffi_type_pointer;
    switch (type) {
    case VT_I1:
    case VT_I2:
    case VT_I4:
    case VT_I8:
    case VT_INT:
    case VT_BOOL:
    case VT_ERROR:
    case VT_CY:
        return &ffi_type_sint64;
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_UI8:
    case VT_UINT:
        return &ffi_type_uint64;
    case VT_R4:
        return &ffi_type_float;
    case VT_R8:
    case VT_DATE:
        return &ffi_type_double;
    case VT_VARIANT:
        return variantStructure();
    default:
        return nullptr;
    }
}

// What a function returning `type` returns, in its own width; null for a type it cannot return.
ffi_type* returnType(VARTYPE type)
{
    if (isPointer(type))
        return &ffi_type_pointer;
    switch (type) {
    case VT_EMPTY:
        return &ffi_type_void;
    case VT_I1:
        return &ffi_type_sint8;
    case VT_UI1:
        return &ffi_type_uint8;
    case VT_I2:
    case VT_BOOL:
        return &ffi_type_sint16;
    case VT_UI2:
        return &ffi_type_uint16;
    case VT_I4:
    case VT_INT:
    case VT_ERROR:
        return &ffi_type_sint32;
    case VT_UI4:
    case VT_UINT:
        return &ffi_type_uint32;
    case VT_I8:
    case VT_CY:
        return &ffi_type_sint64;
    case VT_UI8:
        return &ffi_type_uint64;
    case VT_R4:
        return &ffi_type_float;
    case VT_R8:
    case VT_DATE:
        return &ffi_type_double;
    case VT_VARIANT:
        return variantStructure();
    default:
        return nullptr;
    }
}

// One argument as libffi reads it.
union PassedValue {
    std::int64_t integer;
    std::uint64_t unsignedInteger;
    float single;
    double real;
    void* pointer;
    VARIANT variant;
};

PassedValue passedValue(VARTYPE type, const VARIANT& argument)
{
    PassedValue passed{};
    if (isPointer(type)) {
        passed.pointer = argument.byref;
        return passed;
    }
    switch (type) {
    case VT_I1:
        passed.integer = V_I1(&argument);
        break;
    case VT_I2:
        passed.integer = V_I2(&argument);
        break;
    case VT_BOOL:
        passed.integer = V_BOOL(&argument);
        break;
    case VT_I4:
        passed.integer = V_I4(&argument);
        break;
    case VT_INT:
        passed.integer = V_INT(&argument);
        break;
    case VT_ERROR:
        passed.integer = V_ERROR(&argument);
        break;
    case VT_I8:
        passed.integer = V_I8(&argument);
        break;
    case VT_CY:
        passed.integer = V_CY(&argument).int64;
        break;
    case VT_UI1:
        passed.unsignedInteger = V_UI1(&argument);
        break;
    case VT_UI2:
        passed.unsignedInteger = V_UI2(&argument);
        break;
    case VT_UI4:
        passed.unsignedInteger = V_UI4(&argument);
        break;
    case VT_UINT:
        passed.unsignedInteger = V_UINT(&argument);
        break;
    case VT_UI8:
        passed.unsignedInteger = V_UI8(&argument);
        break;
    case VT_R4:
        passed.single = V_R4(&argument);
        break;
    case VT_R8:
        passed.real = V_R8(&argument);
        break;
    case VT_DATE:
        passed.real = V_DATE(&argument);
        break;
    default:  // VT_VARIANT
        passed.variant = argument;
        break;
    }
    return passed;
}

// What libffi leaves of a return: integers narrower than a register come back widened to one.
union ReturnedValue {
    ffi_sarg integer;
    ffi_arg unsignedInteger;
    float single;
    double real;
    void* pointer;
    VARIANT variant;
};

void storeResult(VARTYPE type, const ReturnedValue& returned, VARIANT& result)
{
    if (type == VT_VARIANT) {
        result = returned.variant;
        return;
    }
    if (isPointer(type))
        result.byref = returned.pointer;
    switch (type) {
    case VT_I1:
        V_I1(&result) = static_cast<CHAR>(returned.integer);
        break;
    case VT_UI1:
        V_UI1(&result) = static_cast<BYTE>(returned.unsignedInteger);
        break;
    case VT_I2:
    case VT_BOOL:
        V_I2(&result) = static_cast<SHORT>(returned.integer);
        break;
    case VT_UI2:
        V_UI2(&result) = static_cast<USHORT>(returned.unsignedInteger);
        break;
    case VT_I4:
    case VT_ERROR:
        V_I4(&result) = static_cast<std::int32_t>(returned.integer);
        break;
    case VT_INT:
        V_INT(&result) = static_cast<INT>(returned.integer);
        break;
    case VT_UI4:
        V_UI4(&result) = static_cast<std::uint32_t>(returned.unsignedInteger);
        break;
    case VT_UINT:
        V_UINT(&result) = static_cast<UINT>(returned.unsignedInteger);
        break;
    case VT_I8:
    case VT_CY:
        V_I8(&result) = returned.integer;
        break;
    case VT_UI8:
        V_UI8(&result) = returned.unsignedInteger;
        break;
    case VT_R4:
        V_R4(&result) = returned.single;
        break;
    case VT_R8:
    case VT_DATE:
        V_R8(&result) = returned.real;
        break;
    default:
        break;
    }
    V_VT(&result) = type;
}

}  // namespace

HRESULT DispCallFunc(void* instance, ULONG_PTR vtableOffset, CALLCONV convention, VARTYPE resultType,
                     UINT count, VARTYPE* types, VARIANTARG** arguments, VARIANT* result)
{
    if (convention != CC_STDCALL && convention != CC_CDECL)
        return E_INVALIDARG;
    if (resultType == VT_HRESULT || result == nullptr ||
        (count > 0 && (types == nullptr || arguments == nullptr)))
        return E_INVALIDARG;
    void* function = reinterpret_cast<void*>(vtableOffset);
    if (instance != nullptr)
        function = (*static_cast<void***>(instance))[vtableOffset / sizeof(void*)];
    if (function == nullptr)
        return E_INVALIDARG;

    const UINT first = instance != nullptr ? 1 : 0;
    std::vector<ffi_type*> passedTypes(first + count);
    std::vector<PassedValue> values(first + count);
    std::vector<void*> valuePointers(first + count);
    if (instance != nullptr) {
        passedTypes[0] = &ffi_type_pointer;
        values[0].pointer = instance;
    }
    for (UINT i = 0; i < count; ++i) {
        if (arguments[i] == nullptr)
            return E_INVALIDARG;
        passedTypes[first + i] = argumentType(types[i]);
        if (passedTypes[first + i] == nullptr)
            return DISP_E_BADVARTYPE;
        values[first + i] = passedValue(types[i], *arguments[i]);
    }
    for (size_t i = 0; i < values.size(); ++i)
        valuePointers[i] = &values[i];

    ffi_type* returned = returnType(resultType);
    if (returned == nullptr)
        return DISP_E_BADVARTYPE;
    ffi_cif signature;
    if (ffi_prep_cif(&signature, FFI_DEFAULT_ABI, static_cast<unsigned>(passedTypes.size()), returned,
                     passedTypes.data()) != FFI_OK)
        return E_UNEXPECTED;
    ReturnedValue value{};
    ffi_call(&signature, reinterpret_cast<void (*)()>(function), &value, valuePointers.data());
    storeResult(resultType, value, *result);
    return S_OK;
}
