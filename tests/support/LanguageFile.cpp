#include "tests/support/LanguageFile.h"

#include "platform/dialog/ModuleState.h"
#include "platform/dialog/ResourceText.h"

#include <stdexcept>

LanguageFile::LanguageFile(const std::wstring& path)
    : m_hModule(LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_IMAGE_RESOURCE | LOAD_LIBRARY_AS_DATAFILE)),
      m_hBefore(AfxGetResourceHandle())
{
    if (!m_hModule)
    {
        throw std::runtime_error("the language file is not there: run the test in the folder bin of the build");
    }
    AfxSetResourceHandle(m_hModule.get());
}

LanguageFile::~LanguageFile()
{
    AfxSetResourceHandle(m_hBefore);
}

const std::wstring& Text(unsigned id)
{
    const std::wstring& text = LoadText(id);
    if (text.empty())
    {
        throw std::runtime_error("the language file has no text " + std::to_string(id));
    }
    return text;
}
