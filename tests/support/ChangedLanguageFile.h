#pragma once

#include "platform/dialog/UniqueHandle.h"
#include "tests/support/TemporaryFolder.h"

#include <windows.h>

#include <cstring>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

// A copy of the built language file in which texts and other resources are others or missing. Changes are made while
// the file is not open. What fails throws std::runtime_error.
class ChangedLanguageFile
{
public:
    ChangedLanguageFile()
    {
        std::filesystem::copy_file(BuiltFile, m_path);
        std::filesystem::permissions(m_path, std::filesystem::perms::owner_all, std::filesystem::perm_options::add);
        const UniqueModule module(
            ::LoadLibraryExW(BuiltFile, nullptr, LOAD_LIBRARY_AS_IMAGE_RESOURCE | LOAD_LIBRARY_AS_DATAFILE));
        Require(::EnumResourceTypesW(module.get(), &NoteType, reinterpret_cast<LONG_PTR>(this)) != FALSE);
    }

    const std::wstring& Path() const { return m_path; }

    // The empty text: the file lacks it.
    void SetText(UINT id, const std::wstring& text)
    {
        Bytes& block = m_resources.at({Number(RT_STRING), static_cast<WORD>(id / TextsPerBlock + 1)});
        const auto* next = reinterpret_cast<const wchar_t*>(block.data());
        std::wstring changed;
        for (UINT i = 0; i < TextsPerBlock; ++i)
        {
            const std::wstring before(next + 1, *next);
            const std::wstring& now = i == id % TextsPerBlock ? text : before;
            changed += static_cast<wchar_t>(now.size());
            changed += now;
            next += 1 + before.size();
        }
        const auto* const bytes = reinterpret_cast<const BYTE*>(changed.data());
        block.assign(bytes, bytes + changed.size() * sizeof(wchar_t));
        Write();
    }

    // More styles for the window of a dialog template.
    void AddStyles(UINT dialog, DWORD style, DWORD exStyle)
    {
        struct Head
        {
            WORD version;
            WORD signature;
            DWORD helpNumber;
            DWORD exStyle;
            DWORD style;
        };

        Bytes& bytes = m_resources.at({Number(RT_DIALOG), static_cast<WORD>(dialog)});
        Head head{};
        std::memcpy(&head, bytes.data(), sizeof head);
        Require(head.version == 1 && head.signature == 0xFFFF); // an extended template
        head.style |= style;
        head.exStyle |= exStyle;
        std::memcpy(bytes.data(), &head, sizeof head);
        Write();
    }

    void Remove(const wchar_t* type, UINT id)
    {
        Require(m_resources.erase({Number(type), static_cast<WORD>(id)}) == 1);
        Write();
    }

    void RemoveAll(const wchar_t* type)
    {
        Require(std::erase_if(m_resources, [&](const auto& each) { return each.first.first == Number(type); }) != 0);
        Write();
    }

private:
    using Bytes = std::vector<BYTE>;

    static constexpr wchar_t BuiltFile[] = L"resource\\en-US\\Kestrix.exe.mui";
    static constexpr UINT TextsPerBlock = 16;
    static constexpr WORD Language = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);

    static WORD Number(const wchar_t* name) { return static_cast<WORD>(reinterpret_cast<ULONG_PTR>(name)); }

    static void Require(bool done)
    {
        if (!done)
        {
            throw std::runtime_error("the language file of the test cannot be changed");
        }
    }

    static BOOL CALLBACK NoteType(HMODULE module, wchar_t* type, LONG_PTR file)
    {
        return ::EnumResourceNamesW(module, type, &NoteResource, file);
    }

    static BOOL CALLBACK NoteResource(HMODULE module, const wchar_t* type, wchar_t* name, LONG_PTR file)
    {
        const HRSRC resource = ::FindResourceW(module, name, type);
        const auto* const bytes = static_cast<const BYTE*>(::LockResource(::LoadResource(module, resource)));
        reinterpret_cast<ChangedLanguageFile*>(file)->m_resources[{Number(type), Number(name)}] =
            Bytes(bytes, bytes + ::SizeofResource(module, resource));
        return TRUE;
    }

    // The whole file anew, since not every system can take a single resource away.
    void Write()
    {
        const HANDLE file = ::BeginUpdateResourceW(m_path.c_str(), TRUE);
        Require(file != nullptr);
        for (auto& [key, bytes] : m_resources)
        {
            Require(::UpdateResourceW(file, MAKEINTRESOURCEW(key.first), MAKEINTRESOURCEW(key.second), Language,
                                      bytes.data(), static_cast<DWORD>(bytes.size())) != FALSE);
        }
        Require(::EndUpdateResourceW(file, FALSE) != FALSE);
    }

    const TemporaryFolder m_folder;
    const std::wstring m_path = m_folder.File(L"Kestrix.exe.mui");
    std::map<std::pair<WORD, WORD>, Bytes> m_resources; // by type and number
};
