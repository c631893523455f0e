// Late-bound calls on the simulated host's objects for the dispatch probe: a fresh host per case,
// the objects a case calls, one Invoke as a client makes it, and what that Invoke left behind, in
// words that read the same on both builds. Most cases are rows of a table (CallCase): one call on
// one of the host's objects, and what is read back after it.
#pragma once

#include "probe.h"

#include "automation/com_object.h"
#include "sim/host.h"
#include "untyped_dispatch.h"

#include <functional>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace dispatch_probe {

// The host's objects the cases call, each reached from the application by property gets: its
// menu groups, the first group, that group's first toolbar, the preferences' files, the active
// document, its layout and its plot.
enum class Subject { application, groups, group, toolbar, files, document, layout, plot };

// One step from an object to another: a property get (or a method call) by name, with the
// arguments given in the caller's order.
struct Step {
    const wchar_t* name;
    std::vector<_variant_t> arguments = {};
};

// A fresh default host for one case, the error information of earlier cases cleared, and its
// application's IDispatch.
class ProbedHost {
public:
    ProbedHost();
    ~ProbedHost();
    ProbedHost(const ProbedHost&) = delete;
    ProbedHost& operator=(const ProbedHost&) = delete;

    IDispatch* application() const { return m_application; }
    sim::Host& host() { return m_host; }

    // The object the steps lead to from the application (each a METHOD|PROPERTYGET call). The host
    // keeps it until withReferencesLeft(); a step that does not give an object stops the probe.
    IDispatch* reach(std::initializer_list<Step> steps);
    IDispatch* reach(Subject subject);

    // From now on every call of `method` ("HostMenuGroups.Item") fails with `status`.
    void failCalls(const char* method, HRESULT status = static_cast<HRESULT>(0x8004C0DEL));

    // Ends the case's use of the host: releases every object the case reached and the application,
    // and gives `outcome` followed by how many references callers still hold on the host's objects
    // (" refs N"). Taking the outcome makes the case's calls come before the count.
    std::string withReferencesLeft(const std::string& outcome);

private:
    sim::Host m_host;
    IDispatchPtr m_application;
    std::vector<IDispatchPtr> m_reached;
};

// The DISPID `name` has on `object` (DISPID_UNKNOWN for none).
DISPID idOf(IDispatch* object, const wchar_t* name);

// An object of the case's own: its default property (DISPID_VALUE, got without arguments) is the
// text "own", it has no other member nor names nor type information, and the references others
// take on it can be counted.
class OwnObject final : public automation::ComObject<OwnObject, UntypedDispatch<IDispatch>> {
public:
    void* interfaceFor(REFIID iid);
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID locale, WORD flags,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                     UINT* argumentError) override;

private:
    friend ComObject;  // only the last Release deletes it
    ~OwnObject() = default;
};

// " mine N": the references on `object` beyond the one its case holds.
std::string referencesOn(IUnknown* object);

// What the caller passes for pVarResult.
enum class ResultSlot {
    empty,   // an empty variant
    none,    // a null pointer
    text,    // a variant holding the text "before"
    object,  // a variant holding an object of the case's own, whose references are counted after
};

// A member by name, looked up on the object called, or by DISPID.
struct Member {
    Member(const wchar_t* memberName) : name(memberName) {}
    Member(DISPID memberId) : id(memberId) {}
    Member(int memberId) : id(memberId) {}  // DISPID_VALUE and the other ids are ints
    const wchar_t* name = nullptr;
    DISPID id = DISPID_UNKNOWN;
};

// One call of IDispatch::Invoke. DISPPARAMS is filled as clients fill it: the named arguments
// first, in the order given, then the positional ones last to first.
struct Invocation {
    Member member = DISPID_VALUE;
    WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    std::vector<_variant_t> positional = {};  // in the caller's order
    std::vector<std::pair<DISPID, _variant_t>> named = {};
    ResultSlot result = ResultSlot::empty;
    bool exceptionGiven = true;  // EXCEPINFO, filled with marks beforehand so that what the call left shows
    bool argumentErrorGiven = true;
    const IID* iid = &IID_NULL;
    // Changes DISPPARAMS after it was filled, for calls no client should make.
    std::function<void(DISPPARAMS&)> tamper = {};
};

// Makes the call and says what it gave: the status, the result (" result ..."), EXCEPINFO
// (" exc untouched" or each field, marks shown as "kept"), puArgErr (" argErr N" or "untouched")
// and, for ResultSlot::object, the references left on the object put there beforehand.
std::string invoke(IDispatch* object, Invocation call);

// The property `name` of `object`, as a get without EXCEPINFO or puArgErr gives it: " <status>
// result <value>".
std::string readProperty(IDispatch* object, const wchar_t* name);

// A property put as clients make it, its value named DISPID_PROPERTYPUT.
Invocation put(Member member, _variant_t value);

// `call` changed in one respect, for rows of a table.
Invocation resultIn(ResultSlot result, Invocation call);
Invocation withoutExcepinfo(Invocation call);
Invocation withoutArgumentError(Invocation call);
Invocation tampered(std::function<void(DISPPARAMS&)> tamper, Invocation call);

// One case of a table: `prepare` (faults, error information) once `subject` is reached, `call`
// on it, then the thread's error information when asked, then the subject's properties
// `readBack`, then the references left.
struct CallCase {
    const char* name;
    Subject subject;
    Invocation call;
    std::vector<const wchar_t*> readBack = {};
    bool errorInfoAfter = false;
    std::function<void(ProbedHost&)> prepare = {};
};

// Registers each case as "<group>.<name>"; true, for a static initializer.
bool addCases(const char* group, std::initializer_list<CallCase> cases);

// " errorInfo none", or the source and description of the calling thread's error information,
// which this takes.
std::string errorInfoLeft();

// Variants of the types scripts pass that _variant_t makes no constructor for.
_variant_t nullValue();
_variant_t missing();  // VT_ERROR DISP_E_PARAMNOTFOUND, as a left-out argument
_variant_t variantArray(std::initializer_list<_variant_t> elements);
// A by-reference variant pointing at `target`, which must outlive it.
_variant_t reference(VARTYPE type, void* target);

}  // namespace dispatch_probe
