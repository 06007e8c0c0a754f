#include "framework/ui/kestrix/app/ExportTarget.h"

#include "common/VdCommon/VdComn_Procedure.h"
#include "common/VdCommon/VdComn_Storage.h"

#include <shlobj.h>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace
{

constexpr wchar_t ShellFoldersKey[] = L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
constexpr wchar_t DocumentsValue[] = L"Personal";

constexpr std::wstring_view FilterExtensions[] = {L".CSV", L".TXT", L".CSV"};

std::wstring RegisteredDocumentsFolder()
{
    return VdCommon::Storage::QueryValue(HKEY_LOCAL_MACHINE, ShellFoldersKey, DocumentsValue, L"")
        .substr(0, MAX_PATH - 1);
}

// Empty for an index that no filter has.
std::wstring_view ExtensionOf(DWORD filterIndex)
{
    return filterIndex >= 1 && filterIndex <= std::size(FilterExtensions) ? FilterExtensions[filterIndex - 1]
                                                                          : std::wstring_view();
}

bool HasExtension(std::wstring_view path)
{
    const std::size_t end = path.find_last_of(L"\\/.");
    return end != path.npos && path[end] == L'.';
}

} // namespace

std::wstring DocumentsFolder(VdCommon::DynLib::LoadFunction load)
{
    VdCommon::DynLib shell;
    shell.Load(L"shell32.dll", nullptr, load);
    decltype(&::SHGetSpecialFolderPathW) getFolder = nullptr;
    if (VdCommon::GetProcedure(shell.Module(), &getFolder, L"SHGetSpecialFolderPathW"))
    {
        wchar_t folder[MAX_PATH] = {};
        return getFolder(nullptr, folder, CSIDL_PERSONAL, FALSE) ? folder : L"";
    }
    const std::wstring folder = RegisteredDocumentsFolder();
    return folder.empty() ? RegisteredDocumentsFolder() : folder;
}

std::wstring WithFilterExtension(std::wstring path, DWORD filterIndex)
{
    if (!HasExtension(path))
    {
        path += ExtensionOf(filterIndex);
    }
    return path;
}

std::wstring WithExtensionSpelt(std::wstring path, DWORD filterIndex)
{
    const std::wstring_view extension = ExtensionOf(filterIndex);
    const std::size_t name = path.size() - std::min(path.size(), extension.size());
    const int length = static_cast<int>(extension.size());
    if (::CompareStringOrdinal(path.c_str() + name, -1, extension.data(), length, TRUE) == CSTR_EQUAL)
    {
        path.replace(name, path.npos, extension);
    }
    return path;
}
