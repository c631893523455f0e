// Calls that are not made on a host object (SDK functions, the framework object, the host
// services) are journalled under a fixed name.
#pragma once

#include "calls/call.h"

namespace sim::detail {

class NamedSubject final : public CallSubject {
public:
    explicit NamedSubject(const char* name) : m_name(name) {}
    std::string journalName() const override { return m_name; }

private:
    const char* m_name;
};

}  // namespace sim::detail
