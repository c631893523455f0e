#include "described_members.h"

#include <cwctype>
#include <initializer_list>
#include <vector>

namespace automation::detail {
namespace {

// One inherited member: only its name, DISPID and parameter names are ever read.
struct Inherited {
    const wchar_t* name;
    MEMBERID id;
    std::initializer_list<const wchar_t*> parameterNames;
};

const Inherited kInherited[] = {
    {L"QueryInterface", 0x60000000, {L"riid", L"ppvObj"}},
    {L"AddRef", 0x60000001, {}},
    {L"Release", 0x60000002, {}},
    {L"GetTypeInfoCount", 0x60010000, {L"pctinfo"}},
    {L"GetTypeInfo", 0x60010001, {L"itinfo", L"lcid", L"pptinfo"}},
    {L"GetIDsOfNames", 0x60010002, {L"riid", L"rgszNames", L"cNames", L"lcid", L"rgdispid"}},
    {L"Invoke",
     0x60010003,
     {L"dispidMember", L"riid", L"lcid", L"wFlags", L"pdispparams", L"pvarResult", L"pexcepinfo",
      L"puArgErr"}},
};

// The inherited members as a description, built field by field so that fields the description
// gains later stay empty here.
class InheritedDescription {
public:
    InheritedDescription()
    {
        for (const Inherited& inherited : kInherited) {
            for (const wchar_t* name : inherited.parameterNames) {
                DescribedParameter parameter{};
                parameter.name = name;
                m_parameters.push_back(parameter);
            }
        }
        size_t first = 0;
        for (const Inherited& inherited : kInherited) {
            DescribedMember member{};
            member.name = inherited.name;
            member.id = inherited.id;
            member.kind = INVOKE_FUNC;
            member.parameters = m_parameters.data() + first;
            member.parameterCount = static_cast<SHORT>(inherited.parameterNames.size());
            member.resultType = VT_EMPTY;
            m_members.push_back(member);
            first += inherited.parameterNames.size();
        }
        m_interface.iid = &IID_IDispatch;
        m_interface.name = L"IDispatch";
        m_interface.members = m_members.data();
        m_interface.memberCount = static_cast<UINT>(m_members.size());
    }

    const DescribedInterface& described() const { return m_interface; }

private:
    std::vector<DescribedParameter> m_parameters;
    std::vector<DescribedMember> m_members;
    DescribedInterface m_interface{};
};

}  // namespace

bool sameName(const wchar_t* a, const wchar_t* b)
{
    for (; *a != L'\0' && *b != L'\0'; ++a, ++b) {
        if (std::towlower(static_cast<wint_t>(*a)) != std::towlower(static_cast<wint_t>(*b)))
            return false;
    }
    return *a == *b;
}

const DescribedMember* findMember(const DescribedInterface& described, MEMBERID id, WORD flags)
{
    for (UINT m = 0; m < described.memberCount; ++m) {
        const DescribedMember& member = described.members[m];
        if (member.id == id && (member.kind & flags) != 0)
            return &member;
    }
    return nullptr;
}

const DescribedMember* memberNamed(const DescribedInterface& described, const wchar_t* name)
{
    for (UINT m = 0; m < described.memberCount; ++m) {
        if (sameName(described.members[m].name, name))
            return &described.members[m];
    }
    return nullptr;
}

const DescribedInterface& inheritedDispatchMembers()
{
    static const InheritedDescription inherited;
    return inherited.described();
}

}  // namespace automation::detail
