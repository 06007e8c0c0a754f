#include "suite/VdDbg/OldFiles.h"

#include "suite/common/KernelHandle.h"
#include "tests/unit/suite/VdDbg/TraceLogs.h"

#include <gtest/gtest.h>

using VdDbg::RetireCurrent;

namespace
{

class VdDbgOldFiles : public ::testing::Test
{
protected:
    // Each file holds its own name.
    void Make(const std::vector<std::wstring>& names)
    {
        for (const std::wstring& name : names)
        {
            WriteBytes(m_folder.File(name), std::filesystem::path(name).string());
        }
    }

    std::string Content(const std::wstring& name) { return ReadBytes(m_folder.File(name)); }

    // As a reader does that lets others write, yet not rename.
    Suite::KernelHandle Hold(const std::wstring& name)
    {
        return Suite::OwnFile(CreateFileW(m_folder.File(name).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                          nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    }

    const TemporaryFolder m_folder;
    const VdDbg::LogName m_name = NameIn(m_folder.Path());
};

using Names = std::vector<std::wstring>;

const Names AllSix = {L"Trace.1.log", L"Trace.2.log", L"Trace.3.log", L"Trace.4.log", L"Trace.5.log", L"Trace.log"};

} // namespace

TEST_F(VdDbgOldFiles, TheFirstOneIsNumberOne)
{
    Make({L"Trace.log"});
    EXPECT_TRUE(RetireCurrent(m_name));
    EXPECT_EQ(FilesIn(m_folder.Path()), Names{L"Trace.1.log"});
    EXPECT_EQ(Content(L"Trace.1.log"), "Trace.log");
}

TEST_F(VdDbgOldFiles, FiveAreKeptAndTheOldestGoes)
{
    Make(AllSix);
    EXPECT_TRUE(RetireCurrent(m_name));
    EXPECT_EQ(FilesIn(m_folder.Path()), Names(AllSix.begin(), AllSix.end() - 1));
    EXPECT_EQ(Content(L"Trace.1.log"), "Trace.log");
    EXPECT_EQ(Content(L"Trace.2.log"), "Trace.1.log");
    EXPECT_EQ(Content(L"Trace.5.log"), "Trace.4.log");
}

TEST_F(VdDbgOldFiles, AGapIsFilledAndNothingAboveItMoves)
{
    Make({L"Trace.1.log", L"Trace.2.log", L"Trace.4.log", L"Trace.5.log", L"Trace.log"});
    EXPECT_TRUE(RetireCurrent(m_name));
    EXPECT_EQ(Content(L"Trace.3.log"), "Trace.2.log");
    EXPECT_EQ(Content(L"Trace.4.log"), "Trace.4.log");
    EXPECT_EQ(Content(L"Trace.5.log"), "Trace.5.log");
}

TEST_F(VdDbgOldFiles, OtherFilesOfTheFolderStay)
{
    Make(AllSix);
    Make({L"Trace.6.log", L"Other.log", L"Trace.1.txt"});
    EXPECT_TRUE(RetireCurrent(m_name));
    EXPECT_EQ(Content(L"Trace.6.log"), "Trace.6.log");
    EXPECT_EQ(Content(L"Other.log"), "Other.log");
    EXPECT_EQ(Content(L"Trace.1.txt"), "Trace.1.txt");
}

TEST_F(VdDbgOldFiles, TheCurrentFileStaysWhileAReaderHoldsIt)
{
    Make({L"Trace.log"});
    Suite::KernelHandle reader = Hold(L"Trace.log");
    ASSERT_TRUE(reader);
    EXPECT_FALSE(RetireCurrent(m_name));
    EXPECT_EQ(FilesIn(m_folder.Path()), Names{L"Trace.log"});
    reader.reset();
    EXPECT_TRUE(RetireCurrent(m_name));
    EXPECT_EQ(FilesIn(m_folder.Path()), Names{L"Trace.1.log"});
}

TEST_F(VdDbgOldFiles, AHeldOldFileStopsTheShiftAndNoFileIsLostHoweverOftenItIsTried)
{
    Make(AllSix);
    Suite::KernelHandle reader = Hold(L"Trace.3.log");
    ASSERT_TRUE(reader);
    for (int i = 0; i < 3; ++i)
    {
        EXPECT_FALSE(RetireCurrent(m_name));
    }
    EXPECT_EQ(Content(L"Trace.log"), "Trace.log");
    EXPECT_EQ(Content(L"Trace.3.log"), "Trace.3.log");
    EXPECT_EQ(Content(L"Trace.5.log"), "Trace.4.log");
    reader.reset();
    EXPECT_TRUE(RetireCurrent(m_name));
    EXPECT_EQ(FilesIn(m_folder.Path()), Names(AllSix.begin(), AllSix.end() - 1));
    EXPECT_EQ(Content(L"Trace.4.log"), "Trace.3.log");
    EXPECT_EQ(Content(L"Trace.5.log"), "Trace.4.log");
}

TEST_F(VdDbgOldFiles, TheOldestGoesEvenWhenAWriterThatFellBehindHasItOpen)
{
    Make(AllSix);
    const Suite::KernelHandle writer =
        Suite::OpenShared(m_folder.File(L"Trace.5.log").c_str(), FILE_APPEND_DATA, OPEN_EXISTING);
    ASSERT_TRUE(writer);
    EXPECT_TRUE(RetireCurrent(m_name));
    EXPECT_EQ(Content(L"Trace.5.log"), "Trace.4.log");
}

TEST_F(VdDbgOldFiles, WithoutACurrentFileThereIsNothingToRetire)
{
    EXPECT_FALSE(RetireCurrent(m_name));
}
