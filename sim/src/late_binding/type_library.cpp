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

namespace {

struct LoadedLibrary {
    HRESULT status = TYPE_E_CANTLOADLIBRARY;
    // Kept, not released: type information handed out refers to it until the process ends.
    ITypeLib* library = nullptr;
};

const LoadedLibrary& loadedLibrary()
{
    static LoadedLibrary loaded;
    static std::once_flag once;
    std::call_once(once, [] {
        const std::wstring path = simulatorModulePath();
        if (!path.empty())
            loaded.status = LoadTypeLibEx(path.c_str(), REGKIND_NONE, &loaded.library);
    });
    return loaded;
}

}  // namespace

HRESULT hostTypeInfo(const IID& iid, ITypeInfo** typeInfo)
{
    *typeInfo = nullptr;
    const LoadedLibrary& loaded = loadedLibrary();
    if (FAILED(loaded.status))
        return loaded.status;
    return loaded.library->GetTypeInfoOfGuid(iid, typeInfo);
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
