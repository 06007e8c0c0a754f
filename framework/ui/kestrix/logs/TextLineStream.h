#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

// Reads a UTF-16 text file line by line through the C runtime's text mode: line ends arrive as line feeds and are
// taken off, a line may have any length, and the last one needs no end.
class TextLineStream
{
public:
    // Opens the file at its beginning or, with a limit that is not 0 and smaller than the file, that many bytes before
    // its end, after the first and then partial line. False when it cannot be opened or positioned.
    bool Open(const std::wstring& path, std::uint32_t limit = 0);

    // The next line without its end; false at the end of the file.
    bool ReadLine(std::wstring& line);

    // Whether reading ended with an error rather than with the file.
    bool Failed() const;

private:
    struct CloseFile
    {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    bool SkipToLimit(std::uint32_t limit);

    std::unique_ptr<std::FILE, CloseFile> m_pFile;
};
