#pragma once

#include <string>

/// OpenGL without a screen, current as long as the process runs. An application has a window's context in its place.
bool makeOffscreenContext(int width, int height);

/// Writes what has been drawn as a PPM file.
bool writePicture(const std::string& file, int width, int height);
