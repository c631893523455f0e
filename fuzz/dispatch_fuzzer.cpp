// Late-bound calls on every object of the simulated host. Each input drives a short sequence of
// calls through IDispatch on a fresh default host: members picked from each object's own type
// information (so that members added later are called too), called in any way, odd DISPIDs and
// names, and now and then an armed fault. Objects the calls give join the pool that later steps
// pick from, so that a sequence reaches the whole object model. Once every reference is released,
// no host reference, host buffer or automation string may be left; the sanitizers report the rest.
//
// With MX_FUZZ_DUMP_STATE=1 in the environment, the state the calls left must also dump as JSON
// that loads again. That costs some ten times the calls, and its coverage would draw the corpus
// towards it, so that ordinary runs leave it out.
//
// A fresh host for each input rather than one host reset between inputs: nothing (state, fault
// counts, journal, the objects' remembered places) carries from one input to the next, so that a
// saved input reproduces its failure on its own. Building the default host takes a little longer
// than the calls of a typical input, but libFuzzer's own bookkeeping takes longer than both, so a
// reset, which would still build the default state, would gain little.
//
// The input, byte by byte (a read past its end gives 0):
//   setup: bit 0 makes the journal record releases too;
//   then steps, each an operation byte (modulo 16) and what the operation reads:
//   0-8 call, 9-10 names, 11 fault, 12 drop, 13 reach, 14-15 ask (see each below).
// A step's object is a byte choosing from the pool by position (modulo its size): the application
// first, then each object given, in the order given.
#include "automation_values.h"
#include "fuzz_check.h"

#include "framework.h"
#include "host/object_model.h"
#include "host/sdk.h"
#include "sim/host.h"
#include "sim/json_text.h"
#include "sim/state_json.h"

#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cwctype>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using fuzz::Choices;

constexpr std::size_t kMaxObjects = 64;
constexpr std::size_t kMaxTexts = 32;
constexpr int kMaxSteps = 128;

// What the type information tells a caller of one member.
struct Member {
    DISPID id = DISPID_UNKNOWN;
    WORD kind = 0;                    // INVOKE_FUNC, INVOKE_PROPERTYGET ...
    std::vector<VARTYPE> parameters;  // the declared types, in declared order
    std::size_t optional = 0;         // how many of the last parameters may be left out
    std::vector<std::wstring> names;  // the member's, then its parameters'
};

struct Description {
    IID iid{};
    std::wstring name;  // the interface's
    std::vector<Member> members;
};

std::wstring textOf(BSTR text)
{
    return text == nullptr ? std::wstring() : std::wstring(text, SysStringLen(text));
}

// The text of a string given to the caller, who frees it.
std::wstring taken(BSTR given)
{
    const _bstr_t owner(given, false);
    return textOf(given);
}

// Whether the state, written as JSON the way zorbsim writes it, loads again.
bool dumpLoads(const sim::HostState& state)
{
    try {
        sim::stateFromJson(sim::parseJsonText(sim::stateToJson(state).dump(2), "dump"));
        return true;
    }
    catch (const sim::StateError& refused) {
        std::printf("the reader refused the dump: %s\n", refused.what());
        return false;
    }
}

std::string narrow(const std::wstring& text)
{
    return std::string(text.begin(), text.end());
}

Description describeInterface(ITypeInfo* typeInfo, const TYPEATTR& attributes)
{
    Description description;
    description.iid = attributes.guid;
    BSTR name = nullptr;
    typeInfo->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr);
    description.name = taken(name);
    for (UINT f = 0; f < attributes.cFuncs; ++f) {
        FUNCDESC* function = nullptr;
        if (FAILED(typeInfo->GetFuncDesc(f, &function)))
            continue;
        Member member;
        member.id = function->memid;
        member.kind = static_cast<WORD>(function->invkind);
        member.optional = static_cast<std::size_t>(function->cParamsOpt);
        for (SHORT p = 0; p < function->cParams; ++p)
            member.parameters.push_back(function->lprgelemdescParam[p].tdesc.vt);
        typeInfo->ReleaseFuncDesc(function);
        BSTR names[8] = {};
        UINT count = 0;
        typeInfo->GetNames(member.id, names, 8, &count);
        for (UINT n = 0; n < count; ++n)
            member.names.push_back(taken(names[n]));
        description.members.push_back(std::move(member));
    }
    return description;
}

// The EXCEPINFO of one call; the texts the callee put in it are freed with it.
struct ExceptionReport {
    EXCEPINFO info{};

