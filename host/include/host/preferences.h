// The host's options: the file and folder locations among them.
#pragma once

#include "host/interface_support.h"

struct HostPreferencesFiles : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_SupportPath(BSTR* path) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_SupportPath(BSTR path) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_PrinterStyleSheetPath(BSTR* path) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_PrinterStyleSheetPath(BSTR path) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_TemplateDrawingFolder(BSTR* path) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_TemplateDrawingFolder(BSTR path) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_DrawingPath(BSTR* path) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_DrawingPath(BSTR path) = 0;

    _bstr_t GetSupportPath() { return imported_call::text(this, &HostPreferencesFiles::get_SupportPath); }
    void PutSupportPath(const _bstr_t& path) { imported_call::invoke(this, &HostPreferencesFiles::put_SupportPath, static_cast<BSTR>(path)); }
    _bstr_t GetPrinterStyleSheetPath() { return imported_call::text(this, &HostPreferencesFiles::get_PrinterStyleSheetPath); }
    void PutPrinterStyleSheetPath(const _bstr_t& path)
    {
        imported_call::invoke(this, &HostPreferencesFiles::put_PrinterStyleSheetPath, static_cast<BSTR>(path));
    }
    _bstr_t GetTemplateDrawingFolder() { return imported_call::text(this, &HostPreferencesFiles::get_TemplateDrawingFolder); }
    void PutTemplateDrawingFolder(const _bstr_t& path)
    {
        imported_call::invoke(this, &HostPreferencesFiles::put_TemplateDrawingFolder, static_cast<BSTR>(path));
    }
    _bstr_t GetDrawingPath() { return imported_call::text(this, &HostPreferencesFiles::get_DrawingPath); }
    void PutDrawingPath(const _bstr_t& path) { imported_call::invoke(this, &HostPreferencesFiles::put_DrawingPath, static_cast<BSTR>(path)); }
};

struct HostPreferences : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_Files(HostPreferencesFiles** files) = 0;

    HostPreferencesFilesPtr GetFiles() { return imported_call::object<HostPreferencesFilesPtr>(this, &HostPreferences::get_Files); }
};
