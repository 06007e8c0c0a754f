// Numbers of the images that the tests of the buttons bring along.
#pragma once

#define IDB_NINE_NORMAL 301
#define IDB_NINE_HOT 302
#define IDB_NINE_LOCKED 303
#define IDB_NINE_HOLE 304
#define IDB_NINE_CUT 305
#define IDI_BLUE 311
#define IDI_ORANGE 312
#define IDI_PINK 313
