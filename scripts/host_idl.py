#!/usr/bin/env python3
"""The host's IDL, read: the interfaces of its library with their members.

  host_idl.py describe IDL OUT.cpp      writes the description the portable runtime dispatches
                                         late-bound calls from

The IDL is written in one style (one attribute list per member, HRESULT results, [out, retval]
last), which is all this reader takes; anything else is reported rather than guessed at.
"""
import re
import sys
from dataclasses import dataclass, field

# How each IDL type crosses: its C++ spelling in the headers, its variant type as a declared
# parameter or result, and how a coerced argument or a result is read or stored.
TYPES = {
    "BSTR": ("BSTR", "VT_BSTR", "V_BSTR"),
    "long": ("LONG", "VT_I4", "V_I4"),
    "VARIANT_BOOL": ("VARIANT_BOOL", "VT_BOOL", "V_BOOL"),
    "VARIANT": ("VARIANT", "VT_VARIANT", None),
    "ZbPlotType": ("ZbPlotType", "VT_USERDEFINED", "V_I4"),  # an enumeration crosses as a 32-bit number
    "IUnknown*": ("IUnknown*", "VT_UNKNOWN", "V_UNKNOWN"),  # an enumeration's object
}

# The platform's named DISPIDs that the IDL uses.
NAMED_DISPIDS = {"DISPID_VALUE": 0, "DISPID_NEWENUM": -4}

# The member attributes that become FUNCFLAG_ bits of a member's description.
FUNCTION_FLAGS = {"restricted": "FUNCFLAG_FRESTRICTED", "hidden": "FUNCFLAG_FHIDDEN"}


class IdlError(Exception):
    pass


@dataclass
class Parameter:
    name: str
    idl_type: str  # without the pointer marks of an [out, retval]
    optional: bool = False


@dataclass
class Member:
    name: str
    kind: str  # "method", "propget", "propput"
    dispid: int
    parameters: list = field(default_factory=list)  # the caller's, in order
    result: str = None  # the [out, retval] type without its last '*', or None
    result_name: str = None
    flags: list = field(default_factory=list)  # "restricted", "hidden"

    @property
    def cpp_name(self):
        return {"method": "raw_", "propget": "get_", "propput": "put_"}[self.kind] + self.name


@dataclass
class Interface:
    name: str
    iid: str
    members: list


def cpp_type(idl_type, interfaces):
    if idl_type in TYPES:
        return TYPES[idl_type][0]
    base = idl_type.rstrip("*")
    stars = idl_type[len(base):]
    if base in TYPES:
        return TYPES[base][0] + stars
    if base in interfaces:
        return idl_type
    raise IdlError(f"type {idl_type} is not one the host's interfaces use")


def strip_comments(text):
    return re.sub(r"//[^\n]*", "", text)


def split_top_level(text, separator=","):
    parts, depth, current = [], 0, ""
    for char in text:
        depth += char in "[(" and 1 or 0
        depth -= char in "])" and 1 or 0
        if char == separator and depth == 0:
            parts.append(current)
            current = ""
        else:
            current += char
    if current.strip():
        parts.append(current)
    return [p.strip() for p in parts]


def dispid_of(text, interface):
    if text in NAMED_DISPIDS:
        return NAMED_DISPIDS[text]
    try:
        return int(text, 0)
    except ValueError:
        raise IdlError(f"{interface}: the id {text} is neither a number nor a DISPID we know")


def parse_member(declaration, interface):
    match = re.fullmatch(r"\[([^\]]*)\]\s*HRESULT\s+(\w+)\s*\((.*)\)", declaration, re.S)
    if not match:
        raise IdlError(f"{interface}: cannot read the member '{' '.join(declaration.split())}'")
    attributes = [a.strip() for a in match.group(1).split(",")]
    dispid = next((dispid_of(a[3:-1], interface) for a in attributes if a.startswith("id(")), None)
    if dispid is None:
        raise IdlError(f"{interface}.{match.group(2)} has no id")
    kind = "propget" if "propget" in attributes else "propput" if "propput" in attributes else "method"
    member = Member(match.group(2), kind, dispid, flags=[a for a in attributes if a in FUNCTION_FLAGS])
    for text in split_top_level(match.group(3)):
        parameter = re.fullmatch(r"\[([^\]]*)\]\s*(\w+\s*\**)\s*(\w+)", text)
        if not parameter:
            raise IdlError(f"{interface}.{member.name}: cannot read the parameter '{text}'")
        flags = [f.strip() for f in parameter.group(1).split(",")]
        idl_type = parameter.group(2).replace(" ", "")
        if "retval" in flags:
            member.result = idl_type[:-1]
            member.result_name = parameter.group(3)
        else:
            member.parameters.append(Parameter(parameter.group(3), idl_type, "optional" in flags))
    return member


