// Toolbars of a menu group and their buttons.
#pragma once

#include "host/interface_support.h"

struct HostToolbarItem : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_Name(BSTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_TagString(BSTR* tag) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_TagString(BSTR tag) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Index(LONG* index) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_SetBitmaps(BSTR smallBitmap, BSTR largeBitmap) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_AttachToolbarToFlyout(BSTR menuGroupName, BSTR toolbarName) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_Delete() = 0;

    _bstr_t GetName() { return imported_call::text(this, &HostToolbarItem::get_Name); }
    _bstr_t GetTagString() { return imported_call::text(this, &HostToolbarItem::get_TagString); }
    void PutTagString(const _bstr_t& tag) { imported_call::invoke(this, &HostToolbarItem::put_TagString, static_cast<BSTR>(tag)); }
    LONG GetIndex() { return imported_call::value<LONG>(this, &HostToolbarItem::get_Index); }
    void SetBitmaps(const _bstr_t& smallBitmap, const _bstr_t& largeBitmap)
    {
        imported_call::invoke(this, &HostToolbarItem::raw_SetBitmaps, static_cast<BSTR>(smallBitmap),
                          static_cast<BSTR>(largeBitmap));
    }
    void AttachToolbarToFlyout(const _bstr_t& menuGroupName, const _bstr_t& toolbarName)
    {
        imported_call::invoke(this, &HostToolbarItem::raw_AttachToolbarToFlyout, static_cast<BSTR>(menuGroupName),
                          static_cast<BSTR>(toolbarName));
    }
    void Delete() { imported_call::invoke(this, &HostToolbarItem::raw_Delete); }
};

struct HostToolbar : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_Name(BSTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_TagString(BSTR* tag) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Visible(VARIANT_BOOL* visible) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Visible(VARIANT_BOOL visible) = 0;
    // 4 is floating; any other value names the side the toolbar is docked at.
    virtual HRESULT STDMETHODCALLTYPE get_DockStatus(LONG* dockStatus) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Left(LONG* left) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Top(LONG* top) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_FloatingRows(LONG* rows) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_Dock(LONG side) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_Float(LONG top, LONG left, LONG rows) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Count(LONG* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_Item(VARIANT index, HostToolbarItem** button) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_AddButton(VARIANT index, BSTR name, BSTR helpString, BSTR macro,
                                                    HostToolbarItem** button) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw__NewEnum(IUnknown** enumerator) = 0;

    _bstr_t GetName() { return imported_call::text(this, &HostToolbar::get_Name); }
    _bstr_t GetTagString() { return imported_call::text(this, &HostToolbar::get_TagString); }
    VARIANT_BOOL GetVisible() { return imported_call::value<VARIANT_BOOL>(this, &HostToolbar::get_Visible); }
    void PutVisible(VARIANT_BOOL visible) { imported_call::invoke(this, &HostToolbar::put_Visible, visible); }
    LONG GetDockStatus() { return imported_call::value<LONG>(this, &HostToolbar::get_DockStatus); }
    LONG GetLeft() { return imported_call::value<LONG>(this, &HostToolbar::get_Left); }
    LONG GetTop() { return imported_call::value<LONG>(this, &HostToolbar::get_Top); }
    LONG GetFloatingRows() { return imported_call::value<LONG>(this, &HostToolbar::get_FloatingRows); }
    void Dock(LONG side) { imported_call::invoke(this, &HostToolbar::raw_Dock, side); }
    void Float(LONG top, LONG left, LONG rows) { imported_call::invoke(this, &HostToolbar::raw_Float, top, left, rows); }
    LONG GetCount() { return imported_call::value<LONG>(this, &HostToolbar::get_Count); }
    HostToolbarItemPtr Item(const _variant_t& index)
    {
        return imported_call::object<HostToolbarItemPtr>(this, &HostToolbar::raw_Item, imported_call::argument(index));
    }
    HostToolbarItemPtr AddButton(const _variant_t& index, const _bstr_t& name, const _bstr_t& helpString,
                                 const _bstr_t& macro)
    {
        return imported_call::object<HostToolbarItemPtr>(this, &HostToolbar::raw_AddButton, imported_call::argument(index),
                                                     static_cast<BSTR>(name), static_cast<BSTR>(helpString),
                                                     static_cast<BSTR>(macro));
    }
    IUnknownPtr _NewEnum() { return imported_call::object<IUnknownPtr>(this, &HostToolbar::raw__NewEnum); }
};

struct HostToolbars : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_Count(LONG* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_Item(VARIANT index, HostToolbar** toolbar) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw__NewEnum(IUnknown** enumerator) = 0;

    LONG GetCount() { return imported_call::value<LONG>(this, &HostToolbars::get_Count); }
    HostToolbarPtr Item(const _variant_t& index)
    {
        return imported_call::object<HostToolbarPtr>(this, &HostToolbars::raw_Item, imported_call::argument(index));
    }
    IUnknownPtr _NewEnum() { return imported_call::object<IUnknownPtr>(this, &HostToolbars::raw__NewEnum); }
};
