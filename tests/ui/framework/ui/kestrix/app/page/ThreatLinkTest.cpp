#include "framework/ui/kestrix/app/page/ThreatLink.h"

#include "platform/dialog/ResourceText.h"
#include "resource/resource.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/LanguageFile.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <shellapi.h>

#include <string>
#include <vector>

extern "C" decltype(&::ShellExecuteW) __imp_ShellExecuteW;

namespace
{

constexpr std::size_t LongestAddress = 2083; // characters

class ThreatLinkTest : public ::testing::Test
{
protected:
    ThreatLinkTest() { s_addresses.clear(); }

    static std::wstring AddressOf(const std::wstring& name)
    {
        std::wstring address = LoadText(IDS_THREAT_ADDRESS);
        return address.replace(address.find(L"%s"), 2, name);
    }

    static inline std::vector<std::wstring> s_addresses; // that the browser got

private:
    static HINSTANCE WINAPI Start(HWND, const wchar_t*, const wchar_t*, const wchar_t* arguments, const wchar_t*, int)
    {
        s_addresses.emplace_back(arguments);
        return reinterpret_cast<HINSTANCE>(INT_PTR{33}); // started
    }

    const LanguageFile m_language;
    const ImportPatch<decltype(&::ShellExecuteW)> m_start{__imp_ShellExecuteW, &Start};
};

} // namespace

// A log comes from elsewhere: a name in it must neither end the browser's argument nor mean something in an address.
TEST_F(ThreatLinkTest, TheNameStandsInTheAddressAsTheNumbersOfItsBytesWhereItIsNoPlainLetter)
{
    const struct
    {
        const wchar_t* name;
        const wchar_t* encoded;
    } cases[] = {
        {L"Trojan.Some-Name_7~", L"Trojan.Some-Name_7~"},
        {L"a b&c=d", L"a%20b%26c%3Dd"},
        {L"\" -private \"", L"%22%20-private%20%22"},
        {L"100%s%n", L"100%25s%25n"},
        {L"../?x#y", L"..%2F%3Fx%23y"},
        {L"\x00E4\x65E5", L"%C3%A4%E6%97%A5"},
        {L"\xD83D\xDE00", L"%F0%9F%98%80"},
        {L"\xD83D", L"%EF%BF%BD"},
    };

    for (const auto& expected : cases)
    {
        s_addresses.clear();
        OpenThreatPage(expected.name);
        EXPECT_EQ(s_addresses, std::vector<std::wstring>{AddressOf(expected.encoded)});
    }
}

TEST_F(ThreatLinkTest, AnAddressOf2083CharactersOpensAndALongerOneDoesNot)
{
    const std::size_t room = LongestAddress - AddressOf(L"").size();
    OpenThreatPage(std::wstring(room + 1, L'x'));
    EXPECT_TRUE(s_addresses.empty());
    OpenThreatPage(std::wstring(room, L'x'));
    ASSERT_EQ(s_addresses.size(), 1u);
    EXPECT_EQ(s_addresses[0].size(), LongestAddress);
}
