#include "type_library_reader.h"

#include <cstring>
#include <limits>
#include <map>

namespace automation::detail {
namespace {

const std::int32_t kSignature = 0x5446534D;  // "MSFT"
const std::size_t kHeaderSize = 0x54;
const std::size_t kTypeRecordSize = 0x64;
const std::int32_t kHelpDllFlag = 0x100;
const std::int32_t kSegmentMarker = 0x0F;
const std::size_t kParameterRecordSize = 12;

// Function records: bits of the kind word.
const std::int32_t kHasCustomData = 0x80;
const std::int32_t kHasDefaults = 0x1000;
const std::int32_t kEntryIsOrdinal = 0x2000;

// The file's segments, in the order of its directory.
enum Segment {
    kTypeInfoTable,
    kImportInfo,
    kImportFiles,
    kReferenceTable,
    kGuidHashTable,
    kGuidTable,
    kNameHashTable,
    kNameTable,
    kStringTable,
    kTypeDescTable,
    kArrayDescriptions,
    kCustomDataTable,
    kCustomDataGuids,
    kSegmentCount = 15
};

struct Malformed {};

// Little-endian reads that stay inside the file: any read past its end makes it malformed.
class Bytes {
public:
    Bytes(const unsigned char* data, std::size_t size) : m_data(data), m_size(size) {}

    void require(std::int64_t offset, std::int64_t length) const
    {
        if (offset < 0 || length < 0 || static_cast<std::uint64_t>(offset) > m_size ||
            static_cast<std::uint64_t>(length) > m_size - static_cast<std::uint64_t>(offset))
            throw Malformed{};
    }
    std::int32_t int32(std::int64_t offset) const
    {
        require(offset, 4);
        const unsigned char* p = m_data + offset;
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(p[0]) | static_cast<std::uint32_t>(p[1]) << 8 |
                                         static_cast<std::uint32_t>(p[2]) << 16 |
                                         static_cast<std::uint32_t>(p[3]) << 24);
    }
    std::int16_t int16(std::int64_t offset) const
    {
        require(offset, 2);
        const unsigned char* p = m_data + offset;
        return static_cast<std::int16_t>(static_cast<std::uint16_t>(p[0] | p[1] << 8));
    }
    std::uint16_t uint16(std::int64_t offset) const { return static_cast<std::uint16_t>(int16(offset)); }
    std::int64_t int64(std::int64_t offset) const
    {
        return static_cast<std::int64_t>(static_cast<std::uint64_t>(static_cast<std::uint32_t>(int32(offset))) |
                                         static_cast<std::uint64_t>(static_cast<std::uint32_t>(int32(offset + 4)))
                                             << 32);
    }
    // Single-byte text as the platform's ANSI code page reads it (its ASCII part is all names use).
    std::wstring text(std::int64_t offset, std::int64_t length) const
    {
        require(offset, length);
        std::wstring text;
        for (std::int64_t i = 0; i < length; ++i)
            text.push_back(static_cast<wchar_t>(m_data[offset + i]));
        return text;
    }
    GUID guid(std::int64_t offset) const
    {
        GUID guid{};
        guid.Data1 = static_cast<std::uint32_t>(int32(offset));
        guid.Data2 = uint16(offset + 4);
        guid.Data3 = uint16(offset + 6);
        require(offset + 8, 8);
        std::memcpy(guid.Data4, m_data + offset + 8, 8);
        return guid;
    }

private:
    const unsigned char* m_data;
    std::size_t m_size;
};

struct SegmentPlace {
    std::int32_t offset;
    std::int32_t length;

    bool present() const { return offset >= 0 && length > 0; }
};

class Reader {
public:
    Reader(const Bytes& bytes, LibraryModel& library) : m_bytes(bytes), m_library(library) {}

