#pragma once

#include "common/VdCommon/VdComn_Storage.h"
#include "platform/dialog/UniqueHandle.h"

#include <cstddef>
#include <span>

namespace VdCommon::Storage
{

// Which of the platform's two registries a 64-bit system shows.
enum class RegistryView : std::uint32_t
{
    Own = 0, // that of the program
    Bits32 = 1,
    Bits64 = 2,
};

// Values of a registry key. The strict reads ignore their default and throw when the value is missing.
class Registry : public Base
{
public:
    explicit Registry(RegistryView view = RegistryView::Own) noexcept : m_nView(view) {}

    // Closes without flushing.
    ~Registry() override;

    // Reading needs OpenRead, OpenEnumerate or OpenCreate; writing OpenWrite or OpenCreate; deleting the key OpenWrite;
    // listing OpenEnumerate.
    bool OpenRead(const Key& key, const std::wstring& subPath) override;
    bool OpenCreate(const Key& key, const std::wstring& subPath) override;
    bool OpenWrite(const Key& key, const std::wstring& subPath) override;
    bool OpenEnumerate(const Key& key, const std::wstring& subPath) override;
    bool Close(const bool& flush) override;
    bool Flush() override;

    // The composed path of the open key below its root.
    const std::wstring& Path() const noexcept { return m_strPath; }

    bool QueryBinaryNoThrow(const std::wstring& name, ByteArray& bytes, std::uint32_t* error) override;
    bool QueryBinary(const std::wstring& name, ByteArray& bytes) override;
    // The text up to its first terminator: of a list of texts the first. An expandable text is not expanded.
    std::wstring QueryStringNoThrow(const std::wstring& name, const std::wstring& defaultValue,
                                    std::uint32_t* error) override;
    std::wstring QueryString(const std::wstring& name, const std::wstring& defaultValue) override;
    std::uint32_t QueryNumberNoThrow(const std::wstring& name, std::uint32_t defaultValue,
                                     std::uint32_t* error) override;
    std::uint32_t QueryNumber(const std::wstring& name, std::uint32_t defaultValue) override;

    bool SetBinary(const std::wstring& name, const ByteArray& bytes) override;
    bool SetString(const std::wstring& name, const std::wstring& value) override;
    bool SetQword(const std::wstring& name, std::uint64_t value) override;
    bool SetNumber(const std::wstring& name, std::uint32_t value) override;

    bool DeleteLocation() override;
    bool DeleteValue(const wchar_t* name) override;
    bool DeleteValue(const std::wstring& name) override;

    // Names of up to 254 characters; a longer one throws code 234, with the names before it in the list.
    bool ListKeys(std::vector<std::wstring>& names) override;
    bool ListValues(std::vector<std::wstring>& names) override;

private:
    using Types = std::span<const DWORD>;
    using OpenFunction = LSTATUS (*)(HKEY root, const wchar_t* path, REGSAM access, HKEY* opened);

    bool Open(const Key& key, const std::wstring& subPath, REGSAM access, OpenFunction open);
    void RequireOpen() const;
    DWORD Query(const std::wstring& name, Types types, void* data, DWORD size) const;
    void QueryUnchanged(const std::wstring& name, Types types, void* data, DWORD size) const;
    bool Set(const std::wstring& name, DWORD type, const void* data, std::size_t size);
    template <class Enumerate>
    bool List(Enumerate enumerate, std::vector<std::wstring>& names) const;

    std::uintptr_t m_nRoot = 0;
    UniqueRegistryKey m_hKey;
    std::wstring m_strPath;
    RegistryView m_nView;
};

} // namespace VdCommon::Storage
