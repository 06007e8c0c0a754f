#include "framework/ui/kestrix/logs/ZPTLogSysTuner.h"

#include "tests/support/HeaderOf.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/LogFixture.h"
#include "tests/support/ShortDateFormat.h"
#include "tests/support/TraceRecorder.h"

#include <oleauto.h>

#include <algorithm>

extern "C" decltype(&::VarBstrFromDate) __imp_VarBstrFromDate;

namespace
{

HRESULT WINAPI RefuseDate(DATE, LCID, ULONG, BSTR*)
{
    return DISP_E_TYPEMISMATCH;
}

class OpenTunerLog : public CZPTLogSysTuner
{
public:
    using CZPTLogSysTuner::FormatLastAccessDate;
};

class ZPTLogSysTunerTest : public LogFixture<OpenTunerLog>
{
protected:
    static std::wstring LineOf(std::wstring_view type, std::wstring_view step, std::wstring_view status = L"0",
                               std::wstring_view item = L"", std::wstring_view value = L"7")
    {
        return L"x|103015|" + std::wstring(type) + L"|" + std::wstring(step) + L"|" + std::wstring(status) + L"|" +
               std::wstring(item) + L"|" + std::wstring(value);
    }

    std::wstring ValueOf(std::wstring_view type, std::wstring_view value)
    {
        return std::wstring(Put(LineOf(type, L"0", L"0", L"", value)).Field(5));
    }

    std::wstring DateOf(std::wstring text)
    {
        m_log.FormatLastAccessDate(text);
        return text;
    }

    const ShortDateFormat m_form{L"dd.MM.yyyy"};
};

} // namespace

TEST_F(ZPTLogSysTunerTest, ALineHasSixFieldsAndNoIconOfItsOwn)
{
    const LogRec& record = Put(LineOf(L"0", L"2", L"0", L"C:", L"4711"));
    const std::wstring fields[] = {L"10:30", Text(104), Text(112), Text(170), L"C:", L"4711" + Text(126)};
    ASSERT_EQ(record.strData.size(), std::size(fields));
    for (std::size_t i = 0; i < std::size(fields); ++i)
    {
        EXPECT_EQ(record.Field(i), fields[i]) << i;
    }
    EXPECT_EQ(record.nImage, 0u);
}

TEST_F(ZPTLogSysTunerTest, EveryFunctionAndStepHasItsText)
{
    struct
    {
        const wchar_t* type;
        const wchar_t* step;
        UINT function;
        UINT text; // 0: none
    } const cases[] = {{L"0", L"0", 104, 110}, {L"0", L"1", 104, 111}, {L"0", L"2", 104, 112}, {L"0", L"3", 104, 113},
                       {L"0", L"4", 104, 114}, {L"0", L"5", 104, 0},   {L"0", L"-1", 104, 0},  {L"1", L"0", 105, 115},
                       {L"1", L"1", 105, 116}, {L"1", L"2", 105, 0},   {L"2", L"0", 106, 117}, {L"2", L"-9", 106, 117},
                       {L"3", L"0", 107, 118}, {L"3", L"1", 107, 119}, {L"3", L"2", 107, 120}, {L"3", L"3", 107, 121},
                       {L"3", L"4", 107, 0},   {L"4", L"8", 108, 122}, {L"5", L"", 109, 123},  {L"5", L"77", 109, 123}};

    for (const auto& each : cases)
    {
        const LogRec& record = Put(LineOf(each.type, each.step));
        EXPECT_EQ(record.Field(1), Text(each.function)) << each.type << L" " << each.step;
        EXPECT_EQ(record.Field(2), each.text == 0 ? std::wstring() : Text(each.text)) << each.type << L" " << each.step;
    }
}

