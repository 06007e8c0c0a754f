#include "platform/dialog/ResourceNumber.h"

#include "platform/dialog/ModuleState.h"

#include <cerrno>
#include <cwchar>

std::int32_t LoadNumber(UINT textId, std::int32_t fallback)
{
    errno = 0;
    const long value = std::wcstol(LoadText(textId).c_str(), nullptr, 10);
    return errno == ERANGE || value < 1 ? fallback : static_cast<std::int32_t>(value);
}
