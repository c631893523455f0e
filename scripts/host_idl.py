#!/usr/bin/env python3
"""The host's IDL, read: the interfaces of its library with their members, as the C++ headers must
declare them.

  host_idl.py check IDL HEADER...        fails (exit 1) on any difference between the IDL's
                                         interfaces and the C++ interfaces the headers declare
  host_idl.py self-test IDL HEADER...    seeds each kind of drift into the headers' text and fails
                                         unless check finds every one

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

    def cpp_parameter_types(self, interfaces):
        types = [cpp_type(p.idl_type, interfaces) for p in self.parameters]
        if self.result is not None:
            types.append(cpp_type(self.result, interfaces) + "*")
        return types


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


@dataclass
class CppInterface:
    name: str
    iid: str = None
    members: list = field(default_factory=list)  # (C++ name, [parameter types])


def normalise_cpp_type(text):
    words = text.replace("*", " * ").split()
    base = " ".join(w for w in words if w != "*")
    return base + "*" * words.count("*")


def read_headers(paths):
    interfaces = {}
    uuids = {}
    for path in paths:
        text = strip_comments(open(path, encoding="utf-8").read())
        for match in re.finditer(r"struct\s+(\w+)\s*:\s*IDispatch\s*\{(.*?)\n\};", text, re.S):
            interface = CppInterface(match.group(1))
            for method in re.finditer(r"virtual\s+HRESULT\s+STDMETHODCALLTYPE\s+(\w+)\s*\(([^)]*)\)\s*=\s*0;",
                                      match.group(2)):
                types = []
                for parameter in split_top_level(method.group(2)):
                    typed = re.fullmatch(r"(.+?)\s*\b(\w+)", parameter, re.S)
                    if not typed:
                        raise IdlError(f"{path}: cannot read the parameter '{parameter}'")
                    types.append(normalise_cpp_type(typed.group(1)))
                interface.members.append((method.group(1), types))
            interfaces[interface.name] = interface
        for match in re.finditer(r"AUTOMATION_DECLARE_UUID\((\w+),\s*([^)]*)\)", text):
            numbers = [int(n.strip(), 16) for n in match.group(2).split(",")]
            tail = "".join(f"{b:02x}" for b in numbers[3:])
            uuids[match.group(1)] = f"{numbers[0]:08x}-{numbers[1]:04x}-{numbers[2]:04x}-{tail[:4]}-{tail[4:]}"
    for name, iid in uuids.items():
        if name in interfaces:
            interfaces[name].iid = iid
    return interfaces


def differences(idl_interfaces, cpp_interfaces):
    """Every way the headers differ from the IDL, one readable line each."""
    found = []
    names = {i.name for i in idl_interfaces}
    for interface in idl_interfaces:
        cpp = cpp_interfaces.get(interface.name)
        if cpp is None:
            found.append(f"{interface.name}: in the IDL, not declared in the headers")
            continue
        if cpp.iid != interface.iid:
            found.append(f"{interface.name}: IID {cpp.iid} in the headers, {interface.iid} in the IDL")
        seen_ids = {}
        for member in interface.members:
            other = seen_ids.setdefault(member.dispid, member)
            if other is not member and not ({other.kind, member.kind} == {"propget", "propput"}
                                             and other.name == member.name):
                found.append(f"{interface.name}: DISPID {member.dispid} names both {other.name} and {member.name}")
            if member.kind == "propput":
                getter = next((m for m in interface.members if m.kind == "propget" and m.name == member.name), None)
                if getter is not None and getter.dispid != member.dispid:
                    found.append(f"{interface.name}.{member.name}: get has DISPID {getter.dispid}, put {member.dispid}")
        if any(m.name == "Item" and m.dispid != 0 for m in interface.members):
            found.append(f"{interface.name}.Item: DISPID is not 0 (DISPID_VALUE)")
        expected = [(m.cpp_name, m.cpp_parameter_types(names)) for m in interface.members]
        for slot in range(max(len(expected), len(cpp.members))):
            want = expected[slot] if slot < len(expected) else None
            have = cpp.members[slot] if slot < len(cpp.members) else None
            if want == have:
                continue
            where = f"{interface.name} slot {slot + 7}"  # after IUnknown's 3 and IDispatch's 4
            if want is None:
                found.append(f"{where}: {have[0]} in the headers, nothing in the IDL")
            elif have is None:
                found.append(f"{where}: {want[0]} in the IDL, nothing in the headers")
            elif want[0] != have[0]:
                found.append(f"{where}: {have[0]} in the headers, {want[0]} in the IDL")
            else:
                found.append(f"{where} {want[0]}: parameters ({', '.join(have[1])}) in the headers, "
                             f"({', '.join(want[1])}) in the IDL")
    return found


def check(idl, headers):
    return differences(read_idl(idl), read_headers(headers))


# Drifts the check must catch, each as a change of the headers' text.
def seeded_drifts(interfaces):
    application = next(i for i in interfaces if i.name == "HostApplication")
    first, second = application.members[0].cpp_name, application.members[1].cpp_name
    return [
        ("two members swapped", lambda t: swap_lines(t, first, second)),
        ("a member renamed", lambda t: t.replace(f"STDMETHODCALLTYPE {first}(", f"STDMETHODCALLTYPE {first}X(", 1)),
        ("a parameter's type changed", lambda t: t.replace("raw_Dock(LONG side)", "raw_Dock(INT side)", 1)),
        ("a member removed", lambda t: re.sub(r"[^\n]*raw_Unload\(\) = 0;\n", "", t, count=1)),
        ("a member added", lambda t: t.replace("raw_Unload() = 0;", "raw_Unload() = 0;\n"
                                               "    virtual HRESULT STDMETHODCALLTYPE raw_Reload() = 0;", 1)),
        ("an IID changed", lambda t: t.replace("AUTOMATION_DECLARE_UUID(HostApplication, 0x",
                                               "AUTOMATION_DECLARE_UUID(HostApplication, 0x1", 1)),
    ]


def swap_lines(text, first, second):
    lines = text.split("\n")
    a = next((i for i, line in enumerate(lines) if f"STDMETHODCALLTYPE {first}(" in line), None)
    b = next((i for i, line in enumerate(lines) if f"STDMETHODCALLTYPE {second}(" in line), None)
    if a is None or b is None:
        return text
    lines[a], lines[b] = lines[b], lines[a]
    return "\n".join(lines)


def self_test(idl, headers):
    import os
    import tempfile
    interfaces = read_idl(idl)
    if check(idl, headers):
        return ["the headers as they stand already differ from the IDL"]
    failures = []
    originals = {path: open(path, encoding="utf-8").read() for path in headers}
    for what, drift in seeded_drifts(interfaces):
        with tempfile.TemporaryDirectory() as folder:
            changed, copies = False, []
            for path, text in originals.items():
                drifted = drift(text)
                changed = changed or drifted != text
                copy = os.path.join(folder, os.path.basename(path))
                open(copy, "w", encoding="utf-8").write(drifted)
                copies.append(copy)
            found = check(idl, copies)
            if not changed:
                failures.append(f"{what}: the seed matched nothing in the headers")
            elif not found:
                failures.append(f"{what}: not caught")
            else:
                print(f"caught {what}: {found[0]}")
    # The IDL side: a DISPID given twice.
    drifted = open(idl, encoding="utf-8").read().replace("[id(2), propget] HRESULT MenuGroups",
                                                          "[id(1), propget] HRESULT MenuGroups", 1)
    with tempfile.TemporaryDirectory() as folder:
        copy = os.path.join(folder, "drifted.idl")
        open(copy, "w", encoding="utf-8").write(drifted)
        found = check(copy, headers)
        if not found:
            failures.append("a DISPID given twice: not caught")
        else:
            print(f"caught a DISPID given twice: {found[0]}")
    return failures


def main(argv):
    if len(argv) >= 3 and argv[0] == "check":
        found = check(argv[1], argv[2:])
        for line in found:
            print(line, file=sys.stderr)
        if not found:
            print(f"the headers declare the {len(read_idl(argv[1]))} interfaces of the IDL exactly")
        return 1 if found else 0
    if len(argv) >= 3 and argv[0] == "self-test":
        failures = self_test(argv[1], argv[2:])
        for line in failures:
            print(line, file=sys.stderr)
        return 1 if failures else 0
    print(__doc__, file=sys.stderr)
    return 2


if __name__ == "__main__":
    try:
        sys.exit(main(sys.argv[1:]))
    except IdlError as error:
        print(f"host_idl.py: {error}", file=sys.stderr)
        sys.exit(1)
