// does not compile: the structure of this notification is not known
#include "tests/ui/platform/dialog/compile/Probe.h"

const MessageMap& CProbe::Map()
{
    static constexpr auto rows = MessageRows(On::Notify<1234, 1, &CProbe::OnColumnClick>);
    static constexpr MessageMap map{rows, &CWnd::Map};
    return map;
}