    void read()
    {
        if (m_bytes.int32(0) != kSignature)
            throw Malformed{};
        m_bytes.require(0, kHeaderSize);
        const std::int32_t typeCount = header(0x20);
        const std::int32_t systemFlags = header(0x14);
        if (typeCount < 0 || typeCount > 0xFFFF)
            throw Malformed{};
        const std::int64_t directory =
            kHeaderSize + (systemFlags & kHelpDllFlag ? 4 : 0) + static_cast<std::int64_t>(typeCount) * 4;
        for (int s = 0; s < kSegmentCount; ++s) {
            const std::int64_t entry = directory + s * 16;
            m_segments[s] = {m_bytes.int32(entry), m_bytes.int32(entry + 4)};
            if (m_segments[s].present())
                m_bytes.require(m_segments[s].offset, m_segments[s].length);
        }
        if (m_bytes.int32(directory + kTypeInfoTable * 16 + 12) != kSegmentMarker ||
            m_bytes.int32(directory + kImportInfo * 16 + 12) != kSegmentMarker)
            throw Malformed{};

        readLibraryAttributes(systemFlags);
        readTypeDescriptions();
        readImports();
        for (std::int32_t t = 0; t < typeCount; ++t)
            m_library.types.push_back(readType(t));
    }

private:
    std::int32_t header(std::int64_t offset) const { return m_bytes.int32(offset); }

    void readLibraryAttributes(std::int32_t systemFlags)
    {
        m_library.guid = guidAt(header(0x08));
        m_library.locale = static_cast<LCID>(header(0x0C));
        m_library.typeLocale = static_cast<LCID>(header(0x10));
        if ((systemFlags & 0x0F) > SYS_WIN64)
            throw Malformed{};
        m_library.system = static_cast<SYSKIND>(systemFlags & 0x0F);
        m_library.majorVersion = static_cast<WORD>(header(0x18) & 0xFFFF);
        m_library.minorVersion = static_cast<WORD>((header(0x18) >> 16) & 0xFFFF);
        m_library.flags = static_cast<WORD>((header(0x1C) & 0xFFFF) | LIBFLAG_FHASDISKIMAGE);
        m_library.docString = stringAt(header(0x24));
        m_library.helpStringContext = static_cast<DWORD>(header(0x28));
        m_library.helpContext = static_cast<DWORD>(header(0x2C));
        m_library.name = nameAt(header(0x38));
        m_library.helpFile = stringAt(header(0x3C));
        if (systemFlags & kHelpDllFlag)
            m_library.helpStringDll = stringAt(header(kHeaderSize));
        m_library.custom = customDataAt(header(0x40));
        m_library.dispatchReference = static_cast<HREFTYPE>(static_cast<std::uint32_t>(header(0x4C)));
    }

    // The offset of `offset` into segment `s`, checked to leave room for `length` bytes.
    std::int64_t inSegment(Segment s, std::int64_t offset, std::int64_t length) const
    {
        const SegmentPlace& place = m_segments[s];
        if (!place.present() || offset < 0 || length < 0 || offset + length > place.length)
            throw Malformed{};
        return place.offset + offset;
    }

    GUID guidAt(std::int32_t offset) const
    {
        if (offset < 0)
            return GUID_NULL;
        return m_bytes.guid(inSegment(kGuidTable, offset, 16));
    }

    OptionalText nameAt(std::int32_t offset) const
    {
        if (offset < 0)
            return std::nullopt;
        const std::int64_t at = inSegment(kNameTable, offset, 12);
        const std::int32_t length = m_bytes.int32(at + 8) & 0xFF;
        return m_bytes.text(inSegment(kNameTable, offset + 12, length), length);
    }

    HREFTYPE nameReference(std::int32_t offset) const
    {
        if (offset < 0)
            return static_cast<HREFTYPE>(-1);
        return static_cast<HREFTYPE>(static_cast<std::uint32_t>(m_bytes.int32(inSegment(kNameTable, offset, 4))));
    }

    OptionalText stringAt(std::int32_t offset) const
    {
        if (offset < 0)
            return std::nullopt;
        const std::int64_t at = inSegment(kStringTable, offset, 2);
        const std::int32_t length = m_bytes.uint16(at);
        return m_bytes.text(inSegment(kStringTable, offset + 2, length), length);
    }

