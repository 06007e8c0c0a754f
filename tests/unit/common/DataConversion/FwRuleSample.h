#pragma once

#include "common/DataConversion/Frwk_ComPrfFwRule.h"
#include "tests/unit/common/WireArray.h"

#include <numeric>
#include <vector>

// A rule with another value in each field, and its 23 elements written by hand.

inline Frwk::DataTypes::FwRule SampleRule()
{
    Frwk::DataTypes::FwRule rule;
    rule.bFlag0 = true;
    rule.nField1 = 0xFF01;
    rule.strName = L"name";
    rule.nField3 = 0x0003;
    rule.strAppPath = L"C:\\\x0416.exe";
    rule.nRuleType = 0x0005;
    rule.nAction = 0x0006;
    rule.nField7 = 0x0007;
    rule.nField8 = 0x8008;
    rule.strSrcIP = L"source";
    rule.strDstIP = L"destination";
    rule.nField11 = 0x0011;
    rule.nField12 = 0xFFFF0012;
    rule.nField13 = 0x00000013;
    std::iota(rule.abField14.begin(), rule.abField14.end(), 0x40);
    std::iota(rule.abField15.begin(), rule.abField15.end(), 0x50);
    std::iota(rule.abField21.begin(), rule.abField21.end(), 0xA0);
    std::iota(rule.abField22.begin(), rule.abField22.end(), 0xB0);
    rule.nProtocolType = 0x10000;
    rule.nPortType = 0x0017;
    rule.strPortList = L"80,443";
    rule.bFlag19 = true;
    std::iota(rule.abField20.begin(), rule.abField20.end(), 0xC0);
    return rule;
}

namespace Wire
{

// A nested array of bytes that count up.
inline VARIANT Block(std::size_t count, BYTE first)
{
    std::vector<VARIANT> bytes;
    for (std::size_t i = 0; i < count; ++i)
    {
        bytes.push_back(Value(VT_UI1, static_cast<BYTE>(first + i)));
    }
    return Array(OwnedArray(std::span<const VARIANT>(bytes)));
}

} // namespace Wire

// For an OwnedArray to take over.
inline std::vector<VARIANT> SampleElements()
{
    return {
        Wire::Value(VT_BOOL, 0xFFFF), Wire::Value(VT_UI2, 0xFF01),   Wire::Text(L"name"),
        Wire::Value(VT_UI2, 0x0003),  Wire::Text(L"C:\\\x0416.exe"), Wire::Value(VT_UI2, 0x0005),
        Wire::Value(VT_UI2, 0x0006),  Wire::Value(VT_UI2, 0x0007),   Wire::Value(VT_UI2, 0x8008),
        Wire::Text(L"source"),        Wire::Text(L"destination"),    Wire::Value(VT_UI2, 0x0011),
        Wire::Number(0xFFFF0012),     Wire::Number(0x00000013),      Wire::Block(16, 0x40),
        Wire::Block(16, 0x50),        Wire::Number(0x10000),         Wire::Value(VT_UI2, 0x0017),
        Wire::Text(L"80,443"),        Wire::Value(VT_BOOL, 0xFFFF),  Wire::Block(20, 0xC0),
        Wire::Block(16, 0xA0),        Wire::Block(16, 0xB0),
    };
}

inline OwnedArray SampleArray()
{
    return OwnedArray(std::span<const VARIANT>(SampleElements()));
}
