// The root of the host's object model.
#pragma once

#include "host/documents.h"
#include "host/interface_support.h"
#include "host/menus.h"
#include "host/preferences.h"

struct HostApplication : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_Preferences(HostPreferences** preferences) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_MenuGroups(HostMenuGroups** groups) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_MenuBar(HostMenuBar** menuBar) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ActiveDocument(HostDocument** document) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Documents(HostDocuments** documents) = 0;
    // The corners come in the host's point form (a two-element array of doubles).
    virtual HRESULT STDMETHODCALLTYPE raw_ZoomWindow(VARIANT lowerLeft, VARIANT upperRight) = 0;

    HostPreferencesPtr GetPreferences()
    {
        return imported_call::object<HostPreferencesPtr>(this, &HostApplication::get_Preferences);
    }
    HostMenuGroupsPtr GetMenuGroups() { return imported_call::object<HostMenuGroupsPtr>(this, &HostApplication::get_MenuGroups); }
    HostMenuBarPtr GetMenuBar() { return imported_call::object<HostMenuBarPtr>(this, &HostApplication::get_MenuBar); }
    HostDocumentPtr GetActiveDocument()
    {
        return imported_call::object<HostDocumentPtr>(this, &HostApplication::get_ActiveDocument);
    }
    HostDocumentsPtr GetDocuments() { return imported_call::object<HostDocumentsPtr>(this, &HostApplication::get_Documents); }
    void ZoomWindow(const _variant_t& lowerLeft, const _variant_t& upperRight)
    {
        imported_call::invoke(this, &HostApplication::raw_ZoomWindow, imported_call::argument(lowerLeft),
                          imported_call::argument(upperRight));
    }
};
