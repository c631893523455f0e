// A drawing's summary properties as MX code asks for them. This module reads no drawing: the
// object stays empty and HasProps() answers false, so callers simply find no properties.
#pragma once

#include "QRNExternalUtilitiesApi.h"

#include "MxtString"
#include "framework/ole_date_time.h"

class QRNEXTERNALUTILITIES_API DWGPropsXWrap {
public:
    DWGPropsXWrap();
    DWGPropsXWrap(const DWGPropsXWrap& other);
    DWGPropsXWrap& operator=(const DWGPropsXWrap& other);
    virtual ~DWGPropsXWrap();

    // The accessors are not const: callers were built against this exact interface.
    void Load(MxtString path);
    bool HasProps();

    MxtString Title();
    MxtString Subject();
    MxtString Author();
    MxtString Comments();
    MxtString Keywords();
    MxtString LastSavedBy();
    MxtString RevisionNumber();
    MxtString HyperlinkBase();
    // The custom property at 0 to 9; "" for any other index.
    MxtString Custom(int index);

    // The fields themselves: the caller may change them.
    ATL::COleDateTime& EditTime();
    ATL::COleDateTime& Created();
    ATL::COleDateTime& Updated();

private:
    static constexpr int customPropertyCount = 10;

    MxtString m_title;
    MxtString m_subject;
    MxtString m_author;
    MxtString m_comments;
    MxtString m_keywords;
    MxtString m_lastSavedBy;
    MxtString m_revisionNumber;
    MxtString m_hyperlinkBase;
    MxtString m_custom[customPropertyCount];
    ATL::COleDateTime m_editTime;
    ATL::COleDateTime m_created;
    ATL::COleDateTime m_updated;
};
