// GoogleTest printers for the values an MX test compares, so that a failed expectation shows their
// texts rather than their bytes: MxtString and _bstr_t as quoted text ("C:\MX", or null), MxtArray
// as its elements in braces, _variant_t as its variant type and value (VT_I4 42). GoogleTest finds
// them by argument-dependent lookup, so they stand in the global namespace with the types; a test
// gets them with simtest/host_fixture.h or by including this header.
#pragma once

#include "MxtArray"
#include "MxtString"
#include "automation.h"

#include <gtest/gtest.h>

#include <ostream>

void PrintTo(const MxtString& text, std::ostream* out);
void PrintTo(const _bstr_t& text, std::ostream* out);
void PrintTo(const _variant_t& value, std::ostream* out);

template <class Element> void PrintTo(const MxtArray<Element>& array, std::ostream* out)
{
    *out << "{";
    for (int i = 0; i < array.getLength(); ++i)
        *out << (i == 0 ? "" : ", ") << ::testing::PrintToString(array[i]);
    *out << "}";
}
