#include "framework/ui/kestrix/logs/ExportStream.h"

#include "tests/support/ImportPatch.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

extern "C" decltype(&::CreateFileW) __imp_CreateFileW;

namespace
{

std::vector<std::wstring> g_askedFor;

HANDLE WINAPI RefuseFile(LPCWSTR path, DWORD, DWORD, SECURITY_ATTRIBUTES*, DWORD disposition, DWORD, HANDLE)
{
    if (disposition != OPEN_EXISTING)
    {
        g_askedFor.push_back(path);
    }
    SetLastError(ERROR_FILE_NOT_FOUND);
    return INVALID_HANDLE_VALUE;
}

// The names under which the stream tries to make the file of this path: beside it, then in place.
std::vector<std::wstring> PathsAskedFor(const std::wstring& path)
{
    const ImportPatch<decltype(&::CreateFileW)> refuse(__imp_CreateFileW, &RefuseFile);
    g_askedFor.clear();
    ExportStream().Open(path);
    return g_askedFor;
}

std::vector<std::wstring> BesideAndInPlace(const std::wstring& path)
{
    return {path + L".kestrix-part", path};
}

class ExportStreamTest : public ::testing::Test
{
protected:
    TemporaryFolder m_folder;
    const std::wstring m_path = m_folder.File(L"export.csv");
};

} // namespace

TEST_F(ExportStreamTest, TheFileBeginsWithTheMarkAndIsLowByteFirst)
{
    ExportStream stream;
    ASSERT_TRUE(stream.Open(m_path));
    EXPECT_TRUE(stream.Write(L"A\x20AC"));
    EXPECT_TRUE(stream.Flush());
    stream.Close();
    EXPECT_EQ(ReadBytes(m_path), std::string("\xFF\xFE"
                                             "A\0\xAC\x20",
                                             6));
}

TEST_F(ExportStreamTest, EveryLineFeedComesOutAsCarriageReturnAndLineFeed)
{
    ExportStream stream;
    ASSERT_TRUE(stream.Open(m_path));
    EXPECT_TRUE(stream.Write(L"a\nb\r\n\n"));
    EXPECT_TRUE(stream.Flush());
    stream.Close();
    EXPECT_EQ(ReadUtf16(m_path), L"a\r\nb\r\r\n\r\n");
}

TEST_F(ExportStreamTest, ALabelIsQuotedAndFollowedByItsEnd)
{
    ExportStream stream;
    ASSERT_TRUE(stream.Open(m_path));
    EXPECT_TRUE(stream.WriteLabel(L"a \"b\"", L'\t'));
    EXPECT_TRUE(stream.WriteLabel(L"", L'\n'));
    EXPECT_TRUE(stream.Flush());
    stream.Close();
    EXPECT_EQ(ReadUtf16(m_path), L"\"a \"b\"\"\t\"\"\r\n");
}

TEST_F(ExportStreamTest, TextsAroundTheSizeOfTheBlockComeOutWhole)
{
    for (std::size_t length = 64 * 1024 - 6; length <= 64 * 1024 + 3; ++length)
    {
        ExportStream stream;
        ASSERT_TRUE(stream.Open(m_path));
        ASSERT_TRUE(stream.Write(std::wstring(length, L'x')) && stream.Write(L"\n") && stream.Write(L"end\n"));
        ASSERT_TRUE(stream.Flush());
        stream.Close();
        ASSERT_TRUE(ReadUtf16(m_path) == std::wstring(length, L'x') + L"\r\nend\r\n") << length;
    }
}

TEST_F(ExportStreamTest, OpeningReplacesWhatStandsThere)
{
    WriteUtf16(m_path, L"an older and longer file");
    ExportStream stream;
    ASSERT_TRUE(stream.Open(m_path));
    EXPECT_TRUE(stream.Flush());
    stream.Close();
    EXPECT_EQ(ReadUtf16(m_path), L"");
}

TEST_F(ExportStreamTest, ClosingWithoutFlushWritesNothing)
{
    ExportStream stream;
    ASSERT_TRUE(stream.Open(m_path));
    EXPECT_TRUE(stream.Write(L"lost"));
    stream.Close();
    EXPECT_EQ(ReadBytes(m_path), "");
}

