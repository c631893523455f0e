// The simulator as an in-process automation server (Windows): its two classes, their factories,
// and their registration, so that a client creates a simulated host by ProgID as it would create
// any server's object.
#include "host/installation.h"
#include "late_binding/type_library.h"
#include "objects/objects.h"
#include "server/control_object.h"
#include "server/served_host.h"

#include "automation/com_object.h"

#include <olectl.h>

#include <atomic>
#include <iterator>
#include <string>

namespace {

using namespace sim::detail;

std::atomic<long> g_serverLocks{0};

// The application of a new served host.
HRESULT createHost(REFIID iid, void** object)
{
    unsigned generation = 0;
    const HRESULT started = startServedHost(sim::defaultHostState(), iid, generation);
    if (FAILED(started))
        return started;
    HostApplication* application = newApplication(installed()->sharedCore());
    const HRESULT given = application->QueryInterface(iid, object);
    application->Release();
    return given;
}

HRESULT createControl(REFIID iid, void** object)
{
    SimulatorControl* control = nullptr;
    const HRESULT started = newSimulatorControl(&control);
    if (FAILED(started))
        return started;
    const HRESULT given = control->QueryInterface(iid, object);
    control->Release();
    return given;
}

struct ServedClass {
    const CLSID* id;
    const wchar_t* progId;
    const wchar_t* description;
    HRESULT (*create)(REFIID iid, void** object);
};

const ServedClass kClasses[] = {
    {&__uuidof(SimulatedHost), L"Zorb.SimulatedHost", L"Simulated Zorb host", createHost},
    {&__uuidof(SimulatedHostControl), L"Zorb.SimulatedHostControl", L"Simulated Zorb host control",
     createControl},
};

// Each class's factory lives as long as the DLL; its references only keep the server loaded.
class ClassFactory final : public automation::ComObject<ClassFactory, IClassFactory> {
public:
    explicit ClassFactory(const ServedClass& served) : ComObject(0), m_served(served) {}

    void* interfaceFor(REFIID iid)
    {
        return iid == IID_IUnknown || iid == IID_IClassFactory ? static_cast<IClassFactory*>(this) : nullptr;
    }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override
    {
        if (object == nullptr)
            return E_POINTER;
        *object = nullptr;
        if (outer != nullptr)
            return CLASS_E_NOAGGREGATION;
        return m_served.create(iid, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override
    {
        lock ? ++g_serverLocks : --g_serverLocks;
        return S_OK;
    }

private:
    friend ComObject;
    void referenceAdded(ULONG) { ++g_serverLocks; }
    void referenceReleased(ULONG) { --g_serverLocks; }
    void lastReferenceGone() {}

    const ServedClass& m_served;
};

std::wstring guidText(const GUID& guid)
{
    wchar_t text[40] = {};
    StringFromGUID2(guid, text, 40);
    return text;
}

bool setValue(const std::wstring& key, const wchar_t* name, const std::wstring& value)
{
    HKEY opened = nullptr;
    if (RegCreateKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &opened,
                        nullptr) != ERROR_SUCCESS)
        return false;
    const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    const bool set = RegSetValueExW(opened, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                                    bytes) == ERROR_SUCCESS;
    RegCloseKey(opened);
    return set;
}

bool registerClass(const ServedClass& served, const std::wstring& modulePath)
{
    const std::wstring classKey = L"CLSID\\" + guidText(*served.id);
    return setValue(classKey, nullptr, served.description) &&
           setValue(classKey + L"\\InprocServer32", nullptr, modulePath) &&
           setValue(classKey + L"\\InprocServer32", L"ThreadingModel", L"Apartment") &&
           setValue(classKey + L"\\ProgID", nullptr, served.progId) &&
           setValue(classKey + L"\\TypeLib", nullptr, guidText(LIBID_ZorbHost)) &&
           setValue(served.progId, nullptr, served.description) &&
           setValue(std::wstring(served.progId) + L"\\CLSID", nullptr, guidText(*served.id));
}

void unregisterClass(const ServedClass& served)
{
    RegDeleteTreeW(HKEY_CLASSES_ROOT, (L"CLSID\\" + guidText(*served.id)).c_str());
    RegDeleteTreeW(HKEY_CLASSES_ROOT, served.progId);
}

}  // namespace

extern "C" __declspec(dllexport) HRESULT STDAPICALLTYPE
    DllGetClassObject(REFCLSID id, REFIID iid, void** object)
{
    static ClassFactory factories[] = {ClassFactory(kClasses[0]), ClassFactory(kClasses[1])};
    if (object == nullptr)
        return E_POINTER;
    *object = nullptr;
    for (size_t i = 0; i < std::size(kClasses); ++i) {
        if (*kClasses[i].id == id)
            return factories[i].QueryInterface(iid, object);
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

extern "C" __declspec(dllexport) HRESULT STDAPICALLTYPE DllCanUnloadNow()
{
    return g_serverLocks == 0 && liveControls() == 0 && !servedHostInUse() ? S_OK : S_FALSE;
}

// The libraries the DLL carries, the host's first, since the simulator's imports it.
constexpr ServedLibrary kServedLibraries[] = {ServedLibrary::host, ServedLibrary::simulator};

// The classes and the type libraries, which the DLL carries as its resources.
extern "C" __declspec(dllexport) HRESULT STDAPICALLTYPE DllRegisterServer()
{
    const std::wstring modulePath = simulatorModulePath();
    if (modulePath.empty())
        return SELFREG_E_CLASS;
    for (const ServedClass& served : kClasses) {
        if (!registerClass(served, modulePath))
            return SELFREG_E_CLASS;
    }
    for (const ServedLibrary served : kServedLibraries) {
        ITypeLibPtr library;
        if (FAILED(LoadTypeLibEx(servedLibraryPath(served).c_str(), REGKIND_REGISTER, &library)))
            return SELFREG_E_TYPELIB;
    }
    return S_OK;
}

extern "C" __declspec(dllexport) HRESULT STDAPICALLTYPE DllUnregisterServer()
{
    for (const ServedClass& served : kClasses)
        unregisterClass(served);
    // Each library is unregistered under the identity and version it carries itself.
    for (const ServedLibrary served : kServedLibraries) {
        ITypeLibPtr library;
        TLIBATTR* attributes = nullptr;
        if (FAILED(LoadTypeLibEx(servedLibraryPath(served).c_str(), REGKIND_NONE, &library)) ||
            FAILED(library->GetLibAttr(&attributes)))
            continue;
        UnRegisterTypeLib(attributes->guid, attributes->wMajorVerNum, attributes->wMinorVerNum,
                          attributes->lcid, attributes->syskind);
        library->ReleaseTLibAttr(attributes);
    }
    return S_OK;
}
