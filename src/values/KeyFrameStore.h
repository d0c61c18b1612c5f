#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <new>
#include <stdexcept>
#include <type_traits>
#include <utility>

namespace KelMediaLib {

/// An ordered map from 64-bit time to `V`, with the part of `std::map`'s
/// interface that parameters use. It is a B+tree of wide nodes: a node keeps
/// its keys in one contiguous array and the leaves, which hold the values, are
/// linked in time order. A lookup reads a few cache lines on each of a few
/// levels, where a red-black tree misses the cache on each of its many.
///
/// - Every 64-bit time is a key, the smallest and the largest included.
/// - Unlike `std::map`'s, iterators don't survive an insertion, an erasure or
///   a `moveKey`.
/// - An iterator yields an entry by value: `first`, the time, and `second`, a
///   reference to the value that the store owns.
/// - Leaves hold up to `LeafSlots` values and inner nodes up to `InnerSlots`
///   keys; both at least 2.
template <class V, int LeafSlots = 32, int InnerSlots = 64>
class KeyFrameStore {
  static_assert(LeafSlots >= 2 && InnerSlots >= 2, "a node must split into two non-empty halves");
  static_assert(std::is_nothrow_move_constructible<V>::value,
                "values move between nodes after the point where an insertion may fail");

  struct Node;
  struct Leaf;
  struct Inner;

 public:
  typedef long long key_type;
  typedef V mapped_type;
  typedef std::size_t size_type;

  /// What an iterator points at: the time, and the value stored at it.
  template <class Ref>
  struct Entry {
    const long long first;
    Ref second;
  };

  /// Lets `it->first` and `it->second` reach an entry made on the fly.
  template <class E>
  class Arrow {
   public:
    explicit Arrow(const E& entry) : entry_(entry) {}
    const E* operator->() const { return &entry_; }

   private:
    E entry_;
  };

  /// Bidirectional iterator in time order; `Const` ones give read-only values.
  template <bool Const>
  class Iterator {
    typedef typename std::conditional<Const, const Leaf*, Leaf*>::type LeafPointer;

   public:
    typedef std::bidirectional_iterator_tag iterator_category;
    typedef std::pair<const long long, V> value_type;
    typedef std::ptrdiff_t difference_type;
    typedef Entry<typename std::conditional<Const, const V&, V&>::type> reference;
    typedef Arrow<reference> pointer;

    Iterator() : leaf_(nullptr), slot_(0) {}
    /// A mutable iterator converts to a read-only one.
    template <bool WasConst, class = typename std::enable_if<Const && !WasConst>::type>
    Iterator(const Iterator<WasConst>& other) : leaf_(other.leaf_), slot_(other.slot_) {}

    reference operator*() const {
      return reference{leaf_->keys()[slot_], leaf_->slots()[slot_].value};
    }
    pointer operator->() const { return pointer(**this); }

    // The end stands one past the last value of the last leaf; every other
    // position lies inside a leaf, so that equal positions compare equal.
    Iterator& operator++() {
      if (++slot_ == leaf_->count && leaf_->next) {
        leaf_ = leaf_->next;
        slot_ = 0;
      }
      return *this;
    }
    Iterator& operator--() {
      if (slot_ == 0) {
        leaf_ = leaf_->prev;
        slot_ = leaf_->count;
      }
      --slot_;
      return *this;
    }
    Iterator operator++(int) {
      const Iterator old = *this;
      ++*this;
      return old;
    }
    Iterator operator--(int) {
      const Iterator old = *this;
      --*this;
      return old;
    }

    friend bool operator==(const Iterator& a, const Iterator& b) {
      return a.leaf_ == b.leaf_ && a.slot_ == b.slot_;
    }
    friend bool operator!=(const Iterator& a, const Iterator& b) { return !(a == b); }

   private:
    friend class KeyFrameStore;
    template <bool>
    friend class Iterator;

    Iterator(LeafPointer leaf, int slot) : leaf_(leaf), slot_(slot) {}