    ExceptionReport() = default;
    ExceptionReport(const ExceptionReport&) = delete;
    ExceptionReport& operator=(const ExceptionReport&) = delete;
    ~ExceptionReport()
    {
        SysFreeString(info.bstrSource);
        SysFreeString(info.bstrDescription);
        SysFreeString(info.bstrHelpFile);
    }
};

class Session {
public:
    Session(sim::Host& host, Choices& choices)
        : m_host(host), m_choices(choices), m_values(choices, m_objects, m_texts)
    {
        reachApplication();
    }

    void run()
    {
        for (int step = 0; step < kMaxSteps && !m_choices.exhausted(); ++step) {
            switch (m_choices.byte() % 16) {
            case 9:
            case 10:
                lookUpNames();
                break;
            case 11:
                armFault();
                break;
            case 12:
                if (!m_objects.empty())
                    m_objects.erase(m_objects.begin() +
                                    static_cast<std::ptrdiff_t>(m_choices.below(m_objects.size())));
                break;
            case 13:
                reachApplication();
                break;
            case 14:
            case 15:
                askAbout();
                break;
            default:
                call();
                break;
            }
        }
    }

private:
    IDispatch* pick() { return m_objects.empty() ? nullptr : m_objects[m_choices.below(m_objects.size())]; }

