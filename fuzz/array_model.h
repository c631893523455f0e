// A plain model of the core library's array container: the count, the slots of its storage with
// their values (slots past the count keep theirs), its growth in steps of 8, and the contract
// reports each operation gives. Element values are ints; a fresh slot holds 0.
#pragma once

#include <string>
#include <vector>

namespace fuzz {

struct ContractReport {
    std::string condition;
    int line;

    bool operator==(const ContractReport& other) const
    {
        return condition == other.condition && line == other.line;
    }
};

class ArrayModel {
public:
    static constexpr int growBy = 8;

    int count() const { return m_count; }
    int physicalLength() const { return static_cast<int>(m_slots.size()); }
    const std::vector<int>& slots() const { return m_slots; }

    void setLength(int length);
    void setPhysicalLength(int length);
    // index >= 0: storing below a negative count is undefined.
    void setAtGrow(int index, int value);
    // Element access; the slot must lie within the storage, and an index past the count is
    // reported at the line of the read-only or the writable access.
    int read(int index);
    void write(int index, int value);
    // Assignment from another array (not this one): the count becomes the other's, then its
    // elements are copied.
    void assign(const ArrayModel& other);

    // The reports given since the last call, oldest first.
    std::vector<ContractReport> takeReports();

private:
    void report(const char* condition, int line);
    void checkIndex(int index, int line);

    int m_count = 0;
    std::vector<int> m_slots;
    std::vector<ContractReport> m_reports;
};

}  // namespace fuzz