    LeafPointer leaf_;
    int slot_;
  };

  /// Walks an iterator's range backwards, from the last value to the first.
  template <class Base>
  class Reverse {
   public:
    typedef typename Base::iterator_category iterator_category;
    typedef typename Base::value_type value_type;
    typedef typename Base::difference_type difference_type;
    typedef typename Base::reference reference;
    typedef typename Base::pointer pointer;

    explicit Reverse(Base base) : base_(base) {}

    reference operator*() const { return *std::prev(base_); }
    pointer operator->() const { return std::prev(base_).operator->(); }
    Reverse& operator++() {
      --base_;
      return *this;
    }
    Reverse& operator--() {
      ++base_;
      return *this;
    }
    Reverse operator++(int) {
      const Reverse old = *this;
      ++*this;
      return old;
    }
    Reverse operator--(int) {
      const Reverse old = *this;
      --*this;
      return old;
    }

    friend bool operator==(const Reverse& a, const Reverse& b) { return a.base_ == b.base_; }
    friend bool operator!=(const Reverse& a, const Reverse& b) { return a.base_ != b.base_; }

   private:
    Base base_;
  };

  typedef Iterator<false> iterator;
  typedef Iterator<true> const_iterator;
  typedef Reverse<iterator> reverse_iterator;
  typedef Reverse<const_iterator> const_reverse_iterator;

  /// An empty store; it allocates nothing until the first insertion.
  KeyFrameStore() : root_(nullptr), first_(nullptr), last_(nullptr), height_(0), size_(0) {}
  /// Copies every value into a tree of the same shape.
  KeyFrameStore(const KeyFrameStore& other) : KeyFrameStore() {
    if (other.root_) {
      Leaf* previous = nullptr;
      root_ = clone(other.root_, other.height_,
                    other.height_ == 0 ? fitting(other.size_) : LeafSlots, previous);
      last_ = previous;
      height_ = other.height_;
      size_ = other.size_;
    }
  }
  /// Takes the values of `other`, which is left empty.
  KeyFrameStore(KeyFrameStore&& other) noexcept : KeyFrameStore() { swap(other); }
  /// Copy or move assignment, by way of a copy or move of `other`.
  KeyFrameStore& operator=(KeyFrameStore other) noexcept {
    swap(other);
    return *this;
  }
  ~KeyFrameStore() { clear(); }

  /// How many values the store holds.
  size_type size() const { return size_; }
  bool empty() const { return size_ == 0; }

  /// The earliest value; the end of an empty store.
  iterator begin() { return iterator(first_, 0); }
  const_iterator begin() const { return const_iterator(first_, 0); }
  /// One past the latest value.
  iterator end() { return endOf(); }
  const_iterator end() const { return endOf(); }
  /// The latest value, walking towards the earliest.
  reverse_iterator rbegin() { return reverse_iterator(end()); }
  const_reverse_iterator rbegin() const { return const_reverse_iterator(end()); }
  /// One before the earliest value.
  reverse_iterator rend() { return reverse_iterator(begin()); }
  const_reverse_iterator rend() const { return const_reverse_iterator(begin()); }

  /// The value at exactly `key`, or the end.
  iterator find(long long key) { return locate(key); }
  const_iterator find(long long key) const { return locate(key); }
  /// How many values stand at `key`: 0 or 1.
  size_type count(long long key) const { return locate(key) == endOf() ? 0 : 1; }
  /// The first value at or after `key`.
  iterator lower_bound(long long key) { return seek(key, false); }
  const_iterator lower_bound(long long key) const { return seek(key, false); }
  /// The first value after `key`.
  iterator upper_bound(long long key) { return seek(key, true); }
  const_iterator upper_bound(long long key) const { return seek(key, true); }

