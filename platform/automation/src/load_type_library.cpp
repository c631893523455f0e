// LoadTypeLib / LoadTypeLibEx: a type library file read whole and kept as a LoadedTypeLibrary.
#include "type_library_object.h"
#include "type_library_reader.h"
#include "automation/utf8.h"

#include <fstream>
#include <iterator>

using automation::detail::LibraryModel;
using automation::detail::TypeLibraryObject;

HRESULT LoadTypeLibEx(LPCOLESTR path, REGKIND, ITypeLib** library)
{
    if (path == nullptr || library == nullptr)
        return E_INVALIDARG;
    *library = nullptr;
    std::ifstream file(automation_text::toUtf8(path), std::ios::binary);
    if (!file)
        return TYPE_E_CANTLOADLIBRARY;
    const std::vector<unsigned char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    auto model = std::make_unique<LibraryModel>();
    const HRESULT status = automation::detail::readTypeLibrary(bytes.data(), bytes.size(), *model);
    if (FAILED(status))
        return status;
    model->path = path;
    *library = new TypeLibraryObject(std::move(model));
    return S_OK;
}

HRESULT LoadTypeLib(LPCOLESTR path, ITypeLib** library) { return LoadTypeLibEx(path, REGKIND_DEFAULT, library); }

void ClearCustData(CUSTDATA* data)
{
    if (data == nullptr)
        return;
    for (DWORD i = 0; i < data->cCustData; ++i)
        VariantClear(&data->prgCustData[i].varValue);
    CoTaskMemFree(data->prgCustData);
    data->prgCustData = nullptr;
    data->cCustData = 0;
}

namespace automation::detail {

ITypeLib* standardLibrary()
{
    // Kept for the life of the process, as every library that imports it may.
    static TypeLibraryObject* const library = new TypeLibraryObject(standardLibraryModel());
    return library;
}

}  // namespace automation::detail
