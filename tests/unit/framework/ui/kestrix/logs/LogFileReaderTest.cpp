#include "framework/ui/kestrix/logs/LogFileReader.h"

#include "tests/support/ImportPatch.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PlainLines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

extern "C" decltype(&::ReadFile) __imp_ReadFile;

namespace
{

using ReaderLines = std::vector<std::wstring>;

constexpr std::size_t BlockSize = 256 * 1024;

std::wstring Lines3(const wchar_t* first, const wchar_t* second, const wchar_t* third)
{
    return std::wstring(first) + L"\r\n" + second + L"\r\n" + third + L"\r\n";
}

ReaderLines ReadLines(const std::wstring& path, std::uint32_t limit = 0)
{
    LogFileReader reader;
    ReaderLines lines;
    std::wstring_view line;
    EXPECT_TRUE(reader.Open(path, limit));
    while (reader.NextLine(line))
    {
        lines.emplace_back(line);
    }
    return lines;
}

class LogFileReaderTest : public ::testing::Test
{
protected:
    ReaderLines ReadText(std::wstring_view text)
    {
        WriteUtf16(m_path, text);
        return ReadLines(m_path);
    }

    // Whether the lines are those of the plain reading. One at a time, since they are many.
    bool IsReadPlainly(std::wstring_view text, const std::string& oddEnd = {})
    {
        WriteBytes(m_path, "\xFF\xFE" + Utf16Bytes(text) + oddEnd);
        LogFileReader reader;
        bool isSame = reader.Open(m_path);
        std::wstring_view line;
        Plain::ForEachLine(text, [&](const std::wstring& expected)
                           { isSame = isSame && reader.NextLine(line) && line == expected; });
        return isSame && !reader.NextLine(line);
    }

    TemporaryFolder m_folder;
    const std::wstring m_path = m_folder.File(L"20260101.VLG");
};

} // namespace

TEST_F(LogFileReaderTest, GivesTheLinesWithoutTheirEnds)
{
    EXPECT_EQ(ReadText(Lines3(L"one", L"two", L"three")), (ReaderLines{L"one", L"two", L"three"}));
}

TEST_F(LogFileReaderTest, SkipsTheFirstTwoBytesWhateverTheyAre)
{
    WriteBytes(m_path, "\xFE\xFF" + Utf16Bytes(L"a\r\n"));
    EXPECT_EQ(ReadLines(m_path), (ReaderLines{L"a"}));
    WriteBytes(m_path, Utf16Bytes(L"xab\r\n"));
    EXPECT_EQ(ReadLines(m_path), (ReaderLines{L"ab"}));
}

TEST_F(LogFileReaderTest, ALineOf2046CharactersWithItsEndIsGivenAndOneMoreIsNot)
{
    const std::wstring longest(2044, L'x');
    EXPECT_EQ(ReadText(L"a\r\n" + longest + L"\r\nb\r\n"), (ReaderLines{L"a", longest, L"b"}));
    EXPECT_EQ(ReadText(L"a\r\n" + longest + L"y\r\nb\r\n"), (ReaderLines{L"a", L"b"}));
}

// The pieces of this line end exactly with the line: the line feed alone is the last piece.
TEST_F(LogFileReaderTest, ALineWhoseLineFeedStandsAloneInItsPieceIsPassedOverWhole)
{
    EXPECT_EQ(ReadText(std::wstring(2046, L'x') + L"\nb\r\n"), (ReaderLines{L"b"}));
    EXPECT_EQ(ReadText(std::wstring(2045, L'x') + L"\r\nb\r\n"), (ReaderLines{L"b"}));
}

TEST_F(LogFileReaderTest, TheLastLineWithoutALineFeedIsPassedOver)
{
    EXPECT_EQ(ReadText(L"a\r\nb"), (ReaderLines{L"a"}));
    EXPECT_EQ(ReadText(L"a\r\nb\r"), (ReaderLines{L"a"}));
}

TEST_F(LogFileReaderTest, WithoutACarriageReturnTheLineFeedStaysInTheLine)
{
    EXPECT_EQ(ReadText(L"a\nb\r\n"), (ReaderLines{L"a\n", L"b"}));
    EXPECT_EQ(ReadText(L"\n"), (ReaderLines{L"\n"}));
}

