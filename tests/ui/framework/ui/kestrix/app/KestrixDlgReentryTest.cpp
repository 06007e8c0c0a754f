// The end of a purge that comes in while the page waits for the service: the log object is made anew inside the call.

#include "resource/resource.h"
#include "tests/support/ControllerDouble.h"
#include "tests/support/OleApartment.h"
#include "tests/support/StartRecorder.h"
#include "tests/ui/framework/ui/kestrix/app/DatabasePageTest.h"

namespace
{

class KestrixDlgReentryTest : public DatabasePageTest
{
protected:
    KestrixDlgReentryTest()
    {
        EXPECT_TRUE(m_app.InitializeEventObject());
        m_database.AddDay(2026, 11, 20);
        SetThreat(L"before");
        OpenPage();
        ClickRow(0);
    }

    ~KestrixDlgReentryTest() override
    {
        m_controller.m_onCall = nullptr;
        EXPECT_TRUE(m_app.UninitializeEventObject());
    }

    void SetThreat(const std::wstring& threat)
    {
        m_database.SetLines({L"x|0900|1048576|x|0|0|" + threat + L"|C:\\b|4|1|0|0|x"});
    }

    // The service ends a purge, and takes away the day that is shown, as soon as this call arrives.
    void PurgeAt(const std::wstring& awaited)
    {
        m_controller.m_onCall = [this, awaited](const std::wstring& call)
        {
            if (call.starts_with(awaited))
            {
                m_database.RemoveDays();
                m_database.AddDay(2026, 11, 21);
                SetThreat(L"after");
                EXPECT_EQ(
                    m_controller.Sink<IVdFrwkLocalEvents>()->OnCommandEvent(4, 22, 1, 0, 0, 0, 0, {}, {}, nullptr),
                    0x40200);
            }
        };
    }

    void ExpectThePageAfterThePurge()
    {
        EXPECT_EQ(Dates(), Texts{DateText(2026, 11, 21)});
        EXPECT_EQ(Column(2), Texts{L"after"});
        m_controller.m_onCall = nullptr;
        ClickRow(0);
        EXPECT_EQ(TextOf(IDC_INFO_VALUE_0_LINK), L"after");
    }

private:
    const OleApartment m_apartment;

protected:
    StartRecorder m_starts;
    ControllerDouble m_controller;
};

std::wstring AddressOf(const std::wstring& name)
{
    std::wstring address = Text(IDS_THREAT_ADDRESS);
    return address.replace(address.find(L"%s"), 2, name);
}

} // namespace

TEST_F(KestrixDlgReentryTest, APurgeThatEndsWithinTheClickOnTheLinkLeavesTheNameThatWasClicked)
{
    for (const wchar_t* call : {L"GetProperty", L"QueryValue 39"})
    {
        m_starts.Clear();
        PurgeAt(call);
        Item(IDC_INFO_VALUE_0_LINK).SetWindowText(L"before");
        ClickControl(IDC_INFO_VALUE_0_LINK);
        EXPECT_EQ(m_starts.Arguments(), Texts{AddressOf(L"before")}) << call;
        ExpectThePageAfterThePurge();
    }
}
