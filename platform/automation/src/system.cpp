// The local heap and the thread's last error.
#include <cstdlib>
#include <cstring>

#include "automation.h"

HLOCAL LocalAlloc(UINT flags, std::size_t bytes)
{
    void* block = std::malloc(bytes == 0 ? 1 : bytes);
    if (block != nullptr && (flags & LMEM_ZEROINIT) != 0)
        std::memset(block, 0, bytes);
    return block;
}

HLOCAL LocalFree(HLOCAL block)
{
    std::free(block);
    return nullptr;
}

namespace {
thread_local DWORD lastError = ERROR_SUCCESS;
}

DWORD GetLastError() { return lastError; }

void SetLastError(DWORD error) { lastError = error; }

LPVOID CoTaskMemAlloc(std::size_t bytes) { return std::malloc(bytes == 0 ? 1 : bytes); }

void CoTaskMemFree(LPVOID block) { std::free(block); }
