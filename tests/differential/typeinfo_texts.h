// What the type information probe prints of the host's and the simulator's type libraries: each
// library as each build loads it from its own compiled file, and the descriptions it gives,
// written field by field.
#pragma once

#include "probe.h"

#include <string>

namespace typeinfo_probe {

// The host's type library, loaded once; null when it cannot be loaded (the cases then say so).
ITypeLib* hostLibrary();
// The simulator's own library, which imports the host's; loaded once, null when it cannot be.
ITypeLib* simulatorLibrary();

// The status of `loaded` followed by what `describe` says of it.
std::string described(HRESULT loaded, const std::string& description);

std::string guid(const GUID& value);
// A type, with the name of the type a VT_USERDEFINED reference resolves to through `context`.
std::string type(const TYPEDESC& described, ITypeInfo* context);
std::string attributes(const TYPEATTR& attributes, ITypeInfo* context);
std::string function(const FUNCDESC& function, ITypeInfo* context);
std::string variable(const VARDESC& variable, ITypeInfo* context);
// The texts GetDocumentation gives of `member`.
std::string documentation(ITypeInfo* typeInfo, MEMBERID member);
// The name of `typeInfo` and where its library holds it.
std::string identity(ITypeInfo* typeInfo);

}  // namespace typeinfo_probe
