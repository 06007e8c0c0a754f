// The Export button: what the user is asked, and what is written.

#include "framework/ui/kestrix/app/ExportTarget.h"
#include "tests/support/TraceRecorder.h"
#include "tests/ui/framework/ui/kestrix/app/ExportFormTest.h"

#include <algorithm>
#include <optional>

extern "C" decltype(&::CreateFileW) __imp_CreateFileW;

namespace
{

using namespace std::string_literals;
using Texts = std::vector<std::wstring>;

// What stood when the writer made its file.
class WriterStart
{
public:
    explicit WriterStart(HWND form) : m_form(form), m_patch(__imp_CreateFileW, &Record) { s_current = this; }

    ~WriterStart() { s_current = nullptr; }

    WriterStart(const WriterStart&) = delete;
    WriterStart& operator=(const WriterStart&) = delete;

    HCURSOR m_hCursor = nullptr;
    bool m_bPainted = false;
    std::vector<HWND> m_focus;

private:
    static HANDLE WINAPI Record(LPCWSTR path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security, DWORD how,
                                DWORD flags, HANDLE model)
    {
        if (how != OPEN_EXISTING)
        {
            s_current->m_hCursor = ::GetCursor();
            s_current->m_bPainted = !::GetUpdateRect(s_current->m_form, nullptr, FALSE);
            s_current->m_focus = FocusRecorder::Windows();
        }
        return s_current->m_patch.Original()(path, access, share, security, how, flags, model);
    }

    inline static WriterStart* s_current = nullptr;

    HWND m_form;
    ImportPatch<decltype(&::CreateFileW)> m_patch;
};

class LogFormExportTest : public ExportFormTest
{
protected:
    // The log's title in the export file.
    std::wstring TitleOf(const std::wstring& path) const
    {
        const std::wstring text = ReadUtf16(path);
        return text.substr(0, text.find(L'\t'));
    }
};

} // namespace

TEST_F(LogFormExportTest, AListWithNoRowsNeverOpensTheSaveDialog)
{
    WriteUtf16(m_form.m_strLogPath, L"");
    Export();
    EXPECT_TRUE(m_dialog.Requests().empty());
    ASSERT_EQ(Boxes(), Texts{Text(60)});
    EXPECT_EQ(m_boxes.Boxes()[0].flags, static_cast<UINT>(MB_OK));
    EXPECT_EQ(m_focus, FocusOnTheList(1));
}

TEST_F(LogFormExportTest, TheDialogIsAskedForAsToldAndOpensInTheDocumentsFolderEachTime)
{
    HWND form = nullptr;
    Export([&] { form = m_form; });
    Export();
    ASSERT_EQ(m_dialog.Requests().size(), 2u);
    const SaveDialogDouble::Request& request = m_dialog.Requests()[0];
    EXPECT_EQ(request.owner, form);
    EXPECT_EQ(request.flags, 0x1806u);
    EXPECT_EQ(request.defaultExtension, L"CSV");
    EXPECT_EQ(request.name, L"");
    EXPECT_EQ(request.title, Text(621));
    EXPECT_GT(request.room, 300u);
    for (const SaveDialogDouble::Request& each : m_dialog.Requests())
    {
        EXPECT_EQ(each.folder, DocumentsFolder());
        EXPECT_EQ(each.filterIndex, 1u);
    }
}

TEST_F(LogFormExportTest, TheFiltersAreCsvTxtAndAllFiles)
{
    Export();
    std::wstring text = Text(61);
    text.pop_back();
    std::ranges::replace(text, L'|', L'\0');
    ASSERT_EQ(m_dialog.Requests().size(), 1u);
    EXPECT_EQ(m_dialog.Requests()[0].filter, text);
    EXPECT_NE(text.find(L"\0*.CSV\0"s), text.npos);
    EXPECT_LT(text.find(L"\0*.CSV\0"s), text.find(L"\0*.TXT\0"s));
    EXPECT_LT(text.find(L"\0*.TXT\0"s), text.find(L"\0*.*\0"s));
    EXPECT_TRUE(text.ends_with(L"\0*.*\0"s));
}

