#include "framework/ui/kestrix/report/ReportSettings.h"

#include "tests/support/RegistrySandbox.h"

#include <gtest/gtest.h>

namespace
{

constexpr wchar_t Key[] = L"Software\\Veldrane\\Zeptara\\17\\ServiceFramework\\EnforceLayer\\Common\\EventLog";

struct Fraction
{
    const wchar_t* name;
    double ReportSettings::*member;
    double byDefault;
};

constexpr Fraction Fractions[] = {
    {L"ReportXLeftOffset", &ReportSettings::m_dXLeftOffset, 0.5},
    {L"ReportYLeftOffset", &ReportSettings::m_dYLeftOffset, 0.08},
    {L"ReportXRightOffset", &ReportSettings::m_dXRightOffset, 0.15},
    {L"ReportYRightOffset", &ReportSettings::m_dYRightOffset, 0.1},
    {L"XAixScale", &ReportSettings::m_dXAixScale, 0.8},
    {L"YAixScale", &ReportSettings::m_dYAixScale, 0.8},
};

struct Number
{
    const wchar_t* name;
    std::uint32_t ReportSettings::*member;
    std::uint32_t byDefault;
};

constexpr Number Numbers[] = {
    {L"TitleLegendXOffset", &ReportSettings::m_nTitleLegendXOffset, 20},
    {L"TitleLegendYOffset", &ReportSettings::m_nTitleLegendYOffset, 5},
    {L"AxisXNumber", &ReportSettings::m_nAxisXNumber, 3},
    {L"AxisYNumber", &ReportSettings::m_nAxisYNumber, 3},
    {L"ArrowXOffset", &ReportSettings::m_nArrowXOffset, 10},
    {L"ArrowYOffset", &ReportSettings::m_nArrowYOffset, 4},
    {L"ArrowXTitleXOffset", &ReportSettings::m_nArrowXTitleXOffset, 20},
    {L"ArrowXTitleYOffset", &ReportSettings::m_nArrowXTitleYOffset, 5},
    {L"ArrowYTitleXOffset", &ReportSettings::m_nArrowYTitleXOffset, 25},
    {L"ArrowYTitleYOffset", &ReportSettings::m_nArrowYTitleYOffset, 20},
};

class ReportSettingsTest : public ::testing::Test
{
protected:
    const RegistrySandbox m_registry;
};

} // namespace

TEST_F(ReportSettingsTest, AMissingValueHasItsDefault)
{
    const ReportSettings settings = ReadReportSettings();
    for (const Fraction& one : Fractions)
    {
        EXPECT_EQ(settings.*one.member, one.byDefault) << testing::PrintToString(one.name);
    }
    for (const Number& one : Numbers)
    {
        EXPECT_EQ(settings.*one.member, one.byDefault) << testing::PrintToString(one.name);
    }
}

TEST_F(ReportSettingsTest, EachValueGoesIntoItsSettingAndIntoNoOther)
{
    std::uint32_t value = 100;
    for (const Fraction& one : Fractions)
    {
        m_registry.SetText(Key, one.name, std::to_wstring(++value) + L".25");
    }
    for (const Number& one : Numbers)
    {
        m_registry.SetNumber(Key, one.name, ++value);
    }
    const ReportSettings settings = ReadReportSettings();
    value = 100;
    for (const Fraction& one : Fractions)
    {
        EXPECT_EQ(settings.*one.member, ++value + 0.25);
    }
    for (const Number& one : Numbers)
    {
        EXPECT_EQ(settings.*one.member, ++value);
    }
}

TEST_F(ReportSettingsTest, AFractionIsReadAsTheCLibraryReadsItAndBadOrEmptyTextIsZero)
{
    for (const auto& [text, fraction] : {std::pair{L"", 0.0},
                                         {L"half", 0.0},
                                         {L"1", 1.0},
                                         {L"-0.5", -0.5},
                                         {L" .25x", 0.25},
                                         {L"1e1", 10.0},
                                         {L"0,5", 0.0}})
    {
        for (const Fraction& one : Fractions)
        {
            m_registry.SetText(Key, one.name, text);
        }
        const ReportSettings settings = ReadReportSettings();
        for (const Fraction& one : Fractions)
        {
            EXPECT_EQ(settings.*one.member, fraction) << testing::PrintToString(text);
        }
    }
}

TEST_F(ReportSettingsTest, AValueOfTheOtherSortHasItsDefault)
{
    for (const Fraction& one : Fractions)
    {
        m_registry.SetNumber(Key, one.name, 7);
    }
    for (const Number& one : Numbers)
    {
        m_registry.SetText(Key, one.name, L"7");
    }
    const ReportSettings settings = ReadReportSettings();
    EXPECT_EQ(settings.m_dXLeftOffset, 0.5);
    EXPECT_EQ(settings.m_nAxisXNumber, 3u);
}

// A number of some thousand millions would keep the report counting for days.
TEST_F(ReportSettingsTest, MoreThanAThousandIntervalsAreAThousand)
{
    for (const auto& [value, intervals] : {std::pair{999u, 999u}, {1000u, 1000u}, {1001u, 1000u}, {~0u, 1000u}})
    {
        m_registry.SetNumber(Key, L"AxisXNumber", value);
        EXPECT_EQ(ReadReportSettings().m_nAxisXNumber, intervals);
    }
}
