#include "tests/unit/suite/samples/SampleFiles.h"

namespace Samples
{

namespace
{

struct GroupCodes
{
    int group;
    std::set<int> codes;
};

// Every event that the viewer has a name for, and one that it has none for.
const GroupCodes Events[] = {
    {1, {200}},
    {2, {201, 202, 203, 221}},
    {3, {204, 205, 206, 207, 208}},
    {4, {164, 169, 209, 210, 211, 212, 213, 214, 215, 216, 217, 218, 219, 220}},
    {5, {4,          16,         4096,       0x14000000, 0x20000100, 0x21000800, 0x21001000,
         0x21080000, 0x24080000, 0x24200000, 0x21100000, 0x22000010, 0x22000020, 0x22000040,
         0x22000080, 0x22000100, 0x22000200, 0x22400000, 0x24100000, 0x24400000, 0x24800000,
         0x28000000, 0x28088000, 0x28100000, 0x28200000, 0x28400000, 0x28800004, 0x28800008}},
    {6, {4,          512,        2048,       0x80000,    0x100000,   0x20000001, 0x20000020, 0x20000040, 0x20000400,
         0x20008000, 0x40000010, 0x48000100, 0x48001000, 0x40000020, 0x40000040, 0x40000080, 0x40000100, 0x40000200,
         0x40000400, 0x40000800, 0x40001000, 0x40002000, 0x40004000, 0x40008000, 0x40010000, 0x40020000, 0x40040000,
         0x40080000, 0x40100000, 0x40200000, 0x40400000, 0x40800000, 0x41000000, 0x48000000, 0x48000001, 0x48000002,
         0x48000800, 0x48040002, 0x48040003, 0x48040004, 0x48040005, 0x48040006, 0x48040007, 0x48040008, 0x48040009,
         0x48040010, 0x48040011, 0x48040012, 0x48040013, 0x48040014, 0x48040015, 0x48040017, 0x48040018, 0x48040019,
         0x48040020, 0x48040022, 0x48040023}},
    {7, {223, 224, 225, 226}},
    {8, {166, 168, 227, 232}},
};

// The result codes of the update engine, with those that have no sign bit first; 2, 1000002 and 0xC0FFEE00 stand for
// the rest.
const std::uint32_t EngineErrors[] = {
    16,         58,         28,         47,         48,         55,         56,         59,
    1000001,    0,          1,          4,          5,          6,          10,         25,
    49,         2,          1000002,    0xC3000002, 0xC0110002, 0xC0110003, 0xC0110004, 0xC0170002,
    0xC0170003, 0xC0170004, 0xC0170005, 0xC0170006, 0xC2000003, 0xC3000001, 0xC2000001, 0xC2000002,
    0xC0010000, 0xC0010002, 0xC0010003, 0xC0010004, 0xC0010005, 0xC0010006, 0xC0010007, 0xC0010008,
    0xC0010009, 0xC001000A, 0xC0020004, 0xC0020005, 0xC1000001, 0xC3000003, 0xC3000004, 0xC0FFEE00,
};

class UpdateRecordsTest : public SampleMonthTest
{
protected:
    std::vector<Record> OfKind(std::wstring_view kind) const
    {
        return Where(m_arrRecord, [&](const Record& r) { return r[4] == kind; });
    }

    const SampleMonth m_month{L"UPG", GetParam()};
    const std::vector<Record>& m_arrRecord = m_month.Records();
};

} // namespace

TEST_P(UpdateRecordsTest, EveryGroupOccursWithEveryEventOfItAndNoOther)
{
    EXPECT_EQ(Numbers(m_arrRecord, 2), (std::set{1, 2, 3, 4, 5, 6, 7, 8}));
    for (const GroupCodes& row : Events)
    {
        const auto records = Where(m_arrRecord, [&](const Record& r) { return Number(r[2]) == row.group; });
        EXPECT_EQ(Numbers(records, 3), row.codes) << "group " << row.group;
    }
}

TEST_P(UpdateRecordsTest, EveryKindOfResultOccurs)
{
    EXPECT_EQ(Numbers(m_arrRecord, 4), (std::set{1, 2, 3, 11, 13, 5}));
    EXPECT_EQ(Numbers(OfKind(L"13"), 5), (std::set{0, 1, 2, 3}));
}

TEST_P(UpdateRecordsTest, EveryEngineErrorOccursAsSignedDecimal)
{
    std::set<std::wstring> expected;
    for (const std::uint32_t error : EngineErrors)
    {
        expected.insert(std::to_wstring(static_cast<std::int32_t>(error)));
    }
    EXPECT_EQ(Values(OfKind(L"11"), 5), expected);
    EXPECT_TRUE(expected.contains(L"-1023410174")) << "0xC3000002";
}

TEST_P(UpdateRecordsTest, AnUpdateRaisesTheVersionAndAFailureHasNoneAfterIt)
{
    for (const Record& record : m_arrRecord)
    {
        EXPECT_EQ(record[7].empty(), record[4] != L"1" && record[4] != L"2");
        EXPECT_TRUE(record[4] != L"1" || record[7] != record[6]);
        EXPECT_TRUE(record[4] != L"2" || record[7] == record[6]);
    }
}

EACH_SEED(UpdateRecordsTest);

} // namespace Samples
