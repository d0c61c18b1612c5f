#include "core/XMLIdentified.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <thread>
#include <vector>

using KelMediaLib::XMLIdentified;

namespace {

TEST(XMLIdentifiedTest, NewObjectsGetIncreasingNumbersAndCopiesKeepTheirs) {
  XMLIdentified first;
  XMLIdentified second;
  XMLIdentified third;
  EXPECT_LT(first.xmlIdent(), second.xmlIdent());
  EXPECT_LT(second.xmlIdent(), third.xmlIdent());

  XMLIdentified copy(second);
  EXPECT_EQ(second.xmlIdent(), copy.xmlIdent());
  copy = third;
  EXPECT_EQ(third.xmlIdent(), copy.xmlIdent());
}

TEST(XMLIdentifiedConcurrency, NumbersAreUniqueAcrossThreads) {
  const int kThreads = 4;
  const int kPerThread = 2000;
  std::vector<std::vector<unsigned int>> seen(kThreads);
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&seen, t] {
      for (int i = 0; i < kPerThread; ++i) {
        seen[t].push_back(XMLIdentified().xmlIdent());
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  std::set<unsigned int> all;
  for (const std::vector<unsigned int>& numbers : seen) {
    // Each thread sees its own numbers increase.
    EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
    all.insert(numbers.begin(), numbers.end());
  }
  EXPECT_EQ(static_cast<std::size_t>(kThreads * kPerThread), all.size());
}

}  // namespace
