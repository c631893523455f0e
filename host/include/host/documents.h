// Open drawings, their active layout and their plotting.
#pragma once

#include "host/interface_support.h"

struct HostLayout : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_Name(BSTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_SetWindowToPlot(VARIANT lowerLeft, VARIANT upperRight) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_PlotType(LONG* plotType) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_PlotType(LONG plotType) = 0;

    _bstr_t GetName() { return host_call::text(this, &HostLayout::get_Name); }
    void SetWindowToPlot(const _variant_t& lowerLeft, const _variant_t& upperRight)
    {
        host_call::invoke(this, &HostLayout::raw_SetWindowToPlot, host_call::argument(lowerLeft),
                          host_call::argument(upperRight));
    }
    LONG GetPlotType() { return host_call::value<LONG>(this, &HostLayout::get_PlotType); }
    void PutPlotType(LONG plotType) { host_call::invoke(this, &HostLayout::put_PlotType, plotType); }
};

struct HostPlot : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE put_NumberOfCopies(LONG copies) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_QuietErrorMode(VARIANT_BOOL quiet) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_StartBatchMode(LONG entryCount) = 0;
    // layouts: a one-dimensional array of layout names (VT_ARRAY | VT_BSTR).
    virtual HRESULT STDMETHODCALLTYPE raw_SetLayoutsToPlot(VARIANT layouts) = 0;
    // device: a plot configuration name, or the missing-argument variant for the layout's own.
    virtual HRESULT STDMETHODCALLTYPE raw_PlotToDevice(VARIANT device, VARIANT_BOOL* plotted) = 0;

    void PutNumberOfCopies(LONG copies) { host_call::invoke(this, &HostPlot::put_NumberOfCopies, copies); }
    void PutQuietErrorMode(VARIANT_BOOL quiet) { host_call::invoke(this, &HostPlot::put_QuietErrorMode, quiet); }
    void StartBatchMode(LONG entryCount) { host_call::invoke(this, &HostPlot::raw_StartBatchMode, entryCount); }
    void SetLayoutsToPlot(const _variant_t& layouts)
    {
        host_call::invoke(this, &HostPlot::raw_SetLayoutsToPlot, host_call::argument(layouts));
    }
    VARIANT_BOOL PlotToDevice(const _variant_t& device)
    {
        return host_call::value<VARIANT_BOOL>(this, &HostPlot::raw_PlotToDevice, host_call::argument(device));
    }
};

struct HostDocument : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_FullFileName(BSTR* fullName) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_Activate() = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_Close(VARIANT saveChanges, VARIANT fileName) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Plot(HostPlot** plot) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ActiveLayout(HostLayout** layout) = 0;

    _bstr_t GetFullFileName() { return host_call::text(this, &HostDocument::get_FullFileName); }
    void Activate() { host_call::invoke(this, &HostDocument::raw_Activate); }
    void Close(const _variant_t& saveChanges, const _variant_t& fileName)
    {
        host_call::invoke(this, &HostDocument::raw_Close, host_call::argument(saveChanges),
                          host_call::argument(fileName));
    }
    HostPlotPtr GetPlot() { return host_call::object<HostPlotPtr>(this, &HostDocument::get_Plot); }
    HostLayoutPtr GetActiveLayout() { return host_call::object<HostLayoutPtr>(this, &HostDocument::get_ActiveLayout); }
};

struct HostDocuments : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_Count(LONG* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_Item(VARIANT index, HostDocument** document) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw_Open(BSTR fileName, VARIANT readOnly, VARIANT password,
                                               HostDocument** document) = 0;
    virtual HRESULT STDMETHODCALLTYPE raw__NewEnum(IUnknown** enumerator) = 0;

    LONG GetCount() { return host_call::value<LONG>(this, &HostDocuments::get_Count); }
    HostDocumentPtr Item(const _variant_t& index)
    {
        return host_call::object<HostDocumentPtr>(this, &HostDocuments::raw_Item, host_call::argument(index));
    }
    HostDocumentPtr Open(const _bstr_t& fileName, const _variant_t& readOnly, const _variant_t& password)
    {
        return host_call::object<HostDocumentPtr>(this, &HostDocuments::raw_Open, static_cast<BSTR>(fileName),
                                                  host_call::argument(readOnly), host_call::argument(password));
    }
    IUnknownPtr _NewEnum() { return host_call::object<IUnknownPtr>(this, &HostDocuments::raw__NewEnum); }
};
