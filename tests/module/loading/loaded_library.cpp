#include "loaded_library.h"

#include <stdexcept>

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>

#include <fstream>
#endif

#ifdef _WIN32

LoadedLibrary::LoadedLibrary(LibraryName file) : m_handle(LoadLibraryW(file))
{
    if (m_handle == nullptr)
        throw std::runtime_error("LoadLibraryW failed with error " + std::to_string(GetLastError()));
}

bool LoadedLibrary::unload()
{
    const bool unloaded = FreeLibrary(static_cast<HMODULE>(m_handle)) != 0;
    m_handle = nullptr;
    return unloaded;
}

bool LoadedLibrary::contains(const void* address) const
{
    HMODULE owner = nullptr;
    const DWORD flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    return GetModuleHandleExW(flags, static_cast<LPCWSTR>(address), &owner) != 0 && owner == m_handle;
}

bool LoadedLibrary::isMapped(LibraryName file) { return GetModuleHandleW(file) != nullptr; }

#else

LoadedLibrary::LoadedLibrary(LibraryName file) : m_handle(dlopen(file, RTLD_NOW | RTLD_LOCAL))
{
    if (m_handle == nullptr)
        throw std::runtime_error(std::string("dlopen failed: ") + dlerror());
}

bool LoadedLibrary::unload()
{
    const bool unloaded = dlclose(m_handle) == 0;
    m_handle = nullptr;
    return unloaded;
}

bool LoadedLibrary::contains(const void* address) const
{
    Dl_info owner{};
    if (dladdr(address, &owner) == 0)
        return false;
    // The handle dlopen gives for an already loaded file is the same, so this compares identities.
    void* const ownerHandle = dlopen(owner.dli_fname, RTLD_NOW | RTLD_NOLOAD);
    if (ownerHandle == nullptr)
        return false;
    dlclose(ownerHandle);
    return ownerHandle == m_handle;
}

// dlclose may keep a library mapped (a unique symbol pins it), so the process's own map is asked.
bool LoadedLibrary::isMapped(LibraryName file)
{
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);)
        if (line.find(file) != std::string::npos)
            return true;
    return false;
}

#endif

LoadedLibrary::~LoadedLibrary()
{
    if (m_handle != nullptr)
        unload();
}
