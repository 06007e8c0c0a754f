#pragma once

#include "common/Frwk_VariantArray.h"

#include <array>
#include <cstdint>
#include <string>

namespace Frwk::DataTypes
{

// A rule of the personal firewall. A field without a name of its own means something to the framework alone, which gets
// it back as it came; it is zero in a rule that this program makes.
struct FwRule
{
    using Block = std::array<std::uint8_t, 16>;
    using LongBlock = std::array<std::uint8_t, 20>;

    // Actions.
    static constexpr std::uint16_t Allow = 0;
    static constexpr std::uint16_t BlockAccess = 1;

    static constexpr std::uint32_t AnyProtocol = 0x10000;

    bool bFlag0 = false; // set in a rule that this program has made
    std::uint16_t nField1 = 0;
    std::wstring strName;
    std::uint16_t nField3 = 0;   // 1 in a rule that this program has made
    std::wstring strAppPath;     // the application that it is for; empty for none
    std::uint16_t nRuleType = 0; // direction
    std::uint16_t nAction = Allow;
    std::uint16_t nField7 = 0;
    std::uint16_t nField8 = 0;
    std::wstring strSrcIP;
    std::wstring strDstIP;
    std::uint16_t nField11 = 0;
    std::uint32_t nField12 = 0;
    std::uint32_t nField13 = 0;
    Block abField14{};
    Block abField15{};
    Block abField21{};
    Block abField22{};
    std::uint32_t nProtocolType = 0; // Internet protocol number, or AnyProtocol
    std::uint16_t nPortType = 0;     // kind of the list of ports
    std::wstring strPortList;
    bool bFlag19 = false;
    LongBlock abField20{};

    bool operator==(const FwRule&) const = default;
};

// One rule. The table in the source says which element is which field. The first failure ends an operation; what was
// written or read before it stays.
class ComPrfFwRule : public VariantArray
{
public:
    static constexpr std::uint32_t ElementCount = 23;

    // Writes all elements of an array of ElementCount.
    bool SetPrfFwRule(const FwRule& rule);

    bool GetPrfFwRule(FwRule& rule) const;

    // Write and read an element that is a block of 16 bytes, whatever the size says. An element of another number of
    // bytes is not read.
    bool SetValueArrayBytes(const std::uint8_t* bytes, std::uint32_t size, std::uint32_t element);
    bool GetValueArrayBytes(std::uint8_t* bytes, std::uint32_t size, std::uint32_t element) const;
};

} // namespace Frwk::DataTypes
