// The values the conversion matrix converts: for every variant type the runtime holds, its limits
// and one past them, halves that must round, texts of every form a script may pass, objects with
// and without a default value, and references to a few of them.
#pragma once

#include "automation.h"

#include <string>
#include <deque>

namespace conversion {

struct SourceValue {
    std::string label;  // unique; the probe's text of the value, or a description of an object
    _variant_t value;   // a reference points at a value the table keeps too
};

// Every source value, built on the first call and kept in place until the program ends.
const std::deque<SourceValue>& sourceValues();

}  // namespace conversion