TEST_F(LogFormExportTest, ACancelledDialogEndsTheFlowWithoutAWord)
{
    Export();
    EXPECT_EQ(m_dialog.Requests().size(), 1u);
    EXPECT_TRUE(Boxes().empty());
    EXPECT_TRUE(m_focus.empty());
    EXPECT_EQ(FileCount(), 1u) << "the daily file alone";
}

TEST_F(LogFormExportTest, TheRecordsOfTheDateAreWrittenOldestFirstAndNothingIsSaid)
{
    m_form.m_strLocalIp = L"192.0.2.7";
    m_dialog.AnswerWith(m_path);
    std::wstring date;
    Export([&] { date = m_form.Page()->SelectedDate(); });
    EXPECT_TRUE(Boxes().empty());
    EXPECT_EQ(m_focus, FocusOnTheList(1));
    EXPECT_NE(date, L"");
    const std::wstring text = ReadUtf16(m_path);
    EXPECT_TRUE(text.starts_with(L"\"" + Text(143) + L"\"\t\"" + date + L"\"\t\"192.0.2.7\"\r\n"));
    EXPECT_EQ(std::ranges::count(text, L'\n'), 5);
    EXPECT_LT(text.find(L"\"beta\""), text.find(L"\"alpha\"")) << "not the order on the screen";
    EXPECT_LT(text.find(L"\"alpha\""), text.find(L"\"gamma\""));
    EXPECT_NE(text.find(L"\"gamma\""), text.npos);
}

TEST_F(LogFormExportTest, ANameWithoutExtensionChosenUnderFilterIndex2GetsTxt)
{
    m_dialog.AnswerWith(m_folder.File(L"name"), 2);
    Export();
    EXPECT_TRUE(std::filesystem::exists(m_folder.File(L"name.TXT")));
    EXPECT_EQ(FileCount(), 2u);
}

TEST_F(LogFormExportTest, ANameThatHasAnyExtensionKeepsItUnderEveryIndex)
{
    for (DWORD index = 1; index <= 4; ++index)
    {
        m_dialog.AnswerWith(m_folder.File(L"name.x" + std::to_wstring(index)), index);
        Export();
        EXPECT_TRUE(std::filesystem::exists(m_folder.File(L"name.x" + std::to_wstring(index))));
    }
    EXPECT_EQ(FileCount(), 5u);
}

TEST_F(LogFormExportTest, FilterIndex3AddsCsvTheSameAsIndex1)
{
    for (const DWORD index : {1u, 3u})
    {
        m_dialog.AnswerWith(m_folder.File(L"name" + std::to_wstring(index)), index);
        Export();
        EXPECT_TRUE(std::filesystem::exists(m_folder.File(L"name" + std::to_wstring(index) + L".CSV")));
    }
    EXPECT_EQ(FileCount(), 3u);
}

TEST_F(LogFormExportTest, ANameWithoutExtensionUnderAnyOtherIndexStaysAsItIs)
{
    m_dialog.AnswerWith(m_folder.File(L"name"), 4);
    Export();
    EXPECT_TRUE(std::filesystem::exists(m_folder.File(L"name")));
}

