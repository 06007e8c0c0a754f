#include "framework/ui/kestrix/app/LogFactory.h"

#include "framework/ui/kestrix/logs/ZPTLogVir.h"

#include <algorithm>
#include <iterator>

namespace
{

template <class Log>
std::unique_ptr<CZPTLogBase> Create()
{
    return std::make_unique<Log>();
}

constexpr LogClass Classes[] = {
    {LogTypeVirus, FirstInfoRow::Link, &Create<CZPTLogVir>},
};

} // namespace

const LogClass* FindLogClass(std::uint32_t type) noexcept
{
    const auto found = std::ranges::find(Classes, type, &LogClass::type);
    return found == std::end(Classes) ? nullptr : found;
}