TEST_F(ZPTLogSysTunerTest, AStatusIsThatOfADeletionForFunction0AndOfSuccessForAllOthers)
{
    for (const wchar_t* const status : {L"0", L"1", L"-1", L""})
    {
        const bool done = *status == L'0' || *status == L'\0';
        EXPECT_EQ(Put(LineOf(L"0", L"0", status)).Field(3), Text(done ? 170 : 156)) << status;
        for (const wchar_t* const type : {L"1", L"2", L"3", L"4", L"5", L"6", L"-1"})
        {
            EXPECT_EQ(Put(LineOf(type, L"0", status)).Field(3), Text(done ? 125 : 124)) << type << L" " << status;
        }
    }
}

TEST_F(ZPTLogSysTunerTest, AFunctionThatIsNotKnownHasNoTextsAndCountsAllTheSame)
{
    for (const wchar_t* const type : {L"6", L"-1", L"99999999999"})
    {
        const LogRec& record = Put(LineOf(type, L"0", L"0", L"", L"5"));
        EXPECT_EQ(record.Field(1), L"") << type;
        EXPECT_EQ(record.Field(2), L"") << type;
        EXPECT_EQ(record.Field(5), L"") << type;
    }
    EXPECT_EQ(m_log.GetLogCount(), 3u);
}

TEST_F(ZPTLogSysTunerTest, ACountHasTheUnitOfItsFunctionInSingularOrPlural)
{
    const std::pair<const wchar_t*, std::pair<UINT, UINT>> units[] = {
        {L"2", {128, 228}}, {L"4", {130, 233}}, {L"5", {131, 234}}};
    for (const auto& [type, texts] : units)
    {
        EXPECT_EQ(ValueOf(type, L"1"), L"1" + Text(texts.first)) << type;
        EXPECT_EQ(ValueOf(type, L"2"), L"2" + Text(texts.second)) << type;
        EXPECT_EQ(ValueOf(type, L"0"), L"0" + Text(texts.first)) << type;
        EXPECT_EQ(ValueOf(type, L"-5"), L"-5" + Text(texts.first)) << type;
        EXPECT_EQ(ValueOf(type, L""), Text(texts.first)) << type;
        EXPECT_EQ(ValueOf(type, L"99999999999x"), L"99999999999x" + Text(texts.second)) << type;
    }
    EXPECT_EQ(ValueOf(L"0", L"1"), L"1" + Text(126));
    EXPECT_EQ(ValueOf(L"0", L"2"), L"2" + Text(126));
    EXPECT_EQ(ValueOf(L"1", L"C:\\a.exe"), L"C:\\a.exe");
}

TEST_F(ZPTLogSysTunerTest, AnEntryIsCountedAsOneAndEntriesAsMany)
{
    EXPECT_EQ(ValueOf(L"2", L"1"), L"1" + Text(128));
    EXPECT_EQ(ValueOf(L"2", L"2"), L"2" + Text(228));
    EXPECT_EQ(ValueOf(L"2", L"0"), L"0" + Text(128));
}

TEST_F(ZPTLogSysTunerTest, TheLastAccessIsShownAsAShortDateOfTheRegion)
{
    EXPECT_EQ(ValueOf(L"3", L"2007/12/31"), Text(129) + L"31.12.2007");
}

TEST_F(ZPTLogSysTunerTest, ADateThatDoesNotExistStaysAsItStands)
{
    EXPECT_EQ(ValueOf(L"3", L"2007/13/40"), Text(129) + L"2007/13/40");
    for (const wchar_t* const text : {L"2007/02/30", L"0/01/01", L"20071231", L"", L"/", L"2007/", L"x"})
    {
        EXPECT_EQ(DateOf(text), text);
    }
}

TEST_F(ZPTLogSysTunerTest, MonthAndDayAreTakenByTheirPlaces)
{
    EXPECT_EQ(DateOf(L"2007/12/3"), L"03.12.2007") << "what is there is read";
    EXPECT_EQ(DateOf(L"2007/12x31"), L"31.12.2007") << "what stands between them is not read";
    EXPECT_EQ(DateOf(L"2007/1/31"), L"01.01.2007");
    EXPECT_EQ(DateOf(L"2007/12/31 10:30"), L"31.12.2007") << "what follows goes with it";
    EXPECT_EQ(DateOf(L"  2007/ 1/ 2"), L"02.01.2007");
}

