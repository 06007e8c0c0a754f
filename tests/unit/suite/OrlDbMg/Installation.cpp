#include "tests/unit/suite/OrlDbMg/Installation.h"

Installation::Installation()
{
    m_registry.SetText(L"Software\\Veldrane\\Zeptara", L"InstalledFolder", m_folder.Path().wstring() + L"\\");
}
