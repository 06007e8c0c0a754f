#include "framework/ui/kestrix/app/page/ThreatLink.h"

#include "platform/dialog/ResourceText.h"
#include "resource/resource.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/StartRecorder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

constexpr std::size_t LongestAddress = 2083; // characters

class ThreatLinkTest : public ::testing::Test
{
protected:
    static std::wstring AddressOf(const std::wstring& name)
    {
        std::wstring address = LoadText(IDS_THREAT_ADDRESS);
        return address.replace(address.find(L"%s"), 2, name);
    }

    const LanguageFile m_language;
    StartRecorder m_starts;
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
        m_starts.Clear();
        OpenThreatPage(expected.name);
        EXPECT_EQ(m_starts.Arguments(), std::vector<std::wstring>{AddressOf(expected.encoded)});
    }
}

TEST_F(ThreatLinkTest, AnAddressOf2083CharactersOpensAndALongerOneDoesNot)
{
    const std::size_t room = LongestAddress - AddressOf(L"").size();
    OpenThreatPage(std::wstring(room + 1, L'x'));
    EXPECT_TRUE(m_starts.Starts().empty());
    OpenThreatPage(std::wstring(room, L'x'));
    ASSERT_EQ(m_starts.Starts().size(), 1u);
    EXPECT_EQ(m_starts.Starts()[0].arguments.size(), LongestAddress);
}
