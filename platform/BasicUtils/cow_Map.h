#pragma once

#include <algorithm>
#include <array>
#include <cassert>
#include <compare>
#include <concepts>
#include <cstddef>
#include <iterator>
#include <utility>

#include "platform/BasicUtils/cow_Handle.h"

/// Keys in rising order, each with a value, in a tree whose nodes are shared between copies of the map. Copying costs
/// one count; finding, inserting, removing and Get() cost O(log n), also right after a copy: a change copies the nodes
/// between the root and the place of the change that other maps hold too, and changes in place those that none does.
/// A snapshot is therefore as cheap to keep as to take. Values are copied together with their node: let them be
/// handles or other copy-on-write values.
///
/// Keys are looked up by anything that compares with them (names by string views and literals). Iterators, references
/// and pointers are good until the next change of this map.
template <class K, class V> class cow_Map {
  struct Node;
  using Link = cow_Handle<Node>;

public:
  using value_type = std::pair<K const, V>;
  class const_iterator;

  cow_Map() noexcept = default;
  cow_Map(cow_Map const&) noexcept = default;
  cow_Map(cow_Map&& other) noexcept : root_(std::move(other.root_)), size_(std::exchange(other.size_, 0)) {}
  cow_Map& operator=(cow_Map other) noexcept {
    std::swap(root_, other.root_);
    std::swap(size_, other.size_);
    return *this;
  }
  ~cow_Map() = default;

  std::size_t Size() const noexcept { return size_; }
  bool IsEmpty() const noexcept { return size_ == 0; }

  /// The value of \p key, null when there is none.
  template <class Key> V const* ConstFind(Key const& key) const {
    Node const* node = root_.ConstGet();
    while (node != nullptr) {
      auto const order = Compare(key, node->Key());
      if (order == 0) { return &node->entry.second; }
      node = (order < 0 ? node->left : node->right).ConstGet();
    }
    return nullptr;
  }
  template <class Key> bool Contains(Key const& key) const { return ConstFind(key) != nullptr; }

  /// The value of \p key, to be changed: it is this map's alone. Null, and nothing is separated, when there is none.
  template <class Key> V* Get(Key const& key) {
    if (!Contains(key)) { return nullptr; }
    Link* link = &root_;
    while (true) {
      Node& node = link->Get();
      auto const order = Compare(key, node.Key());
      if (order == 0) { return &node.entry.second; }
      link = &(order < 0 ? node.left : node.right);
    }
  }

  /// Gives \p key the value; true when the key is new, false when its value has been replaced.
  bool Insert(K key, V value) {
    bool const isNew = InsertAt(root_, key, value);
    size_ += isNew ? 1 : 0;
    return isNew;
  }

  /// False, and nothing is separated, when there is no such key.
  template <class Key> bool Remove(Key const& key) {
    if (!Contains(key)) { return false; }
    RemoveAt(root_, key);
    --size_;
    return true;
  }

  void Clear() noexcept { *this = cow_Map(); }

  /// A map with the same keys, each with the value that fn(key, value) gives, asked in key order. Linear; cheaper than one
  /// change after the other.
  template <class Fn> cow_Map Mapped(Fn&& fn) const {
    cow_Map mapped;
    mapped.root_ = MapFrom(root_, fn);
    mapped.size_ = size_;
    return mapped;
  }

  const_iterator begin() const { return const_iterator(root_.ConstGet()); }
  const_iterator end() const noexcept { return const_iterator(nullptr); }

  /// Calls fn(key, was, is) in key order for every key whose value is not equal in both maps; was or is is null where the
  /// map has no such key. Looks past what the maps share: between a map and its edited copy the cost is that of the edits.
  template <class Fn> static void ForEachDifference(cow_Map const& before, cow_Map const& after, Fn&& fn);

  /// Whether both are the same tree, so that they are equal without looking; two empty maps are.
  bool Same(cow_Map const& other) const noexcept { return root_.Same(other.root_); }
  friend bool operator==(cow_Map const& left, cow_Map const& right) {
    return left.Same(right) || (left.Size() == right.Size() && std::equal(left.begin(), left.end(), right.begin()));
  }

private:
  /// An AVL tree: the heights of two sisters differ by one at most.
  struct Node : mem_Counted {
    Node(K key, V value) : entry(std::move(key), std::move(value)) {}
    K const& Key() const noexcept { return entry.first; }

    signed char height = 1;
    Link left, right;
    value_type entry;
  };

  // A tree of this height has more than 10^13 entries.
  static constexpr std::size_t kMaxHeight = 64;

  template <class Left, class Right> static auto Compare(Left const& left, Right const& right) {
    if constexpr (requires { left <=> right; }) {
      return left <=> right;
    } else {
      if (left < right) { return std::weak_ordering::less; }
      return right < left ? std::weak_ordering::greater : std::weak_ordering::equivalent;
    }
  }

  static int Height(Link const& link) noexcept { return link ? link->height : 0; }

  static void UpdateHeight(Node& node) noexcept {
    node.height = static_cast<signed char>(1 + std::max(Height(node.left), Height(node.right)));
  }

  /// Lifts the child on the side \p up into its parent's place; the parent becomes its child on the side \p down.
  static void Rotate(Link& link, Link Node::*up, Link Node::*down) {
    Node& parent = link.Get();
    Node& child = (parent.*up).Get();
    Link lifted = std::move(parent.*up);
    parent.*up = std::move(child.*down);
    UpdateHeight(parent);
    child.*down = std::move(link);
    UpdateHeight(child);
    link = std::move(lifted);
  }

  /// Restores the balance at \p link after one entry has come or gone below it.
  static void Rebalance(Link& link) {
    Node& node = link.Get();
    int const lean = Height(node.left) - Height(node.right);
    if (lean > 1) {
      RotateTowards(link, &Node::left, &Node::right);
    } else if (lean < -1) {
      RotateTowards(link, &Node::right, &Node::left);
    } else {
      UpdateHeight(node);
    }
  }

  static void RotateTowards(Link& link, Link Node::*tall, Link Node::*low) {
    Link& child = link.Get().*tall;
    if (Height((*child).*tall) < Height((*child).*low)) { Rotate(child, low, tall); }
    Rotate(link, tall, low);
  }

  static bool InsertAt(Link& link, K& key, V& value) {
    if (!link) {
      link = Link::Make(std::move(key), std::move(value));
      return true;
    }
    Node& node = link.Get();
    auto const order = Compare(key, node.Key());
    if (order == 0) {
      node.entry.second = std::move(value);
      return false;
    }
    bool const isNew = InsertAt(order < 0 ? node.left : node.right, key, value);
    if (isNew) { Rebalance(link); }
    return isNew;
  }

  /// \p key exists below \p link.
  template <class Key> static void RemoveAt(Link& link, Key const& key) {
    auto const order = Compare(key, link->Key());
    if (order != 0) {
      Node& node = link.Get();
      RemoveAt(order < 0 ? node.left : node.right, key);
    } else if (!link->left || !link->right) {
      link = Link(link->left ? link->left : link->right);
      return;  // the remaining subtree is balanced as it was
    } else {
      Link left = link->left;
      Link right = link->right;
      link.Reset();  // first, so that what only this map held is changed in place
      link = DetachLeast(right);
      Node& node = link.Get();
      node.left = std::move(left);
      node.right = std::move(right);
    }
    Rebalance(link);
  }

  /// Takes the entry with the least key out of a tree that has one.
  static Link DetachLeast(Link& link) {
    if (!link->left) {
      Link least = link;
      link = Link(least->right);
      return least;
    }
    Link least = DetachLeast(link.Get().left);
    Rebalance(link);
    return least;
  }

  template <class Fn> static Link MapFrom(Link const& from, Fn& fn) {
    if (!from) { return Link(); }
    Link left = MapFrom(from->left, fn);
    Link made = Link::Make(from->entry.first, fn(from->entry.first, from->entry.second));
    Node& node = made.Get();
    node.left = std::move(left);
    node.right = MapFrom(from->right, fn);
    node.height = from->height;
    return made;
  }

  class Parts;

  Link root_;
  std::size_t size_ = 0;
};

