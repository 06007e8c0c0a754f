// An export beside the file that it replaces: the name holds the old file or the new one, whole. It once was written
// over the old one, so that a full disk or a killed viewer left half a file, or none.

#include "framework/ui/kestrix/logs/ExportStream.h"

#include "tests/support/ImportPatch.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

extern "C" decltype(&::CreateFileW) __imp_CreateFileW;
extern "C" decltype(&::FlushFileBuffers) __imp_FlushFileBuffers;
extern "C" decltype(&::GetFileInformationByHandle) __imp_GetFileInformationByHandle;
extern "C" decltype(&::MoveFileExW) __imp_MoveFileExW;
extern "C" decltype(&::ReplaceFileW) __imp_ReplaceFileW;

namespace
{

using Names = std::vector<std::wstring>;

constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

class ExportReplaceTest : public ::testing::Test
{
protected:
    ExportReplaceTest() { WriteUtf16(m_path, L"old"); }

    Names Files() const
    {
        Names names;
        for (const auto& entry : std::filesystem::directory_iterator(m_folder.Path()))
        {
            names.push_back(entry.path().filename().wstring());
        }
        std::ranges::sort(names);
        return names;
    }

    UniqueFile OpenedBySomebody(DWORD share) const
    {
        return UniqueFile(CreateFileW(m_path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr));
    }

    // Opens, writes the text and flushes.
    bool Begin() { return m_stream.Open(m_path) && m_stream.Write(L"new") && m_stream.Flush(); }

    // The whole of an export into the file that stands there; false when it failed.
    bool Export() { return Begin() && m_stream.Close(); }

    void ExpectOnly(const std::wstring& text) const
    {
        EXPECT_EQ(ReadUtf16(m_path), text);
        EXPECT_EQ(Files(), Names{L"export.csv"});
    }

    TemporaryFolder m_folder;
    const std::wstring m_path = m_folder.File(L"export.csv");
    const std::wstring m_part = m_path + L".kestrix-part";
    ExportStream m_stream;
};

std::vector<std::byte> Rights(const std::wstring& path)
{
    DWORD size = 0;
    GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<std::byte> rights(size);
    EXPECT_TRUE(GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, rights.data(), size, &size));
    return rights;
}

// Leaves the file to the user of this process alone.
void LetOnlyTheUserIn(const std::wstring& path)
{
    HANDLE token = nullptr;
    ASSERT_TRUE(OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token));
    alignas(TOKEN_USER) std::byte user[256];
    DWORD size = 0;
    ASSERT_TRUE(GetTokenInformation(token, TokenUser, user, sizeof user, &size));
    CloseHandle(token);
    alignas(ACL) std::byte bytes[512];
    auto* const list = reinterpret_cast<ACL*>(bytes);
    SECURITY_DESCRIPTOR rights{};
    ASSERT_TRUE(
        InitializeAcl(list, sizeof bytes, ACL_REVISION) &&
        AddAccessAllowedAce(list, ACL_REVISION, FILE_ALL_ACCESS, reinterpret_cast<TOKEN_USER*>(user)->User.Sid) &&
        InitializeSecurityDescriptor(&rights, SECURITY_DESCRIPTOR_REVISION) &&
        SetSecurityDescriptorDacl(&rights, TRUE, list, FALSE) &&
        SetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, &rights));
}

// Stands for CreateFileW while no new file can be made, with this error.
class NoNewFiles
{
public:
    explicit NoNewFiles(DWORD error) : m_patch(__imp_CreateFileW, &Create)
    {
        s_error = error;
        s_create = m_patch.Original();
    }

private:
    static HANDLE WINAPI Create(LPCWSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                                DWORD disposition, DWORD flags, HANDLE like)
    {
        if (disposition == CREATE_NEW)
        {
            SetLastError(s_error);
            return INVALID_HANDLE_VALUE;
        }
        return s_create(path, access, share, security, disposition, flags, like);
    }

    inline static DWORD s_error = 0;
    inline static decltype(&::CreateFileW) s_create = nullptr;

    ImportPatch<decltype(&::CreateFileW)> m_patch;
};

// Notes how CreateFileW is asked for files, for the life of the object.
class OpeningRecorder
{
public:
    struct Opening
    {
        std::wstring path;
        DWORD disposition;
        DWORD flags;
    };

    OpeningRecorder()
    {
        s_openings.clear();
        s_create = m_patch.Original();
    }

    // There must be one.
    static const Opening& First() { return s_openings.at(0); }

private:
    static HANDLE WINAPI Create(LPCWSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                                DWORD disposition, DWORD flags, HANDLE like)
    {
        s_openings.push_back({path, disposition, flags});
        return s_create(path, access, share, security, disposition, flags, like);
    }

