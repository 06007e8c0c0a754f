#include "tests/unit/suite/samples/SampleFiles.h"

#include <regex>

namespace Samples
{

namespace
{

bool Matches(std::wstring_view text, const wchar_t* pattern)
{
    return std::regex_match(text.begin(), text.end(), std::wregex(pattern));
}

class TunerRecordsTest : public SampleMonthTest
{
protected:
    std::vector<Record> OfType(int type) const
    {
        return Where(m_arrRecord, [&](const Record& r) { return Number(r[2]) == type; });
    }

    const SampleMonth m_month{L"STC", GetParam()};
    const std::vector<Record>& m_arrRecord = m_month.Records();
};

} // namespace

TEST_P(TunerRecordsTest, EveryTypeOccursWithEveryCode)
{
    EXPECT_EQ(Numbers(m_arrRecord, 2), (std::set{0, 1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(Numbers(OfType(0), 3), (std::set{0, 1, 2, 3, 4, 9}));
    EXPECT_EQ(Numbers(OfType(1), 3), (std::set{0, 1, 9}));
    EXPECT_EQ(Numbers(OfType(3), 3), (std::set{0, 1, 2, 3, 9}));
}

TEST_P(TunerRecordsTest, BothStatusesOccurInDiskCleanupAndElsewhere)
{
    EXPECT_EQ(Numbers(OfType(0), 4), (std::set{0, 1}));
    EXPECT_EQ(Numbers(Where(m_arrRecord, [](const Record& r) { return r[2] != L"0"; }), 4), (std::set{0, 1}));
}

TEST_P(TunerRecordsTest, CountsOfEntriesCookiesAndItemsAreOneAndMany)
{
    for (const int type : {2, 4, 5})
    {
        const std::set<int> counts = Numbers(OfType(type), 6);
        EXPECT_TRUE(*counts.begin() <= 1) << "type " << type;
        EXPECT_TRUE(*counts.rbegin() > 1) << "type " << type;
    }
}

TEST_P(TunerRecordsTest, PrivacyCleanupEndsWithADateAndDiskCleanupWithANumber)
{
    for (const Record& record : OfType(3))
    {
        EXPECT_TRUE(Matches(record[6], L"\\d{4}/[01]\\d/[0-3]\\d"));
    }
    for (const Record& record : OfType(0))
    {
        EXPECT_TRUE(Matches(record[6], L"\\d+"));
    }
}

TEST_P(TunerRecordsTest, TheOptionalTextIsThereAndMissing)
{
    const std::set<std::wstring> texts = Values(m_arrRecord, 5);
    EXPECT_TRUE(texts.contains(L""));
    EXPECT_TRUE(texts.contains(L"Pinecone Browser"));
}

EACH_SEED(TunerRecordsTest);

} // namespace Samples
