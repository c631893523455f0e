// MxtArray operation sequences against the plain array model, on two arrays so that copies and
// assignments between them come up. Each operation is a byte, bit 7 choosing the array and the
// rest the operation, followed by its operand bytes; an input that runs out reads as 0. After every
// operation both arrays match their models in count, storage and values, the contract reports are
// the model's, and exactly the slots of the arrays' storage are alive.
#include "MxtArray"
#include "MxtAssert"
#include "MxtMemoryControllerController"

#include "array_model.h"
#include "fuzz_check.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace {

using fuzz::ArrayModel;
using fuzz::require;

// An element that counts the live objects of its type.
struct Element {
    static inline long live = 0;
    int value = 0;

    Element() { ++live; }
    explicit Element(int v) : value(v) { ++live; }
    Element(const Element& other) : value(other.value) { ++live; }
    Element& operator=(const Element&) = default;
    ~Element() { --live; }
};

using Array = MxtArray<Element>;

struct Subject {
    std::optional<Array> array{std::in_place};
    ArrayModel model;
};

class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}

    bool done() const { return m_position >= m_size; }
    std::uint8_t next() { return m_position < m_size ? m_data[m_position++] : 0; }

private:
    const std::uint8_t* m_data;
    std::size_t m_size;
    std::size_t m_position = 0;
};

enum class Operation {
    setLength,
    setPhysicalLength,
    setAtGrow,
    add,
    write,
    read,
    setAtGrowFromOwnSlot,
    addFromOwnSlot,
    assignOther,
    assignItself,
    copyOther,
    destroy,
};
constexpr int operationCount = static_cast<int>(Operation::destroy) + 1;

// -8 to 247, so that negative lengths come up now and then.
int lengthFrom(std::uint8_t byte) { return byte - 8; }

// Stores at the end, as add() does; storing below a negative count is undefined, so it is left out.
void add(Subject& self, int value, const Element& element)
{
    const int index = self.model.count();
    if (index < 0)
        return;
    require(self.array->add(element) == index, "add gives the index after the last element");
    self.model.setAtGrow(index, value);
}

// Element access and own-slot operands need a slot to stand for; reading past the storage is
// undefined, so an operation without one is left out.
void apply(Operation operation, Subject& self, Subject& other, Input& input)
{
    Array& array = *self.array;
    ArrayModel& model = self.model;
    switch (operation) {
    case Operation::setLength: {
        const int length = lengthFrom(input.next());
        array.setLength(length);
        model.setLength(length);
        break;
    }
    case Operation::setPhysicalLength: {
        const int length = lengthFrom(input.next());
        array.setPhysicalLength(length);
        model.setPhysicalLength(length);
        break;
    }
    case Operation::setAtGrow: {
        const int index = input.next();
        const int value = input.next();
        array.setAtGrow(index, Element(value));
        model.setAtGrow(index, value);
        break;
    }
    case Operation::add: {
        const int value = input.next();
        add(self, value, Element(value));
        break;
    }
    case Operation::write: {
        const std::uint8_t slot = input.next();
        const int value = input.next();
        if (model.physicalLength() == 0)
            break;
        const int index = slot % model.physicalLength();
        array[index] = Element(value);
        model.write(index, value);
        break;
    }
    case Operation::read: {
        const std::uint8_t slot = input.next();
        if (model.physicalLength() == 0)
            break;
        const int index = slot % model.physicalLength();
        const int value = std::as_const(array)[index].value;
        require(value == model.read(index), "a read gives the slot's value");
        break;
    }
    case Operation::setAtGrowFromOwnSlot: {
        const int index = input.next();
        const std::uint8_t slot = input.next();
        if (model.count() <= 0)
            break;
        const int source = slot % model.count();
        const int value = model.slots()[static_cast<std::size_t>(source)];
        array.setAtGrow(index, array[source]);
        model.setAtGrow(index, value);
        break;
    }
    case Operation::addFromOwnSlot: {
        const std::uint8_t slot = input.next();
        if (model.count() <= 0)
            break;
        const int source = slot % model.count();
        add(self, model.slots()[static_cast<std::size_t>(source)], array[source]);
        break;
    }
    case Operation::assignOther:
        array = *other.array;
        model.assign(other.model);
        break;
    case Operation::assignItself:
        array = *self.array;  // changes nothing
        break;
    case Operation::copyOther:
        self.array.emplace(*other.array);
        model = ArrayModel();
        model.assign(other.model);
        break;
    case Operation::destroy:
        self.array.emplace();
        model = ArrayModel();
        break;
    }
}

void requireReports(const std::vector<fuzz::ContractReport>& expected)
{
    const std::vector<MxtAssert::Report> given = MxtAssert::reports();
    MxtAssert::clearReports();
    require(given.size() == expected.size(), "the contract reports are the model's");
    for (std::size_t i = 0; i < given.size(); ++i) {
        require(given[i].condition == expected[i].condition && given[i].line == expected[i].line &&
                    given[i].path == "Sources/Base/QRNRoots/Exp/MxtArray",
                "each contract report is the model's, from the container's header");
    }
}

void requireMatch(const Array& array, const ArrayModel& model)
{
    require(array.getLength() == model.count(), "the count is the model's");
    require(array.getPhysicalLength() == model.physicalLength(), "the physical length is the model's");
    require(array.getGrowBy() == ArrayModel::growBy, "the grow-by stays 8");
    require((array.getData() == nullptr) == (model.physicalLength() == 0),
            "there is storage exactly when the physical length is not 0");
    for (int i = 0; i < model.physicalLength(); ++i)
        require(array.getData()[i].value == model.slots()[static_cast<std::size_t>(i)],
                "every slot holds the model's value");
}

// Slots are constructed when storage is allocated and destroyed only when it is freed.
void requireStorage(const Subject (&subjects)[2], std::size_t blocksBefore, std::size_t bytesBefore)
{
    long slots = 0;
    std::size_t blocks = blocksBefore;
    for (const Subject& subject : subjects) {
        slots += subject.model.physicalLength();
        blocks += subject.model.physicalLength() > 0 ? 1 : 0;
    }
    require(Element::live == slots, "exactly the slots of the storage are alive");
    require(MxtMemoryControllerController::liveBlocks() == blocks, "each array with storage holds one block");
    require(MxtMemoryControllerController::liveBytes() == bytesBefore + static_cast<std::size_t>(slots) * sizeof(Element),
            "the blocks hold the slots and no more");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    MxtAssert::clearReports();
    const std::size_t blocksBefore = MxtMemoryControllerController::liveBlocks();
    const std::size_t bytesBefore = MxtMemoryControllerController::liveBytes();
    {
        Subject subjects[2];
        Input input(data, size);
        while (!input.done()) {
            const std::uint8_t code = input.next();
            Subject& self = subjects[code >> 7];
            Subject& other = subjects[1 - (code >> 7)];
            apply(static_cast<Operation>((code & 0x7F) % operationCount), self, other, input);
            requireReports(self.model.takeReports());
            for (const Subject& subject : subjects)
                requireMatch(*subject.array, subject.model);
            requireStorage(subjects, blocksBefore, bytesBefore);
        }
    }
    require(Element::live == 0, "destroying the arrays destroys every slot");
    require(MxtMemoryControllerController::liveBlocks() == blocksBefore &&
                MxtMemoryControllerController::liveBytes() == bytesBefore,
            "destroying the arrays frees their storage");
    return 0;
}
