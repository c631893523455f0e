#include "DWGPropsXWrap.h"

// The date-times' own default is 0.0 with a valid status: cleared, as a new holder's should be.
DWGPropsXWrap::DWGPropsXWrap() = default;

// Member by member in declaration order: the named strings, the custom strings by index, then
// the date-times bit for bit.
DWGPropsXWrap::DWGPropsXWrap(const DWGPropsXWrap& other) = default;
DWGPropsXWrap& DWGPropsXWrap::operator=(const DWGPropsXWrap& other) = default;
DWGPropsXWrap::~DWGPropsXWrap() = default;

void DWGPropsXWrap::Load(MxtString /*path*/) {}

bool DWGPropsXWrap::HasProps()
{
    return false;
}

MxtString DWGPropsXWrap::Title() { return m_title; }
MxtString DWGPropsXWrap::Subject() { return m_subject; }
MxtString DWGPropsXWrap::Author() { return m_author; }
MxtString DWGPropsXWrap::Comments() { return m_comments; }
MxtString DWGPropsXWrap::Keywords() { return m_keywords; }
MxtString DWGPropsXWrap::LastSavedBy() { return m_lastSavedBy; }
MxtString DWGPropsXWrap::RevisionNumber() { return m_revisionNumber; }
MxtString DWGPropsXWrap::HyperlinkBase() { return m_hyperlinkBase; }

MxtString DWGPropsXWrap::Custom(int index)
{
    // As an unsigned number a negative index lies above 9 too: one comparison rejects both.
    if (static_cast<unsigned int>(index) > 9u)
        return MxtString();
    return m_custom[index];
}

ATL::COleDateTime& DWGPropsXWrap::EditTime() { return m_editTime; }
ATL::COleDateTime& DWGPropsXWrap::Created() { return m_created; }
ATL::COleDateTime& DWGPropsXWrap::Updated() { return m_updated; }
