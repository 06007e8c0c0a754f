#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// A daily file of one kind's sample records in the system's temporary folder, removed with the object.
class BenchFile
{
public:
    static constexpr std::uint64_t Records = 1'000'000;

    explicit BenchFile(std::wstring_view extension, std::uint64_t records = Records);
    ~BenchFile();
    BenchFile(const BenchFile&) = delete;
    BenchFile& operator=(const BenchFile&) = delete;

    const std::wstring& Path() const { return m_path; }

    std::uint64_t Size() const; // in bytes

private:
    std::wstring m_path;
};
