#include "CaseMapping.h"

#include <algorithm>

namespace qrnroots {
namespace {

enum class Direction { both, lowerOnly, upperOnly };

// Capital letters first..last map to their small letters by adding `delta`. With a stride of 2
// only every other code point from `first` on is a capital (the alternating pairs of the extended
// alphabets). Some mappings go one way only: capital I with dot maps down to 'i', whose capital is
// plain 'I', so that pair is `lowerOnly`; final sigma maps up to capital sigma, whose small letter
// is the ordinary sigma, so that pair is `upperOnly`.
struct CaseRange {
    char32_t first;
    char32_t last;
    int stride;
    int delta;
    Direction direction;
};

constexpr CaseRange caseRanges[] = {
    // Latin-1 Supplement (Basic Latin is mapped before the table is searched)
    {0x00C0, 0x00D6, 1, 0x20, Direction::both},
    {0x00D8, 0x00DE, 1, 0x20, Direction::both},
    {0x039C, 0x039C, 1, 0x00B5 - 0x039C, Direction::upperOnly},  // micro sign -> capital mu
    // Latin Extended-A
    {0x0100, 0x012F, 2, 1, Direction::both},
    {0x0130, 0x0130, 1, 0x0069 - 0x0130, Direction::lowerOnly},  // capital I with dot -> i
    {0x0049, 0x0049, 1, 0x0131 - 0x0049, Direction::upperOnly},  // dotless i -> I
    {0x0132, 0x0137, 2, 1, Direction::both},
    {0x0139, 0x0148, 2, 1, Direction::both},
    {0x014A, 0x0177, 2, 1, Direction::both},
    {0x0178, 0x0178, 1, 0x00FF - 0x0178, Direction::both},  // Y with diaeresis
    {0x0179, 0x017E, 2, 1, Direction::both},
    {0x0053, 0x0053, 1, 0x017F - 0x0053, Direction::upperOnly},  // long s -> S
    // Greek
    {0x0370, 0x0373, 2, 1, Direction::both},
    {0x0376, 0x0376, 1, 1, Direction::both},
    {0x037F, 0x037F, 1, 0x03F3 - 0x037F, Direction::both},
    {0x0386, 0x0386, 1, 0x26, Direction::both},
    {0x0388, 0x038A, 1, 0x25, Direction::both},
    {0x038C, 0x038C, 1, 0x40, Direction::both},
    {0x038E, 0x038F, 1, 0x3F, Direction::both},
    {0x0391, 0x03A1, 1, 0x20, Direction::both},
    {0x03A3, 0x03AB, 1, 0x20, Direction::both},
    {0x03A3, 0x03A3, 1, 0x03C2 - 0x03A3, Direction::upperOnly},  // final sigma
    {0x03CF, 0x03CF, 1, 0x03D7 - 0x03CF, Direction::both},
    {0x0392, 0x0392, 1, 0x03D0 - 0x0392, Direction::upperOnly},  // curled beta
    {0x0398, 0x0398, 1, 0x03D1 - 0x0398, Direction::upperOnly},  // script theta
    {0x03A6, 0x03A6, 1, 0x03D5 - 0x03A6, Direction::upperOnly},  // phi symbol
    {0x03A0, 0x03A0, 1, 0x03D6 - 0x03A0, Direction::upperOnly},  // pi symbol
    {0x03D8, 0x03EF, 2, 1, Direction::both},
    {0x039A, 0x039A, 1, 0x03F0 - 0x039A, Direction::upperOnly},  // kappa symbol
    {0x03A1, 0x03A1, 1, 0x03F1 - 0x03A1, Direction::upperOnly},  // rho symbol
    {0x03F4, 0x03F4, 1, 0x03B8 - 0x03F4, Direction::lowerOnly},  // capital theta symbol
    {0x0395, 0x0395, 1, 0x03F5 - 0x0395, Direction::upperOnly},  // lunate epsilon
    {0x03F7, 0x03F7, 1, 1, Direction::both},
    {0x03F9, 0x03F9, 1, 0x03F2 - 0x03F9, Direction::both},  // lunate sigma
    {0x03FA, 0x03FA, 1, 1, Direction::both},
    {0x03FD, 0x03FF, 1, 0x037B - 0x03FD, Direction::both},
    // Cyrillic, Cyrillic Supplement
    {0x0400, 0x040F, 1, 0x50, Direction::both},
    {0x0410, 0x042F, 1, 0x20, Direction::both},
    {0x0460, 0x0481, 2, 1, Direction::both},
    {0x048A, 0x04BF, 2, 1, Direction::both},
    {0x04C0, 0x04C0, 1, 0x0F, Direction::both},
    {0x04C1, 0x04CE, 2, 1, Direction::both},
    {0x04D0, 0x052F, 2, 1, Direction::both},
};

bool isCapitalOf(const CaseRange& range, char32_t ch)
{
    return ch >= range.first && ch <= range.last && (ch - range.first) % range.stride == 0;
}

}  // namespace

wchar_t toLowerCase(wchar_t ch)
{
    const auto c = static_cast<char32_t>(ch);
    if (c < 0x80)
        return (c >= U'A' && c <= U'Z') ? static_cast<wchar_t>(c + 0x20) : ch;
    for (const CaseRange& range : caseRanges)
        if (range.direction != Direction::upperOnly && isCapitalOf(range, c))
            return static_cast<wchar_t>(c + range.delta);
    return ch;
}

wchar_t toUpperCase(wchar_t ch)
{
    const auto c = static_cast<char32_t>(ch);
    if (c < 0x80)
        return (c >= U'a' && c <= U'z') ? static_cast<wchar_t>(c - 0x20) : ch;
    for (const CaseRange& range : caseRanges) {
        const char32_t capital = c - range.delta;
        if (range.direction != Direction::lowerOnly && isCapitalOf(range, capital))
            return static_cast<wchar_t>(capital);
    }
    return ch;
}

std::wstring foldCase(const wchar_t* text)
{
    std::wstring folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(), [](wchar_t ch) { return foldCase(ch); });
    return folded;
}

}  // namespace qrnroots
