#pragma once

#include "common/VdCommon/VdComn_Platform.h"

#include <string>

namespace VdCommon
{

// The names under which a kernel object is made: for all sessions of the machine, and for this session alone.
class CreationNames
{
public:
    explicit CreationNames(const std::wstring& name, const Platform& platform = Platform());
    virtual ~CreationNames() = default;

    std::wstring GetGlobalName() const { return m_strGlobal; }

    std::wstring GetLocalName() const { return m_strLocal; }

    // Put the name with the prefix "Global\" or "Local\" into `out`: as it is when it holds the prefix anywhere, and on
    // a platform before Windows 2000, which knows no prefixes. Return false, with an empty text, for an empty name and
    // where the platform's version cannot be read.
    static bool Global(std::wstring& out, const std::wstring& name, const Platform& platform = Platform());
    static bool Local(std::wstring& out, const std::wstring& name, const Platform& platform = Platform());

private:
    std::wstring m_strGlobal;
    std::wstring m_strLocal;
    std::wstring m_strOther; // stays empty: no third scope has names
};

// Puts the name for this session into `out`; returns whether there is one.
bool GetCreationName(std::wstring& out, const std::wstring& name, const Platform& platform = Platform());

} // namespace VdCommon