    // A value of a constant, a default or custom data: packed into the offset itself when that is
    // negative, else a variant type and its value in the custom data segment.
    _variant_t valueAt(std::int32_t offset) const
    {
        _variant_t value;
        VARIANT& raw = value.GetVARIANT();
        if (offset < 0) {
            const VARTYPE packed = static_cast<VARTYPE>((offset & 0x7C000000) >> 26);
            if (!isPlainValueType(packed))
                return value;  // nothing this runtime could hold: left empty
            V_VT(&raw) = packed;
            V_I4(&raw) = offset & 0x3FFFFFF;
            return value;
        }
        const std::int64_t at = inSegment(kCustomDataTable, offset, 2);
        const VARTYPE type = m_bytes.uint16(at);
        switch (type) {
        case VT_BSTR: {
            const std::int32_t length = m_bytes.int32(inSegment(kCustomDataTable, offset + 2, 4));
            if (length < 0) {
                V_VT(&raw) = VT_BSTR;
                V_BSTR(&raw) = nullptr;
                return value;
            }
            const std::wstring text = m_bytes.text(inSegment(kCustomDataTable, offset + 6, length), length);
            value = _bstr_t(text.c_str());
            return value;
        }
        case VT_R8:
        case VT_CY:
        case VT_DATE:
        case VT_I8:
        case VT_UI8: {
            const std::int64_t bits = m_bytes.int64(inSegment(kCustomDataTable, offset + 2, 8));
            V_VT(&raw) = type;
            std::memcpy(&V_I8(&raw), &bits, sizeof bits);
            return value;
        }
        default:
            if (!isPlainValueType(type))
                return value;  // nothing this runtime could hold: left empty
            V_VT(&raw) = type;
            V_I4(&raw) = m_bytes.int32(inSegment(kCustomDataTable, offset + 2, 4));
            return value;
        }
    }

    // Types whose value fits in four bytes and owns nothing.
    static bool isPlainValueType(VARTYPE type)
    {
        switch (type) {
        case VT_EMPTY:
        case VT_NULL:
        case VT_I2:
        case VT_I4:
        case VT_R4:
        case VT_ERROR:
        case VT_BOOL:
        case VT_I1:
        case VT_UI1:
        case VT_UI2:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
            return true;
        default:
            return false;
        }
    }

    // A chain of custom data entries, gathered last first as the platform lists them.
    CustomData customDataAt(std::int32_t offset) const
    {
        CustomData data;
        if (!m_segments[kCustomDataGuids].present())
            return data;
        const std::int32_t limit = m_segments[kCustomDataGuids].length / 12;
        while (offset >= 0) {
            if (static_cast<std::int32_t>(data.size()) >= limit)
                throw Malformed{};  // a chain that comes round again
            const std::int64_t at = inSegment(kCustomDataGuids, offset, 12);
            data.insert(data.begin(), CustomDatum{guidAt(m_bytes.int32(at)), valueAt(m_bytes.int32(at + 4))});
            offset = m_bytes.int32(at + 8);
        }
        return data;
    }

    // The type-description table: every entry a TYPEDESC node, pointing at others by offset.
    void readTypeDescriptions()
    {
        const SegmentPlace& table = m_segments[kTypeDescTable];
        if (!table.present())
            return;
        const std::int32_t count = table.length / 8;
        for (std::int32_t i = 0; i < count; ++i)
            m_library.typeNodes.emplace_back();
        m_tableNodes = count;
        for (std::int32_t i = 0; i < count; ++i) {
            const std::int64_t at = table.offset + static_cast<std::int64_t>(i) * 8;
            const std::int16_t kind = m_bytes.int16(at);
            const std::int16_t low = m_bytes.int16(at + 4);
            const std::int16_t high = m_bytes.int16(at + 6);
            TYPEDESC& node = m_library.typeNodes[static_cast<size_t>(i)];
            node.vt = static_cast<VARTYPE>(kind & VT_TYPEMASK);
            if (node.vt == VT_PTR || node.vt == VT_SAFEARRAY) {
                node.lptdesc = high < 0 ? standardNode(static_cast<VARTYPE>(low & VT_TYPEMASK)) : tableNode(low);
            } else if (node.vt == VT_USERDEFINED) {
                node.hreftype = static_cast<HREFTYPE>(static_cast<std::uint16_t>(low) |
                                                      static_cast<std::uint32_t>(static_cast<std::uint16_t>(high)) << 16);
            }
        }
        // Arrays second, since their element type may be any entry of the table.
        for (std::int32_t i = 0; i < count; ++i) {
            const std::int64_t at = table.offset + static_cast<std::int64_t>(i) * 8;
            if (m_library.typeNodes[static_cast<size_t>(i)].vt == VT_CARRAY)
                m_library.typeNodes[static_cast<size_t>(i)].lpadesc = readArray(m_bytes.uint16(at + 4));
        }
        for (std::int32_t i = 0; i < count; ++i)
            requireEnds(m_library.typeNodes[static_cast<size_t>(i)]);
    }

