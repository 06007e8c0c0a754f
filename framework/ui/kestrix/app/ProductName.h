#pragma once

#include <string>

// The name of the suite, for the titles of messages; empty when the installation does not tell it.
std::wstring GetProductName();