  /// Makes a value from `args` at `key` unless one stands there already; gives
  /// the value at `key` and whether it is new. A value whose making throws
  /// leaves the store as it was, as does a failed allocation.
  template <class... Args>
  std::pair<iterator, bool> try_emplace(long long key, Args&&... args) {
    if (!root_) {
      V value(std::forward<Args>(args)...);
      Leaf* leaf = makeLeaf(1);
      put(leaf, 0, key, value);
      root_ = first_ = last_ = leaf;
      size_ = 1;
      return std::make_pair(iterator(leaf, 0), true);
    }
    Step path[kMaxHeight];
    Leaf* leaf = descend(key, path);
    const int slot = lowerSlot(leaf, key);
    if (slot < leaf->count && leaf->keys()[slot] == key) {
      return std::make_pair(iterator(leaf, slot), false);
    }
    V value(std::forward<Args>(args)...);
    return std::make_pair(insert(path, leaf, slot, key, value), true);
  }

  /// The value at `key`, made by default if there is none.
  V& operator[](long long key) { return try_emplace(key).first->second; }

  /// Removes the value at `key`; gives how many went, 0 or 1.
  size_type erase(long long key) {
    if (!root_) {
      return 0;
    }
    Step path[kMaxHeight];
    Leaf* leaf = descend(key, path);
    const int slot = lowerSlot(leaf, key);
    if (slot == leaf->count || leaf->keys()[slot] != key) {
      return 0;
    }
    removeAt(leaf, slot, path);
    return 1;
  }
  /// Removes the value that `position` points at.
  void erase(iterator position) {
    Step path[kMaxHeight];
    // Only a leaf that runs low needs the way down, to borrow or merge.
    if (height_ > 0 && position.leaf_->count <= kLeafMin) {
      descend(position.leaf_->keys()[position.slot_], path);
    }
    removeAt(position.leaf_, position.slot_, path);
  }

  /// Puts the value at `position` at `key` instead, unless a value stands
  /// there already; gives whether it moved. A move that passes no other key
  /// stays in place, without a search.
  bool moveKey(iterator position, long long key) {
    Leaf* leaf = position.leaf_;
    const int slot = position.slot_;
    const long long old = leaf->keys()[slot];
    // Between its neighbours in the leaf a key may go anywhere; at an end of
    // the leaf only inwards, as the bound that the parent sets there is unknown.
    const bool afterPrevious = slot > 0 ? leaf->keys()[slot - 1] < key : key >= old;
    const bool beforeNext = slot + 1 < leaf->count ? key < leaf->keys()[slot + 1] : key <= old;
    if (afterPrevious && beforeNext) {
      leaf->keys()[slot] = key;
      return true;
    }
    // Added before the old one goes, so that a failure leaves both as they were.
    if (!try_emplace(key, leaf->slots()[slot].value).second) {
      return false;
    }
    erase(old);
    return true;
  }

  /// Removes every value.
  void clear() {
    if (root_) {
      destroy(root_, height_);
    }
    root_ = nullptr;
    first_ = last_ = nullptr;
    height_ = 0;
    size_ = 0;
  }

  /// Exchanges the contents with `other`; iterators follow their values.
  void swap(KeyFrameStore& other) noexcept {
    std::swap(root_, other.root_);
    std::swap(first_, other.first_);
    std::swap(last_, other.last_);
    std::swap(height_, other.height_);
    std::swap(size_, other.size_);
  }

 private:
  // A node at depth h has at least 2^(height - h) leaves below it, and there
  // are no more leaves than values.
  static constexpr int kMaxHeight = 64;
  // Keys are searched in blocks of this many; node arrays hold whole blocks.
  static constexpr int kBlock = 8;
  static constexpr int kLeafKeys = (LeafSlots + kBlock - 1) / kBlock * kBlock;
  static constexpr int kInnerKeys = (InnerSlots + kBlock - 1) / kBlock * kBlock;
  // Fewer values or keys than this make a node borrow from or merge with a
  // sibling; two such nodes together always fit into one.
  static constexpr int kLeafMin = LeafSlots / 2;
  static constexpr int kInnerMin = InnerSlots / 2;

