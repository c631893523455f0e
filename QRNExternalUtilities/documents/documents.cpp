// Opening, activating and closing the MX product's drawings.
#include "ZORBAppUtilities.h"

#include "bridge/collection_walk.h"
#include "bridge/failure_policies.h"
#include "bridge/host_access.h"

#include "host/sdk.h"

using namespace external_utilities;

namespace {

const wchar_t* const kDrawingCheck = L"DWGCHECK";

// "DWGCHECK" held at 0 while a drawing is opened, and put back afterwards in the same result buffer
// the host filled. The saved value is -1 until the variable was changed, so a variable that was -1
// itself is not written back, as callers have always seen it.
class DrawingCheckHold {
public:
    void holdAtZero()
    {
        zbedGetVar(kDrawingCheck, &m_buffer);
        m_saved = m_buffer.resval.rint;
        m_buffer.resval.rint = 0;
        zbedSetVar(kDrawingCheck, &m_buffer);
    }

    void restore()
    {
        if (m_saved == kUnchanged)
            return;
        m_buffer.resval.rint = m_saved;
        zbedSetVar(kDrawingCheck, &m_buffer);
    }

private:
    static constexpr short kUnchanged = -1;
    resbuf m_buffer;
    short m_saved = kUnchanged;
};

// The first open drawing whose full file name equals `path` ignoring case (nothing else is
// normalised), or null. Documents are asked for with VT_INT positions; a null one raises.
HostDocumentPtr findOpenDocument(HostDocuments& documents, const MxtString& path)
{
    HostDocumentPtr found;
    WalkRules rules;
    rules.position = documentPosition;
    rules.nullItem = WalkRules::NullItem::raises;
    walkByPosition<HostDocumentPtr>(documents, rules, [&](HostDocumentPtr document, std::int32_t) {
        if (MxtString::compareNoCase(MxtString(document->GetFullFileName()), path) != 0)
            return WalkStep::next;
        found = std::move(document);
        return WalkStep::stop;
    });
    return found;
}

}  // namespace

bool ZORBAppUtilities::closeActiveDocument(bool saveChanges)
{
    bool closed = false;
    catchAutomationFailure([&] {
        const HostDocumentPtr document = readFromApplication<HostDocumentPtr>(
            [](HostApplication& application) { return application.GetActiveDocument(); });
        if (!document)
            return;
        const _bstr_t fullFileName = document->GetFullFileName();
        // A 16-bit whole number rather than a Boolean variant, and the drawing's own name whether
        // or not it is saved: what the host has always been given.
        const _variant_t save(static_cast<short>(saveChanges ? -1 : 0), VT_I2);
        const _variant_t fileName(fullFileName);
        document->Close(save, fileName);
        closed = true;
    });
    return closed;
}

bool ZORBAppUtilities::openAndActivateDocument(const MxtString& path, bool activate)
{
    bool open = false;
    DrawingCheckHold drawingCheck;
    catchAutomationFailure([&] {
        // The application is held until the collection is let go, and both before "DWGCHECK" is
        // put back: the order in which the host has always seen them released.
        const HostApplicationPtr application = getHostApplication();
        if (!application)
            return;
        const HostDocumentsPtr documents = application->GetDocuments();
        if (!documents)
            return;
        if (const HostDocumentPtr already = findOpenDocument(*documents, path)) {
            if (activate)
                already->Activate();
            open = true;
            return;
        }
        drawingCheck.holdAtZero();
        documents->Open(path.getStringW(), _variant_t(static_cast<short>(0), VT_I2), vtMissing);
        // Found again by its name; a drawing the host lists under another name is not activated.
        if (activate)
            if (const HostDocumentPtr opened = findOpenDocument(*documents, path))
                opened->Activate();
        open = true;
    });
    // Also after a caught failure: a drawing that could not be opened leaves the variable as found.
    drawingCheck.restore();
    return open;
}
