// Open drawings, their active layout and their plotting.
#pragma once

#include "host/interface_support.h"

struct HostLayout : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_Name(BSTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_SetWindowToPlot(VARIANT lowerLeft, VARIANT upperRight) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_PlotType(ZbPlotType* plotType) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_PlotType(ZbPlotType plotType) = 0;

    _bstr_t GetName() { return imported_call::text(this, &HostLayout::get_Name); }
    void SetWindowToPlot(const _variant_t& lowerLeft, const _variant_t& upperRight)
    {
        imported_call::invoke(this, &HostLayout::raw_SetWindowToPlot, imported_call::argument(lowerLeft),
                          imported_call::argument(upperRight));
    }
    ZbPlotType GetPlotType() { return imported_call::value<ZbPlotType>(this, &HostLayout::get_PlotType); }
    void PutPlotType(ZbPlotType plotType) { imported_call::invoke(this, &HostLayout::put_PlotType, plotType); }
};

struct HostPlot : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE put_NumberOfCopies(LONG copies) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_QuietErrorMode(VARIANT_BOOL quiet) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_StartBatchMode(LONG entryCount) = 0;
    // layouts: a one-dimensional array of layout names (VT_ARRAY | VT_BSTR).
    virtual HRESULT STDMETHODCALLTYPE raw_SetLayoutsToPlot(VARIANT layouts) = 0;
    // device: a plot configuration name, or the missing-argument variant for the layout's own.
    virtual HRESULT STDMETHODCALLTYPE raw_PlotToDevice(VARIANT device, VARIANT_BOOL* plotted) = 0;

    void PutNumberOfCopies(LONG copies) { imported_call::invoke(this, &HostPlot::put_NumberOfCopies, copies); }
    void PutQuietErrorMode(VARIANT_BOOL quiet) { imported_call::invoke(this, &HostPlot::put_QuietErrorMode, quiet); }
    void StartBatchMode(LONG entryCount) { imported_call::invoke(this, &HostPlot::raw_StartBatchMode, entryCount); }
    void SetLayoutsToPlot(const _variant_t& layouts)
    {
        imported_call::invoke(this, &HostPlot::raw_SetLayoutsToPlot, imported_call::argument(layouts));
    }
    VARIANT_BOOL PlotToDevice(const _variant_t& device)
    {
        return imported_call::value<VARIANT_BOOL>(this, &HostPlot::raw_PlotToDevice, imported_call::argument(device));
    }
};

struct HostDocument : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_FullFileName(BSTR* fullName) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_Activate() = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_Close(VARIANT saveChanges, VARIANT fileName) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Plot(HostPlot** plot) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ActiveLayout(HostLayout** layout) = 0;

    _bstr_t GetFullFileName() { return imported_call::text(this, &HostDocument::get_FullFileName); }
    void Activate() { imported_call::invoke(this, &HostDocument::raw_Activate); }
    void Close(const _variant_t& saveChanges, const _variant_t& fileName)
    {
        imported_call::invoke(this, &HostDocument::raw_Close, imported_call::argument(saveChanges),
                          imported_call::argument(fileName));
    }
    HostPlotPtr GetPlot() { return imported_call::object<HostPlotPtr>(this, &HostDocument::get_Plot); }
    HostLayoutPtr GetActiveLayout() { return imported_call::object<HostLayoutPtr>(this, &HostDocument::get_ActiveLayout); }
};

struct HostDocuments : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_Count(LONG* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_Item(VARIANT index, HostDocument** document) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_Open(BSTR fileName, VARIANT readOnly, VARIANT password,
                                               HostDocument** document) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw__NewEnum(IUnknown** enumerator) = 0;

    LONG GetCount() { return imported_call::value<LONG>(this, &HostDocuments::get_Count); }
    HostDocumentPtr Item(const _variant_t& index)
    {
        return imported_call::object<HostDocumentPtr>(this, &HostDocuments::raw_Item, imported_call::argument(index));
    }
    HostDocumentPtr Open(const _bstr_t& fileName, const _variant_t& readOnly, const _variant_t& password)
    {
        return imported_call::object<HostDocumentPtr>(this, &HostDocuments::raw_Open, static_cast<BSTR>(fileName),
                                                  imported_call::argument(readOnly), imported_call::argument(password));
    }
    IUnknownPtr _NewEnum() { return imported_call::object<IUnknownPtr>(this, &HostDocuments::raw__NewEnum); }
};
