#include "tests/unit/suite/samples/SampleFiles.h"

namespace Samples
{

namespace
{

class PrivacyRecordsTest : public SampleMonthTest
{
protected:
    const SampleMonth m_month{L"PPG", GetParam()};
    const std::vector<Record>& m_arrRecord = m_month.Records();
};

} // namespace

TEST_P(PrivacyRecordsTest, EveryKindAndResultOccurs)
{
    EXPECT_EQ(Numbers(m_arrRecord, 2), (std::set{1, 2, 3}));
    EXPECT_EQ(Numbers(m_arrRecord, 5), (std::set{0, 101, 5}));
}

TEST_P(PrivacyRecordsTest, MailsFillBothEscapedTokensAndOthersTheFirst)
{
    bool bar = false;
    for (const Record& record : m_arrRecord)
    {
        for (const std::wstring_view token : {record[6], record[7]})
        {
            const std::wstring plain = Unescape(token);
            EXPECT_EQ(Escape(plain), token);
            bar = bar || plain.find(L'|') != std::wstring::npos;
        }
        EXPECT_FALSE(record[6].empty());
        EXPECT_EQ(record[7].empty(), record[2] != L"2");
    }
    EXPECT_TRUE(bar);
}

EACH_SEED(PrivacyRecordsTest);

} // namespace Samples
