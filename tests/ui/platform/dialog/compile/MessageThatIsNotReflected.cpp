// does not compile: windows do not reflect this message
#include "tests/ui/platform/dialog/compile/Probe.h"

const MessageMap& CProbe::Map()
{
    static constexpr auto rows = MessageRows(On::ReflectedMessage<WM_SIZE, &CProbe::OnSize>);
    static constexpr MessageMap map{rows, &CWnd::Map};
    return map;
}
