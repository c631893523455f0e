#include "late_binding/type_library.h"

#ifdef _WIN32
#include <mutex>
#else
#include "late_binding/host_description.h"
#endif

namespace sim::detail {

#ifdef _WIN32
std::wstring simulatorModulePath()
{
    HMODULE self = nullptr;
    if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                            reinterpret_cast<LPCWSTR>(&simulatorModulePath), &self))
        return {};
    std::wstring path(MAX_PATH, L'\0');
    const DWORD length = GetModuleFileNameW(self, path.data(), static_cast<DWORD>(path.size()));
    if (length == 0 || length == path.size())
        return {};
    path.resize(length);
    return path;
}

std::wstring servedLibraryPath(ServedLibrary library)
{
    const std::wstring module = simulatorModulePath();
    if (module.empty())
        return {};
    return module + L"\\" + std::to_wstring(static_cast<int>(library));
}

namespace {

struct LoadedLibrary {
    HRESULT status = TYPE_E_CANTLOADLIBRARY;
    // Kept, not released: type information handed out refers to it until the process ends.
    ITypeLib* library = nullptr;
};

const LoadedLibrary& loadedLibrary(ServedLibrary served)
{
    static LoadedLibrary loaded[2];
    static std::once_flag once[2];
    const size_t at = served == ServedLibrary::host ? 0 : 1;
    std::call_once(once[at], [served, &slot = loaded[at]] {
        const std::wstring path = servedLibraryPath(served);
        if (!path.empty())
            slot.status = LoadTypeLibEx(path.c_str(), REGKIND_NONE, &slot.library);
    });
    return loaded[at];
}

HRESULT typeInfoIn(ServedLibrary served, const IID& iid, ITypeInfo** typeInfo)
{
    const LoadedLibrary& loaded = loadedLibrary(served);
    if (FAILED(loaded.status))
        return loaded.status;
    return loaded.library->GetTypeInfoOfGuid(iid, typeInfo);
}

}  // namespace

HRESULT hostTypeInfo(const IID& iid, ITypeInfo** typeInfo)
{
    *typeInfo = nullptr;
    const HRESULT inHost = typeInfoIn(ServedLibrary::host, iid, typeInfo);
    if (inHost != TYPE_E_ELEMENTNOTFOUND)
        return inHost;
    return typeInfoIn(ServedLibrary::simulator, iid, typeInfo);
}

#else

HRESULT hostTypeInfo(const IID& iid, ITypeInfo** typeInfo)
{
    *typeInfo = nullptr;
    for (size_t i = 0; i < kHostInterfaceCount; ++i) {
        if (*kHostInterfaces[i].iid == iid)
            return CreateDescribedTypeInfo(&kHostInterfaces[i], typeInfo);
    }
    return TYPE_E_ELEMENTNOTFOUND;
}

#endif

}  // namespace sim::detail
