// Nothing is left behind by pages that come and go. The owning types count the system objects that they hold; windows
// are counted by asking the system.

#include "tests/support/LanguageFile.h"
#include "tests/support/LiveHandles.h"
#include "tests/support/Picture.h"
#include "tests/ui/gallery/SkinDialog.h"

#include "resource/resource.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace
{

constexpr int Times = 1000;

int WindowsOfThread()
{
    int count = 0;
    const auto countOne = [](HWND window, LPARAM counter) -> BOOL
    {
        ++*reinterpret_cast<int*>(counter);
        const auto countChild = [](HWND, LPARAM childCounter) -> BOOL
        {
            ++*reinterpret_cast<int*>(childCounter);
            return TRUE;
        };
        EnumChildWindows(window, countChild, counter);
        return TRUE;
    };
    EnumThreadWindows(GetCurrentThreadId(), countOne, reinterpret_cast<LPARAM>(&count));
    return count;
}

std::vector<long> LiveObjects()
{
    std::vector<long> counts{WindowsOfThread()};
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
    EXPECT_LT(before.front() + 5, WindowsOfThread());
    EXPECT_NE(before, LiveObjects());
}