  // A search reads whole blocks of keys, past `count` too: keys not in use
  // hold the largest time.
  struct Node {
    Node() : count(0) {}
    int count;  // values of a leaf, keys of an inner node
  };
  // Room for one value, which lives only while a key of the leaf uses it.
  union Slot {
    Slot() {}
    ~Slot() {}
    V value;
  };
  // A leaf's keys, then its slots, follow it in the same block. Most
  // parameters hold a single key frame, for which a full leaf is thirty times
  // the size of the key and value: so a store that is one leaf starts with
  // room for one value and grows as it fills, up to LeafSlots. Every
  // leaf of a taller tree is full size, and only those are searched by blocks.
  struct Leaf : Node {
    explicit Leaf(int capacity) : room(capacity < LeafSlots ? capacity : kLeafKeys) {
      std::fill(keys(), keys() + room, std::numeric_limits<long long>::max());
    }
    int capacity() const { return room < kLeafKeys ? room : LeafSlots; }
    bool full() const { return room == kLeafKeys; }
    long long* keys() { return reinterpret_cast<long long*>(this + 1); }
    const long long* keys() const { return reinterpret_cast<const long long*>(this + 1); }
    Slot* slots() { return reinterpret_cast<Slot*>(reinterpret_cast<char*>(this) + slotsAt(room)); }
    const Slot* slots() const {
      return reinterpret_cast<const Slot*>(reinterpret_cast<const char*>(this) + slotsAt(room));
    }
    // Where the slots start for `room` keys, and the size of the whole block.
    static std::size_t slotsAt(int room) {
      const std::size_t end = sizeof(Leaf) + sizeof(long long) * static_cast<std::size_t>(room);
      return (end + alignof(Slot) - 1) / alignof(Slot) * alignof(Slot);
    }
    static std::size_t bytesFor(int capacity) {
      return slotsAt(capacity < LeafSlots ? capacity : kLeafKeys) +
             sizeof(Slot) * static_cast<std::size_t>(capacity);
    }

    int room;  // keys the block has: `capacity`, or whole blocks of them
    Leaf* prev = nullptr;
    Leaf* next = nullptr;
  };
  static_assert(alignof(Slot) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__ &&
                    alignof(Leaf) >= alignof(long long),
                "a leaf's block keeps the alignment that operator new gives");
  // A leaf with room for `capacity` values, no more than LeafSlots.
  static Leaf* makeLeaf(int capacity) {
    return new (::operator new(Leaf::bytesFor(capacity))) Leaf(capacity);
  }
  // Frees a leaf whose values are gone.
  static void freeLeaf(Leaf* leaf) {
    leaf->~Leaf();
    ::operator delete(leaf);
  }
  // children[i] holds the keys k with keys[i - 1] <= k < keys[i].
  struct Inner : Node {
    Inner() { std::fill(keys, keys + kInnerKeys, std::numeric_limits<long long>::max()); }
    long long keys[kInnerKeys];
    Node* children[InnerSlots + 1];
  };
  // The way down to a leaf: each inner node passed and the child taken.
  struct Step {
    Inner* node;
    int child;
  };
  // The nodes that one insertion's splits need, made before anything changes
  // so that a failed allocation leaves the store as it was.
  struct Spares {
    Spares() : leaf(makeLeaf(LeafSlots)), count(0) {}
    ~Spares() {
      if (leaf) {
        freeLeaf(leaf);
      }
      while (count > 0) {
        delete inners[--count];
      }
    }
    Leaf* takeLeaf() {
      Leaf* taken = leaf;
      leaf = nullptr;
      return taken;
    }
    Inner* takeInner() { return inners[--count]; }

    Leaf* leaf;
    Inner* inners[kMaxHeight + 1];
    int count;
  };

