#pragma once

/// Marks what a tool can link to; everything else of the library stays inside it.
#define KIVO_API __attribute__((visibility("default")))
