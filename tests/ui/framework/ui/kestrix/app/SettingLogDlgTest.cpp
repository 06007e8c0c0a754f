#include "framework/ui/kestrix/app/SettingLogDlg.h"

#include "resource/resource.h"
#include "tests/ui/framework/ui/kestrix/app/PurgeDialogTest.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace
{

constexpr wchar_t DaysValue[] = L"EventLogPurgeFre";
constexpr wchar_t FlagValue[] = L"EventLogPurgeFlag";

class SettingLogDlgTest : public PurgeDialogTest<CSettingLogDlg>
{
protected:
    // What the dialog shows.
    struct Shown
    {
        int index;
        bool isOn;

        friend bool operator==(const Shown&, const Shown&) = default;
    };

    Shown Look() const
    {
        CComboBox combo;
        combo.Attach(m_dialog.Item(IDC_SETTINGS_FREQUENCY));
        const Shown shown{combo.GetCurSel(), m_dialog.Item(IDC_SETTINGS_PURGE).SendMessage(BM_GETCHECK) == BST_CHECKED};
        combo.Detach();
        return shown;
    }

    Shown Open()
    {
        Shown shown{-1, false};
        m_dialog.Run({[&] { shown = Look(); }});
        return shown;
    }

    void Choose(int index, bool isOn)
    {
        m_dialog.Item(IDC_SETTINGS_FREQUENCY).SendMessage(CB_SETCURSEL, static_cast<WPARAM>(index));
        m_dialog.Item(IDC_SETTINGS_PURGE).SendMessage(BM_SETCHECK, isOn ? BST_CHECKED : BST_UNCHECKED);
    }

    bool Traced(const std::wstring& text) const { return std::ranges::count(m_trace.Texts(), text) == 1; }
};

} // namespace

TEST_F(SettingLogDlgTest, TheListOffersFiveSpansAndCarriesTheirDays)
{
    m_dialog.Run({[&]
                  {
                      EXPECT_EQ(
                          EntriesOf(m_dialog.Item(IDC_SETTINGS_FREQUENCY)),
                          (Entries{{Text(68), 7}, {Text(69), 14}, {Text(70), 30}, {Text(71), 45}, {Text(72), 60}}));
                  }});
}

TEST_F(SettingLogDlgTest, MissingRegistryValuesTickTheBoxAndSelect30Days)
{
    EXPECT_EQ(Open(), (Shown{2, true}));
    EXPECT_TRUE(Traced(L"CSettingLogDlg::OnInitDialog()  LogPurgeFre[30], LogFlag[1]"));
}

// The first entry stands for days that are none of the list, 90 among them.
TEST_F(SettingLogDlgTest, APurgeFreOf90SelectsIndex0AndTheDaysOfTheListTheirOwn)
{
    constexpr DWORD most = std::numeric_limits<DWORD>::max();

    const struct
    {
        DWORD days;
        int index;
    } cases[] = {{7, 0}, {14, 1}, {30, 2}, {45, 3}, {60, 4}, {90, 0}, {0, 0}, {1, 0}, {31, 0}, {most, 0}};

    for (const auto& each : cases)
    {
        m_registry.SetNumber(PurgeSettingsKey, DaysValue, each.days);
        EXPECT_EQ(Open(), (Shown{each.index, true})) << each.days;
    }
    EXPECT_TRUE(Traced(L"CSettingLogDlg::OnInitDialog()  LogPurgeFre[90], LogFlag[1]"));
    EXPECT_TRUE(Traced(L"CSettingLogDlg::OnInitDialog()  LogPurgeFre[-1], LogFlag[1]"));
}

TEST_F(SettingLogDlgTest, APurgeFlagOf2LeavesTheBoxEmptyAsAnyNumberBut1Does)
{
    for (const DWORD flag : {DWORD{0}, DWORD{1}, DWORD{2}, std::numeric_limits<DWORD>::max()})
    {
        m_registry.SetNumber(PurgeSettingsKey, FlagValue, flag);
        EXPECT_EQ(Open(), (Shown{2, flag == 1})) << flag;
    }
}

