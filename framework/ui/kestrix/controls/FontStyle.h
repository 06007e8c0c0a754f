#pragma once

#include <cstdint>

// The face settings that the language file chooses for headings and the chart.
class CFontStyle
{
public:
    virtual ~CFontStyle() = default;

    // Reads the style text: digit, comma, digit, comma, size. A digit other than 0 means yes. A text of any other form,
    // also a size beyond 31 bits, leaves all three as they are.
    void GetFontStyle(bool& bold, bool& italic, std::int32_t& size) const;
};