    TYPEDESC* standardNode(VARTYPE type)
    {
        TYPEDESC& node = m_library.typeNodes.emplace_back();
        node.vt = standardType(type);
        return &node;
    }

    // A type given by its VARTYPE alone cannot be one that points at another.
    static VARTYPE standardType(VARTYPE type)
    {
        if (type == VT_PTR || type == VT_SAFEARRAY || type == VT_CARRAY)
            throw Malformed{};
        return type;
    }

    TYPEDESC* tableNode(std::int32_t offset)
    {
        const std::int32_t index = offset / 8;
        if (offset < 0 || index >= m_tableNodes)
            throw Malformed{};
        return &m_library.typeNodes[static_cast<size_t>(index)];
    }

    ARRAYDESC* readArray(std::int32_t offset)
    {
        const std::int64_t at = inSegment(kArrayDescriptions, offset, 8);
        const std::int16_t element = m_bytes.int16(at);
        const std::int16_t elementIsStandard = m_bytes.int16(at + 2);
        const std::int16_t dimensions = m_bytes.int16(at + 4);
        if (dimensions < 1)
            throw Malformed{};
        inSegment(kArrayDescriptions, offset + 8, static_cast<std::int64_t>(dimensions) * 8);
        const std::size_t bytes = sizeof(ARRAYDESC) + sizeof(SAFEARRAYBOUND) * static_cast<std::size_t>(dimensions - 1);
        auto& storage = m_library.arrayNodes.emplace_back(new unsigned char[bytes]());
        auto* array = new (storage.get()) ARRAYDESC{};
        if (elementIsStandard < 0)
            array->tdescElem.vt = standardType(static_cast<VARTYPE>(element & VT_TYPEMASK));
        else
            array->tdescElem = *tableNode(element);
        array->cDims = static_cast<USHORT>(dimensions);
        for (std::int16_t d = 0; d < dimensions; ++d) {
            array->rgbounds[d].cElements = static_cast<ULONG>(static_cast<std::uint32_t>(m_bytes.int32(at + 8 + d * 8)));
            array->rgbounds[d].lLbound = m_bytes.int32(at + 12 + d * 8);
        }
        return array;
    }

    // A chain of pointers and arrays must end within the table, every link there; one that comes
    // round again is malformed.
    void requireEnds(const TYPEDESC& start) const
    {
        const TYPEDESC* node = &start;
        for (size_t steps = 0;; ++steps) {
            if (steps > 2 * m_library.typeNodes.size() + 2)
                throw Malformed{};
            if (node->vt == VT_PTR || node->vt == VT_SAFEARRAY) {
                if (node->lptdesc == nullptr)
                    throw Malformed{};
                node = node->lptdesc;
            } else if (node->vt == VT_CARRAY) {
                if (node->lpadesc == nullptr)
                    throw Malformed{};
                node = &node->lpadesc->tdescElem;
            } else {
                return;
            }
        }
    }

    // A type as records give it: a standard type packed into a negative number, else an offset
    // into the type-description table.
    TYPEDESC typeOf(std::int32_t encoded)
    {
        if (encoded < 0) {
            TYPEDESC type{};
            type.vt = standardType(static_cast<VARTYPE>(encoded & VT_TYPEMASK));
            return type;
        }
        return *tableNode(encoded);
    }

