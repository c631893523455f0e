#include "late_binding/type_library.h"

#include <mutex>

#ifndef _WIN32
#include "model/text.h"

#include <dlfcn.h>
#endif

namespace sim::detail {

#ifdef _WIN32
std::wstring simulatorModulePath()
{
    HMODULE self = nullptr;
    if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                            reinterpret_cast<LPCWSTR>(&simulatorModulePath), &self))
        return {};
    std::wstring path(MAX_PATH, L'\0');
    const DWORD length = GetModuleFileNameW(self, path.data(), static_cast<DWORD>(path.size()));
    if (length == 0 || length == path.size())
        return {};
    path.resize(length);
    return path;
}
#endif

std::wstring servedLibraryPath(ServedLibrary library)
{
#ifdef _WIN32
    const std::wstring module = simulatorModulePath();
    if (module.empty())
        return {};
    return module + L"\\" + std::to_wstring(static_cast<int>(library));
#else
    // The libraries the installed package and the build put beside libsim.so.
    Dl_info self{};
    if (dladdr(reinterpret_cast<void*>(&hostTypeInfo), &self) == 0 || self.dli_fname == nullptr)
        return {};
    const std::string simulator = self.dli_fname;
    const std::optional<std::wstring> folder =
        text::fromUtf8(std::string_view(simulator).substr(0, simulator.find_last_of('/') + 1));
    if (!folder)
        return {};
    return *folder + (library == ServedLibrary::host ? L"ZorbHost.tlb" : L"ZorbSimulator.tlb");
#endif
}

namespace {

// A library, once loaded: kept, not released, since type information handed out refers to it
// until the process ends. A load that failed is tried again on the next demand.
HRESULT loadedLibrary(ServedLibrary served, ITypeLib*& library)
{
    static std::mutex lock;
    static ITypeLib* loaded[2] = {};
    const std::lock_guard<std::mutex> held(lock);
    ITypeLib*& slot = loaded[served == ServedLibrary::host ? 0 : 1];
    if (slot == nullptr) {
        const std::wstring path = servedLibraryPath(served);
        const HRESULT status =
            path.empty() ? TYPE_E_CANTLOADLIBRARY : LoadTypeLibEx(path.c_str(), REGKIND_NONE, &slot);
        if (FAILED(status))
            return status;
    }
    library = slot;
    return S_OK;
}

HRESULT typeInfoIn(ServedLibrary served, const IID& iid, ITypeInfo** typeInfo)
{
    ITypeLib* library = nullptr;
    const HRESULT loaded = loadedLibrary(served, library);
    if (FAILED(loaded))
        return loaded;
    return library->GetTypeInfoOfGuid(iid, typeInfo);
}

#ifndef _WIN32
// Loaded with the simulator, so that the strings the libraries keep for the life of the process
// are alive before any test counts the strings its calls leave.
[[maybe_unused]] const bool kLoadedWithTheSimulator = [] {
    ITypeLib* library = nullptr;
    return SUCCEEDED(loadedLibrary(ServedLibrary::host, library)) &&
           SUCCEEDED(loadedLibrary(ServedLibrary::simulator, library));
}();
#endif

}  // namespace

HRESULT hostTypeInfo(const IID& iid, ITypeInfo** typeInfo)
{
    *typeInfo = nullptr;
    const HRESULT inHost = typeInfoIn(ServedLibrary::host, iid, typeInfo);
    if (inHost != TYPE_E_ELEMENTNOTFOUND)
        return inHost;
    return typeInfoIn(ServedLibrary::simulator, iid, typeInfo);
}

}  // namespace sim::detail
