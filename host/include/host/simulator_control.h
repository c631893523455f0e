// The simulator's own automation interface, beside the host's: what a client that created a
// simulated host by its class (the in-process server of the windows build) uses to arrange and
// inspect it. A real host has nothing like it. Texts cross as JSON, in the forms of the host-state
// files and of `zorbsim`'s journal report.
#pragma once

#include "host/application.h"
#include "host/interface_support.h"

struct SimulatorControl : IDispatch {
    // The application of the host this control runs, with a reference for the caller.
    virtual HRESULT STDMETHODCALLTYPE get_Application(HostApplication** application) = 0;
    // Starts the host afresh from a host-state file; objects of the host before fail their calls.
    virtual HRESULT STDMETHODCALLTYPE raw_LoadState(BSTR stateFile) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_State(BSTR* json) = 0;
    // The calls so far, as an array of JSON objects.
    virtual HRESULT STDMETHODCALLTYPE get_Journal(BSTR* json) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_ClearJournal() = 0;
    // Arms a fault written as one entry of a state file's "faults".
    virtual HRESULT STDMETHODCALLTYPE raw_ArmFault(BSTR fault) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_ClearFaults() = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ReferencesHeld(LONG* count) = 0;
};
