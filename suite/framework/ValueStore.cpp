#include "suite/framework/ValueStore.h"

#include "suite/common/KernelHandle.h"
#include "suite/framework/Trace.h"

#include <system_error>
#include <utility>

namespace Framework
{

namespace
{

constexpr wchar_t TemporaryName[] = L"Framework.new";
constexpr int RenameTries = 20;
constexpr DWORD RenamePause = 50; // milliseconds between two of them

[[noreturn]] void ThrowLastError(const char* what)
{
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), what);
}

// Nothing when there is no such file.
std::optional<std::string> ReadWhole(const std::filesystem::path& path)
{
    const Suite::KernelHandle file = Suite::OwnFile(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                                                OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file)
    {
        if (GetLastError() == ERROR_FILE_NOT_FOUND || GetLastError() == ERROR_PATH_NOT_FOUND)
        {
            return std::nullopt;
        }
        ThrowLastError("the stored values cannot be opened");
    }
    LARGE_INTEGER size{};
    DWORD read = 0;
    if (!GetFileSizeEx(file.get(), &size))
    {
        ThrowLastError("the stored values cannot be read");
    }
    std::string bytes(static_cast<std::size_t>(size.QuadPart), '\0');
    if (!ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr))
    {
        ThrowLastError("the stored values cannot be read");
    }
    bytes.resize(read);
    return bytes;
}

// On the disk when it returns.
void WriteWhole(const std::filesystem::path& path, std::string_view bytes)
{
    const Suite::KernelHandle file = Suite::OwnFile(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    if (!file || !WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) ||
        !FlushFileBuffers(file.get()))
    {
        ThrowLastError("the values cannot be stored");
    }
    if (written != bytes.size())
    {
        SetLastError(ERROR_DISK_FULL);
        ThrowLastError("the values cannot be stored");
    }
}

// Waits a second for a program that has one of the two open, as those that look for viruses or make a backup do for a
// moment.
void Rename(const std::filesystem::path& from, const std::filesystem::path& to)
{
    for (int tries = 1; !MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
         ++tries)
    {
        const bool isInUse = GetLastError() == ERROR_SHARING_VIOLATION || GetLastError() == ERROR_ACCESS_DENIED;
        if (!isInUse || tries == RenameTries)
        {
            ThrowLastError("the file of the stored values cannot be renamed");
        }
        Sleep(RenamePause);
    }
}

} // namespace

ValueStore::ValueStore(std::filesystem::path folder) : m_folder(std::move(folder))
{
    const std::optional<std::string> bytes = ReadWhole(m_folder / FileName);
    if (!bytes)
    {
        return;
    }
    if (std::optional<Values> values = ParseFile(*bytes))
    {
        m_values = std::move(*values);
        return;
    }
    Trace("The stored values are damaged; their file is set aside and the defaults hold.");
    Rename(m_folder / FileName, m_folder / DamagedName);
}

std::optional<List> ValueStore::Get(const ValueKey& key) const
{
    const std::lock_guard guard(m_mutex);
    const auto found = m_values.find(key);
    return found == m_values.end() ? std::nullopt : std::optional(found->second);
}

void ValueStore::Set(const ValueKey& key, List list)
{
    const std::lock_guard guard(m_mutex);
    const auto [place, isNew] = m_values.try_emplace(key);
    place->second.swap(list);
    try
    {
        Write();
    }
    catch (...)
    {
        place->second.swap(list);
        if (isNew)
        {
            m_values.erase(place);
        }
        throw;
    }
}

void ValueStore::Write() const
{
    WriteWhole(m_folder / TemporaryName, FileBytes(m_values));
    Rename(m_folder / TemporaryName, m_folder / FileName);
}

} // namespace Framework
