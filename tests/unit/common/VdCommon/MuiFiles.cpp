#include "tests/unit/common/VdCommon/MuiFiles.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace MuiFiles
{

namespace
{

using Bytes = std::vector<std::uint8_t>;

constexpr std::uint8_t Signature[] = {0xCD, 0xFE, 0xCD, 0xFE};
constexpr std::size_t ServiceChecksumAt = 28;
constexpr std::size_t ChecksumAt = 44;
constexpr std::size_t HeadSize = 60;

Bytes ReadFixture(const wchar_t* name)
{
    wchar_t program[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, program, MAX_PATH);
    std::ifstream in(std::filesystem::path(program).parent_path() / name, std::ios::binary);
    Bytes bytes{std::istreambuf_iterator<char>(in), {}};
    if (bytes.empty())
    {
        throw std::runtime_error("a resource file is missing beside the test program");
    }
    return bytes;
}

template <class Pattern>
Bytes::iterator Find(Bytes& bytes, const Pattern& pattern)
{
    const auto at = std::search(bytes.begin(), bytes.end(), std::begin(pattern), std::end(pattern));
    if (at == bytes.end())
    {
        throw std::runtime_error("a resource file does not hold what is to be replaced");
    }
    return at;
}

void SetPlace(Bytes& bytes, int place)
{
    const std::wstring marker = L"PLACE-";
    const auto* const first = reinterpret_cast<const std::uint8_t*>(marker.data());
    const auto digits = Find(bytes, Bytes(first, first + marker.size() * 2)) + marker.size() * 2;
    digits[0] = static_cast<std::uint8_t>('0' + place / 10);
    digits[2] = static_cast<std::uint8_t>('0' + place % 10);
}

void SetChecksum(Bytes& bytes, std::size_t offset, std::uint8_t checksum)
{
    std::fill_n(Find(bytes, Signature) + offset, 16, checksum);
}

void Write(const std::filesystem::path& file, const Bytes& bytes)
{
    std::filesystem::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!out.flush())
    {
        throw std::runtime_error("a language file cannot be written");
    }
}

Bytes Configured(int place, std::uint8_t checksum)
{
    Bytes bytes = ReadFixture(L"MuiConfigured.dll");
    SetPlace(bytes, place);
    SetChecksum(bytes, ChecksumAt, checksum);
    return bytes;
}

} // namespace

MuiFolder::MuiFolder()
{
    wchar_t name[MAX_PATH] = {};
    wchar_t folder[MAX_PATH] = {};
    ::GetTempPathW(MAX_PATH, folder);
    ::GetTempFileNameW(folder, L"mui", 0, name);
    m_path = name;
    std::filesystem::remove(m_path);
    std::filesystem::create_directories(m_path);
}

MuiFolder::~MuiFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

void WritePlain(const std::filesystem::path& file, int place)
{
    Bytes bytes = ReadFixture(L"MuiPlain.dll");
    SetPlace(bytes, place);
    Write(file, bytes);
}

void WriteConfigured(const std::filesystem::path& file, int place, std::uint8_t checksum, std::uint8_t serviceChecksum)
{
    Bytes bytes = Configured(place, checksum);
    SetChecksum(bytes, ServiceChecksumAt, serviceChecksum);
    Write(file, bytes);
}

void WriteWrongSignature(const std::filesystem::path& file, int place, std::uint8_t checksum)
{
    Bytes bytes = Configured(place, checksum);
    *Find(bytes, Signature) = 0xCC;
    Write(file, bytes);
}

void WriteShortConfiguration(const std::filesystem::path& file, int place, std::uint8_t checksum)
{
    Bytes bytes = Configured(place, checksum);
    // The size of the resource stands in its data entry: offset, size, code page, zero.
    const std::uint8_t entrySize[] = {HeadSize, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    *Find(bytes, entrySize) = HeadSize - 1;
    Write(file, bytes);
}

int PlaceOf(HMODULE module)
{
    wchar_t text[32] = {};
    if (::LoadStringW(module, 1, text, 32) == 0)
    {
        return -1;
    }
    return std::stoi(std::wstring(text).substr(6));
}

} // namespace MuiFiles
