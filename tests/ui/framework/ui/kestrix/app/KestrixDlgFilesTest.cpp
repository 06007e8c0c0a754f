// File mode: which files give dates, and what happens with files that hold no records.

#include "resource/resource.h"
#include "tests/ui/framework/ui/kestrix/app/PageTest.h"

#include <cstdint>

namespace
{

const std::string Mark = "\xFF\xFE";
constexpr std::size_t PathLimit = 259; // characters of a path that can be read

// Bytes that are the same in every run.
std::string Garbage(std::size_t size)
{
    std::string bytes;
    for (std::uint32_t state = 12345; bytes.size() < size;)
    {
        state = state * 1664525 + 1013904223;
        bytes += static_cast<char>(state >> 24);
    }
    return bytes;
}

class BadFileTest : public PageTest
{
protected:
    // A file of these bytes shows its date and no records, whatever the user does.
    void ExpectNoRecords(const std::string& bytes)
    {
        const std::wstring path = m_folder.File(L"20261120.VLG");
        WriteBytes(path, bytes);
        Open(path);
        EXPECT_EQ(m_page.m_nInitResult, TRUE);
        EXPECT_EQ(Dates(), Texts{DateText(2026, 11, 20)});
        EXPECT_EQ(m_list.GetItemCount(), 0);
        EXPECT_TRUE(m_boxes.Boxes().empty());
        ClickHeader(1);
        ClickRow(0);
        ReleaseKey(m_list, VK_DOWN);
        ClickControl(IDC_INFO_VALUE_2);
        EXPECT_EQ(TextOf(IDC_INFO_VALUE_2_WHOLE), L"");
        EXPECT_EQ(TextOf(IDC_INFO_VALUE_0_LINK), L"");
    }
};

using KestrixDlgFilesTest = PageTest;

// The file by a path of exactly this length, lengthened by steps to where it is.
std::wstring LongWayTo(const std::filesystem::path& folder, std::size_t length)
{
    const std::wstring name = L"\\20261120.VLG";
    std::wstring path = folder.wstring();
    while (path.size() + name.size() + 2 <= length)
    {
        path += L"\\.";
    }
    path.append(length - path.size() - name.size(), L'\\');
    return path + name;
}

} // namespace

