#pragma once

#include "tests/support/Picture.h"

#include <filesystem>

// PNG files of 24 bits a pixel. Both throw std::runtime_error, with the path and the system's status, when the file
// cannot be read as a picture or not be written.

Picture ReadPng(const std::filesystem::path& path);

// Replaces the file.
void WritePng(const std::filesystem::path& path, const Picture& picture);