TEST_F(SettingLogDlgTest, ValuesOfAnotherTypeCountAsMissing)
{
    m_registry.SetText(PurgeSettingsKey, DaysValue, L"60");
    m_registry.SetText(PurgeSettingsKey, FlagValue, L"0");
    EXPECT_EQ(Open(), (Shown{2, true}));
    m_registry.SetBytes(PurgeSettingsKey, DaysValue, {60, 0, 0, 0});
    m_registry.SetBytes(PurgeSettingsKey, FlagValue, {0, 0});
    EXPECT_EQ(Open(), (Shown{2, true}));
}

TEST_F(SettingLogDlgTest, OkKeepsTheChoiceAndCancelDoesNot)
{
    for (const UINT button : {IDOK, IDCANCEL})
    {
        ScriptedDialog<CSettingLogDlg> dialog;
        const INT_PTR result =
            dialog.RunToItsOwnEnd({[&]
                                   {
                                       dialog.Item(IDC_SETTINGS_FREQUENCY).SendMessage(CB_SETCURSEL, 3);
                                       dialog.Item(IDC_SETTINGS_PURGE).SendMessage(BM_SETCHECK, BST_CHECKED);
                                       dialog.Item(button).SendMessage(BM_CLICK);
                                   }});
        EXPECT_EQ(result, static_cast<INT_PTR>(button));
        const bool isOk = button == IDOK;
        EXPECT_EQ(dialog.m_nPurgeIndex, isOk ? 3 : 0);
        EXPECT_EQ(dialog.m_nPurgeFre, isOk ? 45u : 0u);
        EXPECT_EQ(dialog.m_nPurgeFlag, isOk ? 1u : 0u);
    }
}

TEST_F(SettingLogDlgTest, AnEmptyBoxIsTheFlag0)
{
    m_dialog.RunToItsOwnEnd({[&]
                             {
                                 Choose(0, false);
                                 Press(IDOK);
                             }});
    EXPECT_EQ(m_dialog.m_nPurgeFre, 7u);
    EXPECT_EQ(m_dialog.m_nPurgeFlag, 0u);
}

TEST_F(SettingLogDlgTest, TheMouseTicksTheBoxAndSoDoesItsAccessKey)
{
    std::vector<bool> isOn;
    m_registry.SetNumber(PurgeSettingsKey, FlagValue, 0);
    m_dialog.Run({[&]
                  {
                      Press(IDC_SETTINGS_PURGE);
                      isOn.push_back(Look().isOn);
                      m_dialog.Item(IDC_SETTINGS_FREQUENCY).PostMessage(WM_SYSCHAR, L'd', AltIsDown);
                  },
                  [] {}, [&] { isOn.push_back(Look().isOn); }});
    EXPECT_EQ(isOn, (std::vector<bool>{true, false}));
}

TEST_F(SettingLogDlgTest, TheRegistryStaysAsItIs)
{
    m_registry.SetNumber(PurgeSettingsKey, DaysValue, 90);
    m_dialog.RunToItsOwnEnd({[&]
                             {
                                 Choose(4, false);
                                 Press(IDOK);
                             }});
    std::vector<BYTE> bytes;
    EXPECT_EQ(m_registry.Get(PurgeSettingsKey, DaysValue, bytes), static_cast<DWORD>(REG_DWORD));
    EXPECT_EQ(bytes, (std::vector<BYTE>{90, 0, 0, 0}));
    EXPECT_EQ(m_registry.Get(PurgeSettingsKey, FlagValue, bytes), static_cast<DWORD>(REG_NONE));
}

TEST_F(SettingLogDlgTest, IsDrawnInTheSkin)
{
    m_dialog.Run({[&]
                  {
                      ::SetFocus(nullptr); // which another program may take meanwhile
                      EXPECT_PICTURE(PictureOf(m_dialog), "settings");
                  }});
}