TEST_F(LogFormExportTest, InDatabaseModeNoDateSelectedMeansNoExport)
{
    m_form.m_bIsLocal = true;
    bool enabled = true;
    m_form.Run({[&] { enabled = m_form.Item(IDC_FORM_EXPORT).IsWindowEnabled(); }});
    EXPECT_FALSE(enabled) << "there is no date";
    m_database.AddDay(2026, 11, 20);
    m_database.SetLines({L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0|x"});
    m_form.Run({[&] { enabled = m_form.Item(IDC_FORM_EXPORT).IsWindowEnabled(); }});
    EXPECT_TRUE(enabled);
}

TEST_F(LogFormExportTest, InFileModeTheButtonIsEnabledByEverySuccessfulReadOfADate)
{
    bool enabled = false;
    m_form.Run({[&]
                {
                    m_form.Item(IDC_FORM_EXPORT).EnableWindow(false);
                    m_form.Page()->OnSelchangeLogDate();
                    enabled = m_form.Item(IDC_FORM_EXPORT).IsWindowEnabled();
                }});
    EXPECT_TRUE(enabled);
}

// A page starts with a type that has a class, so the form's type becomes that of another command line after its start.
TEST_F(LogFormExportTest, ASwitchOfLogLeavesTheTypePassedToTheWriterAtThatOfTheCommandLine)
{
    m_database.AddDay(2026, 11, 20);
    m_database.SetLines({L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0|x"});
    m_form.m_bIsLocal = true;
    m_dialog.AnswerWith(m_path);
    Export(
        [&]
        {
            m_form.m_nLogType = LogTypeUpdate;
            SwitchTo(IDS_TITLE_SCAN);
            SwitchTo(IDS_CHOICE_VIRUS);
        });
    EXPECT_EQ(m_form.m_nLogType, static_cast<std::uint32_t>(LogTypeUpdate));
    EXPECT_EQ(TitleOf(m_path), L"\"" + Text(158) + L"\"");
    EXPECT_NE(ReadUtf16(m_path).find(L"\"beta\""), std::wstring::npos);
}

TEST_F(LogFormExportTest, TheWriterBeginsWithTheWaitCursorAPaintedFormAndTheFocusOnTheList)
{
    m_dialog.AnswerWith(m_path);
    std::optional<WriterStart> start;
    HCURSOR after = nullptr;
    m_dialog.m_whileOpen = [&]
    {
        m_form.RedrawWindow(RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
        EXPECT_TRUE(::GetUpdateRect(m_form, nullptr, FALSE));
        ::SetCursor(::LoadCursorW(nullptr, IDC_HAND));
        start.emplace(m_form);
    };
    m_form.Run({[&]
                {
                    m_list = m_form.Page()->GetDlgItem(IDC_RECORD_LIST);
                    const FocusRecorder focus;
                    Press();
                    after = ::GetCursor();
                }});
    ASSERT_TRUE(start);
    EXPECT_EQ(start->m_hCursor, ::LoadCursorW(nullptr, IDC_WAIT));
    EXPECT_TRUE(start->m_bPainted);
    EXPECT_EQ(start->m_focus, FocusOnTheList(1));
    EXPECT_EQ(after, ::LoadCursorW(nullptr, IDC_HAND));
}

TEST_F(LogFormExportTest, EnteringAndLeavingAreTracedOnEveryWayOut)
{
    TraceRecorder trace;
    const Texts both{L"[Enter] CLogFormDlg::OnBnClickedBtnExport()...",
                     L"[Leave] CLogFormDlg::OnBnClickedBtnExport()..."};
    const auto lines = [&]
    {
        Texts found = trace.Texts(VdCommon::TraceLevel::Flow);
        std::erase_if(found, [](const std::wstring& text) { return text.find(L"OnBnClickedBtnExport") == text.npos; });
        return found;
    };
    const auto exportOnce = [&] { Export([&] { trace.Clear(); }); };
    exportOnce();
    EXPECT_EQ(lines(), both) << "cancelled";
    m_dialog.AnswerWith(m_path);
    exportOnce();
    EXPECT_EQ(lines(), both) << "written";
    m_dialog.AnswerWith(m_folder.File(L"missing\\name.csv"));
    exportOnce();
    EXPECT_EQ(lines(), both) << "failed";
    WriteUtf16(m_form.m_strLogPath, L"");
    exportOnce();
    EXPECT_EQ(lines(), both) << "no rows";
}
