#include "host/sdk_buffers.h"

#include <cstring>
#include <set>

namespace sim::detail {
namespace {

// Process-wide: a buffer may be given back after the host that allocated it was destroyed.
std::set<const void*>& liveBuffers()
{
    static std::set<const void*> buffers;
    return buffers;
}

}  // namespace

wchar_t* allocateHostBuffer(const std::wstring& text)
{
    auto* buffer = new wchar_t[text.size() + 1];
    std::memcpy(buffer, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    liveBuffers().insert(buffer);
    return buffer;
}

bool freeHostBuffer(void* block)
{
    if (liveBuffers().erase(block) == 0)
        return false;
    delete[] static_cast<wchar_t*>(block);
    return true;
}

long hostBuffersHeld() { return static_cast<long>(liveBuffers().size()); }

}  // namespace sim::detail