  // How many of keys[first + Step * i], i in Is, lie before `key`.
  template <int Step, int Keys, std::size_t... Is>
  static int countBefore(const long long (&keys)[Keys], int first, [[maybe_unused]] long long key,
                         std::index_sequence<Is...>) {
    return (0 + ... + (keys[first + Step * static_cast<int>(Is)] < key));
  }
  // How many keys lie before `key`. Without branches: on a walk through many
  // keys, each comparison of a binary search is a coin toss that the processor
  // would mispredict. The last key of each block of eight finds the block, and
  // the block's eight keys the place; the unused keys at the end are the
  // largest time, which lies before nothing.
  template <int Keys>
  static int lowerSlot(const long long (&keys)[Keys], long long key) {
    const int block =
        countBefore<kBlock>(keys, kBlock - 1, key, std::make_index_sequence<Keys / kBlock - 1>());
    const int first = block * kBlock;
    return first + countBefore<1>(keys, first, key, std::make_index_sequence<kBlock>());
  }
  // How many keys lie at or before `key`.
  template <int Keys>
  static int upperSlot(const long long (&keys)[Keys], int count, long long key) {
    return key == std::numeric_limits<long long>::max() ? count : lowerSlot(keys, key + 1);
  }
  // The same in a leaf. A small leaf has no whole blocks to read: its few keys
  // are counted one by one, reading none past the block's end.
  static int lowerSlot(const Leaf* leaf, long long key) {
    if (leaf->full()) {
      return lowerSlot(*reinterpret_cast<const long long(*)[kLeafKeys]>(leaf->keys()), key);
    }
    int before = 0;
    for (int i = 0; i < leaf->count; ++i) {
      before += leaf->keys()[i] < key;
    }
    return before;
  }
  static int upperSlot(const Leaf* leaf, long long key) {
    return key == std::numeric_limits<long long>::max() ? leaf->count : lowerSlot(leaf, key + 1);
  }
  // Drops the keys from `count` on, giving them the largest time.
  static void shrink(Node* node, long long* keys, int count) {
    std::fill(keys + count, keys + node->count, std::numeric_limits<long long>::max());
    node->count = count;
  }

  // Moves a value to a free slot, leaving its old slot free.
  static void relocate(Leaf* from, int fromSlot, Leaf* to, int toSlot) {
    new (&to->slots()[toSlot].value) V(std::move(from->slots()[fromSlot].value));
    from->slots()[fromSlot].value.~V();
    to->keys()[toSlot] = from->keys()[fromSlot];
  }

  // The leaf whose range holds `key`, noting the way there in `path` if given.
  Leaf* descend(long long key, Step* path) const {
    Node* node = root_;
    for (int depth = 0; depth < height_; ++depth) {
      Inner* inner = static_cast<Inner*>(node);
      const int child = upperSlot(inner->keys, inner->count, key);
      if (path) {
        path[depth] = Step{inner, child};
      }
      node = inner->children[child];
    }
    return static_cast<Leaf*>(node);
  }

  iterator endOf() const { return iterator(last_, last_ ? last_->count : 0); }

  iterator locate(long long key) const {
    if (!root_) {
      return endOf();
    }
    Leaf* leaf = descend(key, nullptr);
    const int slot = lowerSlot(leaf, key);
    return slot < leaf->count && leaf->keys()[slot] == key ? iterator(leaf, slot) : endOf();
  }

  iterator seek(long long key, bool after) const {
    if (!root_) {
      return endOf();
    }
    Leaf* leaf = descend(key, nullptr);
    const int slot = after ? upperSlot(leaf, key) : lowerSlot(leaf, key);
    // Past the leaf's last value, the next leaf's first is the answer.
    if (slot == leaf->count && leaf->next) {
      return iterator(leaf->next, 0);
    }
    return iterator(leaf, slot);
  }

  // Puts `value` at `slot` of a leaf that has room.
  static void put(Leaf* leaf, int slot, long long key, V& value) {
    for (int i = leaf->count; i > slot; --i) {
      relocate(leaf, i - 1, leaf, i);
    }
    new (&leaf->slots()[slot].value) V(std::move(value));
    leaf->keys()[slot] = key;
    ++leaf->count;
  }

