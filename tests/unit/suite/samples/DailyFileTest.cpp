#include "suite/samples/DailyFile.h"

#include "suite/samples/Failure.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace Samples
{

namespace
{

using namespace std::chrono;
using Strings = std::vector<std::wstring>;

Strings LinesOfText(std::wstring_view text)
{
    const TemporaryFolder folder;
    WriteUtf16(folder.File(L"a.VLG"), text);
    return ReadDailyFile(folder.File(L"a.VLG"));
}

// The text with which a file of these bytes is refused.
std::string Refusal(std::string_view bytes)
{
    const TemporaryFolder folder;
    WriteBytes(folder.File(L"a.VLG"), bytes);
    try
    {
        ReadDailyFile(folder.File(L"a.VLG"));
    }
    catch (const Failure& failure)
    {
        EXPECT_EQ(failure.Code(), ExitCode::WorkFailed);
        return failure.what();
    }
    return {};
}

} // namespace

TEST(DailyFileTest, ANameIsADateAndTheLettersOfALog)
{
    for (const wchar_t* name : {L"20240229.SPG", L"C:\\Log\\20240229.SPG", L"20240229.spg"})
    {
        const std::optional<DailyName> found = ParseDailyName(name);
        ASSERT_TRUE(found) << name;
        EXPECT_EQ(found->kind->extension, L"SPG");
        EXPECT_EQ(found->date, Date(year(2024) / February / 29));
    }
}

TEST(DailyFileTest, OtherNamesAreNone)
{
    for (const wchar_t* name :
         {L"", L".VLG", L"20240229", L"20230229.VLG", L"20240001.VLG", L"2024022.VLG", L"202402290.VLG",
          L"2024O229.VLG", L"20240229.XYZ", L"20240229.VL", L"20240229.VLGG", L"-2024022.VLG", L"20240229.VLG.bak"})
    {
        EXPECT_FALSE(ParseDailyName(name)) << name;
    }
}

TEST(DailyFileTest, LinesComeWithoutTheirEnds)
{
    EXPECT_EQ(LinesOfText(L"a|b\r\nc\nd\re\r\n"), (Strings{L"a|b", L"c", L"d\re"}));
}

TEST(DailyFileTest, EmptyLinesStayAndOneWithoutAnEndIsLeftOut)
{
    EXPECT_EQ(LinesOfText(L"\r\na\r\n\r\n\nb"), (Strings{L"", L"a", L"", L""}));
    EXPECT_EQ(LinesOfText(L""), Strings{});
}

TEST(DailyFileTest, LongLinesAndNulsStay)
{
    using namespace std::string_literals;
    const Strings lines = {std::wstring(3'000'000, L'y'), L"a\0b"s};
    EXPECT_EQ(LinesOfText(lines[0] + L"\r\n" + lines[1] + L"\r\n"), lines);
}

TEST(DailyFileTest, AFileCutWithinACharacterKeepsItsWholeLines)
{
    const TemporaryFolder folder;
    WriteBytes(folder.File(L"a.VLG"), "\xFF\xFE" + Utf16Bytes(L"a\r\nb\r\n") + "c");
    EXPECT_EQ(ReadDailyFile(folder.File(L"a.VLG")), (Strings{L"a", L"b"}));
}

TEST(DailyFileTest, AFileOfAnotherEncodingIsRefused)
{
    for (const std::string_view bytes : {"", "a", "20240101|120000|plain\r\n",
                                         "\xEF\xBB\xBF"
                                         "a\r\n",
                                         "\xFE\xFF"})
    {
        EXPECT_NE(Refusal(bytes).find("byte order mark"), std::string::npos) << bytes;
    }
}

TEST(DailyFileTest, AFileThatIsNotThereIsNamed)
{
    try
    {
        ReadDailyFile(L"no\\20240101.VLG");
        FAIL() << "it was read";
    }
    catch (const Failure& failure)
    {
        EXPECT_EQ(failure.Code(), ExitCode::WorkFailed);
        EXPECT_NE(std::string(failure.what()).find("20240101.VLG"), std::string::npos) << failure.what();
    }
}

} // namespace Samples
