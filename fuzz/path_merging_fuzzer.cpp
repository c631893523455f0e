// ZORBAppUtilities::preparePathes against the plain merge model, into a string of its own and in
// place. The input is text: its first line is the current path, each further line a folder. A byte
// from 0x80 up stands for one of the model's letters beyond ASCII, so that case folding beyond ASCII
// comes into play; a NUL byte is left out, since no C string carries one.
#include "ZORBAppUtilities.h"

#include "fuzz_check.h"
#include "path_merge_model.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace {

std::vector<std::wstring> decodeLines(const std::uint8_t* data, std::size_t size)
{
    std::vector<std::wstring> lines(1);
    for (std::size_t i = 0; i < size; ++i) {
        const std::uint8_t byte = data[i];
        if (byte == '\n')
            lines.emplace_back();
        else if (byte >= 0x80)
            lines.back() += fuzz::nonAsciiLetters[byte % fuzz::nonAsciiLetters.size()].letter;
        else if (byte != 0)
            lines.back() += static_cast<wchar_t>(byte);
    }
    return lines;
}

std::wstring textOf(const _bstr_t& text)
{
    return text.length() == 0 ? std::wstring() : std::wstring(static_cast<const wchar_t*>(text), text.length());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::vector<std::wstring> lines = decodeLines(data, size);
    const std::wstring& current = lines.front();
    const std::vector<std::wstring> folders(lines.begin() + 1, lines.end());
    const std::wstring expected = fuzz::mergePaths(current, folders);

    MxtArray<MxtString> folderArray;
    for (const std::wstring& folder : folders)
        folderArray.add(MxtString(folder.c_str()));
    // An empty path comes as the null string, as a host may give it.
    const _bstr_t currentPath = current.empty() ? _bstr_t() : _bstr_t(current.c_str());

    _bstr_t merged(L"left over");
    ZORBAppUtilities::preparePathes(folderArray, currentPath, merged);
    fuzz::require(textOf(merged) == expected, "the merged path is the model's");

    _bstr_t path = currentPath;
    ZORBAppUtilities::preparePathes(folderArray, path, path);
    fuzz::require(textOf(path) == expected, "the path merged in place is the model's");
    return 0;
}