TEST_F(ExportStreamTest, AFolderThatIsNotThereDoesNotOpen)
{
    ExportStream stream;
    EXPECT_FALSE(stream.Open(m_folder.File(L"missing\\export.csv")));
}

TEST_F(ExportStreamTest, TheLineEndMayFallOnTheEdgeOfTheBlock)
{
    std::wstring text;
    std::wstring expected;
    for (int i = 0; i < 64 * 1024; ++i)
    {
        text += L"\n";
        expected += L"\r\n";
    }
    ExportStream stream;
    ASSERT_TRUE(stream.Open(m_path));
    EXPECT_TRUE(stream.Write(text) && stream.Flush());
    stream.Close();
    EXPECT_TRUE(ReadUtf16(m_path) == expected);
}

TEST_F(ExportStreamTest, APathOf259And260And300CharactersCanBeWrittenAndDeleted)
{
    const std::wstring folder = m_folder.File(std::wstring(60, L'f')) + L"\\";
    ASSERT_TRUE(std::filesystem::create_directory(folder));
    for (const std::size_t length : {259u, 260u, 300u})
    {
        const std::wstring path = folder + std::wstring(length - folder.size(), L'n');
        ExportStream stream;
        ASSERT_TRUE(stream.Open(path)) << length;
        EXPECT_TRUE(stream.Write(L"text") && stream.Flush());
        stream.Close();
        EXPECT_EQ(ReadUtf16(L"\\\\?\\" + path), L"text");
        EXPECT_TRUE(stream.Open(path) && stream.Delete()) << length;
        EXPECT_TRUE(std::filesystem::remove(L"\\\\?\\" + path));
        EXPECT_TRUE(std::filesystem::is_empty(folder)) << length;
    }
}

// The system takes a path of this length only with its prefix. Wine takes it without, so the name that is asked for is
// looked at.
TEST_F(ExportStreamTest, ALongPathIsMadeWholeAndGetsThePrefixThatLiftsTheLimit)
{
    const std::wstring name(250, L'n');
    EXPECT_EQ(PathsAskedFor(L"C:\\a\\..\\b/" + name + L"\\x"), BesideAndInPlace(L"\\\\?\\C:\\b\\" + name + L"\\x"));
    EXPECT_EQ(PathsAskedFor(L"\\\\server\\share\\" + name), BesideAndInPlace(L"\\\\?\\UNC\\server\\share\\" + name));
    EXPECT_EQ(PathsAskedFor(L"\\\\?\\C:\\b\\" + name), BesideAndInPlace(L"\\\\?\\C:\\b\\" + name));
    EXPECT_EQ(PathsAskedFor(L"C:\\a\\..\\b"), BesideAndInPlace(L"C:\\a\\..\\b")) << "a short one stays as it is";
}

TEST_F(ExportStreamTest, AFileWhoseNeighbourIsTooLongWithoutThePrefixGetsItForThatOne)
{
    const std::wstring path = L"C:\\b\\" + std::wstring(250, L'n');
    EXPECT_EQ(PathsAskedFor(path), (std::vector<std::wstring>{L"\\\\?\\" + path + L".kestrix-part", path}));
}

TEST_F(ExportStreamTest, ANamedStreamOfAFileIsMadeInPlace)
{
    EXPECT_EQ(PathsAskedFor(L"C:\\b\\a.csv:stream"), std::vector<std::wstring>{L"C:\\b\\a.csv:stream"});
}

TEST_F(ExportStreamTest, NobodyElseOpensTheNewFileUntilItIsClosed)
{
    ExportStream stream;
    ASSERT_TRUE(stream.Open(m_path));
    const auto canRead = [](const std::wstring& path)
    {
        return static_cast<bool>(
            UniqueFile(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                   nullptr, OPEN_EXISTING, 0, nullptr)));
    };
    ASSERT_TRUE(std::filesystem::exists(m_path + L".kestrix-part"));
    EXPECT_FALSE(canRead(m_path + L".kestrix-part")) << "a reader would keep a failed export from being deleted";
    stream.Close();
    EXPECT_TRUE(canRead(m_path));
}
