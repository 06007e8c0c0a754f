#include "framework/ui/kestrix/report/ReportSettings.h"

#include "common/VdCommon/VdComn_Storage.h"
#include "framework/ui/kestrix/logs/EventLogKey.h"

#include <algorithm>
#include <cstdlib>

namespace
{

// Each interval reads the folder again for each line of the report; the chart is some hundreds of pixels wide.
constexpr std::uint32_t MostIntervals = 1000;

// A value of the registry: a fraction that is kept as a text, or a number.
struct Setting
{
    const wchar_t* name;
    const wchar_t* fractionDefault = nullptr;
    double ReportSettings::*fraction = nullptr;
    std::uint32_t numberDefault = 0;
    std::uint32_t ReportSettings::*number = nullptr;
};

constexpr Setting Fraction(const wchar_t* name, const wchar_t* value, double ReportSettings::*member)
{
    return {.name = name, .fractionDefault = value, .fraction = member};
}

constexpr Setting Number(const wchar_t* name, std::uint32_t value, std::uint32_t ReportSettings::*member)
{
    return {.name = name, .numberDefault = value, .number = member};
}

// In the order in which they are read.
constexpr Setting Settings[] = {
    Fraction(L"ReportXLeftOffset", L"0.5", &ReportSettings::m_dXLeftOffset),
    Fraction(L"ReportYLeftOffset", L"0.08", &ReportSettings::m_dYLeftOffset),
    Fraction(L"ReportXRightOffset", L"0.15", &ReportSettings::m_dXRightOffset),
    Fraction(L"ReportYRightOffset", L"0.1", &ReportSettings::m_dYRightOffset),
    Fraction(L"XAixScale", L"0.8", &ReportSettings::m_dXAixScale),
    Fraction(L"YAixScale", L"0.8", &ReportSettings::m_dYAixScale),
    Number(L"TitleLegendXOffset", 20, &ReportSettings::m_nTitleLegendXOffset),
    Number(L"TitleLegendYOffset", 5, &ReportSettings::m_nTitleLegendYOffset),
    Number(L"AxisXNumber", 3, &ReportSettings::m_nAxisXNumber),
    Number(L"AxisYNumber", 3, &ReportSettings::m_nAxisYNumber),
    Number(L"ArrowXOffset", 10, &ReportSettings::m_nArrowXOffset),
    Number(L"ArrowYOffset", 4, &ReportSettings::m_nArrowYOffset),
    Number(L"ArrowXTitleXOffset", 20, &ReportSettings::m_nArrowXTitleXOffset),
    Number(L"ArrowXTitleYOffset", 5, &ReportSettings::m_nArrowXTitleYOffset),
    Number(L"ArrowYTitleXOffset", 25, &ReportSettings::m_nArrowYTitleXOffset),
    Number(L"ArrowYTitleYOffset", 20, &ReportSettings::m_nArrowYTitleYOffset),
};

// As wcstod reads it, which some run-time libraries have write a copy of the text into memory that they may lack.
double FractionOf(const std::wstring& text)
{
    std::string narrow(text.size(), '\0');
    std::ranges::transform(text, narrow.begin(), [](wchar_t c) { return c < 0x80 ? static_cast<char>(c) : '\0'; });
    return std::strtod(narrow.c_str(), nullptr);
}

} // namespace

ReportSettings ReadReportSettings()
{
    using VdCommon::Storage::QueryValue;
    ReportSettings settings;
    for (const Setting& setting : Settings)
    {
        if (setting.fraction != nullptr)
        {
            const std::wstring text =
                QueryValue(HKEY_LOCAL_MACHINE, EventLogKey, setting.name, setting.fractionDefault);
            settings.*setting.fraction = FractionOf(text);
        }
        else
        {
            settings.*setting.number = QueryValue(HKEY_LOCAL_MACHINE, EventLogKey, setting.name, setting.numberDefault);
        }
    }
    settings.m_nAxisXNumber = std::min(settings.m_nAxisXNumber, MostIntervals);
    return settings;
}
