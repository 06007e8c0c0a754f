#pragma once

#include "platform/dialog/ScreenDpi.h"

// A screen of so many dots an inch, for the life of the object. Templates and the metrics of the system stay those of
// the real one.
class StandingScale
{
public:
    explicit StandingScale(int dpi) { AfxSetScreenDpi(dpi); }

    ~StandingScale() { AfxSetScreenDpi(0); }

    StandingScale(const StandingScale&) = delete;
    StandingScale& operator=(const StandingScale&) = delete;
};
