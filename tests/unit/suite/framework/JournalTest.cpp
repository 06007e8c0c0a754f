#include "suite/framework/Journal.h"

#include "suite/common/KernelHandle.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

extern "C" decltype(&::GetLocalTime) __imp_GetLocalTime;

using Framework::Journal;

namespace
{

void SetTheClock(SYSTEMTIME* time)
{
    *time = {2026, 11, 6, 14, 6, 12, 4, 999};
}

class JournalTest : public ::testing::Test
{
protected:
    std::string Text(const wchar_t* name) const { return ReadBytes(m_folder.File(name)); }

    const TemporaryFolder m_folder;
    const ImportPatch<decltype(&::GetLocalTime)> m_clock{__imp_GetLocalTime, &SetTheClock};
};

} // namespace

TEST_F(JournalTest, EachLineHasItsTimeAndComesAfterThoseThatAreThere)
{
    Journal(m_folder.Path()).Write("first");
    Journal(m_folder.Path()).Write("second \xC3\xBC");
    EXPECT_EQ(Text(Journal::FileName), "2026-11-14 06:12:04 first\r\n2026-11-14 06:12:04 second \xC3\xBC\r\n");
}

TEST_F(JournalTest, AFileThatHasReachedItsLimitTakesThePlaceOfTheOldOne)
{
    const Journal journal(m_folder.Path(), 1);
    for (const char* const line : {"first", "second", "third"})
    {
        journal.Write(line);
    }
    EXPECT_EQ(Text(Journal::OldName), "2026-11-14 06:12:04 second\r\n");
    EXPECT_EQ(Text(Journal::FileName), "2026-11-14 06:12:04 third\r\n");
}

TEST_F(JournalTest, AReaderThatHoldsTheFileLosesNoLine)
{
    const Journal journal(m_folder.Path(), 1);
    journal.Write("first");
    {
        const Suite::KernelHandle reader = Suite::OwnFile(
            CreateFileW(m_folder.File(Journal::FileName).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                        nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
        ASSERT_TRUE(reader);
        journal.Write("second");
    }
    EXPECT_EQ(Text(Journal::FileName), "2026-11-14 06:12:04 first\r\n2026-11-14 06:12:04 second\r\n");
}

TEST_F(JournalTest, AFileThatCannotBeWrittenStopsNobody)
{
    std::filesystem::create_directory(m_folder.File(Journal::FileName));
    EXPECT_NO_THROW(Journal(m_folder.Path()).Write("lost"));
    EXPECT_NO_THROW(Journal(m_folder.Path() / L"missing").Write("lost"));
    EXPECT_TRUE(std::filesystem::is_directory(m_folder.File(Journal::FileName)));
}