/// What a comparison has still to see of a map, in key order: subtrees, and single entries whose subtrees come apart.
template <class K, class V> class cow_Map<K, V>::Parts {
public:
  explicit Parts(Node const* root) { Push(root, false); }

  bool IsEmpty() const noexcept { return size_ == 0; }
  Node const* First() const noexcept { return parts_[size_ - 1].node; }
  bool FirstIsEntry() const noexcept { return parts_[size_ - 1].single; }
  void Pop() noexcept { --size_; }
  /// Takes the first subtree apart.
  void Split() noexcept {
    Node const* const node = First();
    Pop();
    Push(node->right.ConstGet(), false);
    Push(node, true);
    Push(node->left.ConstGet(), false);
  }

private:
  struct Part {
    Node const* node;
    bool single;
  };

  void Push(Node const* node, bool single) noexcept {
    if (node == nullptr) { return; }
    assert(size_ < parts_.size());
    parts_[size_++] = {node, single};
  }

  std::size_t size_ = 0;
  std::array<Part, 2 * kMaxHeight + 1> parts_;  // each level leaves an entry and a subtree behind; filled to size_
};

template <class K, class V>
template <class Fn>
void cow_Map<K, V>::ForEachDifference(cow_Map const& before, cow_Map const& after, Fn&& fn) {
  Parts old(before.root_.ConstGet());
  Parts now(after.root_.ConstGet());
  V const* const none = nullptr;
  while (!old.IsEmpty() || !now.IsEmpty()) {
    Node const* const was = old.IsEmpty() ? nullptr : old.First();
    Node const* const is = now.IsEmpty() ? nullptr : now.First();
    bool const splitOld = was != nullptr && !old.FirstIsEntry();
    bool const splitNow = is != nullptr && !now.FirstIsEntry();
    if (was == is && splitOld == splitNow) {  // shared
      old.Pop();
      now.Pop();
    } else if (splitOld && (!splitNow || was->height >= is->height)) {
      old.Split();  // the taller one, so that what is shared comes to face itself
    } else if (splitNow) {
      now.Split();
    } else {
      auto const order = was == nullptr  ? std::partial_ordering::greater
                         : is == nullptr ? std::partial_ordering::less
                                         : std::partial_ordering(Compare(was->Key(), is->Key()));
      if (order <= 0) { old.Pop(); }
      if (order >= 0) { now.Pop(); }
      if (order < 0) {
        fn(was->Key(), &was->entry.second, none);
      } else if (order > 0) {
        fn(is->Key(), none, &is->entry.second);
      } else if (!(was->entry.second == is->entry.second)) {
        fn(is->Key(), &was->entry.second, &is->entry.second);
      }
    }
  }
}

