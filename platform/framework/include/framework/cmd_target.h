// The framework's command targets and its application object, reduced to their automation face.
#pragma once

#include "automation.h"

class CCmdTarget {
public:
    CCmdTarget() = default;
    virtual ~CCmdTarget() = default;
    CCmdTarget(const CCmdTarget&) = delete;
    CCmdTarget& operator=(const CCmdTarget&) = delete;

    // The object's IDispatch, with one reference added for the caller when addRef is TRUE;
    // null when the object has no automation face.
    IDispatch* GetIDispatch(BOOL addRef)
    {
        IDispatch* dispatch = automationDispatch();
        if (dispatch != nullptr && addRef)
            dispatch->AddRef();
        return dispatch;
    }

protected:
    // The object's automation face, still owned by the object, or null. The host's application
    // object gives the IDispatch of its application automation object here.
    virtual IDispatch* automationDispatch() { return nullptr; }
};

class CWinApp : public CCmdTarget {
};
