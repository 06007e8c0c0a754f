#include "suite/import/DailyFile.h"

#include "suite/common/KernelHandle.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace Import
{

namespace
{

using Strings = std::vector<std::wstring>;

Strings LinesOfText(std::wstring_view text)
{
    const TemporaryFolder folder;
    WriteUtf16(folder.File(L"a.VLG"), text);
    return ReadDailyFile(folder.File(L"a.VLG"));
}

// The text with which a file is refused.
std::string Refusal(const std::wstring& path)
{
    try
    {
        ReadDailyFile(path);
    }
    catch (const BadFile& bad)
    {
        return bad.what();
    }
    ADD_FAILURE() << "it was read";
    return {};
}

void ExpectRefusal(const std::wstring& path, const std::string& part)
{
    const std::string text = Refusal(path);
    EXPECT_NE(text.find(part), std::string::npos) << text;
}

} // namespace

TEST(DailyFileTest, ANameIsADateAndTheLettersOfALog)
{
    for (const wchar_t* name : {L"20240229.SPG", L"C:\\Log\\20240229.SPG", L"20240229.spg"})
    {
        const std::optional<DailyName> found = ParseDailyName(name);
        ASSERT_TRUE(found) << name;
        EXPECT_EQ(found->kind->extension, L"SPG");
        EXPECT_EQ(found->day, 20240229u);
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

TEST(DailyFileTest, AFileOfAnotherEncodingIsRefusedByItsName)
{
    struct Row
    {
        std::string_view bytes;
        const char* part;
    };

    constexpr Row rows[] = {
        {"", "is empty"},
        {"a", "is empty"},
        {"20240101|120000|plain\r\n", "does not begin with the byte order mark"},
        {"\xEF\xBB\xBF"
         "a\r\n",
         "is UTF-8"},
        {"\xFE\xFF", "is UTF-16 big endian"},
        {std::string_view("\0\0", 2), "does not begin with the byte order mark"},
    };
    const TemporaryFolder folder;
    for (const Row& row : rows)
    {
        WriteBytes(folder.File(L"a.VLG"), row.bytes);
        ExpectRefusal(folder.File(L"a.VLG"), row.part);
    }
}

TEST(DailyFileTest, AFileThatIsNotThereIsTold)
{
    const TemporaryFolder folder;
    ExpectRefusal(folder.File(L"20240101.VLG"), "is not there. Check how its name");
    ExpectRefusal(folder.File(L"no\\20240101.VLG"), "is not there. Check how its folder");
}

TEST(DailyFileTest, AFileThatAnotherProgramHoldsIsTold)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"20240101.VLG");
    const Suite::KernelHandle alone = Suite::OwnFile(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(alone);
    ExpectRefusal(path, "is held by another program");
}

TEST(DailyFileTest, AFolderCannotBeReadAsAFile)
{
    const TemporaryFolder folder;
    ExpectRefusal(folder.Path().wstring(), "may not be read by you");
}

} // namespace Import
