#pragma once

// The template of the empty dialog, for its program and its resource source.
#define IDD_EMPTY 101
