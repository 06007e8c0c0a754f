#include "framework/ui/kestrix/app/page/LogChoice.h"

#include "framework/ui/kestrix/logs/LogKinds.h"
#include "resource/resource.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/ui/framework/ui/kestrix/app/page/PartWindow.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

constexpr wchar_t InstallerKey[] = L"Software\\Veldrane\\Zeptara\\17\\Installer";

class LogChoiceTest : public ::testing::Test
{
protected:
    LogChoiceTest()
    {
        m_window.Add(WC_COMBOBOXW, IDC_LOG_TYPE, CBS_DROPDOWNLIST, {0, 0, 200, 200});
        m_choice.SubclassDlgItem(IDC_LOG_TYPE, m_window);
    }

    const LanguageFile m_language;
    const RegistrySandbox m_registry;
    PartWindow m_window;
    CLogChoice m_choice;
};

} // namespace

TEST_F(LogChoiceTest, EachKindHasAnEntryWithItsTextInTheOrderOfTheKinds)
{
    m_registry.SetNumber(InstallerKey, L"FirewallAP", 1);
    m_choice.Fill();
    const auto kinds = LogKinds();
    ASSERT_EQ(m_choice.GetCount(), static_cast<int>(kinds.size()));
    for (int i = 0; i < m_choice.GetCount(); ++i)
    {
        EXPECT_EQ(m_choice.GetItemData(i), kinds[static_cast<std::size_t>(i)].type);
        EXPECT_EQ(m_choice.GetLBText(i), Text(kinds[static_cast<std::size_t>(i)].choice));
    }
}

TEST_F(LogChoiceTest, AKindThatIsNotInstalledIsNoChoice)
{
    m_choice.Fill();
    EXPECT_EQ(m_choice.GetCount(), static_cast<int>(std::ranges::count(LogKinds(), nullptr, &LogKind::installedValue)));
    m_choice.Select(LogTypeFirewall);
    EXPECT_EQ(m_choice.GetCurSel(), 0);
}

TEST_F(LogChoiceTest, ATypeSelectsItsEntryAndOneWithoutAnEntryTheFirst)
{
    m_choice.Fill();
    for (const LogKind& kind : LogKinds())
    {
        if (kind.installedValue == nullptr)
        {
            m_choice.Select(kind.type);
            EXPECT_EQ(m_choice.SelectedType(), kind.type);
        }
    }
    m_choice.Select(LogTypeNone);
    EXPECT_EQ(m_choice.GetCurSel(), 0);
}
