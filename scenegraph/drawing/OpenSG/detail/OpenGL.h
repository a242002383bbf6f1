#pragma once

// The one place that brings in OpenGL's functions, for source files only.
#define GL_GLEXT_PROTOTYPES
#include <GL/gl.h>
#include <GL/glext.h>