/// Visits the entries in key order, each step in O(1) on average. Holds the way down to its entry, so it is cheap to
/// move along and dearer to copy.
template <class K, class V> class cow_Map<K, V>::const_iterator {
public:
  using iterator_category = std::forward_iterator_tag;
  using value_type = cow_Map::value_type;
  using difference_type = std::ptrdiff_t;
  using pointer = value_type const*;
  using reference = value_type const&;

  const_iterator() noexcept = default;
  const_iterator(const_iterator const& other) noexcept : depth_(other.depth_) { CopyPath(other); }
  const_iterator& operator=(const_iterator const& other) noexcept {
    depth_ = other.depth_;
    CopyPath(other);
    return *this;
  }
  ~const_iterator() = default;

  reference operator*() const noexcept { return Top()->entry; }
  pointer operator->() const noexcept { return &Top()->entry; }
  const_iterator& operator++() noexcept {
    Node const* const passed = Top();
    --depth_;
    Descend(passed->right.ConstGet());
    return *this;
  }
  const_iterator operator++(int) noexcept {
    const_iterator before = *this;
    ++*this;
    return before;
  }
  friend bool operator==(const_iterator const& left, const_iterator const& right) noexcept { return left.Top() == right.Top(); }

private:
  friend class cow_Map;
  explicit const_iterator(Node const* root) noexcept { Descend(root); }

  Node const* Top() const noexcept { return depth_ != 0 ? path_[depth_ - 1] : nullptr; }
  void Descend(Node const* node) noexcept {
    for (; node != nullptr; node = node->left.ConstGet()) {
      assert(depth_ < kMaxHeight);
      path_[depth_++] = node;
    }
  }
  void CopyPath(const_iterator const& other) noexcept { std::copy_n(other.path_.begin(), other.depth_, path_.begin()); }

  std::size_t depth_ = 0;
  std::array<Node const*, kMaxHeight> path_;  // the nodes still to visit before their right subtrees; filled to depth_
};
