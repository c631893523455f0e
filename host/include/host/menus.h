// Menu groups, their popup menus and items, and the menu bar.
#pragma once

#include "host/interface_support.h"
#include "host/toolbars.h"

struct HostPopupMenuItem : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_Label(BSTR* label) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Label(BSTR label) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Macro(BSTR* macro) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Type(LONG* type) = 0;  // 0 command, 1 separator, 2 submenu
    virtual HRESULT STDMETHODCALLTYPE get_SubMenu(HostPopupMenu** subMenu) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Enabled(VARIANT_BOOL* enabled) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Enabled(VARIANT_BOOL enabled) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_Delete() = 0;

    _bstr_t GetLabel();
    void PutLabel(const _bstr_t& label);
    _bstr_t GetMacro();
    LONG GetType();
    HostPopupMenuPtr GetSubMenu();
    VARIANT_BOOL GetEnabled();
    void PutEnabled(VARIANT_BOOL enabled);
    void Delete();
};

struct HostPopupMenu : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_Name(BSTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Name(BSTR name) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_TagString(BSTR* tag) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_OnMenuBar(VARIANT_BOOL* onMenuBar) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Count(LONG* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_Item(VARIANT index, HostPopupMenuItem** item) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_AddMenuItem(VARIANT index, BSTR label, BSTR macro,
                                                      HostPopupMenuItem** item) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_AddSubMenu(VARIANT index, BSTR label, HostPopupMenu** subMenu) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_AddSeparator(VARIANT index, HostPopupMenuItem** item) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_InsertInMenuBar(VARIANT position) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_RemoveFromMenuBar() = 0;
    virtual HRESULT STDMETHODCALLTYPE raw__NewEnum(IUnknown** enumerator) = 0;

    _bstr_t GetName();
    void PutName(const _bstr_t& name);
    _bstr_t GetTagString();
    VARIANT_BOOL GetOnMenuBar();
    LONG GetCount();
    HostPopupMenuItemPtr Item(const _variant_t& index);
    HostPopupMenuItemPtr AddMenuItem(const _variant_t& index, const _bstr_t& label, const _bstr_t& macro);
    HostPopupMenuPtr AddSubMenu(const _variant_t& index, const _bstr_t& label);
    HostPopupMenuItemPtr AddSeparator(const _variant_t& index);
    void InsertInMenuBar(const _variant_t& position);
    void RemoveFromMenuBar();
    IUnknownPtr _NewEnum();
};

struct HostPopupMenus : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_Count(LONG* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_Item(VARIANT index, HostPopupMenu** menu) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_AddMenu(BSTR name, HostPopupMenu** menu) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw__NewEnum(IUnknown** enumerator) = 0;

    LONG GetCount();
    HostPopupMenuPtr Item(const _variant_t& index);
    HostPopupMenuPtr AddMenu(const _bstr_t& name);
    IUnknownPtr _NewEnum();
};

struct HostMenuBar : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_Count(LONG* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_Item(VARIANT index, HostPopupMenu** menu) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw__NewEnum(IUnknown** enumerator) = 0;

    LONG GetCount();
    HostPopupMenuPtr Item(const _variant_t& index);
    IUnknownPtr _NewEnum();
};

struct HostMenuGroup : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_Name(BSTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Menus(HostPopupMenus** menus) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Toolbars(HostToolbars** toolbars) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_Unload() = 0;

    _bstr_t GetName();
    HostPopupMenusPtr GetMenus();
    HostToolbarsPtr GetToolbars();
    void Unload();
};

struct HostMenuGroups : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_Count(LONG* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_Item(VARIANT index, HostMenuGroup** group) = 0;
    // baseMenu is optional: an empty variant loads the file as a group of its own.
    virtual HRESULT STDMETHODCALLTYPE raw_LoadMenuFile(BSTR menuFile, VARIANT baseMenu, HostMenuGroup** group) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw__NewEnum(IUnknown** enumerator) = 0;

    LONG GetCount();
    HostMenuGroupPtr Item(const _variant_t& index);
    HostMenuGroupPtr LoadMenuFile(const _bstr_t& menuFile, const _variant_t& baseMenu);
    IUnknownPtr _NewEnum();
};

inline _bstr_t HostPopupMenuItem::GetLabel() { return imported_call::text(this, &HostPopupMenuItem::get_Label); }
inline void HostPopupMenuItem::PutLabel(const _bstr_t& label)
{
    imported_call::invoke(this, &HostPopupMenuItem::put_Label, static_cast<BSTR>(label));
}
inline _bstr_t HostPopupMenuItem::GetMacro() { return imported_call::text(this, &HostPopupMenuItem::get_Macro); }
inline LONG HostPopupMenuItem::GetType() { return imported_call::value<LONG>(this, &HostPopupMenuItem::get_Type); }
inline HostPopupMenuPtr HostPopupMenuItem::GetSubMenu()
{
    return imported_call::object<HostPopupMenuPtr>(this, &HostPopupMenuItem::get_SubMenu);
}
inline VARIANT_BOOL HostPopupMenuItem::GetEnabled()
{
    return imported_call::value<VARIANT_BOOL>(this, &HostPopupMenuItem::get_Enabled);
}
inline void HostPopupMenuItem::PutEnabled(VARIANT_BOOL enabled)
{
    imported_call::invoke(this, &HostPopupMenuItem::put_Enabled, enabled);
}
inline void HostPopupMenuItem::Delete() { imported_call::invoke(this, &HostPopupMenuItem::raw_Delete); }

inline _bstr_t HostPopupMenu::GetName() { return imported_call::text(this, &HostPopupMenu::get_Name); }
inline void HostPopupMenu::PutName(const _bstr_t& name)
{
    imported_call::invoke(this, &HostPopupMenu::put_Name, static_cast<BSTR>(name));
}
inline _bstr_t HostPopupMenu::GetTagString() { return imported_call::text(this, &HostPopupMenu::get_TagString); }
inline VARIANT_BOOL HostPopupMenu::GetOnMenuBar()
{
    return imported_call::value<VARIANT_BOOL>(this, &HostPopupMenu::get_OnMenuBar);
}
inline LONG HostPopupMenu::GetCount() { return imported_call::value<LONG>(this, &HostPopupMenu::get_Count); }
inline HostPopupMenuItemPtr HostPopupMenu::Item(const _variant_t& index)
{
    return imported_call::object<HostPopupMenuItemPtr>(this, &HostPopupMenu::raw_Item, imported_call::argument(index));
}
inline HostPopupMenuItemPtr HostPopupMenu::AddMenuItem(const _variant_t& index, const _bstr_t& label,
                                                       const _bstr_t& macro)
{
    return imported_call::object<HostPopupMenuItemPtr>(this, &HostPopupMenu::raw_AddMenuItem, imported_call::argument(index),
                                                   static_cast<BSTR>(label), static_cast<BSTR>(macro));
}
inline HostPopupMenuPtr HostPopupMenu::AddSubMenu(const _variant_t& index, const _bstr_t& label)
{
    return imported_call::object<HostPopupMenuPtr>(this, &HostPopupMenu::raw_AddSubMenu, imported_call::argument(index),
                                               static_cast<BSTR>(label));
}
inline HostPopupMenuItemPtr HostPopupMenu::AddSeparator(const _variant_t& index)
{
    return imported_call::object<HostPopupMenuItemPtr>(this, &HostPopupMenu::raw_AddSeparator, imported_call::argument(index));
}
inline void HostPopupMenu::InsertInMenuBar(const _variant_t& position)
{
    imported_call::invoke(this, &HostPopupMenu::raw_InsertInMenuBar, imported_call::argument(position));
}
inline void HostPopupMenu::RemoveFromMenuBar() { imported_call::invoke(this, &HostPopupMenu::raw_RemoveFromMenuBar); }

inline LONG HostPopupMenus::GetCount() { return imported_call::value<LONG>(this, &HostPopupMenus::get_Count); }
inline HostPopupMenuPtr HostPopupMenus::Item(const _variant_t& index)
{
    return imported_call::object<HostPopupMenuPtr>(this, &HostPopupMenus::raw_Item, imported_call::argument(index));
}
inline HostPopupMenuPtr HostPopupMenus::AddMenu(const _bstr_t& name)
{
    return imported_call::object<HostPopupMenuPtr>(this, &HostPopupMenus::raw_AddMenu, static_cast<BSTR>(name));
}

inline LONG HostMenuBar::GetCount() { return imported_call::value<LONG>(this, &HostMenuBar::get_Count); }
inline HostPopupMenuPtr HostMenuBar::Item(const _variant_t& index)
{
    return imported_call::object<HostPopupMenuPtr>(this, &HostMenuBar::raw_Item, imported_call::argument(index));
}

inline _bstr_t HostMenuGroup::GetName() { return imported_call::text(this, &HostMenuGroup::get_Name); }
inline HostPopupMenusPtr HostMenuGroup::GetMenus()
{
    return imported_call::object<HostPopupMenusPtr>(this, &HostMenuGroup::get_Menus);
}
inline HostToolbarsPtr HostMenuGroup::GetToolbars()
{
    return imported_call::object<HostToolbarsPtr>(this, &HostMenuGroup::get_Toolbars);
}
inline void HostMenuGroup::Unload() { imported_call::invoke(this, &HostMenuGroup::raw_Unload); }

inline LONG HostMenuGroups::GetCount() { return imported_call::value<LONG>(this, &HostMenuGroups::get_Count); }
inline HostMenuGroupPtr HostMenuGroups::Item(const _variant_t& index)
{
    return imported_call::object<HostMenuGroupPtr>(this, &HostMenuGroups::raw_Item, imported_call::argument(index));
}
inline HostMenuGroupPtr HostMenuGroups::LoadMenuFile(const _bstr_t& menuFile, const _variant_t& baseMenu)
{
    return imported_call::object<HostMenuGroupPtr>(this, &HostMenuGroups::raw_LoadMenuFile, static_cast<BSTR>(menuFile),
                                               imported_call::argument(baseMenu));
}
inline IUnknownPtr HostPopupMenu::_NewEnum()
{
    return imported_call::object<IUnknownPtr>(this, &HostPopupMenu::raw__NewEnum);
}
inline IUnknownPtr HostPopupMenus::_NewEnum()
{
    return imported_call::object<IUnknownPtr>(this, &HostPopupMenus::raw__NewEnum);
}
inline IUnknownPtr HostMenuBar::_NewEnum()
{
    return imported_call::object<IUnknownPtr>(this, &HostMenuBar::raw__NewEnum);
}
inline IUnknownPtr HostMenuGroups::_NewEnum()
{
    return imported_call::object<IUnknownPtr>(this, &HostMenuGroups::raw__NewEnum);
}
