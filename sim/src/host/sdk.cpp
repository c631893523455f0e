// The host SDK functions, served from the installed simulated host. With no host installed they
// report failure (zbedGetZorbWinApp and zbdbHostApplicationServices give null).
#include "host/sdk.h"

#include "faults/plan.h"
#include "faults/host_methods.h"
#include "host/installation.h"
#include "calls/named_subject.h"
#include "host/sdk_buffers.h"
#include "model/namings.h"

#include <cwchar>

using sim::detail::Arg;
using sim::detail::Call;

namespace {

const sim::detail::NamedSubject& sdkSubject()
{
    static const sim::detail::NamedSubject subject("sdk");
    return subject;
}

// The first system variable of that name (letter case ignored), or null.
short* findVariable(sim::detail::HostCore& core, const wchar_t* name)
{
    const auto variable =
        core.texts.first<sim::detail::VariableName>(core.seats, core.state.systemVariables, name);
    return variable ? &variable->second : nullptr;
}

// How a value handed to zbedSetVar is journalled.
Arg describeResult(const resbuf* value, VARIANT& scratch)
{
    VariantInit(&scratch);
    if (value == nullptr)
        return Arg::pointer(L"null");
    switch (value->restype) {
    case kZbShortValue:
        return Arg::shortNumber(value->resval.rint);
    case kZbRealValue:
        V_VT(&scratch) = VT_R8;
        V_R8(&scratch) = value->resval.rreal;
        return Arg::variant(scratch);
    case kZbTextValue:
        return Arg::sdkText(value->resval.rstring);
    default:
        return Arg::pointer(L"a value of unknown type");
    }
}

}  // namespace

CWinApp* zbedGetZorbWinApp()
{
    sim::detail::Installation* host = sim::detail::installed();
    if (host == nullptr)
        return nullptr;
    Call call(host->core(), sdkSubject(), sim::detail::undescribed::zbedGetZorbWinApp.name);
    if (call.refused())
        return nullptr;
    return call.giveSdkObject(host->frameworkObject(), L"no framework object");
}

int zbedGetVar(const wchar_t* name, resbuf* value)
{
    sim::detail::Installation* host = sim::detail::installed();
    if (host == nullptr)
        return kZbError;
    Call call(host->core(), sdkSubject(), sim::detail::undescribed::zbedGetVar.name, {Arg::sdkText(name)});
    if (call.refused())
        return kZbError;
    short* variable = name != nullptr && value != nullptr ? findVariable(host->core(), name) : nullptr;
    if (variable == nullptr) {
        call.fail(E_FAIL, L"no such system variable");
        return kZbError;
    }
    value->rbnext = nullptr;
    value->restype = kZbShortValue;
    const sim::Answer& answer = call.answer();
    value->resval.rint =
        answer.kind == sim::Answer::Kind::number ? static_cast<short>(answer.number) : *variable;
    call.succeed();
    return kZbNormal;
}

int zbedSetVar(const wchar_t* name, const resbuf* value)
{
    sim::detail::Installation* host = sim::detail::installed();
    if (host == nullptr)
        return kZbError;
    VARIANT scratch;
    Call call(host->core(), sdkSubject(), sim::detail::undescribed::zbedSetVar.name,
              {Arg::sdkText(name), describeResult(value, scratch)});
    if (call.refused())
        return kZbError;
    short* variable = name != nullptr ? findVariable(host->core(), name) : nullptr;
    if (variable == nullptr || value == nullptr || value->restype != kZbShortValue) {
        call.fail(E_FAIL, L"no such system variable, or not a whole-number value for it");
        return kZbError;
    }
    *variable = value->resval.rint;
    call.succeed();
    return kZbNormal;
}

// A file is found by its name, or by a full path the host lists.
int zbedFindFile(const wchar_t* fileName, ZbString& found)
{
    sim::detail::Installation* host = sim::detail::installed();
    if (host == nullptr)
        return kZbError;
    Call call(host->core(), sdkSubject(), sim::detail::undescribed::zbedFindFile.name,
              {Arg::sdkText(fileName)});
    if (call.refused())
        return kZbError;
    const std::wstring wanted = fileName != nullptr ? fileName : L"";
    sim::detail::HostCore& core = host->core();
    const auto file = wanted.empty() ? nullptr
                                     : core.texts.first<sim::detail::SearchPathFile>(
                                           core.seats, core.state.searchPathFiles, wanted);
    const std::wstring* path = file ? &file->second : nullptr;
    if (path == nullptr) {
        call.fail(E_FAIL, L"file not found on the search path");
        return kZbError;
    }
    // An answer may make the search succeed without a found path.
    found.buffer =
        call.answer().kind == sim::Answer::Kind::null ? nullptr : sim::detail::allocateHostBuffer(*path);
    call.succeed();
    return kZbNormal;
}

void zbHeapFree(void* block)
{
    const bool freed = block == nullptr || sim::detail::freeHostBuffer(block);
    sim::detail::Installation* host = sim::detail::installed();
    if (host == nullptr)
        return;
    Call call(host->core(), sdkSubject(), sim::detail::undescribed::zbHeapFree.name,
              {Arg::pointer(block == nullptr ? L"null"
                            : freed          ? L"host buffer"
                                             : L"unknown block")});
    if (call.refused())
        return;
    if (freed)
        call.succeed();
    else
        call.fail(E_FAIL, L"not a block the host allocated");
}

ZbDbHostApplicationServices* zbdbHostApplicationServices()
{
    sim::detail::Installation* host = sim::detail::installed();
    if (host == nullptr)
        return nullptr;
    Call call(host->core(), sdkSubject(), sim::detail::undescribed::zbdbHostApplicationServices.name);
    if (call.refused())
        return nullptr;
    return call.giveSdkObject(host->services(), L"no host services");
}
