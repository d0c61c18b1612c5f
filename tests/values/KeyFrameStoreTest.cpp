#include "values/KeyFrameStore.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <limits>
#include <new>
#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using KelMediaLib::KeyFrameStore;

// Every allocation of this program passes here, so that a test can see how
// much a store keeps and make one of its allocations fail.
namespace {
// Atomic: other tests of this program allocate from several threads.
std::atomic<std::size_t> heapLive{0};
std::atomic<int> allocationsBeforeFailure{-1};  // none fails while negative
const std::size_t kHeader = 16;                 // keeps the blocks aligned as malloc's

void* countedAllocation(std::size_t size) {
  int left = allocationsBeforeFailure.load(std::memory_order_relaxed);
  while (left > 0 && !allocationsBeforeFailure.compare_exchange_weak(left, left - 1,
                                                                     std::memory_order_relaxed)) {
  }
  if (left == 0) {
    throw std::bad_alloc();
  }
  // The size asked for goes in front of the block: malloc's rounding varies
  // with the free blocks it finds, and would make equal stores differ.
  char* block = static_cast<char*>(std::malloc(size + kHeader));
  if (!block) {
    throw std::bad_alloc();
  }
  *reinterpret_cast<std::size_t*>(block) = size;
  heapLive += size;
  return block + kHeader;
}

void countedRelease(void* block) {
  if (block) {
    char* start = static_cast<char*>(block) - kHeader;
    heapLive -= *reinterpret_cast<std::size_t*>(start);
    std::free(start);
  }
}
}  // namespace