    inline static std::vector<Opening> s_openings;
    inline static decltype(&::CreateFileW) s_create = nullptr;

    const ImportPatch<decltype(&::CreateFileW)> m_patch{__imp_CreateFileW, &Create};
};

DWORD g_attributes = 0;

BOOL WINAPI InformWithAttributes(HANDLE, BY_HANDLE_FILE_INFORMATION* information)
{
    *information = {};
    information->dwFileAttributes = g_attributes;
    information->nNumberOfLinks = 1;
    return TRUE;
}

std::string g_order;

BOOL WINAPI NoteFlush(HANDLE)
{
    g_order += "flushed ";
    return TRUE;
}

BOOL WINAPI NoteMove(LPCWSTR, LPCWSTR, DWORD flags)
{
    g_order += (flags & MOVEFILE_WRITE_THROUGH) != 0 ? "moved on the disk " : "moved ";
    return TRUE;
}

BOOL WINAPI FailToFlush(HANDLE)
{
    return FALSE;
}

// Stops where the old file has stepped aside and the new one could not take its place.
BOOL WINAPI ReplaceByHalf(LPCWSTR path, LPCWSTR, LPCWSTR aside, DWORD, void*, void*)
{
    std::filesystem::rename(path, aside);
    SetLastError(ERROR_UNABLE_TO_MOVE_REPLACEMENT_2);
    return FALSE;
}

} // namespace

TEST_F(ExportReplaceTest, TheOldFileStaysUntilTheNewOneIsWhole)
{
    ASSERT_TRUE(Begin());
    EXPECT_EQ(ReadUtf16(m_path), L"old");
    EXPECT_EQ(Files(), (Names{L"export.csv", L"export.csv.kestrix-part"}));
    EXPECT_TRUE(m_stream.Close());
    ExpectOnly(L"new");
}

TEST_F(ExportReplaceTest, AFileThatIsGivenUpLeavesTheOldOneAndNothingBesideIt)
{
    ASSERT_TRUE(Begin());
    EXPECT_TRUE(m_stream.Delete());
    ExpectOnly(L"old");
}

TEST_F(ExportReplaceTest, TheNewFileIsOnTheDiskBeforeItReplacesTheOldOne)
{
    const ImportPatch flush(__imp_FlushFileBuffers, &NoteFlush);
    const ImportPatch move(__imp_MoveFileExW, &NoteMove);
    g_order.clear();
    EXPECT_TRUE(Export());
    EXPECT_EQ(g_order, "flushed moved on the disk ");
}

TEST_F(ExportReplaceTest, ADiskThatRefusesTheLastBytesAtTheFlushIsAFailure)
{
    const ImportPatch refuse(__imp_FlushFileBuffers, &FailToFlush);
    EXPECT_FALSE(Begin());
    EXPECT_TRUE(m_stream.Delete());
    ExpectOnly(L"old");
}

TEST_F(ExportReplaceTest, AReaderWithFullSharingIsNoFailureAndReadsTheOldFileToItsEnd)
{
    UniqueFile reader = OpenedBySomebody(ShareAll);
    EXPECT_TRUE(Export());
    EXPECT_EQ(ReadUtf16(m_path), L"new");
    char bytes[16]{};
    DWORD read = 0;
    EXPECT_TRUE(ReadFile(reader.get(), bytes, sizeof bytes, &read, nullptr));
    EXPECT_EQ(std::string(bytes, read), ReadBytes(m_path).substr(0, 2) + Utf16Bytes(L"old"));
    reader.reset();
    ExpectOnly(L"new");
}

TEST_F(ExportReplaceTest, AFileThatOthersDoNotShareForDeletionIsWrittenInPlace)
{
    const UniqueFile reader = OpenedBySomebody(FILE_SHARE_READ | FILE_SHARE_WRITE);
    ASSERT_TRUE(Begin());
    EXPECT_EQ(Files(), Names{L"export.csv"});
    EXPECT_TRUE(m_stream.Close());
    ExpectOnly(L"new");
}

TEST_F(ExportReplaceTest, AFileThatSomebodyTakesMeanwhileKeepsWhatItHolds)
{
    ASSERT_TRUE(Begin());
    const UniqueFile reader = OpenedBySomebody(FILE_SHARE_READ | FILE_SHARE_WRITE);
    EXPECT_FALSE(m_stream.Close());
    EXPECT_TRUE(m_stream.Delete());
    ExpectOnly(L"old");
}

TEST_F(ExportReplaceTest, AFileThatStoodAsideInVainComesBack)
{
    const ImportPatch replace(__imp_ReplaceFileW, &ReplaceByHalf);
    const UniqueFile reader = OpenedBySomebody(ShareAll);
    ASSERT_TRUE(Begin());
    EXPECT_FALSE(m_stream.Close());
    EXPECT_TRUE(m_stream.Delete());
    ExpectOnly(L"old");
}

