// The open drawings, and one drawing.
#include "model/builders.h"
#include "objects/collection.h"
#include "objects/objects.h"

namespace sim::detail {
namespace {

std::shared_ptr<Document> openDocumentAt(HostCore& core, const std::wstring& path)
{
    const long position = firstNamed<DocumentPath>(core, core.state.documents)(path);
    return position < 0 ? nullptr : core.state.documents[static_cast<size_t>(position)];
}

// A host without the variable checks the drawings it opens, as its default of 1 does.
short drawingCheckInForce(const HostState& state)
{
    const auto variable = state.systemVariables.find(L"DWGCHECK");
    return variable == state.systemVariables.end() ? 1 : variable->second;
}

// Why the host does not open a drawing on disk: it would stop to check it, or the password given is
// not the drawing's; S_OK when it opens.
HRESULT refusal(const HostState& state, const std::wstring& file, short drawingCheck,
                const std::wstring& password)
{
    const auto demands = state.drawingDemands.find(file);
    if (demands == state.drawingDemands.end())
        return S_OK;
    if (demands->second.stopsForCheck && drawingCheck != 0)
        return kOpenStoppedForCheck;
    if (demands->second.password && *demands->second.password != password)
        return kWrongPassword;
    return S_OK;
}

std::wstring refusalReason(HRESULT refused, const std::wstring& file)
{
    if (refused == kOpenStoppedForCheck)
        return L"the host stopped to check drawing '" + file + L"', as DWGCHECK is not 0";
    return L"drawing '" + file + L"' needs another password";
}

class DocumentsObject final
    : public HostCollection<HostDocuments, HostDocument, Document, DocumentName,
                            decltype(HostState::documents)> {
public:
    explicit DocumentsObject(const CorePtr& core)
        : HostCollection(core, {members::HostDocuments::get_Count, members::HostDocuments::Item,
                                members::HostDocuments::_NewEnum, kDocumentPosition, L"open drawing"})
    {
    }

    std::string journalName() const override { return "HostDocuments"; }

    // The drawing opened becomes the active one, read-only when asked, and keeps the DWGCHECK value
    // it was opened under. A drawing that is already open is not opened a second time: it is made
    // active and given back.
    HRESULT STDMETHODCALLTYPE raw_Open(BSTR fileName, VARIANT readOnly, VARIANT password,
                                       HostDocument** document) override
    {
        Call call = begin(members::HostDocuments::Open,
                          {Arg::text(fileName), Arg::variant(readOnly), Arg::variant(password)});
        if (!call.accepts(document))
            return call.status();
        bool readOnlyWanted = false;
        std::wstring passwordGiven;
        if (!readOptionalYesNo(call, readOnly, VT_I2, L"read-only argument", readOnlyWanted) ||
            !readOptionalText(call, password, L"password", passwordGiven))
            return call.status();
        const std::wstring path = text::fromBstr(fileName);
        if (path.empty())
            return call.fail(E_INVALIDARG, L"no drawing to open was named");
        auto opened = openDocumentAt(core(), path);
        if (!opened) {
            const auto file = core().texts.first<DiskDrawingPath>(core().seats, state().drawingsOnDisk, path);
            if (file == nullptr)
                return call.fail(HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND),
                                 L"drawing '" + path + L"' was not found");
            const short drawingCheck = drawingCheckInForce(state());
            if (const HRESULT refused = refusal(state(), *file, drawingCheck, passwordGiven); FAILED(refused))
                return call.fail(refused, refusalReason(refused, *file));
            if (call.givesNull())
                return call.succeed();
            opened = std::make_shared<Document>();
            opened->fullFileName = *file;
            opened->readOnly = readOnlyWanted;
            opened->drawingCheckWhenOpened = drawingCheck;
            giveLayouts(*opened, {L"Layout1"});
            state().documents.push_back(opened);
            core().seats.remember(state().documents, state().documents.size() - 1);
            core().names.added(core().seats, state().documents, state().documents.size() - 1);
        }
        else if (call.givesNull()) {
            return call.succeed();
        }
        state().activeDocument = opened;
        return call.giveObject(document, [&] { return newDocument(sharedCore(), opened); });
    }

protected:
    const char* interfaceName() const override { return "HostDocuments"; }
    const Nodes& nodes() const override { return state().documents; }
    HostDocument* newObjectFor(const std::shared_ptr<Document>& document) override
    {
        return newDocument(sharedCore(), document);
    }
};

class DocumentObject final : public HostObject<HostDocument> {
public:
    DocumentObject(const CorePtr& core, std::shared_ptr<Document> document)
        : HostObject(core), m_document(std::move(document))
    {
    }

    std::string journalName() const override { return "HostDocument " + nameOf(*m_document); }
    std::wstring goneReason() const override { return detail::goneReason(core(), *m_document); }

    HRESULT STDMETHODCALLTYPE get_FullFileName(BSTR* fullName) override
    {
        return give(members::HostDocument::get_FullFileName, fullName,
                    [&] { return m_document->fullFileName; });
    }

    HRESULT STDMETHODCALLTYPE raw_Activate() override
    {
        Call call = begin(members::HostDocument::Activate);
        if (call.refused())
            return call.status();
        state().activeDocument = m_document;
        return call.succeed();
    }

    // Saving writes the drawing under the file name given, or under its own; then the drawing
    // closes and, if it was the active one, the last drawing still open becomes active.
    HRESULT STDMETHODCALLTYPE raw_Close(VARIANT saveChanges, VARIANT fileName) override
    {
        Call call = begin(members::HostDocument::Close, {Arg::variant(saveChanges), Arg::variant(fileName)});
        if (call.refused())
            return call.status();
        bool save = false;
        std::wstring saveAs;
        if (!readOptionalYesNo(call, saveChanges, VT_I2, L"save-changes argument", save) ||
            !readOptionalText(call, fileName, L"file name", saveAs))
            return call.status();
        if (save) {
            const std::wstring target = saveAs.empty() ? m_document->fullFileName : saveAs;
            auto& disk = state().drawingsOnDisk;
            if (!core().texts.first<DiskDrawingPath>(core().seats, disk, target))
                disk.push_back(target);
        }
        auto& documents = state().documents;
        core().names.removed(documents, m_document.get());
        core().seats.remove(documents, m_document.get());
        if (state().activeDocument == m_document)
            state().activeDocument = documents.empty() ? nullptr : documents.back();
        return call.succeed();
    }

    HRESULT STDMETHODCALLTYPE get_Plot(HostPlot** plot) override
    {
        return give(members::HostDocument::get_Plot, plot, [&] { return newPlot(sharedCore(), m_document); });
    }

    HRESULT STDMETHODCALLTYPE get_ActiveLayout(HostLayout** layout) override
    {
        return give(members::HostDocument::get_ActiveLayout, layout,
                    [&] { return newLayout(sharedCore(), m_document, m_document->activeLayout); });
    }

protected:
    const char* interfaceName() const override { return "HostDocument"; }

private:
    std::shared_ptr<Document> m_document;
};

}  // namespace

HostDocuments* newDocuments(const CorePtr& core)
{
    return new DocumentsObject(core);
}

HostDocument* newDocument(const CorePtr& core, const std::shared_ptr<Document>& document)
{
    return document ? new DocumentObject(core, document) : nullptr;
}

}  // namespace sim::detail
