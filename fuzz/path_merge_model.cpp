#include "path_merge_model.h"

#include <algorithm>

namespace fuzz {

const std::vector<Letter> nonAsciiLetters{
    {L'\u00C4', L'\u00E4'},  // A with diaeresis
    {L'\u00E4', L'\u00E4'},
    {L'\u00D8', L'\u00F8'},  // O with stroke
    {L'\u00DF', L'\u00DF'},  // sharp s
    {L'\u00D7', L'\u00D7'},  // multiplication sign, between the Latin-1 capitals
    {L'\u00B5', L'\u00B5'},  // micro sign
    {L'\u0178', L'\u00FF'},  // Y with diaeresis, whose small letter is in Latin-1
    {L'\u00FF', L'\u00FF'},
    {L'\u0130', L'i'},       // capital I with dot
    {L'\u0131', L'\u0131'},  // dotless i
    {L'\u017F', L'\u017F'},  // long s
    {L'\u03A3', L'\u03C3'},  // sigma
    {L'\u03C2', L'\u03C2'},  // final sigma
    {L'\u0416', L'\u0436'},  // zhe
    {L'\u0401', L'\u0451'},  // io
    {L'\u0451', L'\u0451'},
};

std::wstring smallLetters(const std::wstring& text)
{
    std::wstring small = text;
    for (wchar_t& c : small) {
        if (c >= L'A' && c <= L'Z') {
            c = static_cast<wchar_t>(c - L'A' + L'a');
            continue;
        }
        const auto known = std::find_if(nonAsciiLetters.begin(), nonAsciiLetters.end(),
                                        [c](const Letter& letter) { return letter.letter == c; });
        if (known != nonAsciiLetters.end())
            c = known->small;
    }
    return small;
}

std::wstring mergePaths(const std::wstring& current, const std::vector<std::wstring>& folders)
{
    const std::wstring searched = smallLetters(current);
    std::wstring merged = current;
    for (const std::wstring& folder : folders) {
        if (searched.find(smallLetters(folder)) == std::wstring::npos)
            merged += L";" + folder;
    }
    return merged;
}

}  // namespace fuzz
