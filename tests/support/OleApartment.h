#pragma once

#include "platform/dialog/Ole.h"

// The apartment of the user interface, for the life of the object.
class OleApartment
{
public:
    OleApartment() { AfxOleInit(); }

    ~OleApartment() { AfxOleTerm(); }

    OleApartment(const OleApartment&) = delete;
    OleApartment& operator=(const OleApartment&) = delete;
};
