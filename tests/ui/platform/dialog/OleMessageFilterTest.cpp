#include "platform/dialog/OleMessageFilter.h"

#include "platform/dialog/Ole.h"
#include "tests/support/ImportPatch.h"

#include <gtest/gtest.h>

extern "C" decltype(&::CoRegisterMessageFilter) __imp_CoRegisterMessageFilter;

namespace
{

constexpr DWORD GiveUp = static_cast<DWORD>(-1);

HRESULT WINAPI RefuseFilter(IMessageFilter*, IMessageFilter**)
{
    return CO_E_NOT_SUPPORTED;
}

// The filter of the thread, which is taken away by asking for it.
IMessageFilter* TakeFilter()
{
    IMessageFilter* filter = nullptr;
    CoRegisterMessageFilter(nullptr, &filter);
    return filter;
}

TEST(OleMessageFilterTest, IsTheThreadsFilterWhileTheApartmentIsOpen)
{
    ASSERT_TRUE(AfxOleInit());
    IMessageFilter* const filter = TakeFilter();
    EXPECT_EQ(filter, &AfxOleGetMessageFilter());
    filter->Release();
    AfxOleTerm();

    ASSERT_EQ(CoInitialize(nullptr), S_OK);
    EXPECT_EQ(TakeFilter(), nullptr);
    CoUninitialize();
}

TEST(OleMessageFilterTest, IsGoneWithTheApartmentThatAfxOleInitOpened)
{
    ASSERT_EQ(CoInitialize(nullptr), S_OK); // keeps the apartment
    ASSERT_TRUE(AfxOleInit());
    AfxOleTerm();
    EXPECT_EQ(TakeFilter(), nullptr);
    CoUninitialize();
}

TEST(OleMessageFilterTest, AThreadThatTakesNoFilterHasNoOle)
{
    const ImportPatch refusing(__imp_CoRegisterMessageFilter, &RefuseFilter);
    EXPECT_FALSE(AfxOleInit());
    APTTYPE type{};
    APTTYPEQUALIFIER qualifier{};
    EXPECT_EQ(CoGetApartmentType(&type, &qualifier), CO_E_NOTINITIALIZED);
}

TEST(OleMessageFilterTest, ACallThatWasPutOffIsRepeatedUntilTheLimit)
{
    COleMessageFilter filter;
    EXPECT_EQ(filter.RetryRejectedCall(nullptr, 10'000, SERVERCALL_RETRYLATER), 0u);
    EXPECT_EQ(filter.RetryRejectedCall(nullptr, 10'001, SERVERCALL_RETRYLATER), GiveUp);
    filter.SetRetryReply(static_cast<DWORD>(-1));
    EXPECT_EQ(filter.RetryRejectedCall(nullptr, 0xFFFFFFFF, SERVERCALL_RETRYLATER), 0u);
}

TEST(OleMessageFilterTest, ACallThatWasRejectedIsGivenUp)
{
    COleMessageFilter filter;
    EXPECT_EQ(filter.RetryRejectedCall(nullptr, 0, SERVERCALL_REJECTED), GiveUp);
}

TEST(OleMessageFilterTest, CallsThatComeInAreTakenAndInputWaits)
{
    COleMessageFilter filter;
    EXPECT_EQ(filter.HandleInComingCall(CALLTYPE_NESTED, nullptr, 0, nullptr),
              static_cast<DWORD>(SERVERCALL_ISHANDLED));
    EXPECT_EQ(filter.MessagePending(nullptr, 100'000, PENDINGTYPE_TOPLEVEL),
              static_cast<DWORD>(PENDINGMSG_WAITNOPROCESS));
}

TEST(OleMessageFilterTest, AnswersForItsTwoInterfaces)
{
    COleMessageFilter filter;
    void* found = nullptr;
    EXPECT_EQ(filter.QueryInterface(__uuidof(IUnknown), &found), S_OK);
    EXPECT_EQ(filter.QueryInterface(__uuidof(IMessageFilter), &found), S_OK);
    EXPECT_EQ(found, static_cast<IMessageFilter*>(&filter));
    EXPECT_EQ(filter.Release(), 1u);
    EXPECT_EQ(filter.Release(), 0u);
    EXPECT_EQ(filter.QueryInterface(__uuidof(IClassFactory), &found), E_NOINTERFACE);
    EXPECT_EQ(found, nullptr);
}

} // namespace
