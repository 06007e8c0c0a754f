#include "suite/framework/ObjectTable.h"
#include "suite/framework/ClassFactory.h"
#include "tests/unit/suite/framework/ServiceFixture.h"

#include <gtest/gtest.h>

using namespace Framework;

namespace
{

using ObjectTableTest = ServiceFixture;

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