    void readImports()
    {
        std::map<std::int32_t, size_t> libraryAt;
        const SegmentPlace& files = m_segments[kImportFiles];
        if (files.present()) {
            std::int32_t offset = 0;
            while (offset < files.length) {
                const std::int64_t at = inSegment(kImportFiles, offset, 14);
                ImportedLibraryModel imported;
                imported.guid = guidAt(m_bytes.int32(at));
                imported.locale = static_cast<LCID>(m_bytes.int32(at + 4));
                imported.majorVersion = m_bytes.uint16(at + 8);
                imported.minorVersion = m_bytes.uint16(at + 10);
                const std::int32_t length = m_bytes.uint16(at + 12) >> 2;
                imported.fileName = m_bytes.text(inSegment(kImportFiles, offset + 14, length), length);
                libraryAt[offset] = m_library.imports.size();
                m_library.imports.push_back(imported);
                offset = (offset + 14 + length + 3) & ~3;
            }
        }
        const SegmentPlace& types = m_segments[kImportInfo];
        if (!types.present())
            return;
        for (std::int32_t offset = 0; offset + 12 <= types.length; offset += 12) {
            const std::int64_t at = types.offset + offset;
            const std::int32_t flags = m_bytes.int32(at);
            const auto library = libraryAt.find(m_bytes.int32(at + 4));
            if (library == libraryAt.end())
                continue;  // a reference to nothing: resolving it fails
            ImportedTypeModel imported;
            imported.reference = static_cast<HREFTYPE>(offset);
            imported.library = library->second;
            if (flags & 0x10000)
                imported.guid = guidAt(m_bytes.int32(at + 8));
            else
                imported.index = static_cast<UINT>(m_bytes.int32(at + 8));
            m_library.importedTypes.push_back(imported);
        }
    }

    TypeModel readType(std::int32_t index)
    {
        const std::int64_t at = inSegment(kTypeInfoTable, static_cast<std::int64_t>(index) * kTypeRecordSize,
                                          kTypeRecordSize);
        auto field = [&](int n) { return m_bytes.int32(at + n * 4); };
        TypeModel type;
        const std::int32_t kind = field(0);
        type.kind = static_cast<TYPEKIND>(kind & 0xF);
        if (type.kind >= TKIND_MAX)
            throw Malformed{};
        type.alignment = static_cast<WORD>((kind >> 11) & 0x1F);
        type.guid = guidAt(field(11));
        type.flags = static_cast<WORD>(field(12));
        type.name = nameAt(field(13));
        type.reference = nameReference(field(13));
        type.majorVersion = static_cast<WORD>(field(14) & 0xFFFF);
        type.minorVersion = static_cast<WORD>((field(14) >> 16) & 0xFFFF);
        type.docString = stringAt(field(15));
        type.helpStringContext = static_cast<DWORD>(field(16));
        type.helpContext = static_cast<DWORD>(field(17));
        type.custom = customDataAt(field(18));
        const WORD implementedCount = m_bytes.uint16(at + 76);
        type.vtableSize = m_bytes.uint16(at + 78);
        type.instanceSize = static_cast<ULONG>(static_cast<std::uint32_t>(field(20)));
        const std::int32_t datatype = field(21);
        if (type.kind == TKIND_ALIAS)
            type.alias = typeOf(datatype);
        if (type.kind == TKIND_MODULE)
            type.dllName = stringAt(datatype);

        const std::int32_t elements = field(6);
        const std::int32_t functionCount = elements & 0xFFFF;
        const std::int32_t variableCount = (elements >> 16) & 0xFFFF;
        if (functionCount > 0 || variableCount > 0)
            readMembers(field(1), functionCount, variableCount, type);
        readImplemented(type, implementedCount, datatype);
        return type;
    }

