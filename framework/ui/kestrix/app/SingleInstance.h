#pragma once

#include "common/VdCommon/VdComn_Synchronize.h"

// The only viewer of its session. When there is another one, its window comes to the front in two steps: Take restores
// it or, when it is open, minimises it; then BringOtherForward restores it and brings it forward. A window that is
// restored comes up on top, which one that is only asked to come forward by another process does not.
class CSingleInstance
{
public:
    // Whether this process is the only viewer, which it stays until the object goes. If not, does the first step.
    bool Take();

    // The second step. Nothing happens where there is no such window.
    static void BringOtherForward();

private:
    VdCommon::Synchronize::Mutex m_InstanceMutex;
};
