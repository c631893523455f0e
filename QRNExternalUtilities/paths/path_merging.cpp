// Merging folders into one of the host's ";"-separated search paths.
#include "ZORBAppUtilities.h"

void ZORBAppUtilities::preparePathes(const MxtArray<MxtString>& folders, const _bstr_t& current, _bstr_t& merged)
{
    if (&merged != &current)
        merged = current;
    // Taken once, before anything is appended: a folder given twice is appended twice.
    const MxtString lowerCurrent = MxtString(current).toLower();
    for (int i = 0; i < folders.getLength(); ++i) {
        const MxtString& folder = folders[i];
        // A substring test on the whole path rather than a comparison of entries: a folder whose
        // text occurs inside a longer entry counts as present.
        if (lowerCurrent.find(folder.toLower()) != -1)
            continue;
        // The separator and the folder are joined first, so each append copies the path once.
        const _bstr_t appended = _bstr_t(L";") + folder.getStringW();
        merged += appended;
    }
}
