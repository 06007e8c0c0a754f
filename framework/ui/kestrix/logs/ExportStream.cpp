#include "framework/ui/kestrix/logs/ExportStream.h"

namespace
{

constexpr wchar_t PartSuffix[] = L".kestrix-part";
constexpr wchar_t AsideSuffix[] = L".kestrix-old";

std::wstring FullPath(const std::wstring& path)
{
    std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

// The path with the prefix that lifts the system's limit of length; one within the limit stays as it is.
std::wstring SystemPath(const std::wstring& path)
{
    if (path.size() < MAX_PATH || path.starts_with(L"\\\\?\\"))
    {
        return path;
    }
    const std::wstring full = FullPath(path);
    return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

// Whether a new file may take the place of this one: a plain file that everybody who has it open lets go of, or none.
// Named streams and links, attributes that a new file would not have, and devices are left to the system.
bool CanBeReplaced(const std::wstring& path)
{
    constexpr DWORD special =
        FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_REPARSE_POINT;
    const UniqueFile file(CreateFileW(path.c_str(), GENERIC_WRITE | DELETE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    if (!file)
    {
        return GetLastError() == ERROR_FILE_NOT_FOUND && path.find(L':', path.find_last_of(L"\\/") + 1) == path.npos;
    }
    BY_HANDLE_FILE_INFORMATION information{};
    return GetFileType(file.get()) == FILE_TYPE_DISK && GetFileInformationByHandle(file.get(), &information) &&
           (information.dwFileAttributes & special) == 0 && information.nNumberOfLinks == 1;
}

// Who may do what with the file, as a security descriptor; empty when there is none or nobody says.
std::vector<std::byte> RightsOf(const std::wstring& path)
{
    DWORD size = 0;
    GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<std::byte> rights(size);
    if (!GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, rights.data(), size, &size))
    {
        rights.clear();
    }
    return rights;
}

} // namespace

bool ExportStream::Open(const std::wstring& path)
{
    m_strTarget = SystemPath(path);
    m_strPart = SystemPath(path + PartSuffix);
    m_strAside = SystemPath(path + AsideSuffix);
    Begin();
    Put(L'\xFEFF');
    if (!CanBeReplaced(m_strTarget))
    {
        return MakeInPlace();
    }
    // On a full disk the file that stands there would be lost for nothing.
    return MakePart() || (GetLastError() != ERROR_DISK_FULL && MakeInPlace());
}

// With the rights of the file that it is to replace. What an earlier export left behind, when it was killed, goes.
bool ExportStream::MakePart()
{
    std::vector<std::byte> rights = RightsOf(m_strTarget);
    SECURITY_ATTRIBUTES attributes{sizeof attributes, rights.empty() ? nullptr : rights.data(), FALSE};
    DeleteFileW(m_strPart.c_str());
    m_hFile.reset(
        CreateFileW(m_strPart.c_str(), GENERIC_WRITE, 0, &attributes, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    return static_cast<bool>(m_hFile);
}

// In the way of the C library, whose files others may read and write meanwhile.
bool ExportStream::MakeInPlace()
{
    m_strPart.clear();
    m_hFile.reset(CreateFileW(m_strTarget.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                              CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (m_hFile && GetFileType(m_hFile.get()) != FILE_TYPE_DISK)
    {
        m_hFile.reset();
    }
    return static_cast<bool>(m_hFile);
}

bool ExportStream::Flush()
{
    return WriteBlock() && FlushFileBuffers(m_hFile.get());
}

bool ExportStream::Close()
{
    m_hFile.reset();
    return m_strPart.empty() ||
           MoveFileExW(m_strPart.c_str(), m_strTarget.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) ||
           ReplaceOpenTarget();
}

bool ExportStream::Delete()
{
    m_hFile.reset();
    return DeleteFileW(m_strPart.empty() ? m_strTarget.c_str() : m_strPart.c_str());
}

// The target steps aside for those who have it open, and is deleted when the last one closes it.
bool ExportStream::ReplaceOpenTarget() const
{
    if (!ReplaceFileW(m_strTarget.c_str(), m_strPart.c_str(), m_strAside.c_str(), REPLACEFILE_IGNORE_MERGE_ERRORS,
                      nullptr, nullptr))
    {
        MoveFileExW(m_strAside.c_str(), m_strTarget.c_str(), 0);
        return false;
    }
    DeleteFileW(m_strAside.c_str());
    return true;
}

bool ExportStream::TakeBlock(std::wstring_view block)
{
    const auto bytes = static_cast<DWORD>(block.size() * sizeof(wchar_t));
    DWORD written = 0;
    return WriteFile(m_hFile.get(), block.data(), bytes, &written, nullptr) && written == bytes;
}
