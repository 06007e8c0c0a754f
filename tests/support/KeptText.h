#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

// Whether the bytes are those of the kept file. When they are not, they are left in the file found, whose folders are
// made, and the result names both and the first line that differs; when they are, no such file is left of a run before.
testing::AssertionResult IsKeptText(const std::string& bytes, const std::filesystem::path& kept,
                                    const std::filesystem::path& found);
