#pragma once

#include <windows.h>

#include <array>
#include <vector>

namespace Framework
{

// Who may call this process through COM, on this machine: its own user, whoever is signed in at the screen, and the
// system. Nobody else is let in.
class CallerAccess
{
public:
    // Throws std::system_error.
    CallerAccess();
    CallerAccess(const CallerAccess&) = delete;
    CallerAccess& operator=(const CallerAccess&) = delete;

    // Belongs to the object, and points into it.
    PSECURITY_DESCRIPTOR Descriptor() { return &m_descriptor; }

private:
    using WellKnownSid = std::array<BYTE, SECURITY_MAX_SID_SIZE>;

    PSID User() { return m_user.data(); }

    std::vector<BYTE> m_user; // a SID
    WellKnownSid m_interactive{};
    WellKnownSid m_system{};
    std::vector<BYTE> m_acl;
    SECURITY_DESCRIPTOR m_descriptor{};
};

} // namespace Framework
