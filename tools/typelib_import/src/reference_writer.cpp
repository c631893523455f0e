#include "writers.h"

#include "function_shape.h"
#include "text.h"
#include "type_spelling.h"

#include <locale>
#include <sstream>

namespace typelib_import {
namespace {

// A doc string as one table cell: its lines joined, the cell separator escaped.
std::string cell(const std::string& text)
{
    std::string joined;
    for (const std::string& line : lines(text)) {
        if (!joined.empty())
            joined += ' ';
        for (char c : line) {
            if (c == '|')
                joined += '\\';
            joined += c;
        }
    }
    return joined;
}

const char* kindOf(Invocation invocation)
{
    switch (invocation) {
    case Invocation::propertyGet:
        return "property get";
    case Invocation::propertyPut:
        return "property put";
    case Invocation::propertyPutRef:
        return "property put by reference";
    case Invocation::method:
        break;
    }
    return "method";
}

std::string typeText(const Type& type)
{
    if (type.base == VT_USERDEFINED && type.kind == TypeKind::objectInterface && type.pointers == 1)
        return type.name + " object";
    return cppType(type);
}

std::string defaultText(const DefaultValue& value)
{
    if (value.type == VT_I4)
        return std::to_string(value.number);
    if (value.type == VT_BOOL)
        return value.number ? "True" : "False";
    return "\"" + value.text + "\"";
}

std::string parametersText(const Function& function)
{
    std::string text;
    for (const Parameter* parameter : callerParameters(function)) {
        if (!text.empty())
            text += ", ";
        text += "`" + parameter->name + "` " + typeText(parameter->type);
        if (parameter->flags & PARAMFLAG_FOUT)
            text += " (out)";
        if (parameter->defaultValue.type != VT_EMPTY)
            text += " (optional, default " + defaultText(parameter->defaultValue) + ")";
        else if (parameter->flags & PARAMFLAG_FOPT)
            text += " (optional)";
    }
    return text;
}

std::string notesOf(const Function& function)
{
    std::string notes;
    auto add = [&notes](const char* note) { notes += (notes.empty() ? "" : "; ") + std::string(note); };
    if (function.id == DISPID_VALUE)
        add("default member");
    if (function.id == DISPID_NEWENUM)
        add("enumerator of For Each");
    if (function.flags & FUNCFLAG_FRESTRICTED)
        add("restricted");
    if (function.flags & FUNCFLAG_FHIDDEN)
        add("hidden");
    if (!function.doc.empty())
        notes += (notes.empty() ? "" : ". ") + cell(function.doc);
    return notes;
}

void writeInterface(std::ostream& out, const Interface& declared)
{
    out << "\n### " << declared.name << "\n\n";
    if (!declared.doc.empty())
        out << declared.doc << "\n\n";
    out << (declared.dual ? "Dual interface " : "Interface ") << "`" << guidText(declared.id)
        << "`, derived from " << declared.base << ".\n\n"
        << "| DISPID | Member | Kind | Parameters | Gives | Notes |\n|---:|---|---|---|---|---|\n";
    for (const Function& function : declared.functions) {
        const std::optional<Type> given = givenType(function);
        out << "| " << function.id << " | `" << function.name << "` | " << kindOf(function.invocation)
            << " | " << parametersText(function) << " | " << (given ? typeText(*given) : "nothing") << " | "
            << notesOf(function) << " |\n";
    }
}

}  // namespace

std::string writeReference(const Library& library)
{
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << "# " << library.name << " " << library.majorVersion << "." << library.minorVersion << "\n\n";
    if (!library.doc.empty())
        out << library.doc << "\n\n";
    out << "Type library `" << guidText(library.id)
        << "`. Written by typelib_import from the compiled library: what a script reaches by name, "
           "with the DISPID of each member.\n";
    if (!library.coclasses.empty()) {
        out << "\n## Classes\n\n| Class | CLSID | Default interface | Notes |\n|---|---|---|---|\n";
        for (const Coclass& coclass : library.coclasses)
            out << "| " << coclass.name << " | `" << guidText(coclass.id) << "` | "
                << coclass.defaultInterface << " | " << cell(coclass.doc) << " |\n";
    }
    if (!library.interfaces.empty()) {
        out << "\n## Interfaces\n";
        for (const Interface& declared : library.interfaces)
            writeInterface(out, declared);
    }
    if (!library.enumerations.empty()) {
        out << "\n## Enumerations\n";
        for (const Enumeration& enumeration : library.enumerations) {
            out << "\n### " << enumeration.name << "\n\n";
            if (!enumeration.doc.empty())
                out << enumeration.doc << "\n\n";
            out << "| Name | Value | Notes |\n|---|---:|---|\n";
            for (const Enumerator& value : enumeration.values)
                out << "| `" << value.name << "` | " << value.value << " | " << cell(value.doc) << " |\n";
        }
    }
    return out.str();
}

}  // namespace typelib_import