TEST_F(ExportReplaceTest, WhereNoFileMayBeMadeBesideItTheFileIsWrittenInPlace)
{
    const NoNewFiles refuse(ERROR_ACCESS_DENIED);
    EXPECT_TRUE(Export());
    ExpectOnly(L"new");
}

TEST_F(ExportReplaceTest, ANameThatIsTooLongForAFileBesideItIsWrittenInPlace)
{
    const std::wstring path = m_folder.File(std::wstring(255, L'n'));
    EXPECT_TRUE(m_stream.Open(path) && m_stream.Write(L"long") && m_stream.Flush() && m_stream.Close());
    EXPECT_EQ(ReadUtf16(L"\\\\?\\" + path), L"long");
}

TEST_F(ExportReplaceTest, ADiskWithoutRoomForAFileLeavesTheOldOne)
{
    const NoNewFiles refuse(ERROR_DISK_FULL);
    EXPECT_FALSE(Begin());
    ExpectOnly(L"old");
}

TEST_F(ExportReplaceTest, WhatANewFileWouldNotBeIsOpenedInPlace)
{
    const ImportPatch inform(__imp_GetFileInformationByHandle, &InformWithAttributes);
    const std::pair<DWORD, bool> cases[] = {{FILE_ATTRIBUTE_ARCHIVE, true},
                                            {FILE_ATTRIBUTE_READONLY, false},
                                            {FILE_ATTRIBUTE_HIDDEN, false},
                                            {FILE_ATTRIBUTE_SYSTEM, false},
                                            {FILE_ATTRIBUTE_REPARSE_POINT, false}};
    for (const auto& [attributes, isReplaced] : cases)
    {
        g_attributes = attributes;
        ASSERT_TRUE(m_stream.Open(m_path));
        EXPECT_EQ(std::filesystem::exists(m_part), isReplaced) << attributes;
        EXPECT_TRUE(m_stream.Flush() && m_stream.Close());
    }
}

TEST_F(ExportReplaceTest, OfALinkItIsTheLinkThatIsLookedAt)
{
    const OpeningRecorder openings;
    EXPECT_TRUE(Export());
    EXPECT_EQ(openings.First().disposition, static_cast<DWORD>(OPEN_EXISTING));
    EXPECT_NE(openings.First().flags & FILE_FLAG_OPEN_REPARSE_POINT, 0u);
}

TEST_F(ExportReplaceTest, APathOf260CharactersIsLiftedOverTheSystemsLimitAndAShorterOneIsLeftAlone)
{
    const std::wstring folder = m_folder.File(L"missing\\");
    for (const auto& [length, prefix] : {std::pair(259u, L""), std::pair(260u, L"\\\\?\\")})
    {
        const std::wstring path = folder + std::wstring(length - folder.size(), L'n');
        const OpeningRecorder openings;
        EXPECT_FALSE(m_stream.Open(path));
        EXPECT_EQ(openings.First().path, prefix + path) << length;
    }
}

TEST_F(ExportReplaceTest, AFileOfTwoNamesHasTheNewTextUnderBoth)
{
    const std::wstring other = m_folder.File(L"other.csv");
    ASSERT_TRUE(CreateHardLinkW(other.c_str(), m_path.c_str(), nullptr));
    EXPECT_TRUE(Export());
    EXPECT_EQ(ReadUtf16(other), L"new");
    EXPECT_EQ(ReadUtf16(m_path), L"new");
}

TEST_F(ExportReplaceTest, WhatAKilledExportLeftBehindGoesWithTheNextOne)
{
    WriteBytes(m_part, "half an export");
    EXPECT_TRUE(Export());
    ExpectOnly(L"new");
}

TEST_F(ExportReplaceTest, TwoExportsToOneFileDoNotMix)
{
    ASSERT_TRUE(Begin());
    ExportStream other;
    EXPECT_TRUE(other.Open(m_path) && other.Write(L"other") && other.Flush() && other.Close()) << "in place";
    EXPECT_EQ(ReadUtf16(m_path), L"other");
    EXPECT_TRUE(m_stream.Close());
    ExpectOnly(L"new");
}

TEST_F(ExportReplaceTest, TheNewFileHasTheRightsOfTheOldOne)
{
    const std::vector<std::byte> usual = Rights(m_path);
    LetOnlyTheUserIn(m_path);
    const std::vector<std::byte> before = Rights(m_path);
    ASSERT_NE(before, usual);
    EXPECT_TRUE(Export());
    EXPECT_EQ(Rights(m_path), before);
    EXPECT_EQ(ReadUtf16(m_path), L"new");
}
