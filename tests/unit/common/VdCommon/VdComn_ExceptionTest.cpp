#include "common/VdCommon/VdComn_String.h"

#include <gtest/gtest.h>

#include <string_view>
#include <type_traits>

namespace
{

TEST(Exception, TellsCodeLineAndFileOfTheThrow)
{
    const std::uint32_t line = __LINE__ + 1;
    const VdCommon::String::Exception thrown(160);

    EXPECT_EQ(thrown.Code(), 160u);
    EXPECT_EQ(thrown.Line(), line);
    EXPECT_EQ(thrown.File(), __FILE__);
}

TEST(Exception, FileIsThePathInsideTheRepository)
{
    const VdCommon::String::Exception thrown(6);

    EXPECT_EQ(thrown.File(), "tests/unit/common/VdCommon/VdComn_ExceptionTest.cpp");
}

TEST(Exception, IsCaughtAsAPointerToTheRootAndDestroyedThroughIt)
{
    struct Counted : VdCommon::String::Exception
    {
        explicit Counted(int& count) : Exception(6), destroyed(count) {}

        ~Counted() override { ++destroyed; }

        int& destroyed;
    };

    int destroyed = 0;
    try
    {
        throw new Counted(destroyed);
    }
    catch (VdCommon::Exception::Base* thrown)
    {
        const VdCommon::Exception::Caught caught(thrown);
    }
    EXPECT_EQ(destroyed, 1);
}

TEST(Exception, OneKindIsNotCaughtAsAnother)
{
    struct Other : VdCommon::Exception::Coded
    {
        using Coded::Coded;
    };

    static_assert(std::is_base_of_v<VdCommon::Exception::Base, VdCommon::String::Exception>);
    try
    {
        throw new Other(13);
    }
    catch (VdCommon::String::Exception* thrown)
    {
        const VdCommon::Exception::Caught caught(thrown);
        FAIL() << "caught as a String::Exception";
    }
    catch (VdCommon::Exception::Coded* thrown)
    {
        const VdCommon::Exception::Caught caught(thrown);
        EXPECT_EQ(caught->Code(), 13u);
    }
}

} // namespace