TEST_F(LogFileReaderTest, TheLineEndsAtItsLastCarriageReturn)
{
    EXPECT_EQ(ReadText(L"a\rb\rcd\n"), (ReaderLines{L"a\rb"}));
    EXPECT_EQ(ReadText(L"a\r\r\n"), (ReaderLines{L"a\r"}));
}

TEST_F(LogFileReaderTest, EmptyLinesAreSkipped)
{
    EXPECT_EQ(ReadText(L"\r\n\r\na\r\n\r\n"), (ReaderLines{L"a"}));
    EXPECT_EQ(ReadText(L"\rxyz\na\r\n"), (ReaderLines{L"a"}));
}

TEST_F(LogFileReaderTest, ANulInALineBreaksItAndTakesTheNextLineWithIt)
{
    EXPECT_EQ(ReadText(std::wstring_view(L"a\r\nb\0c\r\nd\r\ne\r\n", 14)), (ReaderLines{L"a", L"e"}));
}

TEST_F(LogFileReaderTest, ALineThatBeginsWithANulIsNothing)
{
    EXPECT_EQ(ReadText(std::wstring_view(L"a\r\n\0c\r\nd\r\n", 10)), (ReaderLines{L"a", L"d"}));
}

TEST_F(LogFileReaderTest, AControlZDoesNotEndTheFile)
{
    EXPECT_EQ(ReadText(L"a\x1A z\r\nb\r\n"), (ReaderLines{L"a\x1A z", L"b"}));
}

TEST_F(LogFileReaderTest, CharactersThatAreNoneAreKept)
{
    const std::wstring odd = {0xDC00, 0xD800, 0xFFFF, 0xFFFE, L'a'};
    EXPECT_EQ(ReadText(odd + L"\r\nb\r\n"), (ReaderLines{odd, L"b"}));
}

TEST_F(LogFileReaderTest, HalfACharacterAtTheEndIsLeftOut)
{
    WriteBytes(m_path, "\xFF\xFE" + Utf16Bytes(L"a\r\n") + "b");
    EXPECT_EQ(ReadLines(m_path), (ReaderLines{L"a"}));
    WriteBytes(m_path, "\xFF\xFE" + Utf16Bytes(L"a\r\nb\r") + "\n");
    EXPECT_EQ(ReadLines(m_path), (ReaderLines{L"a"}));
}

TEST_F(LogFileReaderTest, AFileOfNoBytesOneOrTwoHasNoLinesAndOpens)
{
    for (const std::string_view bytes : {"", "\xFF", "\xFF\xFE"})
    {
        WriteBytes(m_path, bytes);
        EXPECT_EQ(ReadLines(m_path), ReaderLines{}) << bytes.size();
    }
}

TEST_F(LogFileReaderTest, WhatIsNoFileDoesNotOpen)
{
    LogFileReader reader;
    EXPECT_FALSE(reader.Open(m_path));
    EXPECT_FALSE(reader.Open(m_folder.Path().wstring()));
    EXPECT_FALSE(reader.Open(L""));
}

TEST_F(LogFileReaderTest, ALimitStartsSoManyBytesBeforeTheEndBehindOneDiscardedLine)
{
    WriteUtf16(m_path, Lines3(L"one", L"two", L"three"));
    // "\r\nthree\r\n" has 18 bytes: the rest of the second line's end is what is discarded.
    EXPECT_EQ(ReadLines(m_path, 18), (ReaderLines{L"three"}));
    EXPECT_EQ(ReadLines(m_path, 19), (ReaderLines{L"three"})) << "an odd limit counts as the even one below";
    EXPECT_EQ(ReadLines(m_path, 22), (ReaderLines{L"three"})) << "part of the second line";
    EXPECT_EQ(ReadLines(m_path, 100000), (ReaderLines{L"two", L"three"})) << "a limit beyond the file";
}

