#pragma once

/// Marks a class or function that a tool can link to; all other symbols are hidden. In the archive
/// these are hidden, too: a shared object of a tool that links the archive must not export them.
#ifdef KIVO_STATIC
#define BEDROCK_API
#else
#define BEDROCK_API __attribute__((visibility("default")))
#endif
