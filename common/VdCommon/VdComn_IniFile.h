#pragma once

#include "common/VdCommon/VdComn_Storage.h"

namespace VdCommon::Storage
{

// Values of a section of an INI file. An opening only remembers both names. The strict reads return their default when
// the value is missing. The NoThrow reads never look into the file: they return the default.
class IniFile : public Base
{
public:
    bool OpenRead(const Key& key, const std::wstring& subPath) override;
    bool OpenCreate(const Key& key, const std::wstring& subPath) override;
    bool Close(const bool& flush) override;
    // Writes what the platform keeps back of the file.
    bool Flush() override;

    std::wstring QueryString(const std::wstring& name, const std::wstring& defaultValue) override;
    std::uint32_t QueryNumber(const std::wstring& name, std::uint32_t defaultValue) override;

    bool SetString(const std::wstring& name, const std::wstring& value) override;
    bool SetNumber(const std::wstring& name, std::uint32_t value) override;

    bool DeleteLocation() override;
    bool DeleteValue(const wchar_t* name) override;
    bool DeleteValue(const std::wstring& name) override;

private:
    void RequireNames(const std::wstring& name) const;
    bool Write(const wchar_t* name, const wchar_t* value);

    std::wstring m_strFile;
    std::wstring m_strSection;
};

} // namespace VdCommon::Storage
