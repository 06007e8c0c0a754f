// does not compile: the handlers of one table belong to one class and its bases
#include "tests/ui/platform/dialog/compile/Probe.h"

class CStranger : public CWnd
{
public:
    void OnClick();
};

const MessageMap& CProbe::Map()
{
    static constexpr auto rows =
        MessageRows(On::Message<WM_SIZE, &CProbe::OnSize>, On::Command<1, &CStranger::OnClick>);
    static constexpr MessageMap map{rows, &CWnd::Map};
    return map;
}