  // Inserts a new key at `slot` of the leaf at the end of `path`, splitting
  // full nodes from the leaf upwards.
  iterator insert(Step* path, Leaf* leaf, int slot, long long key, V& value) {
    if (size_ == std::numeric_limits<std::uint32_t>::max()) {
      throw std::length_error("a key frame store holds at most 2^32 - 1 values");
    }
    if (leaf->count < leaf->capacity()) {
      put(leaf, slot, key, value);
      ++size_;
      return iterator(leaf, slot);
    }
    if (!leaf->full()) {
      // A small leaf is the whole tree; it moves into one half as large
      // again (and one more), which wastes less of a leaf's room than
      // doubling and copies a few values more often.
      Leaf* larger = makeLeaf(std::min(leaf->capacity() + leaf->capacity() / 2 + 1, LeafSlots));
      for (int i = 0; i < leaf->count; ++i) {
        relocate(leaf, i, larger, i);
      }
      larger->count = leaf->count;
      freeLeaf(leaf);
      root_ = first_ = last_ = larger;
      put(larger, slot, key, value);
      ++size_;
      return iterator(larger, slot);
    }
    Spares spares;
    int depth = height_;
    while (depth > 0 && path[depth - 1].node->count == InnerSlots) {
      spares.inners[spares.count] = new Inner;
      ++spares.count;
      --depth;
    }
    if (depth == 0) {
      spares.inners[spares.count] = new Inner;
      ++spares.count;
    }
    ++size_;

    // A key added at the end of a leaf leaves the leaf full and starts the new
    // one, so that keys arriving in time order fill their leaves.
    const int keep = slot == LeafSlots ? LeafSlots : (LeafSlots + 1) / 2;
    const int split = slot < keep ? keep - 1 : keep;
    Leaf* right = spares.takeLeaf();
    right->count = LeafSlots - split;
    for (int i = split; i < LeafSlots; ++i) {
      relocate(leaf, i, right, i - split);
    }
    shrink(leaf, leaf->keys(), split);
    right->prev = leaf;
    right->next = leaf->next;
    if (leaf->next) {
      leaf->next->prev = right;
    } else {
      last_ = right;
    }
    leaf->next = right;
    Leaf* home = slot < keep ? leaf : right;
    const int homeSlot = slot < keep ? slot : slot - keep;
    put(home, homeSlot, key, value);

    long long separator = right->keys()[0];
    Node* newChild = right;
    for (depth = height_; depth > 0; --depth) {
      Inner* parent = path[depth - 1].node;
      const int child = path[depth - 1].child;
      if (parent->count < InnerSlots) {
        std::copy_backward(parent->keys + child, parent->keys + parent->count,
                           parent->keys + parent->count + 1);
        std::copy_backward(parent->children + child + 1, parent->children + parent->count + 1,
                           parent->children + parent->count + 2);
        parent->keys[child] = separator;
        parent->children[child + 1] = newChild;
        ++parent->count;
        return iterator(home, homeSlot);
      }
      Inner* sibling = spares.takeInner();
      separator = splitInner(parent, child, separator, newChild, sibling);
      newChild = sibling;
    }
    Inner* root = spares.takeInner();
    root->count = 1;
    root->keys[0] = separator;
    root->children[0] = root_;
    root->children[1] = newChild;
    root_ = root;
    ++height_;
    return iterator(home, homeSlot);
  }

  // Splits a full inner node that gains `separator` and, behind it, `newChild`
  // after its child `child`; the upper part goes to `sibling`. Gives the key
  // that separates the two.
  static long long splitInner(Inner* node, int child, long long separator, Node* newChild,
                              Inner* sibling) {
    long long keys[InnerSlots + 1];
    Node* children[InnerSlots + 2];
    std::copy(node->keys, node->keys + child, keys);
    keys[child] = separator;
    std::copy(node->keys + child, node->keys + InnerSlots, keys + child + 1);
    std::copy(node->children, node->children + child + 1, children);
    children[child + 1] = newChild;
    std::copy(node->children + child + 1, node->children + InnerSlots + 1, children + child + 2);
    // As with leaves, a child added at the end leaves the node (almost) full.
    const int keep = child == InnerSlots ? InnerSlots - 1 : (InnerSlots + 1) / 2;
    std::copy(keys, keys + keep, node->keys);
    shrink(node, node->keys, keep);
    std::copy(children, children + keep + 1, node->children);
    sibling->count = InnerSlots - keep;
    std::copy(keys + keep + 1, keys + InnerSlots + 1, sibling->keys);
    std::copy(children + keep + 1, children + InnerSlots + 2, sibling->children);
    return keys[keep];
  }

