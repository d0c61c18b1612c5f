#include "core/Identified.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

struct Named : KelMediaLib::Identified {
  using KelMediaLib::Identified::Identified;
};

TEST(IdentifiedTest, ObjectsOfOneNameShareItWhileOneOfThemLives) {
  auto first = std::make_unique<Named>("translation0");
  const Named second("translation0");
  const Named other("translation1");
  EXPECT_EQ("translation0", second.name());
  EXPECT_EQ(first->name().data(), second.name().data());
  EXPECT_NE(first->name().data(), other.name().data());
  first.reset();
  EXPECT_EQ("translation0", second.name());
  const Named copy(second);
  EXPECT_EQ(second.name().data(), copy.name().data());
  EXPECT_EQ("", Named().name());
}

// Threads make and drop objects of the same few names at once: each keeps
// its name whole, whichever thread made or dropped the shared copy last.
TEST(IdentifiedConcurrency, ThreadsMakingAndDroppingNamesKeepThemWhole) {
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([] {
      for (int i = 0; i < 2000; ++i) {
        const std::string name = "name" + std::to_string(i % 3);
        const Named named(name);
        EXPECT_EQ(name, named.name());
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