    void readImplemented(TypeModel& type, WORD count, std::int32_t datatype)
    {
        if (count == 0)
            return;
        if (type.kind == TKIND_COCLASS) {
            std::int32_t offset = datatype;
            for (WORD i = 0; i < count && offset >= 0; ++i) {
                const std::int64_t at = inSegment(kReferenceTable, offset, 16);
                ImplementedModel implemented;
                implemented.reference = static_cast<HREFTYPE>(static_cast<std::uint32_t>(m_bytes.int32(at)));
                implemented.flags = m_bytes.int32(at + 4);
                implemented.custom = customDataAt(m_bytes.int32(at + 8));
                type.implemented.push_back(implemented);
                offset = m_bytes.int32(at + 12);
            }
            return;
        }
        // A dispinterface that wraps no interface of its own says so with -1.
        if (type.kind == TKIND_DISPATCH && datatype == -1)
            return;
        ImplementedModel implemented;
        implemented.reference = static_cast<HREFTYPE>(static_cast<std::uint32_t>(datatype));
        type.implemented.push_back(implemented);
    }

    // The member block: a length, the records, then the members' ids, names and record offsets.
    void readMembers(std::int32_t offset, std::int32_t functionCount, std::int32_t variableCount, TypeModel& type)
    {
        const std::int64_t block = offset;
        const std::int32_t recordsLength = m_bytes.int32(block);
        if (recordsLength < 0)
            throw Malformed{};
        const std::int64_t records = block + 4;
        const std::int64_t ids = records + recordsLength;
        const std::int32_t members = functionCount + variableCount;
        const std::int64_t names = ids + static_cast<std::int64_t>(members) * 4;
        const std::int64_t recordOffsets = names + static_cast<std::int64_t>(members) * 4;
        m_bytes.require(ids, static_cast<std::int64_t>(members) * 12);

        std::int64_t at = records;
        for (std::int32_t f = 0; f < functionCount; ++f) {
            const std::int32_t length = m_bytes.int32(at) & 0xFFFF;
            m_bytes.require(at, length);
            if (at + length > ids)
                throw Malformed{};
            FunctionModel function = readFunction(at, length);
            function.id = m_bytes.int32(ids + f * 4);
            const std::int32_t nameOffset = m_bytes.int32(names + f * 4);
            // The second of a property's get and put pair may leave its name to the first.
            if (nameOffset == -1 && !type.functions.empty() && isProperty(function.invokeKind) &&
                isProperty(type.functions.back().invokeKind))
                function.name = type.functions.back().name;
            else
                function.name = nameAt(nameOffset);
            type.functions.push_back(std::move(function));
            at += length;
        }
        if (variableCount == 0)
            return;
        at = records + m_bytes.int32(recordOffsets + static_cast<std::int64_t>(functionCount) * 4);
        for (std::int32_t v = 0; v < variableCount; ++v) {
            const std::int32_t length = m_bytes.int32(at) & 0xFF;
            if (length < 20 || at + length > ids)
                throw Malformed{};
            VariableModel variable = readVariable(at, length);
            variable.id = m_bytes.int32(ids + (functionCount + v) * 4);
            variable.name = nameAt(m_bytes.int32(names + (functionCount + v) * 4));
            type.variables.push_back(std::move(variable));
            at += length;
        }
    }

    static bool isProperty(INVOKEKIND kind)
    {
        return kind == INVOKE_PROPERTYGET || kind == INVOKE_PROPERTYPUT || kind == INVOKE_PROPERTYPUTREF;
    }

