// A library loaded at run time and unloaded again, with the platform's loader: what a host does
// with the module.
#pragma once

#include <string>

#ifdef _WIN32
using LibraryName = const wchar_t*;
#else
using LibraryName = const char*;
#endif

class LoadedLibrary {
public:
    // Loads the library; a library that cannot be loaded throws std::runtime_error with the
    // loader's reason.
    explicit LoadedLibrary(LibraryName file);
    // Unloads it, unless unload() did already.
    ~LoadedLibrary();
    // A second handle would unload the library twice.
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;

    // Gives the library back to the loader; false when the loader refused.
    bool unload();

    // Whether `address` lies in this library's image.
    bool contains(const void* address) const;

    // Whether the process still has a library of this file name mapped: after the last unload,
    // it must not.
    static bool isMapped(LibraryName file);

private:
    void* m_handle = nullptr;
};
