// does not compile: the handler does not fit the notification
#include "tests/ui/platform/dialog/compile/Probe.h"

const MessageMap& CProbe::Map()
{
    static constexpr auto rows = MessageRows(On::Notify<LVN_GETDISPINFOW, 1, &CProbe::OnColumnClick>);
    static constexpr MessageMap map{rows, &CWnd::Map};
    return map;
}
