#include "framework/ui/kestrix/app/LogFactory.h"

#include "framework/ui/kestrix/logs/ZPTLogPFW.h"
#include "framework/ui/kestrix/logs/ZPTLogPVY.h"
#include "framework/ui/kestrix/logs/ZPTLogPhish.h"
#include "framework/ui/kestrix/logs/ZPTLogScan.h"
#include "framework/ui/kestrix/logs/ZPTLogSkipTask.h"
#include "framework/ui/kestrix/logs/ZPTLogSpyware.h"
#include "framework/ui/kestrix/logs/ZPTLogSysTuner.h"
#include "framework/ui/kestrix/logs/ZPTLogTSC.h"
#include "framework/ui/kestrix/logs/ZPTLogURL.h"
#include "framework/ui/kestrix/logs/ZPTLogUpdate.h"
#include "framework/ui/kestrix/logs/ZPTLogVA.h"
#include "framework/ui/kestrix/logs/ZPTLogVST.h"
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

struct LogClass
{
    std::uint32_t type;
    std::unique_ptr<CZPTLogBase> (*create)();
};

constexpr LogClass Classes[] = {
    {LogTypeVirus, &Create<CZPTLogVir>},
    {LogTypeSpyware, &Create<CZPTLogSpyware>},
    {LogTypeUpdate, &Create<CZPTLogUpdate>},
    {LogTypeFirewall, &Create<CZPTLogPFW>},
    {LogTypePhishing, &Create<CZPTLogPhish>},
    {LogTypeUrlFilter, &Create<CZPTLogURL>},
    {LogTypeTsc, &Create<CZPTLogTSC>},
    {LogTypePrivacy, &Create<CZPTLogPVY>},
    {LogTypeVa, &Create<CZPTLogVA>},
    {LogTypeVst, &Create<CZPTLogVST>},
    {LogTypeSystemTuner, &Create<CZPTLogSysTuner>},
    {LogTypeScan, &Create<CZPTLogScan>},
    {LogTypeSkippedTask, &Create<CZPTLogSkipTask>},
};

} // namespace

std::unique_ptr<CZPTLogBase> CreateLog(std::uint32_t type)
{
    const auto found = std::ranges::find(Classes, type, &LogClass::type);
    return found == std::end(Classes) ? nullptr : found->create();
}
