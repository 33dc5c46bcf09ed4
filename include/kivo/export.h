#pragma once

/// Marks a class or function that a tool can link to; all other symbols are hidden.
#define KIVO_API __attribute__((visibility("default")))