TEST_F(LogFileReaderTest, AnObjectReadsAnotherFileAfterTheFirst)
{
    const std::wstring other = m_folder.File(L"other");
    WriteUtf16(m_path, L"a\r\nbroken");
    WriteUtf16(other, L"b\r\n");
    LogFileReader reader;
    std::wstring_view line;
    ASSERT_TRUE(reader.Open(m_path));
    while (reader.NextLine(line))
    {
    }
    ASSERT_TRUE(reader.Open(other));
    ASSERT_TRUE(reader.NextLine(line));
    EXPECT_EQ(line, L"b");
}

// A line of 41 characters meets the end of a block with each of its characters, the line end's two among them.
TEST_F(LogFileReaderTest, ABlockMayEndAtEveryCharacterOfAShortLine)
{
    for (std::size_t shift = 0; shift <= 41; ++shift)
    {
        std::wstring text(shift, L's');
        text += L"\r\n";
        for (int line = 0; text.size() * sizeof(wchar_t) < 3 * BlockSize; ++line)
        {
            std::wstring number = std::to_wstring(line);
            text += std::wstring(39 - number.size(), L'.') + number + L"\r\n";
        }
        ASSERT_TRUE(IsReadPlainly(text)) << "shift " << shift;
    }
}

// The same with lines as long as they may be and one longer, in turn: the end of a block falls on each character near
// the ends of both.
TEST_F(LogFileReaderTest, ABlockMayEndAnywhereInALongLine)
{
    for (std::size_t shift = 0; shift <= 2050; shift += shift % 2048 < 24 || shift > 2024 ? 1 : 89)
    {
        std::wstring text(shift, L's');
        text += L"\r\n";
        while (text.size() * sizeof(wchar_t) < BlockSize + BlockSize / 2)
        {
            text += std::wstring(2044, L'f') + L"\r\n" + std::wstring(2045, L't') + L"\r\n";
        }
        ASSERT_TRUE(IsReadPlainly(text)) << "shift " << shift;
    }
}

// As a file on another machine may come: no read gives all that was asked for, nor always whole characters.
TEST_F(LogFileReaderTest, ReadsMayGiveAnyNumberOfBytes)
{
    static decltype(&::ReadFile) s_original;
    static DWORD s_most;
    s_original = __imp_ReadFile;
    const ImportPatch<decltype(&::ReadFile)> patch(
        __imp_ReadFile,
        [](HANDLE file, void* bytes, DWORD room, DWORD* read, OVERLAPPED* overlapped) -> BOOL
        { return s_original(file, bytes, std::min(room, s_most), read, overlapped); });
    const std::wstring text = Lines3(L"first", L"\x0A0D\x0D0A", L"third") + std::wstring(3000, L'x') + L"\r\nlast\r\n";
    for (s_most = 1; s_most < 20; ++s_most)
    {
        ASSERT_EQ(ReadText(text), Plain::Lines(text)) << s_most << " bytes";
    }
}

TEST_F(LogFileReaderTest, AFileWithAnOddNumberOfBytesBeforeABlockEndKeepsItsCharactersWhole)
{
    std::wstring text;
    while (text.size() * sizeof(wchar_t) < 2 * BlockSize)
    {
        text += L"\x0A0D\x0D0A characters whose halves look like line ends\r\n";
    }
    EXPECT_TRUE(IsReadPlainly(text, "\n"));
}

// What was left of the file had moved to the front of the buffer when it was given out at its old place, which held
// other characters by then: a piece that begins with a NUL, and so is nothing, was taken for the start of a line.
TEST_F(LogFileReaderTest, APieceThatIsNothingAtTheEndOfAFileIsNothingWhenTheFileGrows)
{
    const std::wstring start = L"first\r\n" + std::wstring(L"\0a piece that is longer than the line", 37);
    WriteUtf16(m_path, start);
    LogFileReader reader;
    std::wstring_view line;
    ASSERT_TRUE(reader.Open(m_path) && reader.NextLine(line));
    EXPECT_EQ(line, L"first");
    EXPECT_FALSE(reader.NextLine(line)) << "the end of the file, for now";
    WriteUtf16(m_path, start + L"last\r\n");
    ASSERT_TRUE(reader.NextLine(line));
    EXPECT_EQ(line, L"last");
}
