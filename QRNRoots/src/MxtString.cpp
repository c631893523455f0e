#include "MxtString"

#include "CaseMapping.h"

#include <algorithm>
#include <utility>

namespace {

std::wstring textOrEmpty(const wchar_t* text)
{
    return text != nullptr ? std::wstring(text) : std::wstring();
}

int positionOrNone(std::wstring::size_type position)
{
    return position == std::wstring::npos ? -1 : static_cast<int>(position);
}

}  // namespace

MxtString::MxtString() = default;
MxtString::MxtString(const MxtString& other) = default;
MxtString::MxtString(MxtString&& other) noexcept = default;
MxtString::MxtString(const wchar_t* text) : m_text(textOrEmpty(text)) {}
// A _bstr_t may hold embedded nulls; like every other wide string, the text ends at the first.
MxtString::MxtString(const _bstr_t& text) : m_text(textOrEmpty(static_cast<const wchar_t*>(text))) {}
MxtString::~MxtString() = default;

MxtString& MxtString::operator=(const MxtString& other) = default;
MxtString& MxtString::operator=(MxtString&& other) noexcept = default;

MxtString& MxtString::operator=(const wchar_t* text)
{
    m_text = textOrEmpty(text);
    return *this;
}

MxtString& MxtString::operator=(const _bstr_t& text)
{
    return *this = static_cast<const wchar_t*>(text);
}

MxtString& MxtString::operator+=(const MxtString& tail)
{
    m_text += tail.m_text;
    return *this;
}

bool operator==(const MxtString& a, const MxtString& b)
{
    return a.m_text == b.m_text;
}

bool operator!=(const MxtString& a, const MxtString& b)
{
    return !(a == b);
}

int MxtString::compareNoCase(const MxtString& a, const MxtString& b)
{
    const std::wstring& left = a.m_text;
    const std::wstring& right = b.m_text;
    const auto common = std::min(left.size(), right.size());
    for (std::wstring::size_type i = 0; i < common; ++i) {
        const auto l = static_cast<char32_t>(qrnroots::foldCase(left[i]));
        const auto r = static_cast<char32_t>(qrnroots::foldCase(right[i]));
        if (l != r)
            return l < r ? -1 : 1;
    }
    if (left.size() == right.size())
        return 0;
    return left.size() < right.size() ? -1 : 1;
}

int MxtString::find(const MxtString& text, int start) const
{
    if (start < 0 || start > length())
        return -1;
    return positionOrNone(m_text.find(text.m_text, static_cast<std::wstring::size_type>(start)));
}

int MxtString::find_last_of(wchar_t ch) const
{
    return positionOrNone(m_text.rfind(ch));
}

int MxtString::find_last_of(const MxtString& characters) const
{
    return positionOrNone(m_text.find_last_of(characters.m_text));
}

const wchar_t* MxtString::getStringW() const
{
    return m_text.c_str();
}

bool MxtString::isEmpty() const
{
    return m_text.empty();
}

int MxtString::length() const
{
    return static_cast<int>(m_text.size());
}

int MxtString::replace(const MxtString& from, const MxtString& to)
{
    if (from.isEmpty())
        return 0;
    int replaced = 0;
    for (auto at = m_text.find(from.m_text); at != std::wstring::npos;
         at = m_text.find(from.m_text, at + to.m_text.size())) {
        m_text.replace(at, from.m_text.size(), to.m_text);
        ++replaced;
    }
    return replaced;
}

MxtString MxtString::right(int count) const
{
    MxtString tail;
    if (count > 0)
        tail.m_text = m_text.substr(m_text.size() - std::min<std::wstring::size_type>(m_text.size(), count));
    return tail;
}

MxtString MxtString::toLower() const
{
    MxtString lower(*this);
    std::transform(lower.m_text.begin(), lower.m_text.end(), lower.m_text.begin(), qrnroots::toLowerCase);
    return lower;
}

MxtString MxtString::toUpper() const
{
    MxtString upper(*this);
    std::transform(upper.m_text.begin(), upper.m_text.end(), upper.m_text.begin(), qrnroots::toUpperCase);
    return upper;
}
