#include "array_model.h"

#include <algorithm>
#include <utility>

namespace fuzz {

void ArrayModel::setLength(int length)
{
    if (length < 0)
        report("len>=0", 604);
    if (length > physicalLength())
        setPhysicalLength((length + growBy - 1) / growBy * growBy);
    m_count = length;
}

void ArrayModel::setPhysicalLength(int length)
{
    if (length < 0)
        report("newPhysicalLen >= 0", 655);
    const int physical = physicalLength();
    // A small shrink keeps the storage.
    if (length <= physical && static_cast<double>(length) > 0.75 * static_cast<double>(physical))
        return;
    if (length == 0 && physical > 0) {
        m_slots.clear();
        m_count = 0;
    }
    else if (length > 0) {
        std::vector<int> fresh(static_cast<std::size_t>(length), 0);
        std::copy_n(m_slots.begin(), std::max(0, std::min(m_count, length)), fresh.begin());
        m_slots = std::move(fresh);
        m_count = std::min(m_count, length);
    }
}

void ArrayModel::setAtGrow(int index, int value)
{
    if (index >= m_count || m_slots.empty()) {
        // The next multiple of the grow-by above the index.
        if (index + 1 > physicalLength())
            setPhysicalLength(index + (growBy - index % growBy));
        m_count = index + 1;
    }
    m_slots[static_cast<std::size_t>(index)] = value;
}

int ArrayModel::read(int index)
{
    checkIndex(index, 524);
    return m_slots[static_cast<std::size_t>(index)];
}

void ArrayModel::write(int index, int value)
{
    checkIndex(index, 514);
    m_slots[static_cast<std::size_t>(index)] = value;
}

void ArrayModel::assign(const ArrayModel& other)
{
    setLength(other.m_count);
    std::copy_n(other.m_slots.begin(), std::max(0, other.m_count), m_slots.begin());
}

std::vector<ContractReport> ArrayModel::takeReports()
{
    return std::exchange(m_reports, {});
}

void ArrayModel::report(const char* condition, int line)
{
    m_reports.push_back({condition, line});
}

void ArrayModel::checkIndex(int index, int line)
{
    if (index < 0 || index >= m_count || m_slots.empty())
        report("isValid( index )", line);
}

}  // namespace fuzz
