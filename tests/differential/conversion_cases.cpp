// VariantChangeType over the types the runtime holds and the types the host's members take.
#include "probe.h"

PROBE_CASE(convert, ui4_max_to_i4)
{
    VARIANT source;
    VariantInit(&source);
    V_VT(&source) = VT_UI4;
    V_UI4(&source) = 0xFFFFFFFFu;
    VARIANT converted;
    VariantInit(&converted);
    const HRESULT status = VariantChangeType(&converted, &source, 0, VT_I4);
    const std::string outcome = probe::status(status) + " " + probe::value(converted);
    VariantClear(&converted);
    return outcome;
}
