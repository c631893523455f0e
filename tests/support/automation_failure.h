// The automation failure a call raises, for tests that expect one.
#pragma once

#include "automation.h"

#include <gtest/gtest.h>

// When the call raises none: a failing expectation, and a failure of code S_OK.
template <class Call>
_com_error failureOf(Call call)
{
    try {
        call();
    }
    catch (const _com_error& failure) {
        return failure;
    }
    ADD_FAILURE() << "no automation failure was raised";
    return _com_error(S_OK);
}
