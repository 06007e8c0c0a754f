#include "framework/ui/kestrix/logs/FirewallAddress.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace
{

FirewallAddress Address(std::wstring_view text)
{
    return {text, AddressOrder(text)};
}

} // namespace

TEST(FirewallAddressTest, AnAddressIsANumberByItsOctets)
{
    const std::pair<const wchar_t*, std::uint64_t> addresses[] = {
        {L"0.0.0.0", 0},
        {L"0.0.0.255", 0xFF},
        {L"10.0.0.2", 0x0A000002},
        {L"192.0.2.10", 0xC000020A},
        {L"255.255.255.255", 0xFFFFFFFF},
        {L"10.1", 0x0A000001},
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
    for (const wchar_t* const text : {L"Unknown", L"10.0.0.256", L"10.0.0.0.1", L"LIP", L"\x65E5\x672C", L"\xD800"})
    {
        EXPECT_EQ(AddressOrder(text), 0xFFFFFFFFu) << std::wstring_view(text).size();
    }
    EXPECT_EQ(AddressOrder(std::wstring(100'000, L'x')), 0xFFFFFFFFu);
    EXPECT_EQ(AddressOrder(L" "), 0u);
}

TEST(FirewallAddressTest, TheOrderIsThatOfTheOctetsAndNotOfTheTexts)
{
    EXPECT_LT(Compare(Address(L"10.0.0.2"), Address(L"10.0.0.10")), 0);
    EXPECT_GT(Compare(Address(L"192.0.2.1"), Address(L"9.255.255.255")), 0);
    EXPECT_GT(Compare(Address(L"128.0.0.0"), Address(L"127.255.255.255")), 0) << "octets have no sign";
    EXPECT_EQ(Compare(Address(L"10.0.0.1"), Address(L"10.1")), 0);
    EXPECT_EQ(Compare(Address(L"Unknown"), Address(L"255.255.255.255")), 0);
}

TEST(FirewallAddressTest, ATextWithAColonComesAfterAllOthersAndIsComparedAsAText)
{
    EXPECT_GT(Compare(Address(L"::1"), Address(L"Unknown")), 0);
    EXPECT_LT(Compare(Address(L"255.255.255.255"), Address(L"10.0.0.1:80")), 0);
    EXPECT_LT(Compare(Address(L"2001:db8::10"), Address(L"2001:db8::2")), 0);
    EXPECT_EQ(Compare(Address(L"::1"), Address(L"::1")), 0);
}
