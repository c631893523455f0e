// The root of the object model.
#include "calls/arguments_in.h"
#include "objects/host_object.h"
#include "objects/objects.h"

namespace sim::detail {
namespace {

class ApplicationObject final : public HostObject<HostApplication> {
public:
    explicit ApplicationObject(const CorePtr& core) : HostObject(core) {}

    std::string journalName() const override { return "HostApplication"; }

    HRESULT STDMETHODCALLTYPE get_Preferences(HostPreferences** preferences) override
    {
        return give(members::HostApplication::get_Preferences, preferences,
                    [&] { return newPreferences(sharedCore()); });
    }

    HRESULT STDMETHODCALLTYPE get_MenuGroups(HostMenuGroups** groups) override
    {
        return give(members::HostApplication::get_MenuGroups, groups,
                    [&] { return newMenuGroups(sharedCore()); });
    }

    HRESULT STDMETHODCALLTYPE get_MenuBar(HostMenuBar** menuBar) override
    {
        return give(members::HostApplication::get_MenuBar, menuBar, [&] { return newMenuBar(sharedCore()); });
    }

    // No drawing open: no active document, which is not a failure.
    HRESULT STDMETHODCALLTYPE get_ActiveDocument(HostDocument** document) override
    {
        return give(members::HostApplication::get_ActiveDocument, document,
                    [&] { return newDocument(sharedCore(), state().activeDocument); });
    }

    HRESULT STDMETHODCALLTYPE get_Documents(HostDocuments** documents) override
    {
        return give(members::HostApplication::get_Documents, documents,
                    [&] { return newDocuments(sharedCore()); });
    }

    HRESULT STDMETHODCALLTYPE raw_ZoomWindow(VARIANT lowerLeft, VARIANT upperRight) override
    {
        Call call =
            begin(members::HostApplication::ZoomWindow, {Arg::variant(lowerLeft), Arg::variant(upperRight)});
        if (call.refused())
            return call.status();
        if (!state().activeDocument)
            return call.fail(E_FAIL, L"no drawing is open to zoom in");
        ZoomRequest zoom;
        if (!readPoint(call, lowerLeft, L"first corner", zoom.lowerLeftX, zoom.lowerLeftY) ||
            !readPoint(call, upperRight, L"opposite corner", zoom.upperRightX, zoom.upperRightY))
            return call.status();
        state().zoomRequests.push_back(zoom);
        return call.succeed();
    }

protected:
    const char* interfaceName() const override { return "HostApplication"; }
};

}  // namespace

HostApplication* newApplication(const CorePtr& core) { return new ApplicationObject(core); }

}  // namespace sim::detail
