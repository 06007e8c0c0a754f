#include "suite/framework/PurgeCommand.h"

#include "suite/database/LogKinds.h"
#include "suite/framework/Day.h"
#include "suite/framework/Shape.h"

namespace Framework
{

namespace
{

constexpr Element Elements[] = {Element::Number, Element::Number, Element::Number};

bool IsTime(std::uint32_t time)
{
    return time / 10'000 < 24 && time / 100 % 100 < 60 && time % 100 < 60;
}

} // namespace

std::optional<PurgeCommand> ReadPurgeCommand(const List& list)
{
    if (!HasShape(list, Elements))
    {
        return std::nullopt;
    }
    const auto number = [&list](std::size_t i) { return std::get<std::uint32_t>(list[i]); };
    const EventLog::LogKind* const kind = EventLog::FindKindOfPurgeType(number(2));
    if (kind == nullptr || !DateOf(number(0)) || !IsTime(number(1)))
    {
        return std::nullopt;
    }
    return PurgeCommand{kind->subType, number(0)};
}

} // namespace Framework
