#include "writers.h"

#include "function_shape.h"
#include "import_error.h"
#include "text.h"
#include "type_spelling.h"

#include <cctype>
#include <locale>
#include <set>
#include <sstream>

namespace typelib_import {
namespace {

enum class ResultForm { status, text, object, value };

struct WrapperResult {
    ResultForm form = ResultForm::status;
    std::string type = "void";
};

WrapperResult wrapperResultOf(const Function& function, const std::string& where)
{
    const std::optional<Type> given = givenType(function);
    if (!given)
        return {};
    if (given->base == VT_BSTR && given->pointers == 0)
        return {ResultForm::text, "_bstr_t"};
    if (given->base == VT_USERDEFINED && given->kind == TypeKind::objectInterface && given->pointers == 1)
        return {ResultForm::object, given->name + "Ptr"};
    if (given->base == VT_UNKNOWN && given->pointers == 0)
        return {ResultForm::object, "IUnknownPtr"};
    if (given->base == VT_DISPATCH && given->pointers == 0)
        return {ResultForm::object, "IDispatchPtr"};
    if (given->pointers == 0 && given->base != VT_VARIANT && given->base != VT_USERDEFINED)
        return {ResultForm::value, cppType(*given)};
    if (given->pointers == 0 && (given->kind == TypeKind::enumeration || given->kind == TypeKind::alias))
        return {ResultForm::value, cppType(*given)};
    throw ImportError(where + " gives a " + cppType(*given) + ", which the importer does not wrap");
}

bool takesText(const Parameter& parameter)
{
    return parameter.type.base == VT_BSTR && parameter.type.pointers == 0 &&
           !(parameter.flags & PARAMFLAG_FOUT);
}

bool takesVariant(const Parameter& parameter)
{
    return parameter.type.base == VT_VARIANT && parameter.type.pointers == 0 &&
           !(parameter.flags & PARAMFLAG_FOUT);
}

std::string wideLiteral(const std::string& text)
{
    std::string literal = "L\"";
    for (char c : text) {
        if (c == '"' || c == '\\')
            literal += '\\';
        if (c == '\n')
            literal += "\\n";
        else
            literal += c;
    }
    return literal + "\"";
}

// The C++ default of a wrapper's parameter, empty where it has none.
std::string defaultArgument(const Parameter& parameter)
{
    const DefaultValue& value = parameter.defaultValue;
    if (value.type == VT_I4)
        return std::to_string(value.number);
    if (value.type == VT_BOOL)
        return value.number ? "VARIANT_TRUE" : "VARIANT_FALSE";
    if (value.type == VT_BSTR)
        return wideLiteral(value.text);
    if ((parameter.flags & PARAMFLAG_FOPT) && takesVariant(parameter))
        return "vtMissing";
    return {};
}

std::string wrapperParameters(const std::vector<const Parameter*>& parameters, bool withDefaults)
{
    // C++ lets only the trailing parameters have defaults.
    std::vector<std::string> defaults(parameters.size());
    for (std::size_t i = parameters.size(); withDefaults && i-- > 0;) {
        defaults[i] = defaultArgument(*parameters[i]);
        if (defaults[i].empty())
            break;
    }
    std::string list;
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        const Parameter& parameter = *parameters[i];
        if (i > 0)
            list += ", ";
        if (takesText(parameter))
            list += "const _bstr_t& " + parameter.name;
        else if (takesVariant(parameter))
            list += "const _variant_t& " + parameter.name;
        else
            list += cppType(parameter.type) + " " + parameter.name;
        if (!defaults[i].empty())
            list += " = " + defaults[i];
    }
    return list;
}

std::string passedArguments(const std::vector<const Parameter*>& parameters)
{
    std::string list;
    for (const Parameter* parameter : parameters) {
        list += ", ";
        if (takesText(*parameter))
            list += "static_cast<BSTR>(" + parameter->name + ")";
        else if (takesVariant(*parameter))
            list += "imported_call::argument(" + parameter->name + ")";
        else
            list += parameter->name;
    }
    return list;
}

std::string rawParameters(const Function& function)
{
    std::string list;
    for (const Parameter& parameter : function.parameters)
        list += (list.empty() ? "" : ", ") + cppType(parameter.type) + " " + parameter.name;
    return list;
}

void writeComment(std::ostream& out, const std::string& doc, const char* indent)
{
    if (doc.empty())
        return;
    for (const std::string& line : lines(doc))
        out << indent << "// " << line << "\n";
}

std::string guidWords(const GUID& id)
{
    return hex(id.Data1, 8) + ", " + hex(id.Data2, 4) + ", " + hex(id.Data3, 4);
}

std::string guidBytes(const GUID& id)
{
    std::string text;
    for (unsigned char byte : id.Data4)
        text += (text.empty() ? "" : ", ") + hex(byte, 2);
    return text;
}

// As AUTOMATION_DECLARE_UUID takes it.
std::string guidArguments(const GUID& id)
{
    return guidWords(id) + ", " + guidBytes(id);
}

void writeDeclarations(std::ostream& out, const Library& library)
{
    for (const Interface& declared : library.interfaces)
        out << "struct " << declared.name << ";\n";
    for (const Coclass& coclass : library.coclasses)
        out << "struct " << coclass.name << ";\n";
    out << "\n";
    for (const Interface& declared : library.interfaces)
        out << "AUTOMATION_DECLARE_UUID(" << declared.name << ", " << guidArguments(declared.id) << ")\n";
    for (const Coclass& coclass : library.coclasses)
        out << "AUTOMATION_DECLARE_UUID(" << coclass.name << ", " << guidArguments(coclass.id) << ")\n";
    out << "\ninline constexpr GUID LIBID_" << library.name << " = {" << guidWords(library.id) << ", {"
        << guidBytes(library.id) << "}};\n\n";
    for (const Interface& declared : library.interfaces)
        out << "_COM_SMARTPTR_TYPEDEF(" << declared.name << ", __uuidof(" << declared.name << "));\n";
}

void writeEnumerations(std::ostream& out, const Library& library)
{
    // The underlying type is fixed, so that any 32-bit value a caller passes is one the type holds.
    for (const Enumeration& enumeration : library.enumerations) {
        out << "\n";
        writeComment(out, enumeration.doc, "");
        out << "enum " << enumeration.name << " : int {\n";
        for (const Enumerator& value : enumeration.values) {
            writeComment(out, value.doc, "    ");
            out << "    " << value.name << " = " << value.value << ",\n";
        }
        out << "};\n";
    }
    for (const Alias& alias : library.aliases)
        out << "\ntypedef " << cppType(alias.target) << " " << alias.name << ";\n";
}

void writeInterface(std::ostream& out, const Interface& declared)
{
    out << "\n";
    writeComment(out, declared.doc, "");
    out << "struct " << declared.name << " : " << declared.base << " {\n";
    for (const Function& function : declared.functions) {
        writeComment(out, function.doc, "    ");
        out << "    virtual HRESULT STDMETHODCALLTYPE " << rawName(function) << "(" << rawParameters(function)
            << ") = 0;\n";
    }
    out << "\n";
    for (const Function& function : declared.functions) {
        const WrapperResult result = wrapperResultOf(function, declared.name + "." + function.name);
        out << "    " << result.type << " " << wrapperName(function) << "("
            << wrapperParameters(callerParameters(function), true) << ");\n";
    }
    out << "};\n";
}

void writeWrappers(std::ostream& out, const Interface& declared)
{
    for (const Function& function : declared.functions) {
        const WrapperResult result = wrapperResultOf(function, declared.name + "." + function.name);
        const std::vector<const Parameter*> parameters = callerParameters(function);
        out << "\ninline " << result.type << " " << declared.name << "::" << wrapperName(function) << "("
            << wrapperParameters(parameters, false) << ")\n{\n    ";
        const std::string call =
            "(this, &" + declared.name + "::" + rawName(function) + passedArguments(parameters) + ");";
        switch (result.form) {
        case ResultForm::status:
            out << "imported_call::invoke" << call;
            break;
        case ResultForm::text:
            out << "return imported_call::text" << call;
            break;
        case ResultForm::object:
            out << "return imported_call::object<" << result.type << ">" << call;
            break;
        case ResultForm::value:
            out << "return imported_call::value<" << result.type << ">" << call;
            break;
        }
        out << "\n}\n";
    }
}

// A type library keeps one case per name, so a parameter may come named as a type of the library
// (`Shade Shade`), which would hide the type from the parameters after it: such a parameter starts
// in lower case instead.
Library withParametersApartFromTypes(Library library)
{
    std::set<std::string> typeNames;
    for (const Enumeration& enumeration : library.enumerations)
        typeNames.insert(enumeration.name);
    for (const Alias& alias : library.aliases)
        typeNames.insert(alias.name);
    for (const Interface& declared : library.interfaces)
        typeNames.insert(declared.name);
    for (const Coclass& coclass : library.coclasses)
        typeNames.insert(coclass.name);
    for (Interface& declared : library.interfaces)
        for (Function& function : declared.functions)
            for (Parameter& parameter : function.parameters)
                if (typeNames.count(parameter.name))
                    parameter.name[0] =
                        static_cast<char>(std::tolower(static_cast<unsigned char>(parameter.name[0])));
    return library;
}

}  // namespace

std::string writeHeader(const Library& imported, const std::vector<std::string>& includes)
{
    const Library library = withParametersApartFromTypes(imported);
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << "// The type library " << library.name << " " << library.majorVersion << "."
        << library.minorVersion
        << ", as C++: written by typelib_import from the compiled library; do not edit.\n";
    writeComment(out, library.doc, "");
    out << "#pragma once\n\n#include \"automation.h\"\n#include \"imported_call.h\"\n";
    for (const std::string& include : includes)
        out << "#include \"" << include << "\"\n";
    out << "\n";
    writeDeclarations(out, library);
    writeEnumerations(out, library);
    for (const Interface& declared : library.interfaces)
        writeInterface(out, declared);
    for (const Interface& declared : library.interfaces)
        writeWrappers(out, declared);
    return out.str();
}

}  // namespace typelib_import
