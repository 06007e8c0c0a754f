#include "common/VdCommon/VdComn_StorageText.h"

#include "common/VdCommon/VdComn_FolderName.h"
#include "common/VdCommon/VdComn_Storage.h"

#include <exception>

namespace VdCommon::Storage
{

std::wstring TextOf(const wchar_t* text)
{
    return text == nullptr ? std::wstring() : std::wstring(text);
}

std::wstring JoinPath(const wchar_t* first, const wchar_t* second)
{
    return WithSeparator(TextOf(first)) + TextOf(second);
}

std::wstring AllocateText(std::size_t characters)
{
    try
    {
        return std::wstring(characters, L'\0');
    }
    catch (const std::exception&)
    {
        throw new Exception(ERROR_INVALID_HANDLE);
    }
}

} // namespace VdCommon::Storage
