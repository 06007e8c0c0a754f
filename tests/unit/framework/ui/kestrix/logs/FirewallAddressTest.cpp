#include "framework/ui/kestrix/logs/FirewallAddress.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

TEST(FirewallAddressTest, AnAddressIsANumberByItsOctets)
{
    const std::pair<const wchar_t*, std::uint64_t> addresses[] = {
        {L"0.0.0.0", 0},
        {L"0.0.0.255", 0xFF},
        {L"10.0.0.2", 0x0A000002},
        {L"192.0.2.10", 0xC000020A},
        {L"255.255.255.255", 0xFFFFFFFF},
        {L"10.1", 0x0A000001},
        {L"010.0.0.1", 0x08000001},
        {L"10.0.0.1 ", 0x0A000001},
        {L"0x0a.012.0.1", 0x0A0A0001},
        {L"167772161", 0x0A000001},
    };
    for (const auto& [text, order] : addresses)
    {
        EXPECT_EQ(AddressOrder(text), order) << std::wstring_view(text).size();
    }
}

TEST(FirewallAddressTest, ATextThatIsNoAddressCountsAsTheHighestOneAndABlankAs0)
{
    for (const wchar_t* const text : {L"Unknown", L"10.0.0.256", L"10.0.0.1000", L"10.0.0.", L".10.0.0", L"10..0.1",
                                      L"10.0.0.0.1", L"LIP", L"\x65E5\x672C", L"\xD800"})
    {
        EXPECT_EQ(AddressOrder(text), 0xFFFFFFFFu) << std::wstring_view(text).size();
    }
    EXPECT_EQ(AddressOrder(std::wstring(100'000, L'x')), 0xFFFFFFFFu);
    EXPECT_EQ(AddressOrder(L" "), 0u);
}

TEST(FirewallAddressTest, TheOrderIsThatOfTheOctetsAndNotOfTheTexts)
{
    EXPECT_LT(AddressOrder(L"10.0.0.2"), AddressOrder(L"10.0.0.10"));
    EXPECT_GT(AddressOrder(L"192.0.2.1"), AddressOrder(L"9.255.255.255"));
    EXPECT_GT(AddressOrder(L"128.0.0.0"), AddressOrder(L"127.255.255.255")) << "octets have no sign";
    EXPECT_EQ(AddressOrder(L"10.0.0.1"), AddressOrder(L"10.1"));
    EXPECT_EQ(AddressOrder(L"Unknown"), AddressOrder(L"255.255.255.255"));
}

TEST(FirewallAddressTest, EveryTextWithAColonComesAfterAllOthers)
{
    for (const wchar_t* const text : {L"::1", L"2001:db8::10", L"10.0.0.1:80", L":"})
    {
        EXPECT_EQ(AddressOrder(text), ColonOrder) << text;
    }
    EXPECT_LT(AddressOrder(L"255.255.255.255"), ColonOrder);
}
