#include "suite/framework/Controller.h"

#include "suite/framework/SafeArray.h"
#include "tests/unit/suite/framework/Inbox.h"
#include "tests/unit/suite/framework/ServiceFixture.h"

#include <olectl.h>

using namespace Framework;

namespace
{

class ControllerTest : public ServiceFixture
{
protected:
    Suite::ComPtr<IConnectionPoint> Point(const IID& iid)
    {
        Suite::ComPtr<IConnectionPoint> point;
        EXPECT_EQ(m_controller.As<IConnectionPointContainer>()->FindConnectionPoint(iid, point.Put()), S_OK);
        return point;
    }

    Suite::ComPtr<IVdFrwkLocalController> m_controller = MakeController();
};

} // namespace

TEST_F(ControllerTest, AQueryReplacesTheArrayThatCameInAndMakesOneWhereThereIsNone)
{
    Suite::ComPtr<IVdFrwkProfile> profile;
    ASSERT_EQ(m_controller->GetActiveProfile(profile.Put()), Success);
    ULONG word = 0;
    for (SAFEARRAY* array : {SafeArrayCreateVector(VT_VARIANT, 0, 5), static_cast<SAFEARRAY*>(nullptr)})
    {
        EXPECT_EQ(profile->QueryValue(112, 1, 0, 0, &word, &array), Success);
        EXPECT_EQ(ReadArray(UniqueSafeArray(array).get()), (List{7u, 0u, 0u}));
    }
}

TEST_F(ControllerTest, AQueryThatFailsLeavesTheArray)
{
    Suite::ComPtr<IVdFrwkProfile> profile;
    ASSERT_EQ(m_controller->GetActiveProfile(profile.Put()), Success);
    ULONG word = 0;
    const UniqueSafeArray before = MakeArray({1u});
    SAFEARRAY* array = before.get();
    EXPECT_EQ(profile->QueryValue(112, 9, 0, 0, &word, &array), Unknown);
    EXPECT_EQ(array, before.get());
    EXPECT_EQ(profile->QueryValue(112, 1, 0, 0, &word, nullptr), E_POINTER);
}

TEST_F(ControllerTest, AFailureOfTheDiskIsTheResultOfTheCall)
{
    std::filesystem::create_directory(m_folder.Path() / L"Framework.new");
    Suite::ComPtr<IVdFrwkProfile> profile;
    ASSERT_EQ(m_controller->GetActiveProfile(profile.Put()), Success);
    ULONG word = 0;
    ULONG result = 0;
    EXPECT_EQ(profile->SetValue(112, 1, 0, 0, &word, &result, MakeArray({1u, 2u, 3u}).get()),
              HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED));
}

// Whatever is ordered or set with them, known or not.
TEST_F(ControllerTest, ArraysOfAnotherFormAreRefusedFirst)
{
    Suite::ComPtr<IVdFrwkProfile> profile;
    ASSERT_EQ(m_controller->GetActiveProfile(profile.Put()), Success);
    SAFEARRAYBOUND bounds[] = {{1, 0}, {1, 0}};
    const UniqueSafeArray arrays[] = {UniqueSafeArray(), UniqueSafeArray(SafeArrayCreateVector(VT_UI4, 0, 3)),
                                      UniqueSafeArray(SafeArrayCreateVector(VT_VARIANT, 1, 3)),
                                      UniqueSafeArray(SafeArrayCreateVector(VT_VARIANT, 0, 1)),
                                      UniqueSafeArray(SafeArrayCreate(VT_VARIANT, 2, bounds))};
    ULONG word = 0;
    ULONG result = 0;
    for (const UniqueSafeArray& array : arrays)
    {
        for (const ULONG type : {22u, 99u})
        {
            EXPECT_EQ(m_controller->DoCommand(type, 1, 0, 0, &word, &result, array.get()), E_INVALIDARG);
        }
        for (const ULONG type : {112u, 99u})
        {
            EXPECT_EQ(profile->SetValue(type, 1, 0, 0, &word, &result, array.get()), E_INVALIDARG);
        }
    }
    const UniqueSafeArray good = MakeArray({1u});
    EXPECT_EQ(m_controller->DoCommand(99, 1, 0, 0, &word, &result, good.get()), Unknown);
    EXPECT_EQ(profile->SetValue(99, 1, 0, 0, &word, &result, good.get()), Unknown);
}

TEST_F(ControllerTest, OnlyTheEventInterfacesHaveConnectionPoints)
{
    Suite::ComPtr<IConnectionPoint> point;
    const auto container = m_controller.As<IConnectionPointContainer>();
    EXPECT_EQ(container->FindConnectionPoint(__uuidof(IVdFrwkRemoteEvents), point.Put()), CONNECT_E_NOCONNECTION);
    EXPECT_FALSE(point);
    EXPECT_TRUE(Point(__uuidof(IVdFrwkSessionEvents)));
}

TEST_F(ControllerTest, ASinkWithoutTheInterfaceIsRefused)
{
    Inbox inbox;
    DWORD cookie = 7;
    EXPECT_EQ(Point(__uuidof(IVdFrwkSessionEvents))->Advise(inbox.Sink(), &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(cookie, 0u);
    EXPECT_EQ(Point(__uuidof(IVdFrwkLocalEvents))->Advise(nullptr, &cookie), E_POINTER);
}

TEST_F(ControllerTest, ConnectionsAreListedSkippedAndCloned)
{
    Inbox one;
    Inbox two;
    const auto point = Point(__uuidof(IVdFrwkLocalEvents));
    DWORD first = 0;
    DWORD second = 0;
    ASSERT_EQ(point->Advise(one.Sink(), &first), S_OK);
    ASSERT_EQ(point->Advise(two.Sink(), &second), S_OK);
    Suite::ComPtr<IEnumConnections> connections;
    ASSERT_EQ(point->EnumConnections(connections.Put()), S_OK);
    EXPECT_EQ(connections->Skip(1), S_OK);
    Suite::ComPtr<IEnumConnections> copy;
    ASSERT_EQ(connections->Clone(copy.Put()), S_OK);
    CONNECTDATA data[3] = {};
    ULONG fetched = 0;
    EXPECT_EQ(copy->Next(3, data, &fetched), S_FALSE);
    ASSERT_EQ(fetched, 1u);
    EXPECT_EQ(data[0].dwCookie, second);
    EXPECT_EQ(data[0].pUnk, two.Sink());
    data[0].pUnk->Release();
    EXPECT_EQ(connections->Skip(2), S_FALSE);
    EXPECT_EQ(connections->Reset(), S_OK);
    EXPECT_EQ(connections->Next(2, data, nullptr), E_POINTER);
    ASSERT_EQ(connections->Next(1, data, nullptr), S_OK);
    EXPECT_EQ(data[0].dwCookie, first);
    data[0].pUnk->Release();
    connections.Reset();
    copy.Reset();
    EXPECT_EQ(point->Unadvise(first), S_OK);
    EXPECT_EQ(point->Unadvise(first), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(point->Unadvise(second), S_OK);
    EXPECT_TRUE(one.WaitUntilReleased() && two.WaitUntilReleased());
}

TEST_F(ControllerTest, AControllerThatGoesLetsItsSinksGo)
{
    Inbox inbox;
    DWORD cookie = 0;
    ASSERT_EQ(Point(__uuidof(IVdFrwkLocalEvents))->Advise(inbox.Sink(), &cookie), S_OK);
    m_controller.Reset();
    EXPECT_TRUE(inbox.WaitUntilReleased());
    EXPECT_TRUE(m_objects.UnusedSince());
}
