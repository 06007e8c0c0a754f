// What nearly every source of the libraries includes. Compiled once for all of them; nothing includes this file itself.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <objbase.h>
#include <oleauto.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <memory_resource>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>