    const Description& describe(IDispatch* object)
    {
        ITypeInfoPtr typeInfo;
        fuzz::require(SUCCEEDED(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &typeInfo)) && typeInfo,
                      "every host object gives its type information");
        TYPEATTR* attributes = nullptr;
        fuzz::require(SUCCEEDED(typeInfo->GetTypeAttr(&attributes)), "type information gives its attributes");
        const std::string key(reinterpret_cast<const char*>(&attributes->guid), sizeof(IID));
        auto described = m_descriptions.find(key);
        if (described == m_descriptions.end())
            described = m_descriptions.emplace(key, describeInterface(typeInfo, *attributes)).first;
        typeInfo->ReleaseTypeAttr(attributes);
        return described->second;
    }

    static const Member* chooseMember(const Description& described, std::uint8_t choice)
    {
        return choice < 0xE0 && !described.members.empty()
                   ? &described.members[choice % described.members.size()]
                   : nullptr;
    }

    void adopt(const IDispatchPtr& object)
    {
        if (m_objects.size() >= kMaxObjects)
            return;
        describe(object);
        m_objects.push_back(object);
    }

    // The framework object's dispatch, as the module reaches the host (faults may withhold both).
    void reachApplication()
    {
        CWinApp* framework = zbedGetZorbWinApp();
        if (framework == nullptr)
            return;
        const IDispatchPtr application(framework->GetIDispatch(TRUE), false);
        if (application)
            adopt(application);
    }

    // object, member (below 0xE0 one of the object's members, in the order of its type information;
    // else an odd DISPID), shape:
    //   bits 0-1  flags: 0 the member's own, 1 METHOD|PROPERTYGET as scripts call, 2 none, 3 two
    //             bytes of raw flags, then a byte whose bit 0 passes IID_IDispatch for IID_NULL
    //   bit 2     arguments: 0 as declared (a byte says how many optional ones are left out, then a
    //             value each, a put's value named DISPID_PROPERTYPUT), 1 a count byte (modulo 8), then
    //             values of any kind (automation_values.h)
    //   bits 3-4  result: 0 wanted, 1 not, 2 pre-filled with a number, 3 pre-filled with a text the
    //             caller still owns
    //   bit 5     no EXCEPINFO; bit 6 no puArgErr
    //   bit 7     named arguments from the input: a count byte (modulo 4), then for each 0
    //             DISPID_PROPERTYPUT, 1 the one before again, 2 a word, n the parameter n - 3
    //             (modulo the argument count + 1)
    void call()
    {
        IDispatch* object = pick();
        if (object == nullptr)
            return;
        const std::uint8_t memberChoice = m_choices.byte();
        const Member* member = chooseMember(describe(object), memberChoice);
        const DISPID id = member != nullptr ? member->id : oddDispatchId(memberChoice);
        const std::uint8_t shape = m_choices.byte();
        const IID* reserved = &IID_NULL;
        WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
        if ((shape & 3) == 0)
            flags = member != nullptr ? member->kind : DISPATCH_METHOD;
        else if ((shape & 3) == 2)
            flags = 0;
        else if ((shape & 3) == 3) {
            const std::uint8_t high = m_choices.byte();
            flags = static_cast<WORD>(high << 8 | m_choices.byte());
            if (m_choices.byte() & 1)
                reserved = &IID_IDispatch;
        }

        fuzz::Arguments arguments;
        std::vector<DISPID> named;
        if ((shape & 4) == 0 && member != nullptr)
            declaredArguments(*member, flags, arguments, named);
        else
            anyArguments(arguments);
        if (shape & 0x80)
            chooseNames(arguments.values.size(), named);

        const int resultMode = (shape >> 3) & 3;
        _variant_t result;
        _variant_t owned;  // what a result pre-filled with a text points at, still the caller's
        if (resultMode == 2) {
            V_VT(&result) = VT_I4;
            V_I4(&result) = -7;
        }
        else if (resultMode == 3) {
            V_VT(&owned) = VT_BSTR;
            V_BSTR(&owned) = SysAllocString(L"pre-filled");
            V_VT(&result) = VT_BSTR;
            V_BSTR(&result) = V_BSTR(&owned);
        }
        ExceptionReport exception;
        constexpr UINT kNoArgument = UINT_MAX;
        UINT argumentError = kNoArgument;
        DISPPARAMS parameters{arguments.values.empty() ? nullptr : arguments.values.data(),
                              named.empty() ? nullptr : named.data(),
                              static_cast<UINT>(arguments.values.size()), static_cast<UINT>(named.size())};
        const HRESULT status = object->Invoke(
            id, *reserved, LOCALE_USER_DEFAULT, flags, &parameters, resultMode == 1 ? nullptr : &result,
            (shape & 0x20) ? nullptr : &exception.info, (shape & 0x40) ? nullptr : &argumentError);

        if (exception.info.pfnDeferredFillIn != nullptr)
            exception.info.pfnDeferredFillIn(&exception.info);
        if (status == DISP_E_EXCEPTION && (shape & 0x20) == 0)
            fuzz::require(FAILED(exception.info.scode), "a reported exception carries the failing status");
        if (status == DISP_E_TYPEMISMATCH && (shape & 0x40) == 0)
            fuzz::require(argumentError < parameters.cArgs,
                          "a type mismatch names an argument that was passed");
        if (resultMode == 3 && V_VT(&result) == VT_BSTR && V_BSTR(&result) == V_BSTR(&owned))
            result.Detach();  // not overwritten: the text is still `owned`'s
        if (SUCCEEDED(status))
            keep(result);
    }

    DISPID oddDispatchId(std::uint8_t choice)
    {
        // DISPID_VALUE, DISPID_UNKNOWN, DISPID_PROPERTYPUT as a member, the enumerator's and the
        // evaluation's DISPIDs (which the runtime does not name), ids no member has; past them a word.
        static constexpr DISPID odd[] = {DISPID_VALUE, DISPID_UNKNOWN, DISPID_PROPERTYPUT, -4, -5, 1000,
                                         INT_MAX,      INT_MIN};
        const std::size_t chosen = static_cast<std::size_t>(choice - 0xE0);
        return chosen < std::size(odd) ? odd[chosen] : m_choices.word();
    }

    void declaredArguments(const Member& member, WORD flags, fuzz::Arguments& arguments,
                           std::vector<DISPID>& named)
    {
        const std::size_t count = member.parameters.size() - m_choices.below(member.optional + 1);
        arguments.values.resize(count);
        const bool putsValue = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0 && count > 0;
        for (std::size_t i = 0; i < count; ++i) {
            // DISPPARAMS holds the named value first, then the positional arguments last to first.
            const std::size_t at = putsValue && i == count - 1 ? 0 : count - 1 - i;
            m_values.makeArgument(member.parameters[i], arguments.values[at], arguments.referents);
        }
        if (putsValue)
            named.push_back(DISPID_PROPERTYPUT);
    }

    void anyArguments(fuzz::Arguments& arguments)
    {
        arguments.values.resize(m_choices.byte() % 8);
        for (_variant_t& value : arguments.values)
            m_values.makeArgument(VT_VARIANT, value, arguments.referents);
    }

    void chooseNames(std::size_t argumentCount, std::vector<DISPID>& named)
    {
        named.assign(m_choices.byte() % 4, DISPID_PROPERTYPUT);
        for (std::size_t i = 0; i < named.size(); ++i) {
            const std::uint8_t choice = m_choices.byte();
            if (choice == 1 && i > 0)
                named[i] = named[i - 1];
            else if (choice == 2)
                named[i] = m_choices.word();
            else if (choice >= 3)
                named[i] = static_cast<DISPID>((choice - 3) % (argumentCount + 1));
        }
    }

    // What a call gave: an object joins the pool, a text the texts later arguments may use.
    void keep(const VARIANT& result)
    {
        if ((V_VT(&result) == VT_DISPATCH || V_VT(&result) == VT_UNKNOWN) && V_UNKNOWN(&result) != nullptr) {
            IDispatchPtr object;
            if (SUCCEEDED(
                    V_UNKNOWN(&result)->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&object))))
                adopt(object);
        }
        else if (V_VT(&result) == VT_BSTR && m_texts.size() < kMaxTexts) {
            m_texts.push_back(textOf(V_BSTR(&result)));
        }
    }

    // object, a count byte (modulo 4), a byte whose bit 0 passes IID_IDispatch for IID_NULL, then
    // for each name a byte: below 0x80 the name of one of the object's members (chosen by the next
    // byte), upper-cased when bit 0 is set, or with bit 1 one of its parameters' names; else a text.
    void lookUpNames()
    {
        IDispatch* object = pick();
        if (object == nullptr)
            return;
        const Description& described = describe(object);
        std::vector<std::wstring> names(m_choices.byte() % 4);
        const bool nullInterface = (m_choices.byte() & 1) == 0;
        const Member* firstNamed = nullptr;  // the member the first name names
        for (std::size_t i = 0; i < names.size(); ++i) {
            const std::uint8_t choice = m_choices.byte();
            if (choice >= 0x80 || described.members.empty()) {
                names[i] = m_choices.text();
                continue;
            }
            const Member& member = described.members[m_choices.below(described.members.size())];
            const bool ofParameter = (choice & 2) != 0 && member.names.size() > 1;
            if (member.names.empty())
                continue;
            names[i] = member.names[ofParameter ? 1 + m_choices.below(member.names.size() - 1) : 0];
            if (choice & 1) {
                for (wchar_t& character : names[i])
                    character = static_cast<wchar_t>(std::towupper(static_cast<wint_t>(character)));
            }
            if (i == 0 && !ofParameter && !names[i].empty())
                firstNamed = &member;
        }
        std::vector<LPOLESTR> pointers;
        for (std::wstring& name : names)
            pointers.push_back(name.data());
        std::vector<DISPID> ids(names.size() + 1, DISPID_UNKNOWN);
        const HRESULT status =
            object->GetIDsOfNames(nullInterface ? IID_NULL : IID_IDispatch, pointers.data(),
                                  static_cast<UINT>(names.size()), LOCALE_USER_DEFAULT, ids.data());
        if (firstNamed != nullptr && names.size() == 1 && nullInterface)
            fuzz::require(status == S_OK && ids[0] == firstNamed->id,
                          "a member's name, in either case, finds its DISPID");
    }

    // kind (a byte choosing, in the order of sim::FaultKind), object, member, then a detail byte:
    //   bits 0-1 which matching call (0 every one; the runtime's faults count from 1),
    //   bits 2-4 the status, bit 5 only on objects whose journal name holds a text given before,
    //   bits 6-7 an answer fault's answer: 0 and 3 the host's own value, 1 a number (a word
    //   follows), 2 a null text.
    // A fault the host cannot honour is refused when armed, and the sequence goes on without it.
    void armFault()
    {
        static constexpr sim::FaultKind kinds[] = {sim::FaultKind::failCall,
                                                   sim::FaultKind::nullObject,
                                                   sim::FaultKind::answer,
                                                   sim::FaultKind::noFrameworkObject,
                                                   sim::FaultKind::noDispatch,
                                                   sim::FaultKind::refuseApplicationInterface,
                                                   sim::FaultKind::failStringAllocation,
                                                   sim::FaultKind::failVariantCopy};
        static constexpr HRESULT statuses[] = {
            E_FAIL,           DISP_E_BADINDEX,     E_INVALIDARG, E_OUTOFMEMORY,
            DISP_E_EXCEPTION, DISP_E_TYPEMISMATCH, S_FALSE,      S_OK};
        sim::Fault fault;
        fault.kind = kinds[m_choices.below(std::size(kinds))];
        IDispatch* object = pick();
        if (object == nullptr)
            return;
        const Description& described = describe(object);
        if (const Member* member = chooseMember(described, m_choices.byte());
            member && !member->names.empty()) {
            const char* prefix = member->kind == INVOKE_PROPERTYGET   ? "get_"
                                 : member->kind == INVOKE_PROPERTYPUT ? "put_"
                                                                      : "";
            fault.method = narrow(described.name) + "." + prefix + narrow(member->names[0]);
        }
        const std::uint8_t detail = m_choices.byte();
        fault.nth = detail & 3;
        fault.status = statuses[(detail >> 2) & 7];
        if ((detail & 0x20) && !m_texts.empty())
            fault.object = narrow(m_texts[m_choices.below(m_texts.size())]);
        if (fault.kind != sim::FaultKind::failCall && fault.kind != sim::FaultKind::nullObject &&
            fault.kind != sim::FaultKind::answer)
            fault.method.clear();
        if (fault.kind == sim::FaultKind::failStringAllocation ||
            fault.kind == sim::FaultKind::failVariantCopy)
            fault.nth += 1;
        if (fault.kind == sim::FaultKind::answer && (detail >> 6) == 1)
            fault.answer = {sim::Answer::Kind::number, m_choices.word()};
        else if (fault.kind == sim::FaultKind::answer && (detail >> 6) == 2)
            fault.answer = {sim::Answer::Kind::null, 0};
        try {
            m_host.armFault(fault);
        }
        catch (const std::invalid_argument&) {
            // refused: the calls go on without it
        }
    }

    // object, question (modulo 4): 0 how many type informations, 1 the type information of an index
    // (a byte, modulo 3), 2 an interface (a byte choosing), 3 whether its own interface (or, with
    // bit 0 of a byte set, IDispatch) gives error information.
    void askAbout()
    {
        IDispatch* object = pick();
        if (object == nullptr)
            return;
        const Description& described = describe(object);
        switch (m_choices.byte() % 4) {
        case 0: {
            UINT count = 0;
            fuzz::require(object->GetTypeInfoCount(&count) == S_OK && count == 1,
                          "a host object has one type information");
            break;
        }
        case 1: {
            const UINT index = m_choices.byte() % 3;
            ITypeInfoPtr typeInfo;
            const HRESULT status = object->GetTypeInfo(index, LOCALE_USER_DEFAULT, &typeInfo);
            fuzz::require(index == 0 ? SUCCEEDED(status) && typeInfo : FAILED(status) && !typeInfo,
                          "only index 0 gives type information");
            break;
        }
        case 2: {
            const IID* asked[] = {&IID_IUnknown,
                                  &IID_IDispatch,
                                  &IID_ISupportErrorInfo,
                                  &described.iid,
                                  &__uuidof(HostApplication),
                                  &__uuidof(ITypeInfo)};
            IUnknown* given = nullptr;
            const HRESULT status = object->QueryInterface(*asked[m_choices.below(std::size(asked))],
                                                          reinterpret_cast<void**>(&given));
            const IUnknownPtr held(given, false);
            fuzz::require(SUCCEEDED(status) == (given != nullptr),
                          "an interface is given exactly when the query succeeds");
            break;
        }
        default: {
            const ISupportErrorInfoPtr support(object);
            if (support)
                support->InterfaceSupportsErrorInfo((m_choices.byte() & 1) ? IID_IDispatch : described.iid);
            break;
        }
        }
    }

    sim::Host& m_host;
    Choices& m_choices;
    std::vector<IDispatchPtr> m_objects;
    std::vector<std::wstring> m_texts;
    std::map<std::string, Description> m_descriptions;  // by the bytes of the interface's IID
    fuzz::ValueMaker m_values;
};

const bool kDumpsState = [] {
    const char* asked = std::getenv("MX_FUZZ_DUMP_STATE");
    return asked != nullptr && std::string(asked) == "1";
}();

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const unsigned long stringsBefore = automation_testing::liveStrings();
    {
        sim::Host host;
        const long buffersBefore = host.buffersHeld();
        Choices choices(data, size);
        host.journal().setRecordingReleases((choices.byte() & 1) != 0);
        Session(host, choices).run();
        // The runtime's own faults are the process's: none may reach the checks or the next input.
        host.clearFaults();
        fuzz::require(host.referencesHeld() == 0, "no host reference is held once every caller let go");
        fuzz::require(host.buffersHeld() == buffersBefore, "every host buffer is given back");
        if (kDumpsState)
            fuzz::require(dumpLoads(host.state()), "the state the calls left dumps as JSON that loads again");
        SetErrorInfo(0, nullptr);  // the last failure's error information stays the thread's until then
    }
    fuzz::require(automation_testing::liveStrings() == stringsBefore,
                  "no automation string outlives its input");
    return 0;
}
