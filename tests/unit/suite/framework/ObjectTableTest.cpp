#include "suite/framework/ObjectTable.h"
#include "suite/framework/ClassFactory.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/StartProcess.h"
#include "tests/unit/suite/framework/ServiceFixture.h"

#include <gtest/gtest.h>

#include <rpc.h>

#include <rpcdcep.h>

using namespace Framework;

extern "C" decltype(&::I_RpcBindingInqLocalClientPID) __imp_I_RpcBindingInqLocalClientPID;

namespace
{

using ObjectTableTest = ServiceFixture;

unsigned long callingProcess = 0;

RPC_STATUS RPC_ENTRY TellCallingProcess(RPC_BINDING_HANDLE, unsigned long* process)
{
    *process = callingProcess;
    return RPC_S_OK;
}

// A process that is there until it is ended, as a client that is killed.
class Client
{
public:
    Client() { callingProcess = GetProcessId(m_process.get()); }

    ~Client() { End(); }

    void End()
    {
        if (m_process)
        {
            TerminateProcess(m_process.get(), 0);
            WaitForSingleObject(m_process.get(), INFINITE);
            m_process.reset();
        }
    }

    // As long as anybody has a handle to it.
    static bool IsKnown() { return Suite::KernelHandle(OpenProcess(SYNCHRONIZE, FALSE, callingProcess)) != nullptr; }

private:
    // It never runs, and has no console, whose host would outlive it and keep the output of the test open.
    Suite::KernelHandle m_process =
        StartProcess(L"\"" + PathOfThisProgram() + L"\"", {}, CREATE_SUSPENDED | DETACHED_PROCESS);
    const ImportPatch<decltype(&::I_RpcBindingInqLocalClientPID)> m_patch{__imp_I_RpcBindingInqLocalClientPID,
                                                                          &TellCallingProcess};
};

} // namespace

TEST_F(ObjectTableTest, IsUnusedAtFirstAndAfterTheLastObject)
{
    EXPECT_TRUE(m_objects.UnusedSince());
    EXPECT_FALSE(m_objects.WasUsed());
    {
        const auto controller = MakeController();
        EXPECT_FALSE(m_objects.UnusedSince());
        EXPECT_NE(WaitForSingleObject(m_objects.Changed(), 0), WAIT_OBJECT_0);
    }
    EXPECT_TRUE(m_objects.UnusedSince());
    EXPECT_TRUE(m_objects.WasUsed());
    EXPECT_EQ(WaitForSingleObject(m_objects.Changed(), 0), WAIT_OBJECT_0);
}

TEST_F(ObjectTableTest, ALockOfTheClassFactoryKeepsItUsed)
{
    const auto factory = Suite::ComPtr<ClassFactory>::Attach(new ClassFactory(m_service));
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    EXPECT_FALSE(m_objects.UnusedSince());
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    EXPECT_TRUE(m_objects.UnusedSince());
}

TEST_F(ObjectTableTest, EachCopyOfALockCounts)
{
    std::optional<ServiceLock> one(m_objects);
    std::optional<ServiceLock> two(*one);
    one.reset();
    EXPECT_FALSE(m_objects.UnusedSince());
    two.reset();
    EXPECT_TRUE(m_objects.UnusedSince());
}

// The service purged by itself at its start, and then gave its first client no more time than the next ones.
TEST_F(ObjectTableTest, ALockAloneIsNoUseByAClient)
{
    {
        const ServiceLock lock(m_objects);
    }
    EXPECT_FALSE(m_objects.WasUsed());
}

TEST_F(ObjectTableTest, TheClassFactoryMakesNoAggregate)
{
    const auto factory = Suite::ComPtr<ClassFactory>::Attach(new ClassFactory(m_service));
    void* object = this;
    EXPECT_EQ(factory->CreateInstance(factory.Get(), __uuidof(IUnknown), &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(IClassFactory), &object), E_NOINTERFACE);
    EXPECT_TRUE(m_objects.UnusedSince());
}

TEST_F(ObjectTableTest, TellsThatAClientHasEndedAndWhetherItLeftSomething)
{
    Client client;
    auto controller = MakeController();
    EXPECT_NE(WaitForSingleObject(m_objects.Changed(), 0), WAIT_OBJECT_0);
    EXPECT_FALSE(m_objects.DisconnectEndedClients());
    client.End();
    EXPECT_EQ(WaitForSingleObject(m_objects.Changed(), 10'000), WAIT_OBJECT_0);
    EXPECT_TRUE(m_objects.DisconnectEndedClients());
    controller.Reset();
    EXPECT_FALSE(m_objects.DisconnectEndedClients());
}

// A call that a client has made is carried out after it was killed. What it made stayed, and the service with it.
TEST_F(ObjectTableTest, WhatIsMadeForAClientThatHasEndedIsTakenAwayToo)
{
    Client client;
    client.End();
    while (Client::IsKnown())
    {
        Sleep(1);
    }
    auto controller = MakeController();
    EXPECT_EQ(WaitForSingleObject(m_objects.Changed(), 0), WAIT_OBJECT_0);
    EXPECT_TRUE(m_objects.DisconnectEndedClients());
}
