#pragma once

#include <bedrock/export.h>

/// Marks a class or function that a tool can link to; all other symbols are hidden. A tool that
/// links the archive is compiled with `KIVO_STATIC` defined, which CMake and pkg-config do: then no
/// symbol of the library is visible outside of the tool.
#define KIVO_API BEDROCK_API