void* operator new(std::size_t size) {
  return countedAllocation(size);
}
void* operator new[](std::size_t size) {
  return countedAllocation(size);
}
void operator delete(void* block) noexcept {
  countedRelease(block);
}
void operator delete[](void* block) noexcept {
  countedRelease(block);
}
void operator delete(void* block, std::size_t) noexcept {
  countedRelease(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  countedRelease(block);
}

namespace {

const long long kMin = std::numeric_limits<long long>::min();
const long long kMax = std::numeric_limits<long long>::max();

typedef std::vector<std::pair<long long, std::string>> Contents;

// Long enough to live on the heap, so that a value lost or doubled while it
// moves between nodes shows under the sanitizers.
std::string valueFor(long long key, int version) {
  return "value at " + std::to_string(key) + ", version " + std::to_string(version);
}

// The contents in time order, checking that the backward walk agrees and
// that a step back from either end reaches the value at the other.
template <class Store>
Contents walk(const Store& store) {
  Contents forward;
  for (auto it = store.begin(); it != store.end(); it++) {
    forward.emplace_back(it->first, it->second);
  }
  Contents backward;
  for (auto it = store.rbegin(); it != store.rend(); it++) {
    backward.emplace_back((*it).first, (*it).second);
  }
  EXPECT_EQ(Contents(forward.rbegin(), forward.rend()), backward);
  EXPECT_EQ(forward.size(), store.size());
  if (!forward.empty()) {
    auto last = store.end();
    auto first = store.rend();
    last--;
    --first;
    EXPECT_EQ(forward.back().first, last->first);
    EXPECT_EQ(forward.front().first, first->first);
  }
  return forward;
}

Contents contentsOf(const std::map<long long, std::string>& model) {
  return Contents(model.begin(), model.end());
}

// Shapes from the narrowest nodes, which split and merge on almost every edit
// and grow many levels, to the default.
template <class Store>
class KeyFrameStoreTest : public ::testing::Test {};
typedef ::testing::Types<KeyFrameStore<std::string, 2, 2>, KeyFrameStore<std::string, 3, 4>,
                         KeyFrameStore<std::string, 5, 3>, KeyFrameStore<std::string>>
    Shapes;
TYPED_TEST_SUITE(KeyFrameStoreTest, Shapes);

TYPED_TEST(KeyFrameStoreTest, AgreesWithStdMapOverLongRandomSequences) {
  for (unsigned seed = 1; seed <= 3; ++seed) {
    std::mt19937_64 random(seed);
    TypeParam store;
    std::map<long long, std::string> model;
    long long nextInOrder = 1000;
    for (int step = 0; step < 30000; ++step) {
      // Phases of churn in a narrow band with the ends of time, of keys
      // arriving in time order, and of draining.
      const int phase = step / 3000 % 3;
      long long key = static_cast<long long>(random() % 400) - 200;
      if (random() % 16 == 0) {
        key = random() % 2 ? kMin + static_cast<long long>(random() % 3)
                           : kMax - static_cast<long long>(random() % 3);
      } else if (phase == 1) {
        key = nextInOrder++;
      } else if (phase == 2 && !model.empty()) {
        const auto near =
            model.lower_bound(static_cast<long long>(random() % (nextInOrder + 300)) - 300);
        key = near == model.end() ? model.begin()->first : near->first;
      }
      const int operation = static_cast<int>(random() % 8);
      if (phase == 2 || operation < 2) {
        ASSERT_EQ(model.erase(key), store.erase(key)) << key;
      } else if (operation == 2) {
        const auto found = store.find(key);
        ASSERT_EQ(model.count(key), store.count(key)) << key;
        if (found != store.end()) {
          store.erase(found);
          model.erase(key);
        }
      } else if (operation == 3) {
        store[key] = valueFor(key, step);
        model[key] = valueFor(key, step);
      } else if (operation == 4 && !model.empty()) {
        // Mostly short moves, which stay inside a leaf, and some into the band.
        const auto from =
            model.lower_bound(key) == model.end() ? model.begin() : model.lower_bound(key);
        const bool nearEnd = from->first < -100000 || from->first > 100000;
        const long long to = random() % 4 && !nearEnd
                                 ? from->first + static_cast<long long>(random() % 9) - 4
                                 : static_cast<long long>(random() % 400) - 200;
        const bool free = to == from->first || model.count(to) == 0;
        ASSERT_EQ(free, store.moveKey(store.find(from->first), to)) << from->first << " to " << to;
        if (free) {
          std::string value = from->second;
          model.erase(from);
          model.emplace(to, value);
        }
      } else {
        const auto added = store.try_emplace(key, valueFor(key, step));
        const auto expected = model.emplace(key, valueFor(key, step));
        ASSERT_EQ(expected.second, added.second) << key;
        ASSERT_EQ(expected.first->second, added.first->second) << key;
      }
      ASSERT_EQ(model.size(), store.size());
      const TypeParam& view = store;
      const auto lower = view.lower_bound(key);
      const auto upper = view.upper_bound(key);
      const auto lowerExpected = model.lower_bound(key);
      const auto upperExpected = model.upper_bound(key);
      ASSERT_EQ(lowerExpected == model.end(), lower == view.end()) << key;
      ASSERT_EQ(upperExpected == model.end(), upper == view.end()) << key;
      if (lower != view.end()) {
        ASSERT_EQ(lowerExpected->first, lower->first) << key;
        ASSERT_EQ(lowerExpected->second, lower->second) << key;
      }
      if (upper != view.end()) {
        ASSERT_EQ(upperExpected->first, upper->first) << key;
      }
      if (step % 250 == 0) {
        ASSERT_EQ(contentsOf(model), walk(store)) << "seed " << seed << ", step " << step;
      }
    }
    ASSERT_EQ(contentsOf(model), walk(store));
  }
}

TYPED_TEST(KeyFrameStoreTest, EmptyAndSingleKeyStoresAtTheEndsOfTime) {
  TypeParam store;
  EXPECT_TRUE(store.empty());
  EXPECT_TRUE(store.begin() == store.end());
  EXPECT_TRUE(store.rbegin() == store.rend());
  EXPECT_TRUE(store.lower_bound(kMin) == store.end());
  EXPECT_TRUE(store.upper_bound(kMin) == store.end());
  EXPECT_EQ(0u, store.erase(kMin));
  for (const long long key : {kMin, 0LL, kMax}) {
    store[key] = "only";
    EXPECT_EQ(1u, store.size());
    EXPECT_EQ(key, store.begin()->first);
    EXPECT_EQ("only", store.rbegin()->second);
    EXPECT_TRUE(std::prev(store.end()) == store.begin());
    EXPECT_TRUE(store.lower_bound(kMin) == store.begin());
    EXPECT_TRUE(store.lower_bound(key) == store.begin());
    EXPECT_TRUE(store.upper_bound(key) == store.end());
    EXPECT_TRUE(store.upper_bound(kMin) == (key == kMin ? store.end() : store.begin()));
    EXPECT_TRUE(store.lower_bound(kMax) == (key == kMax ? store.begin() : store.end()));
    store.erase(store.find(key));
    EXPECT_TRUE(store.empty());
    EXPECT_TRUE(store.begin() == store.end());
  }
}

// Builds every size up to several levels of the narrow shapes in four orders
// and takes it down again in three, walking after each edit: every split and
// every merge happens at the front, in the middle and at the end of a node.
TYPED_TEST(KeyFrameStoreTest, GrowsAndShrinksThroughEverySizeInEveryOrder) {
  for (int size = 1; size <= 48; ++size) {
    std::vector<long long> ascending;
    for (int i = 0; i < size; ++i) {
      ascending.push_back(i * 10);
    }
    std::vector<long long> descending(ascending.rbegin(), ascending.rend());
    std::vector<long long> ends;    // outside in
    std::vector<long long> middle;  // inside out
    for (int i = 0; i < size; ++i) {
      ends.push_back(ascending[i % 2 ? size - 1 - i / 2 : i / 2]);
    }
    middle.assign(ends.rbegin(), ends.rend());
    for (const auto& addOrder : {ascending, descending, ends, middle}) {
      for (const auto& eraseOrder : {ascending, descending, middle}) {
        TypeParam store;
        std::map<long long, std::string> model;
        for (const long long key : addOrder) {
          store[key] = valueFor(key, 0);
          model[key] = valueFor(key, 0);
          ASSERT_EQ(contentsOf(model), walk(store)) << "adding " << key << " of " << size;
        }
        for (const long long key : eraseOrder) {
          store.erase(key);
          model.erase(key);
          ASSERT_EQ(contentsOf(model), walk(store)) << "erasing " << key << " of " << size;
        }
      }
    }
  }
}

// A value whose copying fails once a budget of copies is spent.
int copiesLeft = 0;
struct Fragile {
  explicit Fragile(int v) : value(v) {}
  Fragile(const Fragile& other) : value(other.value) {
    if (copiesLeft-- == 0) {
      throw std::runtime_error("no more copies");
    }
  }
  Fragile(Fragile&&) noexcept = default;
  int value;
};

TEST(KeyFrameStoreFailureTest, AValueThatFailsToCopyLeavesEveryStoreAsItWas) {
  typedef KeyFrameStore<Fragile, 2, 2> FragileStore;
  FragileStore store;
  for (int key = 0; key < 20; ++key) {
    store.try_emplace(key * 2, Fragile(key));
  }
  auto values = [&] {
    std::vector<int> all;
    for (const auto& entry : store) {
      all.push_back(static_cast<int>(entry.first) + 1000 * entry.second.value);
    }
    return all;
  };
  const std::vector<int> before = values();
  for (int budget = 0; budget < 20; ++budget) {
    copiesLeft = budget;
    EXPECT_THROW(FragileStore{store}, std::runtime_error) << budget;
  }
  const Fragile extra(-1);
  for (long long key = -1; key < 41; key += 2) {
    copiesLeft = 0;
    EXPECT_THROW(store.try_emplace(key, extra), std::runtime_error) << key;
  }
  EXPECT_EQ(before, values());
  EXPECT_EQ(20u, store.size());
}

// Sizes on both sides of each step of a lone leaf's room (1, 2, 4, 8, 16, 32)
// and of the first split, for the shapes whose leaves have room for many.
const int kSizesAroundSteps[] = {1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 31, 32, 33, 34};

std::map<long long, std::string> modelOf(int size, int version) {
  std::map<long long, std::string> model;
  for (int i = 0; i < size; ++i) {
    model[i * 10] = valueFor(i * 10, version);
  }
  return model;
}

template <class Store>
Store storeOf(const std::map<long long, std::string>& model) {
  Store store;
  for (const auto& entry : model) {
    store[entry.first] = entry.second;
  }
  return store;
}

TYPED_TEST(KeyFrameStoreTest, CopiesSwapsMovesAndKeyMovesAroundEachGrowthStep) {
  std::vector<int> sizes(std::begin(kSizesAroundSteps), std::end(kSizesAroundSteps));
  sizes.push_back(100);  // several leaves of every shape
  for (const int size : sizes) {
    SCOPED_TRACE(size);
    const std::map<long long, std::string> model = modelOf(size, 0);
    TypeParam store = storeOf<TypeParam>(model);
    // A copy is made to fit; it must grow again as the original did.
    TypeParam copy(store);
    ASSERT_EQ(contentsOf(model), walk(copy));
    std::map<long long, std::string> grown = model;
    copy[0] = grown[0] = "changed";
    for (int extra = 0; extra < 5; ++extra) {
      const long long key = 10 * (size + extra);
      copy[key] = valueFor(key, 1);
      grown[key] = valueFor(key, 1);
      ASSERT_EQ(contentsOf(grown), walk(copy));
    }
    EXPECT_EQ(contentsOf(model), walk(store));

    TypeParam other;
    other[-5] = "alone";
    other.swap(store);
    EXPECT_EQ(contentsOf(model), walk(other));
    EXPECT_EQ((Contents{{-5, "alone"}}), walk(store));
    // A move takes everything; assignment replaces what was there.
    TypeParam taker(std::move(other));
    EXPECT_TRUE(other.empty());
    EXPECT_EQ(contentsOf(model), walk(taker));
    store = taker;
    taker.clear();
    EXPECT_TRUE(taker.begin() == taker.end());
    EXPECT_EQ(contentsOf(model), walk(store));

    // Moves of each key: in place between its neighbours, past all of them to
    // either end, and onto a taken time, which is refused.
    std::map<long long, std::string> moved = model;
    for (int i = 0; i < size; ++i) {
      const long long from = i * 10;
      long long at = from;
      for (const long long to : {from + 3, kMax - i, kMin + i, from}) {
        ASSERT_TRUE(store.moveKey(store.find(at), to)) << at << " to " << to;
        const std::string value = moved[at];
        moved.erase(at);
        moved[to] = value;
        ASSERT_EQ(contentsOf(moved), walk(store)) << at << " to " << to;
        at = to;
      }
      if (size > 1) {
        const long long taken = i == 0 ? 10 : 0;
        EXPECT_FALSE(store.moveKey(store.find(from), taken));
        EXPECT_EQ(contentsOf(moved), walk(store));
      }
    }
  }
}

// A store's memory grows with its values, not by whole leaves: a single key
// frame costs about its key and value, and no lone leaf is more than twice
// the size its values need.
TEST(KeyFrameStoreMemoryTest, ALoneLeafKeepsRoomForAtMostTwiceItsValues) {
  typedef KeyFrameStore<long long> Store;
  const std::size_t perValue = sizeof(long long) + sizeof(long long);
  // A leaf's links and counts.
  const std::size_t overhead = 32;
  for (const int size : kSizesAroundSteps) {
    if (size > 32) {
      continue;
    }
    const std::size_t before = heapLive.load();
    Store store;
    for (int i = 0; i < size; ++i) {
      store[i] = i;
    }
    EXPECT_LE(heapLive.load() - before, 2 * perValue * static_cast<std::size_t>(size) + overhead)
        << size;
    const Store copy(store);
    EXPECT_LE(heapLive.load() - before,
              4 * perValue * static_cast<std::size_t>(size) + 2 * overhead)
        << size;
  }
  const std::size_t before = heapLive.load();
  {
    Store store;
    store[0] = 1;
    EXPECT_LE(heapLive.load() - before, 40u);
  }
  EXPECT_EQ(before, heapLive.load());
}

// Each allocation that a growth, a split, a move or a copy needs fails in
// turn: the edit throws and the store is as it was, and nothing leaks.
TEST(KeyFrameStoreFailureTest, AFailedAllocationLeavesTheStoreAsItWas) {
  typedef KeyFrameStore<std::string> Store;
  for (const int size : kSizesAroundSteps) {
    SCOPED_TRACE(size);
    const std::map<long long, std::string> model = modelOf(size, 3);
    Store store = storeOf<Store>(model);
    const std::string added = valueFor(-1, 3);  // made before any failure
    const std::vector<std::pair<const char*, std::function<void()>>> edits = {
        {"insertion", [&] { store.try_emplace(10 * size, added); }},
        {"insertion at the front", [&] { store.try_emplace(-10, added); }},
        {"move to the end", [&] { store.moveKey(store.begin(), kMax); }},
        {"copy", [&] { Store copy(store); }},
    };
    const std::size_t live = heapLive.load();
    for (const auto& edit : edits) {
      bool failed = true;
      for (int allowed = 0; failed; ++allowed) {
        allocationsBeforeFailure = allowed;
        try {
          edit.second();
          failed = false;
        } catch (const std::bad_alloc&) {
        }
        allocationsBeforeFailure = -1;
        if (failed) {
          ASSERT_EQ(contentsOf(model), walk(store)) << edit.first << ", " << allowed;
          ASSERT_EQ(live, heapLive.load()) << edit.first << ", " << allowed;
        }
      }
      store = storeOf<Store>(model);
    }
  }
}

}  // namespace
