#pragma once

#include <gtest/gtest.h>

#include <string>

namespace Import
{

// The text holds the part.
inline void ExpectPart(const std::string& text, const std::string& part)
{
    EXPECT_NE(text.find(part), std::string::npos) << text;
}

} // namespace Import
