// A browser for tests, which shows nothing: BrowserRecorder ARGUMENT...
// Writes its arguments, one a line, into a file of its own in the folder that the environment names, and ends. The file
// has its name, with the ending .txt, when all is in it.

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace
{

enum ExitCode
{
    NoFolder = 1,
    NotWritten = 2,
};

std::string Utf8(const wchar_t* text)
{
    const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, bytes.data(), size, nullptr, nullptr);
    bytes.pop_back(); // the terminator
    return bytes;
}

} // namespace

int wmain(int count, wchar_t** arguments)
{
    const wchar_t* const folder = _wgetenv(L"KESTRIX_BROWSER_RECORDS");
    if (folder == nullptr)
    {
        return NoFolder;
    }
    const std::filesystem::path path = std::filesystem::path(folder) / std::to_wstring(GetCurrentProcessId());
    {
        std::ofstream file(path, std::ios::binary);
        for (int i = 1; i < count; ++i)
        {
            file << Utf8(arguments[i]) << '\n';
        }
        if (!file.flush())
        {
            return NotWritten;
        }
    }
    std::filesystem::rename(path, path.wstring() + L".txt");
    return 0;
}
