#include "platform/dialog/ComPtr.h"

#include "platform/dialog/ComAdvise.h"
#include "tests/support/ControllerDouble.h"
#include "tests/support/LiveHandles.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

using Step = ControllerDouble::Step;
using Texts = std::vector<std::wstring>;

constexpr auto Refused = static_cast<HRESULT>(0x80040201);

class ComPtrTest : public ::testing::Test
{
protected:
    ComPtrTest()
    {
        CoInitialize(nullptr);
        m_double = std::make_unique<ControllerDouble>();
    }

    ~ComPtrTest() override
    {
        m_double.reset();
        CoUninitialize();
    }

    static long Live() { return LiveHandles::Of(HandleKind::Interface); }

    std::unique_ptr<ControllerDouble> m_double;
};

} // namespace

TEST_F(ComPtrTest, ReleasesWhatItMadeWhenItGoes)
{
    const long before = Live();
    {
        CComPtr<IVdFrwkLocalController> controller;
        EXPECT_FALSE(controller);
        EXPECT_EQ(controller.CoCreateInstance(CLSID_VdFrwkLocalController), S_OK);
        EXPECT_TRUE(controller);
        EXPECT_EQ(m_double->References(), 1);
        EXPECT_EQ(Live(), before + 1);
    }
    EXPECT_EQ(m_double->References(), 0);
    EXPECT_EQ(Live(), before);
}

TEST_F(ComPtrTest, AnotherInterfaceHasAReferenceOfItsOwn)
{
    CComPtr<IVdFrwkLocalController> controller;
    ASSERT_EQ(controller.CoCreateInstance(CLSID_VdFrwkLocalController), S_OK);
    CComPtr<IUnknown> unknown;
    EXPECT_EQ(unknown.QueryFrom(controller.get()), S_OK);
    EXPECT_EQ(m_double->References(), 2);
    controller.reset();
    EXPECT_EQ(m_double->References(), 1);
}

TEST_F(ComPtrTest, AFailureLeavesItEmpty)
{
    CComPtr<IVdFrwkLocalController> controller;
    ASSERT_EQ(controller.CoCreateInstance(CLSID_VdFrwkLocalController), S_OK);
    m_double->Fail(Step::Create, Refused);
    EXPECT_EQ(controller.CoCreateInstance(CLSID_VdFrwkLocalController), Refused);
    EXPECT_FALSE(controller);
    EXPECT_EQ(m_double->References(), 0);
    m_double->GiveNothing(Step::Create);
    EXPECT_EQ(controller.CoCreateInstance(CLSID_VdFrwkLocalController), E_POINTER);
    EXPECT_FALSE(controller);
}

TEST_F(ComPtrTest, AnInterfaceThatIsNotThereLeavesItEmpty)
{
    CComPtr<IVdFrwkLocalController> controller;
    ASSERT_EQ(controller.CoCreateInstance(CLSID_VdFrwkLocalController), S_OK);
    CComPtr<IVdFrwkProfile> profile;
    EXPECT_EQ(profile.QueryFrom(controller.get()), E_NOINTERFACE);
    EXPECT_FALSE(profile);
    EXPECT_EQ(profile.QueryFrom(nullptr), E_POINTER);
    CComPtr<IConnectionPointContainer> container;
    m_double->GiveNothing(Step::Container);
    EXPECT_EQ(container.QueryFrom(controller.get()), E_POINTER);
    EXPECT_FALSE(container);
}

TEST_F(ComPtrTest, AMethodHandsAnInterfaceOutThroughTheAddress)
{
    CComPtr<IVdFrwkLocalController> controller;
    ASSERT_EQ(controller.CoCreateInstance(CLSID_VdFrwkLocalController), S_OK);
    CComPtr<IVdFrwkProfile> profile;
    EXPECT_EQ(controller->GetActiveProfile(profile.put()), S_OK);
    EXPECT_TRUE(profile);
    EXPECT_EQ(m_double->References(), 2);
    EXPECT_EQ(controller->GetActiveProfile(profile.put()), S_OK); // the first one is released
    EXPECT_EQ(m_double->References(), 2);
}

TEST_F(ComPtrTest, AdviseWithoutASourceIsAnInvalidArgument)
{
    DWORD cookie = 5;
    EXPECT_EQ(AtlAdvise(nullptr, nullptr, __uuidof(IVdFrwkLocalEvents), &cookie), E_INVALIDARG);
    EXPECT_EQ(AtlUnadvise(nullptr, __uuidof(IVdFrwkLocalEvents), cookie), E_INVALIDARG);
    EXPECT_EQ(cookie, 5u);
}

TEST_F(ComPtrTest, AdviseFailsWithTheAnswerOfTheStepThatFails)
{
    CComPtr<IVdFrwkLocalController> controller;
    ASSERT_EQ(controller.CoCreateInstance(CLSID_VdFrwkLocalController), S_OK);
    DWORD cookie = 5;
    const auto advise = [&]
    { return AtlAdvise(controller.get(), controller.get(), __uuidof(IVdFrwkSessionEvents), &cookie); };
    for (const Step step : {Step::Container, Step::Find, Step::Advise})
    {
        m_double->Fail(step, Refused);
        EXPECT_EQ(advise(), Refused);
        m_double->Work(step);
    }
    EXPECT_EQ(advise(), CONNECT_E_CANNOTCONNECT); // the controller is no sink
    EXPECT_EQ(AtlAdvise(controller.get(), controller.get(), __uuidof(IVdFrwkRemoteEvents), &cookie),
              CONNECT_E_NOCONNECTION);
    EXPECT_EQ(cookie, 5u);
    EXPECT_EQ(m_double->References(), 1);
}

TEST_F(ComPtrTest, UnadviseOfAConnectionThatIsNotThereTellsSo)
{
    CComPtr<IVdFrwkLocalController> controller;
    ASSERT_EQ(controller.CoCreateInstance(CLSID_VdFrwkLocalController), S_OK);
    EXPECT_EQ(AtlUnadvise(controller.get(), __uuidof(IVdFrwkLocalEvents), 3), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(m_double->m_calls.back(), L"Unadvise local 3");
}
