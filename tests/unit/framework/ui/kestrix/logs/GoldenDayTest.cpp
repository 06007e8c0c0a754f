// The golden days of all kinds, see tests/support/GoldenDay.h.

#include "tests/support/GoldenDay.h"

#include "framework/ui/kestrix/app/LogFactory.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "tests/support/CategoryService.h"
#include "tests/support/LanguageFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace
{

const LogKind* KindOf(const GoldenDayHead& day)
{
    const auto found = std::ranges::find(LogKinds(), day.extension, &LogKind::extension);
    return found == LogKinds().end() ? nullptr : &*found;
}

// The service is there for the log that asks it.
class GoldenDayTest : private WithCategoryService, public ::testing::Test
{
protected:
    bool HasDay(const LogKind& kind, bool fromDatabase) const
    {
        return std::ranges::any_of(m_arrDay, [&](const GoldenDayHead& day)
                                   { return KindOf(day) == &kind && day.isFromDatabase == fromDatabase; });
    }

    const LanguageFile m_language;
    const std::vector<GoldenDayHead> m_arrDay = GoldenDays();
};

} // namespace

TEST_F(GoldenDayTest, EveryDayIsWhatItsLogMakesOfIt)
{
    for (const GoldenDayHead& day : m_arrDay)
    {
        const LogKind* const kind = KindOf(day);
        ASSERT_NE(kind, nullptr) << day.name << " is a day of no kind";
        const std::unique_ptr<CZPTLogBase> log = CreateLog(kind->type);
        ASSERT_NE(log, nullptr) << day.name << " is a day of a kind that has no class";
        ExpectGoldenDay(*log, day.name);
    }
}

TEST_F(GoldenDayTest, EveryClassHasADayOfTheDatabaseAndADayOfAFile)
{
    for (const LogKind& kind : LogKinds())
    {
        if (CreateLog(kind.type) != nullptr)
        {
            const std::string extension(kind.extension.begin(), kind.extension.end());
            EXPECT_TRUE(HasDay(kind, true)) << extension << " has no golden day of the database";
            EXPECT_TRUE(HasDay(kind, false)) << extension << " has no golden day of a file";
        }
    }
}