TEST_F(KestrixDlgFilesTest, ADateThatDoesNotExistIsToldAndThePageGoes)
{
    const std::wstring path = m_folder.File(L"20260230.VLG");
    WriteUtf16(path, L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0\r\n");
    Open(path);
    ASSERT_EQ(m_boxes.Boxes().size(), 1u);
    EXPECT_EQ(m_boxes.Boxes()[0].text, Text(167));
    EXPECT_EQ(m_boxes.Boxes()[0].caption, Text(143));
    EXPECT_EQ(m_boxes.Boxes()[0].flags, 64u);
    EXPECT_EQ(m_page.m_nInitResult, FALSE);
    EXPECT_FALSE(m_page.IsWindowVisible());
    EXPECT_EQ(Dates(), Texts{});
    EXPECT_EQ(m_list.GetItemCount(), 0);
}

TEST_F(KestrixDlgFilesTest, ANameOfElevenCharactersIsToldAsUnusable)
{
    WriteUtf16(m_folder.File(L"2026112.VLG"), L"");
    Open(m_folder.File(L"*.VLG"));
    ASSERT_EQ(m_boxes.Boxes().size(), 1u);
    EXPECT_EQ(m_boxes.Boxes()[0].text, Text(167));
    EXPECT_FALSE(m_page.IsWindowVisible());
}

TEST_F(KestrixDlgFilesTest, APathThatMatchesNothingIsToldAndThePageGoes)
{
    for (const wchar_t* name : {L"20261120.VLG", L"*.VLG", L"no folder\\20261120.VLG"})
    {
        m_page.DestroyWindow();
        m_list.Detach();
        Open(m_folder.File(name));
        EXPECT_EQ(m_boxes.Boxes().back().text, Text(188)) << name;
        EXPECT_EQ(m_boxes.Boxes().back().caption, Text(143));
        EXPECT_EQ(m_boxes.Boxes().back().flags, 64u);
        EXPECT_EQ(m_page.m_nInitResult, FALSE);
        EXPECT_FALSE(m_page.IsWindowVisible());
    }
    EXPECT_EQ(m_boxes.Boxes().size(), 3u);
}

TEST_F(KestrixDlgFilesTest, AnEmptyPathMatchesNothing)
{
    Open({});
    ASSERT_EQ(m_boxes.Boxes().size(), 1u);
    EXPECT_EQ(m_boxes.Boxes()[0].text, Text(188));
}

TEST_F(KestrixDlgFilesTest, APatternListsItsDatesNewestFirstAndShowsNoRecords)
{
    for (const wchar_t* name : {L"20261119.VLG", L"20270101.VLG", L"20251231.VLG", L"20261120.VLG"})
    {
        WriteUtf16(m_folder.File(name), L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0\r\n");
    }
    Open(m_folder.File(L"*.VLG"));
    EXPECT_EQ(Dates(),
              (Texts{DateText(2027, 1, 1), DateText(2026, 11, 20), DateText(2026, 11, 19), DateText(2025, 12, 31)}));
    EXPECT_EQ(Item(IDC_DATE_LIST).SendMessage(LB_GETCURSEL), 0);
    EXPECT_EQ(m_list.GetItemCount(), 0) << "the path names no single file";
    SelectDate(2);
    EXPECT_EQ(m_list.GetItemCount(), 0);
    EXPECT_TRUE(m_boxes.Boxes().empty());
}

TEST_F(KestrixDlgFilesTest, APathOf259CharactersIsReadAndOneOf260IsNot)
{
    WriteUtf16(m_folder.File(L"20261120.VLG"), L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0\r\n");
    Open(LongWayTo(m_folder.Path(), PathLimit));
    ASSERT_EQ(m_page.m_strLogPath.size(), PathLimit);
    EXPECT_EQ(m_list.GetItemCount(), 1);

    for (const std::size_t length : {PathLimit + 1, PathLimit + 50})
    {
        m_page.m_strLogPath = LongWayTo(m_folder.Path(), length);
        SelectDate(0);
        EXPECT_EQ(m_list.GetItemCount(), 0) << length;
    }
    m_page.m_strLogPath = LongWayTo(m_folder.Path(), PathLimit);
    SelectDate(0);
    EXPECT_EQ(m_list.GetItemCount(), 1) << "and the list shows its rows again";
    EXPECT_TRUE(m_list.GetStyle() & WS_VISIBLE);
}

TEST_F(KestrixDlgFilesTest, AFileThatIsGoneGivesAnEmptyListAndItsReturnFillsItAgain)
{
    const std::wstring line = L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0";
    OpenDay({line});
    std::filesystem::remove(m_page.m_strLogPath);
    SelectDate(0);
    EXPECT_EQ(m_list.GetItemCount(), 0);
    WriteUtf16(m_page.m_strLogPath, Lines({line}));
    SelectDate(0);
    EXPECT_EQ(m_list.GetItemCount(), 1);
    EXPECT_TRUE(m_list.GetStyle() & WS_VISIBLE) << "the list draws";
}

TEST_F(KestrixDlgFilesTest, ABadLineEndsTheReadingAndWhatCameBeforeStays)
{
    OpenDay({L"x|0900|1048576|x|0|0|first|C:\\b|4|1|0|0", L"no record", L"x|1000|1048576|x|0|0|second|C:\\b|4|1|0|0"});
    EXPECT_EQ(Column(2), Texts{L"first"});
}

TEST_F(BadFileTest, AnEmptyFileHasNoRecords)
{
    ExpectNoRecords("");
}

TEST_F(BadFileTest, OneByteHasNoRecords)
{
    ExpectNoRecords("\xFF");
}

TEST_F(BadFileTest, TheMarkAloneHasNoRecords)
{
    ExpectNoRecords(Mark);
}

TEST_F(BadFileTest, TheMarkAndHalfACharacterHasNoRecords)
{
    ExpectNoRecords(Mark + "x");
}

TEST_F(BadFileTest, NulsWithoutAMarkHasNoRecords)
{
    ExpectNoRecords(std::string(5000, '\0'));
}

TEST_F(BadFileTest, NulsBehindTheMarkHasNoRecords)
{
    ExpectNoRecords(Mark + std::string(5001, '\0'));
}

TEST_F(BadFileTest, LineEndsAloneHasNoRecords)
{
    ExpectNoRecords(Mark + Utf16Bytes(L"\r\n\r\n\n\r\n"));
}

TEST_F(BadFileTest, DelimitersAloneHasNoRecords)
{
    ExpectNoRecords(Mark + Utf16Bytes(L"||||||\r\n"));
}

TEST_F(BadFileTest, TextOfNarrowCharactersHasNoRecords)
{
    ExpectNoRecords("x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0\r\n");
}

TEST_F(BadFileTest, ARecordWithoutALineEndHasNoRecords)
{
    ExpectNoRecords(Mark + Utf16Bytes(L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0"));
}

TEST_F(BadFileTest, GarbageHasNoRecords)
{
    ExpectNoRecords(Garbage(100'000));
}

TEST_F(BadFileTest, GarbageBehindTheMarkHasNoRecords)
{
    ExpectNoRecords(Mark + Garbage(99'997));
}
