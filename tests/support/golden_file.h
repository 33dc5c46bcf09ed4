#pragma once

// Long expected texts are in files. With KIVO_RENEW=1 in the environment the files are written
// instead of compared; read their diff before you commit it.

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

namespace kivo_3_3::testing {

inline void compareWithFile(const std::string& path, const std::string& text) {
  if (std::getenv("KIVO_RENEW") != nullptr) {
    std::ofstream(path, std::ios::binary) << text;
    GTEST_SKIP() << path << " is written anew";
  }
  std::ifstream file(path, std::ios::binary);
  ASSERT_TRUE(file.is_open()) << path;
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), text);
}

}  // namespace kivo_3_3::testing
