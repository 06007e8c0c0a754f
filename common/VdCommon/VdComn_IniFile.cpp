#include "common/VdCommon/VdComn_IniFile.h"

#include "common/VdCommon/VdComn_StorageText.h"
#include "common/VdCommon/VdComn_String.h"

#include <source_location>
#include <utility>

namespace VdCommon::Storage
{

namespace
{

void RequireText(const std::wstring& text, const std::source_location& where = std::source_location::current())
{
    if (text.empty())
    {
        throw new Exception(ERROR_BAD_ARGUMENTS, where);
    }
}

} // namespace

bool IniFile::OpenRead(const Key& key, const std::wstring& subPath)
{
    std::wstring file = JoinPath(reinterpret_cast<const wchar_t*>(key.root), key.path);
    m_strSection = subPath;
    m_strFile = std::move(file);
    return true;
}

bool IniFile::OpenCreate(const Key& key, const std::wstring& subPath)
{
    return OpenRead(key, subPath);
}

bool IniFile::Close(const bool& flush)
{
    if (flush)
    {
        Flush();
    }
    m_strFile.clear();
    m_strSection.clear();
    return true;
}

bool IniFile::Flush()
{
    RequireText(m_strFile);
    // The platform answers "failed" to every flush, so the answer tells nothing.
    ::WritePrivateProfileStringW(nullptr, nullptr, nullptr, m_strFile.c_str());
    return true;
}

std::wstring IniFile::QueryString(const std::wstring& name, const std::wstring& defaultValue)
{
    RequireNames(name);
    const String::BufferSizes sizes = String::ProcessBufferSizes();
    for (std::size_t size = sizes.initial;; size += sizes.step)
    {
        std::wstring text = AllocateText(size);
        const DWORD length = ::GetPrivateProfileStringW(m_strSection.c_str(), name.c_str(), defaultValue.c_str(),
                                                        text.data(), static_cast<DWORD>(size), m_strFile.c_str());
        // A length that fills the room does not tell whether the text was cut.
        if (length != size - 1)
        {
            text.resize(length);
            return text;
        }
    }
}

std::uint32_t IniFile::QueryNumber(const std::wstring& name, std::uint32_t defaultValue)
{
    RequireNames(name);
    return ::GetPrivateProfileIntW(m_strSection.c_str(), name.c_str(), static_cast<INT>(defaultValue),
                                   m_strFile.c_str());
}

bool IniFile::SetString(const std::wstring& name, const std::wstring& value)
{
    RequireNames(name);
    return Write(name.c_str(), value.c_str());
}

bool IniFile::SetNumber(const std::wstring& name, std::uint32_t value)
{
    RequireNames(name);
    std::wstring text;
    try
    {
        String::Format(text, L"%u", value);
    }
    catch (String::Exception* thrown)
    {
        const VdCommon::Exception::Caught caught(thrown);
        throw new Exception(caught->Code());
    }
    return Write(name.c_str(), text.c_str());
}

bool IniFile::DeleteLocation()
{
    RequireText(m_strFile);
    RequireText(m_strSection);
    return Write(nullptr, nullptr);
}

bool IniFile::DeleteValue(const wchar_t* name)
{
    return DeleteValue(TextOf(name));
}

bool IniFile::DeleteValue(const std::wstring& name)
{
    RequireNames(name);
    return Write(name.c_str(), nullptr);
}

void IniFile::RequireNames(const std::wstring& name) const
{
    RequireText(m_strFile);
    RequireText(m_strSection);
    RequireText(name);
}

// A null value deletes the name; a null name deletes the section.
bool IniFile::Write(const wchar_t* name, const wchar_t* value)
{
    if (!::WritePrivateProfileStringW(m_strSection.c_str(), name, value, m_strFile.c_str()))
    {
        const DWORD error = ::GetLastError();
        throw new Exception(error);
    }
    return true;
}

} // namespace VdCommon::Storage
