// What the platform's COM support headers declare but its libraries do not define. Both builds
// take these definitions.
#include "automation.h"

void WINAPI _com_issue_errorex(HRESULT hr, IUnknown* object, REFIID iid)
{
    // Attach the thread's error information only when the object says it leaves it for this
    // interface; otherwise a stale record of some other call could be reported.
    IErrorInfo* info = nullptr;
    ISupportErrorInfoPtr support;
    if (object != nullptr &&
        SUCCEEDED(object->QueryInterface(IID_ISupportErrorInfo, reinterpret_cast<void**>(&support))) &&
        support->InterfaceSupportsErrorInfo(iid) == S_OK && GetErrorInfo(0, &info) != S_OK)
        info = nullptr;
    throw _com_error(hr, info);  // the failure takes over the reference GetErrorInfo gave
}

_variant_t vtMissing(DISP_E_PARAMNOTFOUND, VT_ERROR);
