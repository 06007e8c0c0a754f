#pragma once

#include "framework/ui/kestrix/logs/LogRec.h"

#include <array>
#include <cstdint>
#include <string_view>

struct IcmpKind;

// What the firewall log gathers of a line until its last token has come, since its texts depend on tokens that stand
// far apart.
class CPFWOutput
{
public:
    // Takes the time token: "103015" is "10:30:15". The text ends where the token ends, and at a NUL.
    explicit CPFWOutput(std::wstring_view time);
    virtual ~CPFWOutput() = default;

    // What came of the event: gives the record its icon, and the text as its next field.
    void AppendOutcome(LogRec& record) const;

    // The protocol's name, or its number when the log has no name for it.
    void AppendProtocol(LogRec& record) const;

    void AppendDescription(LogRec& record) const;

    // Whether the events of the protocol have ports.
    bool HasPorts() const;

    std::wstring_view strMessage; // of the line, as the next
    std::wstring_view strEventText;
    std::int32_t nIcmpType = -1;
    std::uint32_t nDirectionKind = 0; // tells within an event what was decided
    std::uint32_t nProtocol = 0;      // Internet protocol number
    std::uint32_t nDirection = 0;
    std::uint32_t nReason = 0;
    std::uint32_t nEvent = 0;
    std::array<wchar_t, 9> szTime{}; // ends with a NUL

private:
    // A text, and whether it outlives the record by itself.
    struct Description
    {
        std::wstring_view text;
        bool isLasting;
    };

    Description IcmpDescription(const IcmpKind& kind, std::wstring& unnamed) const;
    Description EventDescription() const;
};

// The number of a protocol that a record shows by its name; 0 for any other text.
std::uint32_t ProtocolFromText(std::wstring_view text);
