// A type library as read from its file: every type with its members, names, documentation and
// references, owning what the descriptions handed to callers point into (TYPEDESC chains, array
// bounds). Immutable once read, so that every type information object shares it.
#pragma once

#include "automation.h"

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace automation::detail {

// A text the file may leave out: absent texts come back as null BSTRs, not empty ones.
using OptionalText = std::optional<std::wstring>;

struct CustomDatum {
    GUID guid;
    _variant_t value;
};
using CustomData = std::vector<CustomDatum>;

struct ParameterModel {
    OptionalText name;
    TYPEDESC type{};
    USHORT flags = 0;
    std::optional<_variant_t> defaultValue;  // with PARAMFLAG_FHASDEFAULT
    CustomData custom;
};

struct FunctionModel {
    MEMBERID id = MEMBERID_NIL;
    OptionalText name;
    OptionalText helpString;
    DWORD helpContext = 0;
    DWORD helpStringContext = 0;
    FUNCKIND kind = FUNC_PUREVIRTUAL;
    INVOKEKIND invokeKind = INVOKE_FUNC;
    CALLCONV callingConvention = CC_STDCALL;
    SHORT vtableOffset = 0;
    SHORT optionalCount = 0;
    WORD flags = 0;
    TYPEDESC result{};
    // A module's function: the entry point's name, or else its ordinal.
    OptionalText entryName;
    WORD entryOrdinal = 0;
    std::vector<ParameterModel> parameters;
    CustomData custom;
};

struct VariableModel {
    MEMBERID id = MEMBERID_NIL;
    OptionalText name;
    OptionalText helpString;
    DWORD helpContext = 0;
    DWORD helpStringContext = 0;
    VARKIND kind = VAR_PERINSTANCE;
    WORD flags = 0;
    TYPEDESC type{};
    ULONG instanceOffset = 0;  // all but VAR_CONST
    _variant_t value;          // VAR_CONST
    CustomData custom;
};

struct ImplementedModel {
    HREFTYPE reference = 0;
    INT flags = 0;
    CustomData custom;
};

struct TypeModel {
    GUID guid{};
    OptionalText name;
    OptionalText docString;
    DWORD helpContext = 0;
    DWORD helpStringContext = 0;
    HREFTYPE reference = 0;  // how the library's own references name this type
    TYPEKIND kind = TKIND_ENUM;
    WORD flags = 0;
    WORD majorVersion = 0;
    WORD minorVersion = 0;
    ULONG instanceSize = 0;
    WORD alignment = 0;
    WORD vtableSize = 0;
    TYPEDESC alias{};  // TKIND_ALIAS
    OptionalText dllName;  // TKIND_MODULE
    std::vector<FunctionModel> functions;
    std::vector<VariableModel> variables;
    std::vector<ImplementedModel> implemented;
    CustomData custom;
};

// A library this one imports types from.
struct ImportedLibraryModel {
    GUID guid{};
    std::wstring fileName;
    LCID locale = 0;
    WORD majorVersion = 0;
    WORD minorVersion = 0;
};

// One imported type: found in its library by GUID, or else by index.
struct ImportedTypeModel {
    HREFTYPE reference = 0;
    size_t library = 0;  // into LibraryModel::imports
    std::optional<GUID> guid;
    UINT index = 0;
};

struct LibraryModel {
    GUID guid{};
    OptionalText name;
    OptionalText docString;
    OptionalText helpFile;
    OptionalText helpStringDll;
    DWORD helpContext = 0;
    DWORD helpStringContext = 0;
    LCID locale = 0;
    LCID typeLocale = 0;  // what the types' attributes and the library's attributes give
    SYSKIND system = SYS_WIN32;
    WORD majorVersion = 0;
    WORD minorVersion = 0;
    WORD flags = 0;
    HREFTYPE dispatchReference = static_cast<HREFTYPE>(-1);  // IDispatch, where every dispinterface derives from
    std::wstring path;  // the file read; imports are looked for beside it
    std::vector<TypeModel> types;
    std::vector<ImportedLibraryModel> imports;
    std::vector<ImportedTypeModel> importedTypes;
    CustomData custom;

    // What TYPEDESCs point at: never moved once read.
    std::deque<TYPEDESC> typeNodes;
    std::deque<std::unique_ptr<unsigned char[]>> arrayNodes;
};

// The standard library's GUID, whose IUnknown and IDispatch the runtime describes itself.
inline constexpr GUID kStandardLibraryGuid = {0x00020430, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

}  // namespace automation::detail
