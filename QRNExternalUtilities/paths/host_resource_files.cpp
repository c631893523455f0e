// The host's installation folder and its linetype and hatch pattern files, from the host's
// per-user registry settings and its file search. No automation is involved.
#include "ZORBAppUtilities.h"

#include "MxtRegistry"
#include "host/sdk.h"

#include <cwchar>

namespace {

// Where the host records its resource files, below its per-user product root.
const wchar_t* const kGeneralProfileKey = L"\\FixedProfile\\General";

// The host's path limit, terminator included.
constexpr std::size_t kMaxPathWithTerminator = 260;

// Reads the string value `valueName` of the key `subkey` below the host's per-user product root.
bool readHostRegistryValue(const wchar_t* subkey, const MxtString& valueName, MxtString& value)
{
    const ZbDbHostApplicationServices* services = zbdbHostApplicationServices();
    const wchar_t* rootKey = services != nullptr ? services->getUserRegistryProductRootKey() : nullptr;
    if (rootKey == nullptr)
        return false;  // without the host's root, any key would be the wrong one
    MxtString key(rootKey);
    key += MxtString(subkey);
    return MxtRegistry::getRegValueCurrentUser(key, valueName, value, 1) != 0;
}

// Text the host allocated, given back to the host when the holder goes.
class HostText {
public:
    HostText() = default;
    ~HostText()
    {
        if (m_text.buffer != nullptr)
            zbHeapFree(m_text.buffer);
    }
    HostText(const HostText&) = delete;
    HostText& operator=(const HostText&) = delete;

    ZbString& text() { return m_text; }

private:
    ZbString m_text;
};

// Looks `fileName` up on the host's search path; true with `found` holding the path, which is
// written only then. A file the host does not find, a search that gives no path and a path that
// does not fit the host's path limit are all not found: the host's codes for them never leave the
// operation.
bool findOnHostSearchPath(const MxtString& fileName, MxtString& found)
{
    HostText hostPath;
    if (zbedFindFile(fileName.getStringW(), hostPath.text()) != kZbNormal)
        return false;
    const wchar_t* text = hostPath.text().buffer;
    if (text == nullptr || std::wcslen(text) >= kMaxPathWithTerminator)
        return false;
    found = text;
    return true;
}

}  // namespace

bool ZORBAppUtilities::getCadProductLocation(MxtString& location)
{
    return readHostRegistryValue(L"", L"ZorbLocation", location);
}

bool ZORBAppUtilities::getLinetypeFilePath(const MxtString& valueName, MxtString& path)
{
    return readHostRegistryValue(kGeneralProfileKey, valueName, path);
}

bool ZORBAppUtilities::getHatchFilePath(const MxtString& valueName, MxtString& path)
{
    MxtString fileName;
    if (!readHostRegistryValue(kGeneralProfileKey, valueName, fileName))
        return false;
    return findOnHostSearchPath(fileName, path);
}