// A date that was asked for is looked up by its number, which no other date may have.
TEST_F(ZPTLogSysTunerTest, EveryDayOfAYearHasItsDate)
{
    const auto digits = [](int number) { return std::to_wstring(100 + number).substr(1); };
    for (int i = 0; i < 12 * 28; ++i)
    {
        const std::wstring month = digits(i / 28 + 1);
        const std::wstring day = digits(i % 28 + 1);
        EXPECT_EQ(DateOf(L"2007/" + month + L"/" + day), day + L"." + month + L".2007");
    }
}

TEST_F(ZPTLogSysTunerTest, ADateThatTheRegionCannotShowIsCalledInvalid)
{
    const ImportPatch refuse(__imp_VarBstrFromDate, &RefuseDate);
    EXPECT_EQ(DateOf(L"2007/12/31"), Text(55296));
}

TEST_F(ZPTLogSysTunerTest, TheDatesOfADayStayAsTheyAreAndThoseOfTheNextDayAreInTheFormThatTheRegionHasThen)
{
    EXPECT_EQ(DateOf(L"2007/12/31"), L"31.12.2007");
    {
        const ImportPatch refuse(__imp_VarBstrFromDate, &RefuseDate);
        EXPECT_EQ(DateOf(L"2007/12/31"), L"31.12.2007") << "the region is asked for a date once";
    }
    SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, L"yyyy-MM-dd");
    m_log.ClearLog();
    EXPECT_EQ(DateOf(L"2007/12/31"), L"2007-12-31");
}

TEST_F(ZPTLogSysTunerTest, ADateIsTracedWithItsNumbersAndADateThatIsNoneAsAnError)
{
    const auto counts = [](const std::vector<std::wstring>& texts, const std::wstring& text)
    { return std::ranges::count(texts, text); };
    TraceRecorder trace;
    DateOf(L"2007/12/31");
    EXPECT_EQ(counts(trace.Texts(), L"[Enter] CZPTLogSysTuner::FormatLastAccessDate..."), 1);
    EXPECT_EQ(
        counts(trace.Texts(VdCommon::TraceLevel::Info), L"CZPTLogSysTuner::FormatLastAccessDate - Date = [2007/12/31]"),
        1);
    EXPECT_EQ(counts(trace.Texts(VdCommon::TraceLevel::Info),
                     L"*** CKestrixDlg::FillDate() - Datetime string to be filled : [31.12.2007]"),
              1);
    EXPECT_EQ(counts(trace.Texts(), L"[Leave] CZPTLogSysTuner::FormatLastAccessDate..."), 1);
    EXPECT_TRUE(trace.Errors().empty());
    trace.Clear();
    DateOf(L"2007/13/40");
    EXPECT_EQ(trace.Errors(),
              std::vector<std::wstring>{L"*** CZPTLogSysTuner::FormatLastAccessDate - oletime invalid"});
    EXPECT_EQ(counts(trace.Texts(), L"[Leave] CZPTLogSysTuner::FormatLastAccessDate..."), 0);
}

TEST_F(ZPTLogSysTunerTest, WithoutAnItemTheListShowsTheStepAlone)
{
    const LogRec& record = Put(LineOf(L"1", L"1", L"0", L""));
    EXPECT_EQ(record.Field(4), L"--");
    EXPECT_EQ(Cell(record, 0), L"10:30");
    EXPECT_EQ(Cell(record, 1), Text(116));
    EXPECT_EQ(Cell(record, 2), L"before");
}

