// A plain model of merging folders into a ";"-separated search path: a folder is appended, after a
// ";", unless its text occurs anywhere in the path as it was, without regard to letter case.
#pragma once

#include <string>
#include <vector>

namespace fuzz {

// A letter beyond ASCII and its small letter (itself when it has none of its own), as Unicode's
// simple lower-case mapping gives them.
struct Letter {
    wchar_t letter;
    wchar_t small;
};

// Capitals with their small letters, and letters that fold to nothing else, from the alphabets
// whose letter case the core library folds.
extern const std::vector<Letter> nonAsciiLetters;

std::wstring smallLetters(const std::wstring& text);

std::wstring mergePaths(const std::wstring& current, const std::vector<std::wstring>& folders);

}  // namespace fuzz