  // Removes the value at `slot` of `leaf`, to which `path` leads.
  void removeAt(Leaf* leaf, int slot, Step* path) {
    leaf->slots()[slot].value.~V();
    for (int i = slot + 1; i < leaf->count; ++i) {
      relocate(leaf, i, leaf, i - 1);
    }
    shrink(leaf, leaf->keys(), leaf->count - 1);
    --size_;
    rebalanceLeaf(leaf, path);
  }

  // Restores the fill of a leaf that lost a value, and of its ancestors.
  void rebalanceLeaf(Leaf* leaf, Step* path) {
    if (height_ == 0) {
      if (leaf->count == 0) {
        freeLeaf(leaf);
        root_ = first_ = last_ = nullptr;
      }
      return;
    }
    if (leaf->count >= kLeafMin) {
      return;
    }
    Inner* parent = path[height_ - 1].node;
    const int child = path[height_ - 1].child;
    Leaf* left = child > 0 ? static_cast<Leaf*>(parent->children[child - 1]) : nullptr;
    Leaf* right = child < parent->count ? static_cast<Leaf*>(parent->children[child + 1]) : nullptr;
    if (left && left->count > kLeafMin) {
      for (int i = leaf->count; i > 0; --i) {
        relocate(leaf, i - 1, leaf, i);
      }
      relocate(left, left->count - 1, leaf, 0);
      shrink(left, left->keys(), left->count - 1);
      ++leaf->count;
      parent->keys[child - 1] = leaf->keys()[0];
      return;
    }
    if (right && right->count > kLeafMin) {
      relocate(right, 0, leaf, leaf->count);
      ++leaf->count;
      for (int i = 1; i < right->count; ++i) {
        relocate(right, i, right, i - 1);
      }
      shrink(right, right->keys(), right->count - 1);
      parent->keys[child] = right->keys()[0];
      return;
    }
    if (left) {
      mergeLeaves(left, leaf);
      removeChild(parent, child - 1);
    } else {
      mergeLeaves(leaf, right);
      removeChild(parent, child);
    }
    rebalanceInner(height_ - 1, path);
  }

  // The same for the inner node at `depth` of `path`, which lost a child.
  void rebalanceInner(int depth, Step* path) {
    for (;; --depth) {
      Inner* node = path[depth].node;
      if (depth == 0) {
        if (node->count == 0) {
          root_ = node->children[0];
          delete node;
          --height_;
        }
        return;
      }
      if (node->count >= kInnerMin) {
        return;
      }
      Inner* parent = path[depth - 1].node;
      const int child = path[depth - 1].child;
      Inner* left = child > 0 ? static_cast<Inner*>(parent->children[child - 1]) : nullptr;
      Inner* right =
          child < parent->count ? static_cast<Inner*>(parent->children[child + 1]) : nullptr;
      if (left && left->count > kInnerMin) {
        std::copy_backward(node->keys, node->keys + node->count, node->keys + node->count + 1);
        std::copy_backward(node->children, node->children + node->count + 1,
                           node->children + node->count + 2);
        node->keys[0] = parent->keys[child - 1];
        node->children[0] = left->children[left->count];
        ++node->count;
        parent->keys[child - 1] = left->keys[left->count - 1];
        shrink(left, left->keys, left->count - 1);
        return;
      }
      if (right && right->count > kInnerMin) {
        node->keys[node->count] = parent->keys[child];
        node->children[node->count + 1] = right->children[0];
        ++node->count;
        parent->keys[child] = right->keys[0];
        std::copy(right->keys + 1, right->keys + right->count, right->keys);
        std::copy(right->children + 1, right->children + right->count + 1, right->children);
        shrink(right, right->keys, right->count - 1);
        return;
      }
      if (left) {
        mergeInners(left, parent->keys[child - 1], node);
        removeChild(parent, child - 1);
      } else {
        mergeInners(node, parent->keys[child], right);
        removeChild(parent, child);
      }
    }
  }