TEST_F(ZPTLogSysTunerTest, WithAnItemTheListShowsBoth)
{
    EXPECT_EQ(Cell(Put(LineOf(L"1", L"1", L"0", L"abc")), 1), Text(116) + L" - abc");
    EXPECT_EQ(Cell(Put(LineOf(L"1", L"1", L"0", L"--")), 1), Text(116)) << "two dashes of the line say the same";
    EXPECT_EQ(Cell(Put(LineOf(L"6", L"1", L"0", L"abc")), 1), L" - abc");
}

TEST_F(ZPTLogSysTunerTest, ALineOfSixTokensIsRefusedInBothForms)
{
    for (const bool fromDatabase : {true, false})
    {
        m_log.m_bUseDBMgr = fromDatabase;
        EXPECT_FALSE(Accepts(L"x|103015|1|1|0|abc"));
        EXPECT_TRUE(Accepts(L"x|103015|1|1|0|abc|"));
        EXPECT_EQ(Put(L"x|103015|1|1|0|abc|7|more|and more").strData.size(), 6u);
    }
}

TEST_F(ZPTLogSysTunerTest, ALineThatWasCutLeavesNothingToTheNextRecord)
{
    EXPECT_FALSE(Accepts(L"x|235959|0|2"));
    EXPECT_EQ(Put(L"x|103015|1|1|1||7").Field(3), Text(124));
    OpenTunerLog other;
    EXPECT_TRUE(other.PutRecode(L"x|103015||0|1||7", CZPTLogBase::AnyLine));
    EXPECT_EQ(other.GetLogText(0, 1), Text(104)) << "an empty type is 0";
}

TEST_F(ZPTLogSysTunerTest, TimesSortBothWaysAndStepsInOneDirectionOnly)
{
    const LogRec& early = Put(L"x|0900|0|0|0||1");
    const LogRec& late = Put(L"x|1030|0|2|0||1");
    EXPECT_TRUE(IsBefore(early, late, 0));
    const int order = Text(110).compare(Text(112));
    ASSERT_NE(order, 0);
    EXPECT_EQ(CompareUp(early, late, 1) < 0, order > 0);
    EXPECT_EQ(CompareDown(early, late, 1) < 0, order > 0);
    EXPECT_EQ(CompareUp(late, early, 1), CompareDown(late, early, 1));
    EXPECT_EQ(CompareUp(early, late, 6), 0);
}

TEST_F(ZPTLogSysTunerTest, TheDetailPaneHasThreeRows)
{
    const std::wstring longer(250, L'x');
    const InfoPaneDouble& pane = Show(LineOf(L"1", L"0", L"1", L"item", longer));
    const InfoPaneDouble::Row rows[] = {
        {Text(218), Text(105), L"", true, false, true, false},
        {Text(100), longer, L"", true, false, true, false},
        {Text(101), Text(124), L"", true, false, true, false},
    };
    for (std::size_t row = 0; row < CLogInfoPage::InfoRows; ++row)
    {
        EXPECT_EQ(pane[row], row < std::size(rows) ? rows[row] : InfoPaneDouble::Row{}) << row;
    }
}

TEST_F(ZPTLogSysTunerTest, WithoutARecordOrAPageNothingIsShown)
{
    m_log.SetLogInfo(nullptr);
    LogRec& record = Put(LineOf(L"0", L"0"));
    m_log.SetInfoDialog(nullptr);
    m_log.SetLogInfo(&record);
    EXPECT_TRUE(m_pane.IsUntouched());
}

TEST_F(ZPTLogSysTunerTest, TheExportHasALabelForEachOfSixFields)
{
    const auto withoutColons = [](UINT number)
    {
        std::wstring text = Text(number);
        EXPECT_NE(text.find(L':'), text.npos) << "nothing to remove, so the test would say nothing";
        std::erase(text, L':');
        return text;
    };
    EXPECT_EQ(LabelLine(), HeaderOf({Text(39), withoutColons(218), L"Tuner Type", withoutColons(101), Text(216),
                                     withoutColons(100)}));
}
