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

// Looks `fileName` up on the host's search path. kZbNormal with `found` holding the path, or the
// host's code for a file that is not there, kZbError when the host found it but gave no path, or
// kZbTextTooLong when the path does not fit the host's path limit.
int findOnHostSearchPath(const MxtString& fileName, MxtString& found)
{
    HostText hostPath;
    const int status = zbedFindFile(fileName.getStringW(), hostPath.text());
    if (status != kZbNormal)
        return status;
    const wchar_t* text = hostPath.text().buffer;
    if (text == nullptr)
        return kZbError;
    if (std::wcslen(text) >= kMaxPathWithTerminator)
        return kZbTextTooLong;
    found = text;
    return kZbNormal;
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
    MxtString found;
    if (findOnHostSearchPath(fileName, found) != kZbNormal)
        return false;
    path = found;
    return true;
}
