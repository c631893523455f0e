#include "MxtMemoryControllerController"

#include "MxtAssert"

#include <cstdlib>
#include <limits>
#include <mutex>
#include <new>
#include <unordered_map>

namespace {

// Every live block with its size; it makes the byte count exact and lets a foreign or twice-freed
// block be recognised instead of corrupting the heap.
struct Ledger {
    std::mutex mutex;
    std::unordered_map<const unsigned char*, std::size_t> liveBlocks;
    std::size_t liveBytes = 0;
    std::size_t allocations = 0;
    bool failNext = false;
};

// Never destroyed: arrays with static storage duration give their blocks back during exit, after
// any ordinary static here would already be gone.
Ledger& ledger()
{
    static Ledger* instance = new Ledger;
    return *instance;
}

}  // namespace

unsigned char* MxtMemoryControllerController::allocateArray(int count, std::size_t elementSize)
{
    Ledger& book = ledger();
    const std::lock_guard<std::mutex> lock(book.mutex);
    if (book.failNext) {
        book.failNext = false;
        return nullptr;
    }
    const auto elements = static_cast<std::size_t>(count);
    if (count <= 0 || elementSize == 0 || elements > std::numeric_limits<std::size_t>::max() / elementSize)
        return nullptr;
    const std::size_t bytes = elements * elementSize;
    auto* block = static_cast<unsigned char*>(std::malloc(bytes));
    if (block == nullptr)
        throw std::bad_alloc();
    book.liveBlocks.emplace(block, bytes);
    book.liveBytes += bytes;
    ++book.allocations;
    return block;
}

void MxtMemoryControllerController::deallocateArray(unsigned char*& block)
{
    if (block == nullptr)
        return;
    Ledger& book = ledger();
    std::unique_lock<std::mutex> lock(book.mutex);
    const auto entry = book.liveBlocks.find(block);
    if (entry == book.liveBlocks.end()) {
        lock.unlock();
        MxtAssert::mxtAssert("block was allocated by allocateArray", "QRNRoots/src/MxtMemoryControllerController.cpp",
                             __LINE__);
        return;
    }
    book.liveBytes -= entry->second;
    book.liveBlocks.erase(entry);
    std::free(block);
    block = nullptr;
}

std::size_t MxtMemoryControllerController::liveBlocks()
{
    Ledger& book = ledger();
    const std::lock_guard<std::mutex> lock(book.mutex);
    return book.liveBlocks.size();
}

std::size_t MxtMemoryControllerController::liveBytes()
{
    Ledger& book = ledger();
    const std::lock_guard<std::mutex> lock(book.mutex);
    return book.liveBytes;
}

std::size_t MxtMemoryControllerController::allocationCount()
{
    Ledger& book = ledger();
    const std::lock_guard<std::mutex> lock(book.mutex);
    return book.allocations;
}

void MxtMemoryControllerController::failNextAllocation()
{
    Ledger& book = ledger();
    const std::lock_guard<std::mutex> lock(book.mutex);
    book.failNext = true;
}
