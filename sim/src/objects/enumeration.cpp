#include "objects/enumeration.h"

#include "faults/host_methods.h"
#include "calls/host_references.h"

#include <algorithm>

namespace sim::detail {
namespace {

class EnumerationObject final : public CountedByHost<EnumerationObject, IEnumVARIANT> {
public:
    EnumerationObject(std::shared_ptr<HostCore> core, IUnknown* collection, const CallSubject& named,
                      EnumerableCollection& members, size_t position)
        : CountedByHost(std::move(core)), m_collection(collection), m_named(named), m_members(members),
          m_position(position)
    {
    }

    void* interfaceFor(REFIID iid)
    {
        const bool answered = iid == IID_IUnknown || iid == __uuidof(IEnumVARIANT);
        return answered ? static_cast<IEnumVARIANT*>(this) : nullptr;
    }

    // The journal names an enumeration's calls after its collection: "IEnumVARIANT.Next" on
    // "HostMenuGroups".
    std::string journalName() const override { return m_named.journalName(); }
    std::wstring goneReason() const override { return m_named.goneReason(); }

    // Every item asked for starts empty, so that a failed call leaves nothing the caller must clear.
    HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* items, ULONG* fetched) override
    {
        Call call(core(), *this, undescribed::enumerationNext.name, {Arg::number(static_cast<long>(count))});
        if (fetched != nullptr)
            *fetched = 0;
        for (ULONG i = 0; items != nullptr && i < count; ++i)
            VariantInit(&items[i]);
        if (call.refused())
            return call.status();
        if (items == nullptr || (count > 1 && fetched == nullptr))
            return call.fail(E_POINTER, L"no place to store the items was given");
        ULONG given = 0;
        for (; given < count && m_position < m_members.memberCount(); ++given) {
            V_VT(&items[given]) = VT_DISPATCH;
            V_DISPATCH(&items[given]) = m_members.newMember(m_position++);
        }
        if (fetched != nullptr)
            *fetched = given;
        return given == count ? call.succeed() : call.succeedInPart();
    }

    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override
    {
        Call call(core(), *this, undescribed::enumerationSkip.name, {Arg::number(static_cast<long>(count))});
        if (call.refused())
            return call.status();
        const size_t members = m_members.memberCount();
        const size_t left = members - std::min(m_position, members);
        m_position += std::min<size_t>(count, left);
        return count <= left ? call.succeed() : call.succeedInPart();
    }

    HRESULT STDMETHODCALLTYPE Reset() override
    {
        Call call(core(), *this, undescribed::enumerationReset.name);
        if (call.refused())
            return call.status();
        m_position = 0;
        return call.succeed();
    }

    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override
    {
        Call call(core(), *this, undescribed::enumerationClone.name);
        if (!call.accepts(copy))
            return call.status();
        return call.giveObject(copy, [&] {
            return new EnumerationObject(sharedCore(), m_collection, m_named, m_members, m_position);
        });
    }

protected:
    const char* interfaceName() const override { return "IEnumVARIANT"; }

private:
    friend ComObject;  // only the last Release deletes it
    ~EnumerationObject() = default;

    IUnknownPtr m_collection;  // keeps m_named and m_members alive
    const CallSubject& m_named;
    EnumerableCollection& m_members;
    size_t m_position;  // of the next member to give
};

}  // namespace

IEnumVARIANT* newEnumeration(const std::shared_ptr<HostCore>& core, IUnknown* collection,
                             const CallSubject& named, EnumerableCollection& members)
{
    return new EnumerationObject(core, collection, named, members, 0);
}

}  // namespace sim::detail
