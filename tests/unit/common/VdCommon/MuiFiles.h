#pragma once

#include <windows.h>

#include <cstdint>
#include <filesystem>

// Language files for the tests: copies of the two resource files that lie beside the test program.
namespace MuiFiles
{

// A folder of its own below the system's temporary folder, removed with all in it.
class MuiFolder
{
public:
    MuiFolder();
    MuiFolder(const MuiFolder&) = delete;
    MuiFolder& operator=(const MuiFolder&) = delete;
    ~MuiFolder();

    const std::filesystem::path& Path() const noexcept { return m_path; }

private:
    std::filesystem::path m_path;
};

// Writes a file without resource configuration data; its text tells the place, 0 to 99. Makes the folders.
void WritePlain(const std::filesystem::path& file, int place = 0);

// Writes a file with resource configuration data whose checksum is sixteen times the byte given.
void WriteConfigured(const std::filesystem::path& file, int place, std::uint8_t checksum,
                     std::uint8_t serviceChecksum = 0x11);

// Writes one whose data does not begin with the signature.
void WriteWrongSignature(const std::filesystem::path& file, int place, std::uint8_t checksum);

// Writes one whose data is one byte short of a whole head.
void WriteShortConfiguration(const std::filesystem::path& file, int place, std::uint8_t checksum);

// The place that the text of an opened file tells; -1 for none.
int PlaceOf(HMODULE module);

} // namespace MuiFiles