def read_idl(path):
    text = strip_comments(open(path, encoding="utf-8").read())
    interfaces = []
    pattern = r"\[([^\]]*uuid\(([0-9a-fA-F-]+)\)[^\]]*)\]\s*interface\s+(\w+)\s*:\s*IDispatch\s*\{(.*?)\};"
    for match in re.finditer(pattern, text, re.S):
        name, body = match.group(3), match.group(4)
        members = [parse_member(d.strip(), name) for d in body.split(";") if d.strip()]
        interfaces.append(Interface(name, match.group(2).lower(), members))
    if not interfaces:
        raise IdlError(f"{path}: no dual interfaces found")
    return interfaces


def describe(idl, output):
    interfaces = read_idl(idl)
    names = {i.name for i in interfaces}
    out = ["// Written by scripts/host_idl.py from the host's IDL; do not edit.",
           '#include "late_binding/host_description.h"', "", "namespace sim::detail {", "namespace {", ""]
    tables = []
    for interface in interfaces:
        rows = []
        for member in interface.members:
            function = f"call_{interface.name}_{member.cpp_name}"
            arguments = []
            for i, p in enumerate(member.parameters):
                reader = TYPES[p.idl_type][2] if p.idl_type in TYPES else None
                argument = f"arguments[{i}]" if reader is None else f"{reader}(&arguments[{i}])"
                if TYPES.get(p.idl_type, (None, None))[1] == "VT_USERDEFINED":
                    argument = f"static_cast<{p.idl_type}>({argument})"
                arguments.append(argument)
            body = []
            if member.result is not None:
                result_cpp = cpp_type(member.result, names)
                body.append(f"    {result_cpp} given{{}};")
                arguments.append("&given")
            used = "arguments" if member.parameters else "/*arguments*/"
            used_result = "result" if member.result is not None else "/*result*/"
            body.append(f"    const HRESULT status = static_cast<{interface.name}*>(instance)->"
                        f"{member.cpp_name}({', '.join(arguments)});")
            if member.result is not None:
                if member.result.rstrip("*") in names:
                    store = "V_VT(result) = VT_DISPATCH;\n        V_DISPATCH(result) = given;"
                elif member.result == "VARIANT":
                    store = "*result = given;"
                else:
                    vt, reader = TYPES[member.result][1], TYPES[member.result][2]
                    vt = "VT_I4" if vt == "VT_USERDEFINED" else vt
                    store = f"V_VT(result) = {vt};\n        {reader}(result) = given;"
                body.append(f"    if (SUCCEEDED(status)) {{\n        {store}\n    }}")
            body.append("    return status;")
            out.append(f"HRESULT {function}(void* instance, VARIANT* {used}, VARIANT* {used_result})\n{{")
            out.extend(body)
            out.append("}\n")
            parameters = "nullptr"
            if member.parameters:
                parameters = f"parameters_{interface.name}_{member.cpp_name}"
                rows_p = ", ".join(
                    f'{{L"{p.name}", {TYPES[p.idl_type][1]}, PARAMFLAG_FIN{" | PARAMFLAG_FOPT" if p.optional else ""}}}'
                    for p in member.parameters)
                out.append(f"const DescribedParameter {parameters}[] = {{{rows_p}}};\n")
            if member.result is None:
                result_vt = "VT_EMPTY"
            elif member.result.rstrip("*") in names:
                result_vt = "VT_DISPATCH"
            else:
                result_vt = TYPES[member.result][1]
            kind = {"method": "INVOKE_FUNC", "propget": "INVOKE_PROPERTYGET", "propput": "INVOKE_PROPERTYPUT"}
            flags = " | ".join(FUNCTION_FLAGS[f] for f in member.flags) or "0"
            result_name = f'L"{member.result_name}"' if member.result_name else "nullptr"
            rows.append(f'    {{L"{member.name}", {member.dispid}, {kind[member.kind]}, {parameters}, '
                        f"{len(member.parameters)}, {result_vt}, {function}, {flags}, {result_name}}},")
        out.append(f"const DescribedMember members_{interface.name}[] = {{")
        out.extend(rows)
        out.append("};\n")
        tables.append(f'    {{&__uuidof({interface.name}), L"{interface.name}", members_{interface.name}, '
                      f"{len(interface.members)}}},")
    out.append("}  // namespace\n")
    out.append("const DescribedInterface kHostInterfaces[] = {")
    out.extend(tables)
    out.append("};")
    out.append("const size_t kHostInterfaceCount = sizeof kHostInterfaces / sizeof kHostInterfaces[0];\n")
    out.append("}  // namespace sim::detail")
    text = "\n".join(out) + "\n"
    try:
        if open(output, encoding="utf-8").read() == text:
            return
    except OSError:
        pass
    open(output, "w", encoding="utf-8").write(text)


def main(argv):
    if len(argv) == 3 and argv[0] == "describe":
        describe(argv[1], argv[2])
        return 0
    print(__doc__, file=sys.stderr)
    return 2


if __name__ == "__main__":
    try:
        sys.exit(main(sys.argv[1:]))
    except IdlError as error:
        print(f"host_idl.py: {error}", file=sys.stderr)
        sys.exit(1)