    FunctionModel readFunction(std::int64_t at, std::int32_t length)
    {
        const std::int32_t kHeader = 24;
        if (length < kHeader)
            throw Malformed{};
        FunctionModel function;
        const std::int32_t kindWord = m_bytes.int32(at + 16);
        const std::int16_t parameterCount = m_bytes.int16(at + 20);
        if (parameterCount < 0)
            throw Malformed{};
        function.result = typeOf(m_bytes.int32(at + 4));
        function.flags = static_cast<WORD>(m_bytes.int32(at + 8) & 0xFFFF);
        function.vtableOffset = static_cast<SHORT>(m_bytes.int16(at + 12) & ~1);
        function.kind = static_cast<FUNCKIND>(kindWord & 0x7);
        function.invokeKind = static_cast<INVOKEKIND>((kindWord >> 3) & 0xF);
        function.callingConvention = static_cast<CALLCONV>((kindWord >> 8) & 0xF);
        function.optionalCount = m_bytes.int16(at + 22);

        // Fields after the header are there as far as the record is long before its parameters
        // (and their default values).
        std::int32_t optionalEnd = length - parameterCount * static_cast<std::int32_t>(kParameterRecordSize);
        if (kindWord & kHasDefaults)
            optionalEnd -= parameterCount * 4;
        if (optionalEnd < kHeader)
            throw Malformed{};
        auto has = [&](std::int32_t field) { return optionalEnd > field; };
        if (has(24))
            function.helpContext = static_cast<DWORD>(m_bytes.int32(at + 24));
        if (has(28))
            function.helpString = stringAt(m_bytes.int32(at + 28));
        if (has(32)) {
            const std::int32_t entry = m_bytes.int32(at + 32);
            if (kindWord & kEntryIsOrdinal)
                function.entryOrdinal = static_cast<WORD>(entry & 0xFFFF);
            else
                function.entryName = stringAt(entry);
        }
        if (has(44))
            function.helpStringContext = static_cast<DWORD>(m_bytes.int32(at + 44));
        if (has(48) && (kindWord & kHasCustomData))
            function.custom = customDataAt(m_bytes.int32(at + 48));

        const std::int64_t parameters = at + length - parameterCount * static_cast<std::int64_t>(kParameterRecordSize);
        const std::int64_t defaults = parameters - parameterCount * 4;
        for (std::int16_t p = 0; p < parameterCount; ++p) {
            const std::int64_t record = parameters + p * static_cast<std::int64_t>(kParameterRecordSize);
            ParameterModel parameter;
            parameter.type = typeOf(m_bytes.int32(record));
            const std::int32_t nameOffset = m_bytes.int32(record + 4);
            if (nameOffset != -1)
                parameter.name = nameAt(nameOffset);
            parameter.flags = static_cast<USHORT>(m_bytes.int32(record + 8));
            if ((parameter.flags & PARAMFLAG_FHASDEFAULT) && (kindWord & kHasDefaults))
                parameter.defaultValue = valueAt(m_bytes.int32(defaults + p * 4));
            if (has(52 + p * 4) && (kindWord & kHasCustomData))
                parameter.custom = customDataAt(m_bytes.int32(at + 52 + p * 4));
            function.parameters.push_back(std::move(parameter));
        }
        return function;
    }

    VariableModel readVariable(std::int64_t at, std::int32_t length)
    {
        VariableModel variable;
        variable.type = typeOf(m_bytes.int32(at + 4));
        variable.flags = static_cast<WORD>(m_bytes.int32(at + 8));
        const std::int16_t kind = m_bytes.int16(at + 12);
        if (kind < VAR_PERINSTANCE || kind > VAR_DISPATCH)
            throw Malformed{};
        variable.kind = static_cast<VARKIND>(kind);
        const std::int32_t value = m_bytes.int32(at + 16);
        if (variable.kind == VAR_CONST)
            variable.value = valueAt(value);
        else
            variable.instanceOffset = static_cast<ULONG>(static_cast<std::uint32_t>(value));
        if (length > 20)
            variable.helpContext = static_cast<DWORD>(m_bytes.int32(at + 20));
        if (length > 24)
            variable.helpString = stringAt(m_bytes.int32(at + 24));
        if (length > 32)
            variable.custom = customDataAt(m_bytes.int32(at + 32));
        if (length > 36)
            variable.helpStringContext = static_cast<DWORD>(m_bytes.int32(at + 36));
        return variable;
    }

    const Bytes& m_bytes;
    LibraryModel& m_library;
    SegmentPlace m_segments[kSegmentCount]{};
    std::int32_t m_tableNodes = 0;  // the type-description table's entries, first in typeNodes
};

}  // namespace

HRESULT readTypeLibrary(const unsigned char* data, std::size_t size, LibraryModel& library)
{
    if (data == nullptr || size > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max()))
        return TYPE_E_CANTLOADLIBRARY;
    try {
        const Bytes bytes(data, size);
        Reader(bytes, library).read();
        return S_OK;
    } catch (const Malformed&) {
        return TYPE_E_CANTLOADLIBRARY;
    }
}

}  // namespace automation::detail
