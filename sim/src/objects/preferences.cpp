// The host's options and the file locations among them.
#include "objects/host_object.h"
#include "objects/objects.h"

namespace sim::detail {
namespace {

class PreferencesObject final : public HostObject<HostPreferences> {
public:
    explicit PreferencesObject(const CorePtr& core) : HostObject(core) {}

    std::string journalName() const override { return "HostPreferences"; }

    HRESULT STDMETHODCALLTYPE get_Files(HostPreferencesFiles** files) override
    {
        return give(members::HostPreferences::get_Files, files,
                    [&] { return newPreferencesFiles(sharedCore()); });
    }

protected:
    const char* interfaceName() const override { return "HostPreferences"; }
};

class PreferencesFilesObject final : public HostObject<HostPreferencesFiles> {
public:
    explicit PreferencesFilesObject(const CorePtr& core) : HostObject(core) {}

    std::string journalName() const override { return "HostPreferencesFiles"; }

    HRESULT STDMETHODCALLTYPE get_SupportPath(BSTR* path) override
    {
        return read(members::HostPreferencesFiles::get_SupportPath, &PreferencesFiles::supportPath, path);
    }
    HRESULT STDMETHODCALLTYPE put_SupportPath(BSTR path) override
    {
        return write(members::HostPreferencesFiles::put_SupportPath, &PreferencesFiles::supportPath, path);
    }
    HRESULT STDMETHODCALLTYPE get_PrinterStyleSheetPath(BSTR* path) override
    {
        return read(members::HostPreferencesFiles::get_PrinterStyleSheetPath,
                    &PreferencesFiles::printerStyleSheetPath, path);
    }
    HRESULT STDMETHODCALLTYPE put_PrinterStyleSheetPath(BSTR path) override
    {
        return write(members::HostPreferencesFiles::put_PrinterStyleSheetPath,
                     &PreferencesFiles::printerStyleSheetPath, path);
    }
    HRESULT STDMETHODCALLTYPE get_TemplateDrawingFolder(BSTR* path) override
    {
        return read(members::HostPreferencesFiles::get_TemplateDrawingFolder,
                    &PreferencesFiles::templateDrawingFolder, path);
    }
    HRESULT STDMETHODCALLTYPE put_TemplateDrawingFolder(BSTR path) override
    {
        return write(members::HostPreferencesFiles::put_TemplateDrawingFolder,
                     &PreferencesFiles::templateDrawingFolder, path);
    }
    HRESULT STDMETHODCALLTYPE get_DrawingPath(BSTR* path) override
    {
        return read(members::HostPreferencesFiles::get_DrawingPath, &PreferencesFiles::drawingPath, path);
    }
    HRESULT STDMETHODCALLTYPE put_DrawingPath(BSTR path) override
    {
        return write(members::HostPreferencesFiles::put_DrawingPath, &PreferencesFiles::drawingPath, path);
    }

protected:
    const char* interfaceName() const override { return "HostPreferencesFiles"; }

private:
    using Location = std::wstring PreferencesFiles::*;

    HRESULT read(const members::Member& method, Location location, BSTR* path)
    {
        return give(method, path, [&] { return state().preferences.*location; });
    }

    HRESULT write(const members::Member& method, Location location, BSTR path)
    {
        Call call = begin(method, {Arg::text(path)});
        if (call.refused())
            return call.status();
        state().preferences.*location = text::fromBstr(path);
        return call.succeed();
    }
};

}  // namespace

HostPreferences* newPreferences(const CorePtr& core) { return new PreferencesObject(core); }
HostPreferencesFiles* newPreferencesFiles(const CorePtr& core) { return new PreferencesFilesObject(core); }

}  // namespace sim::detail
