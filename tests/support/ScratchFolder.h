#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <boost/filesystem.hpp>
#include <string>

namespace testsupport {

/// A folder of the temporary directory that belongs to this test process
/// alone: ctest runs every test as a process of its own and in parallel, so a
/// name shared by two tests would let one truncate or delete the other's files.
inline std::string scratchFolder(const std::string& name) {
  const std::string folder = ::testing::TempDir() + name + "-" + std::to_string(::getpid());
  boost::filesystem::create_directories(folder);
  return folder;
}

}  // namespace testsupport