  // Moves the values of `right` to the end of `left`, its neighbour, and
  // deletes `right`.
  void mergeLeaves(Leaf* left, Leaf* right) {
    for (int i = 0; i < right->count; ++i) {
      relocate(right, i, left, left->count + i);
    }
    left->count += right->count;
    left->next = right->next;
    if (right->next) {
      right->next->prev = left;
    } else {
      last_ = left;
    }
    freeLeaf(right);
  }

  static void mergeInners(Inner* left, long long separator, Inner* right) {
    left->keys[left->count] = separator;
    std::copy(right->keys, right->keys + right->count, left->keys + left->count + 1);
    std::copy(right->children, right->children + right->count + 1,
              left->children + left->count + 1);
    left->count += right->count + 1;
    delete right;
  }

  // Drops the key `key` of `node` and the child behind it, which has merged
  // into the one before.
  static void removeChild(Inner* node, int key) {
    std::copy(node->keys + key + 1, node->keys + node->count, node->keys + key);
    std::copy(node->children + key + 2, node->children + node->count + 1, node->children + key + 1);
    shrink(node, node->keys, node->count - 1);
  }

  // The smallest capacity of a lone leaf that holds `count` values.
  static int fitting(size_type count) {
    return static_cast<int>(std::min<size_type>(std::max<size_type>(count, 1), LeafSlots));
  }

  // Copies the subtree of `source`, `height` levels above its leaves, into
  // leaves with room for `capacity` values, linking them behind `previous`.
  // On failure nothing it made is left.
  Node* clone(const Node* source, int height, int capacity, Leaf*& previous) {
    if (height == 0) {
      const Leaf* from = static_cast<const Leaf*>(source);
      Leaf* leaf = makeLeaf(capacity);
      try {
        for (; leaf->count < from->count; ++leaf->count) {
          new (&leaf->slots()[leaf->count].value) V(from->slots()[leaf->count].value);
          leaf->keys()[leaf->count] = from->keys()[leaf->count];
        }
      } catch (...) {
        destroy(leaf, 0);
        throw;
      }
      leaf->prev = previous;
      leaf->next = nullptr;
      if (previous) {
        previous->next = leaf;
      } else {
        first_ = leaf;
      }
      previous = leaf;
      return leaf;
    }
    const Inner* from = static_cast<const Inner*>(source);
    Inner* inner = new Inner;
    inner->count = from->count;
    std::copy(from->keys, from->keys + from->count, inner->keys);
    int made = 0;
    try {
      for (; made <= from->count; ++made) {
        inner->children[made] = clone(from->children[made], height - 1, capacity, previous);
      }
    } catch (...) {
      for (int i = 0; i < made; ++i) {
        destroy(inner->children[i], height - 1);
      }
      delete inner;
      throw;
    }
    return inner;
  }

  static void destroy(Node* node, int height) {
    if (height == 0) {
      Leaf* leaf = static_cast<Leaf*>(node);
      for (int i = 0; i < leaf->count; ++i) {
        leaf->slots()[i].value.~V();
      }
      freeLeaf(leaf);
      return;
    }
    Inner* inner = static_cast<Inner*>(node);
    for (int i = 0; i <= inner->count; ++i) {
      destroy(inner->children[i], height - 1);
    }
    delete inner;
  }

  Node* root_;
  Leaf* first_;
  Leaf* last_;
  int height_;  // levels of inner nodes above the leaves
  // 32 bits, beside the height: every parameter has a store, most of one
  // key frame.
  std::uint32_t size_;
};

}  // namespace KelMediaLib
