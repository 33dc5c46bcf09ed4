#pragma once

/// All names of the library. Tools write the alias `kivo`.
namespace kivo_3_3 {

/// The version of these headers. It is written here once; the build and the
/// package files read it from here.
constexpr int versionMajor = 3;
/// See versionMajor.
constexpr int versionMinor = 3;
/// See versionMajor.
constexpr int versionPatch = 0;

}  // namespace kivo_3_3

/// Write `kivo::` in your tool; no other line has to name the versioned namespace.
namespace kivo = kivo_3_3;
