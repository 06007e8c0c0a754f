#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

// Writes the text of an export. Every line feed comes out as carriage return and line feed. Text is gathered in a
// block, which a class of its own takes where the text goes.
class ExportWriter
{
public:
    virtual ~ExportWriter() = default;

    ExportWriter(const ExportWriter&) = delete;
    ExportWriter& operator=(const ExportWriter&) = delete;

    // False when the text could not be written.
    bool Write(std::wstring_view text);

    // Writes the text in double quotes, with what stands after it: a tab or a line feed.
    bool WriteLabel(std::wstring_view text, wchar_t end);

protected:
    ExportWriter() = default;

    // Makes room for a block, which is empty. To be called before anything is written.
    void Begin();

    // A character as it is.
    bool Put(wchar_t character);

    // Has what the block holds taken.
    bool WriteBlock();

private:
    static constexpr std::size_t BlockSize = 64 * 1024; // characters

    virtual bool TakeBlock(std::wstring_view block) = 0;

    std::size_t CopyToLineFeed(std::wstring_view text);

    std::vector<wchar_t> m_arrBlock;
    std::size_t m_nUsed = 0; // characters of the block
};
