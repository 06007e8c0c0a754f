#include "tests/support/OrlRecorder.h"

#include <filesystem>
#include <stdexcept>

OrlRecorder::OrlRecorder(const std::wstring& form)
    : m_strFolder((std::filesystem::current_path().parent_path() / L"tests" / (L"orl-" + form)).wstring()),
      m_hModule(LoadLibraryW((m_strFolder + L"\\OrlDbMg.dll").c_str()))
{
    if (!m_hModule)
    {
        throw std::runtime_error("a database library of the tests is not there");
    }
    const auto function = reinterpret_cast<void (*)()>(GetProcAddress(m_hModule.get(), "FreshOrlState"));
    m_pState = &reinterpret_cast<OrlLibraryStateFunction*>(function)();
}
