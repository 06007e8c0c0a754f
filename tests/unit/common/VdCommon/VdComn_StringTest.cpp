#include "common/VdCommon/VdComn_String.h"

#include <gtest/gtest.h>

#include <array>

namespace
{

using VdCommon::String::BufferSizes;
using VdCommon::String::CopyTString;
using VdCommon::String::Format;
using VdCommon::String::FormatV;
using VdCommon::String::ProcessBufferSizes;

// One pass; the caller keeps the size.
bool Pass(std::wstring& out, std::size_t& size, const wchar_t* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const bool written = FormatV(out, size, format, arguments);
    va_end(arguments);
    return written;
}

class StringFormat : public ::testing::Test
{
protected:
    ~StringFormat() override { ProcessBufferSizes() = {256, 256}; }

    std::wstring m_out = L"before";
};

TEST_F(StringFormat, WideTextsAndNumbers)
{
    EXPECT_TRUE(Format(m_out, L"[%s] 0x%08X %d %c %lu", L"wide \x0416", 0x40200, -7, L'z', 9ul));
    EXPECT_EQ(m_out, L"[wide \x0416] 0x00040200 -7 z 9");
}

TEST_F(StringFormat, EmptyResultReplacesTheText)
{
    EXPECT_TRUE(Format(m_out, L"%s", L""));
    EXPECT_EQ(m_out, L"");
}

TEST_F(StringFormat, ArgumentMayLieInTheResult)
{
    EXPECT_TRUE(Format(m_out, L"<%s>", m_out.c_str()));
    EXPECT_EQ(m_out, L"<before>");
}

TEST_F(StringFormat, TextOf255CharactersFitsTheFirstPass)
{
    const std::wstring text(255, L'x');
    std::size_t size = 0;
    EXPECT_TRUE(Pass(m_out, size, L"%s", text.c_str()));
    EXPECT_EQ(size, 256u);
    EXPECT_EQ(m_out, text);
}

TEST_F(StringFormat, TextOfExactly256CharactersNeedsASecondPass)
{
    const std::wstring text(256, L'x');
    std::size_t size = 0;
    EXPECT_FALSE(Pass(m_out, size, L"%s", text.c_str()));
    EXPECT_EQ(size, 512u);
    EXPECT_EQ(m_out, L"before");
    EXPECT_TRUE(Pass(m_out, size, L"%s", text.c_str()));
    EXPECT_EQ(size, 512u);
    EXPECT_EQ(m_out, text);
}

TEST_F(StringFormat, LongTextGrowsStepByStep)
{
    const std::wstring text(1000, L'x');
    std::size_t size = 0;
    int passes = 1;
    while (!Pass(m_out, size, L"%s", text.c_str()))
    {
        ++passes;
    }
    EXPECT_EQ(passes, 4);
    EXPECT_EQ(size, 1024u);
    EXPECT_EQ(m_out, text);
}

TEST_F(StringFormat, WholeTextAtEveryLengthAroundTheSteps)
{
    for (const std::size_t length : {254u, 255u, 256u, 257u, 511u, 512u, 513u, 5000u})
    {
        const std::wstring text(length, L'y');
        EXPECT_TRUE(Format(m_out, L"%s", text.c_str()));
        EXPECT_EQ(m_out, text) << length;
    }
}

TEST_F(StringFormat, UnsetProcessSizesAreFilledInWith256)
{
    ProcessBufferSizes() = {0, 0};
    EXPECT_EQ(ProcessBufferSizes().initial, 256u);
    EXPECT_EQ(ProcessBufferSizes().step, 256u);
}

TEST_F(StringFormat, ProcessSizesSetOtherwiseAreUsed)
{
    ProcessBufferSizes() = {4, 3};
    std::size_t size = 0;
    EXPECT_FALSE(Pass(m_out, size, L"12345"));
    EXPECT_EQ(size, 7u);
    EXPECT_TRUE(Pass(m_out, size, L"12345"));
    EXPECT_EQ(m_out, L"12345");
}

TEST_F(StringFormat, NoMemoryThrowsCode6AndLeavesTheText)
{
    ProcessBufferSizes().initial = std::size_t{1} << 58;
    try
    {
        Format(m_out, L"text");
        FAIL() << "no exception";
    }
    catch (VdCommon::String::Exception* thrown)
    {
        const VdCommon::Exception::Caught caught(thrown);
        EXPECT_EQ(caught->Code(), 6u);
        EXPECT_NE(caught->File().find("VdComn_String.cpp"), std::string::npos);
        EXPECT_NE(caught->Line(), 0u);
    }
    EXPECT_EQ(m_out, L"before");
}

TEST(StringCopyTString, CopiesWithTheTerminator)
{
    std::array<wchar_t, 5> room;
    room.fill(L'#');
    EXPECT_EQ(CopyTString(room.data(), room.size(), L"abc"), 0u);
    EXPECT_EQ(std::wstring(room.data(), 5), std::wstring(L"abc\0#", 5));
}

TEST(StringCopyTString, EmptyTextIsNoFailure)
{
    std::array<wchar_t, 2> room{L'#', L'#'};
    EXPECT_EQ(CopyTString(room.data(), room.size(), L""), 0u);
    EXPECT_EQ(room[0], L'\0');
}

TEST(StringCopyTString, TextOf259CharactersFitsARoomOf260)
{
    std::array<wchar_t, 260> room{};
    const std::wstring text(259, L'p');
    EXPECT_EQ(CopyTString(room.data(), room.size(), text.c_str()), 0u);
    EXPECT_EQ(room.data(), text);
}

TEST(StringCopyTString, TextThatDoesNotFitIsCutWithCode122)
{
    std::array<wchar_t, 261> room{};
    room[260] = L'#';
    EXPECT_EQ(CopyTString(room.data(), 260, std::wstring(260, L'p').c_str()), 122u);
    EXPECT_EQ(std::wstring(room.data()), std::wstring(259, L'p'));
    EXPECT_EQ(room[260], L'#');
}

TEST(StringCopyTString, NullPointersAndNoRoomAreBadArguments)
{
    std::array<wchar_t, 2> room{L'#', L'#'};
    EXPECT_EQ(CopyTString(nullptr, 2, L"a"), 160u);
    EXPECT_EQ(CopyTString(room.data(), 2, nullptr), 160u);
    EXPECT_EQ(CopyTString(room.data(), 0, L"a"), 160u);
    EXPECT_EQ(room[0], L'#');
}

} // namespace
