#pragma once

#include "tests/e2e/RegistryValue.h"
#include "tests/support/TemporaryFolder.h"

// A folder of its own, and the one that the registry names as the installed one, for the life of the object.
class InstalledFolder
{
public:
    const TemporaryFolder& Folder() const { return m_folder; }

private:
    const TemporaryFolder m_folder;
    const RegistryValue m_value{L"Software\\Veldrane\\Zeptara", L"InstalledFolder", m_folder.Path().wstring()};
};
