// A type library as the writers need it: plain values read once through the platform's type
// information, so that every output is written from the same description and none touches COM.
#pragma once

#include "automation.h"

#include <cstdint>
#include <string>
#include <vector>

namespace typelib_import {

// What a referenced user-defined type is.
enum class TypeKind { none, enumeration, objectInterface, coclass, alias };

// A parameter's or result's type: a base variant type under zero or more pointers.
struct Type {
    VARTYPE base = VT_EMPTY;  // never VT_PTR
    int pointers = 0;
    std::string name;  // of the referenced type, for VT_USERDEFINED
    TypeKind kind = TypeKind::none;
};

// A parameter's [defaultvalue]: a number, a yes/no value or a text.
struct DefaultValue {
    VARTYPE type = VT_EMPTY;  // VT_EMPTY without one; VT_I4, VT_BOOL or VT_BSTR with one
    std::int32_t number = 0;  // the number, or the yes/no value as 0 or -1
    std::string text;
};

struct Parameter {
    std::string name;
    Type type;
    unsigned short flags = 0;  // PARAMFLAG_*
    DefaultValue defaultValue;
};

enum class Invocation { method, propertyGet, propertyPut, propertyPutRef };

struct Function {
    std::string name;
    std::string doc;
    MEMBERID id = 0;
    Invocation invocation = Invocation::method;
    std::vector<Parameter> parameters;  // in declared order, a [retval] last
    unsigned short flags = 0;           // FUNCFLAG_*
    int vtableOffset = 0;
};

struct Interface {
    std::string name;
    std::string doc;
    GUID id{};
    std::string base;  // the interface it derives from, IDispatch for a dual one
    bool dual = false;
    std::vector<Function> functions;  // in vtable order
};

struct Enumerator {
    std::string name;
    std::string doc;
    std::int32_t value = 0;
};

struct Enumeration {
    std::string name;
    std::string doc;
    std::vector<Enumerator> values;
};

struct Alias {
    std::string name;
    Type target;
};

struct Coclass {
    std::string name;
    std::string doc;
    GUID id{};
    std::string defaultInterface;
};

struct Library {
    std::string name;
    std::string doc;
    GUID id{};
    unsigned short majorVersion = 0;
    unsigned short minorVersion = 0;
    std::vector<Enumeration> enumerations;
    std::vector<Alias> aliases;
    std::vector<Interface> interfaces;  // in the library's order
    std::vector<Coclass> coclasses;
};

}  // namespace typelib_import
