#pragma once

#include "framework/ui/kestrix/logs/LogLineReader.h"
#include "platform/dialog/UniqueHandle.h"

#include <cstdint>
#include <string>

// Reads a daily log file line by line: UTF-16 text after a two-byte mark that is not looked at.
class LogFileReader : public LogLineReader
{
public:
    // Opens the file after its mark, or, with a limit that is not 0, that many bytes before its end, after one
    // discarded line. False when it cannot be opened or positioned, or when no buffer can be had.
    // Others may write, move or delete the file meanwhile.
    bool Open(const std::wstring& path, std::uint32_t limit = 0);

private:
    bool Seek(std::uint32_t limit) const;
    std::size_t ReadBytes(char* to, std::size_t room) override;

    UniqueFile m_hFile;
};
