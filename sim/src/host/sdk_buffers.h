// Text buffers the host SDK allocates for its callers, who give them back with zbHeapFree.
#pragma once

#include <string>

namespace sim::detail {

wchar_t* allocateHostBuffer(const std::wstring& text);
// False (and nothing freed) for a block the host did not allocate or already took back.
bool freeHostBuffer(void* block);
long hostBuffersHeld();

}  // namespace sim::detail
