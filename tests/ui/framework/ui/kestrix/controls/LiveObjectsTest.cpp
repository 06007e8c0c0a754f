// Nothing is left behind by pages that come and go. The owning types count the system objects that they hold; windows
// are counted by asking the system.

#include "tests/support/LanguageFile.h"
#include "tests/support/LiveHandles.h"
#include "tests/support/LiveWindows.h"
#include "tests/support/Picture.h"
#include "tests/ui/gallery/SkinDialog.h"

#include "resource/resource.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace
{

constexpr int Times = 1000;

std::vector<long> LiveObjects()
{
    std::vector<long> counts{static_cast<long>(LiveWindows().size())};
    for (const auto& count : LiveHandles::s_nCounts)
    {
        counts.push_back(count);
    }
    return counts;
}

// A page with everything that it can own, painted once.
void ShowPageOnce(CSkinDialog& parent)
{
    CSkinDialog page({120, 90}, &parent);
    const LanguageFile language;
    page.SetBackground(IDB_BACKGROUND);
    page.SetImage(0, IDB_LOG_ICONS, {10, 10});
    page.SetImage(3, IDB_ARROW_UP); // with a palette
    page.m_bSolidBackground = true;
    page.m_SolidBrush.CreateSolidBrush(RGB(255, 255, 255));
    page.SetControlFont(IDC_SKIN_TEXT, FW_BOLD);
    page.ShapeCorners();
    page.ShowWindow(SW_SHOWNA);
    page.RedrawWindow(RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
}

} // namespace

TEST(LiveObjects, AThousandPagesLeaveNoWindowAndNoDrawingObject)
{
    CSkinDialog parent({200, 150});
    parent.ShowWindow(SW_SHOWNA);
    ShowPageOnce(parent); // what the system makes once for a process
    const std::vector<long> before = LiveObjects();
    for (int i = 0; i < Times; ++i)
    {
        ShowPageOnce(parent);
    }
    EXPECT_EQ(before, LiveObjects());
}

TEST(LiveObjects, AreCountedWhileADialogStands)
{
    const std::vector<long> before = LiveObjects();
    CSkinDialog dialog({120, 90});
    dialog.SetControlFont(IDC_SKIN_TEXT, FW_BOLD);
    EXPECT_LT(before.front() + 5, LiveObjects().front());
    EXPECT_NE(before, LiveObjects());
}
