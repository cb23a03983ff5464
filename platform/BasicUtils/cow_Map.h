#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cassert>
#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/BasicUtils/cow_Handle.h"

/// The first eight characters of a text as a number: where the numbers of two texts differ, they compare as the texts do.
inline std::uint64_t cow_RankOf(std::string_view text) noexcept {
  std::uint64_t first = 0;
  std::memcpy(&first, text.data(), std::min(text.size(), sizeof first));
  return std::endian::native == std::endian::little ? __builtin_bswap64(first) : first;
}

/// Keys in rising order, each with a value, in a tree whose nodes are shared between copies of the map. Copying costs
/// one count; finding, inserting, removing and Get() cost O(log n), also right after a copy: a change copies the nodes
/// between the root and the place of the change that other maps hold too, and changes in place those that none does.
/// A snapshot is therefore as cheap to keep as to take. Values are copied together with their node, which holds some of
/// them: let them be handles or other copy-on-write values. Nodes whose values alone differ share their keys.
///
/// Keys are looked up by anything that compares with them (names by string views and literals). A node keeps a number of each of
/// its keys beside it, so that keys themselves, which lie elsewhere in memory, are looked at only where numbers meet: the first
/// characters of a text, or what Rank() of the key says. Iterators, references and pointers are good until the next change of this map.
template <class K, class V> class cow_Map {
  struct Node;
  using Link = cow_Handle<Node>;

public:
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
    return Find(key, [](std::size_t) {});
  }
  template <class Key> bool Contains(Key const& key) const { return ConstFind(key) != nullptr; }

  /// The value of \p key, to be changed: it is this map's alone. Null, and nothing is separated, when there is none.
  template <class Key> V* Get(Key const& key) {
    std::array<std::uint8_t, kMaxHeight> way;  // filled as far as it goes
    std::size_t depth = 0;
    if (Find(key, [&](std::size_t at) { way[depth++] = static_cast<std::uint8_t>(at); }) == nullptr) { return nullptr; }
    Link* link = &root_;
    for (std::size_t level = 0;; ++level) {
      Node& node = link->Get();
      if (node.height == 0) { return &As<V>(node).slots[way[level]]; }
      link = &As<Link>(node).slots[way[level]];
    }
  }

  /// Gives \p key the value; true when the key is new, false when its value has been replaced.
  bool Insert(K key, V value) {
    if (!root_) { root_ = Link(std::make_unique<NodeOf<V>>(0)); }
    Link behind;
    bool const isNew = InsertAt(root_, key, value, behind, true);
    if (behind) {
      auto above = std::make_unique<NodeOf<Link>>(root_->height + 1);
      above->Insert(0, root_->Key(0), root_);
      above->Insert(1, behind->Key(0), behind);
      root_ = Link(std::move(above));
    }
    size_ += isNew ? 1 : 0;
    return isNew;
  }

  /// False, and nothing is separated, when there is no such key.
  template <class Key> bool Remove(Key const& key) {
    if (!Contains(key)) { return false; }
    RemoveAt(root_, key);
    while (root_->height > 0 && root_->Size() == 1) { root_ = Link(As<Link>(*root_).slots[0]); }
    if (--size_ == 0) { root_.Reset(); }
    return true;
  }

  void Clear() noexcept { *this = cow_Map(); }

  /// Calls fn(key, value) for every entry in key order; the value may be changed. Linear.
  template <class Fn> void ForEachToChange(Fn&& fn) {
    if (root_) { ChangeFrom(root_, fn); }
  }

  /// A map with the same keys, each with the value that fn(key, value) gives, asked in key order. Linear; cheaper than one
  /// change after the other.
  template <class Fn> cow_Map Mapped(Fn&& fn) const {
    cow_Map mapped;
    if (root_) { mapped.root_ = MapFrom(*root_, fn); }
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
  static constexpr std::size_t kWide = 16;        // slots in a node at most
  static constexpr std::size_t kFew = kWide / 4;  // a node that is left with fewer joins its neighbour
  static constexpr std::size_t kMaxHeight = 24;   // a tree of this height has more than 10^13 entries

  /// Up to kWide of one kind side by side.
  template <class T> class Row {
  public:
    Row() noexcept {}  // NOLINT(modernize-use-equals-default): the union has no default to take
    Row(Row const& other) : size_(other.size_) { std::uninitialized_copy_n(other.of, size_, of); }
    Row& operator=(Row const&) = delete;
    ~Row() { std::destroy_n(of, size_); }

    std::size_t Size() const noexcept { return size_; }
    T& operator[](std::size_t at) noexcept { return of[at]; }
    T const& operator[](std::size_t at) const noexcept { return of[at]; }
    /// There is room.
    void Insert(std::size_t at, T value) {
      std::construct_at(of + size_++, std::move(value));
      std::rotate(of + at, of + size_ - 1, of + size_);
    }
    T Take(std::size_t at) {
      std::rotate(of + at, of + at + 1, of + size_);
      T taken = std::move(of[--size_]);
      std::destroy_at(of + size_);
      return taken;
    }

  private:
    union {
      T of[kWide];  // alive up to size_
    };
    std::size_t size_ = 0;
  };

  /// A number of the key: keys of different ranks stand in the order of these.
  template <class Key> static std::uint64_t RankOf(Key const& key) noexcept {
    if constexpr (requires(K const& own) { own.Rank(); }) {
      return key.Rank();
    } else if constexpr (std::convertible_to<K const&, std::string_view>) {
      return cow_RankOf(key);
    } else {
      return 0;
    }
  }
  class Keys : public mem_Counted {
  public:
    std::size_t Size() const noexcept { return size_; }
    K const& operator[](std::size_t at) const noexcept { return keys_[at]; }
    std::uint64_t Rank(std::size_t at) const noexcept { return ranks_[at]; }
    void Insert(std::size_t at, K key) {
      std::copy_backward(ranks_.begin() + at, ranks_.begin() + Size(), ranks_.begin() + Size() + 1);
      ranks_[at] = RankOf(key);
      keys_.Insert(at, std::move(key));
      ++size_;
    }
    K Take(std::size_t at) {
      std::copy(ranks_.begin() + at + 1, ranks_.begin() + Size(), ranks_.begin() + at);
      --size_;
      return keys_.Take(at);
    }
    void Replace(std::size_t at, K key) {
      ranks_[at] = RankOf(key);
      keys_[at] = std::move(key);
    }

  private:
    std::uint32_t size_ = 0;                  // beside the ranks: a search reads both, and mostly nothing else
    std::array<std::uint64_t, kWide> ranks_;  // filled as far as there are keys
    Row<K> keys_;
  };
  /// Of the height 0 a leaf, with a value for each key; of any other with a child for each key: it holds what is not less
  /// than that key, and less than the next one. The first child of a node also takes what is less than its key.
  struct Node : mem_Counted {
    explicit Node(std::uint32_t of) : height(of) {}
    Node(Node const&) = default;
    Node& operator=(Node const&) = delete;
    virtual ~Node() = default;
    virtual std::unique_ptr<Node> Copy() const = 0;

    std::size_t Size() const noexcept { return keys->Size(); }
    K const& Key(std::size_t at) const noexcept { return (*keys)[at]; }

    std::uint32_t height;
    cow_Handle<Keys> keys;
  };
  template <class Slot> struct NodeOf final : Node {
    explicit NodeOf(std::uint32_t of) : Node(of) { this->keys = cow_Handle<Keys>::Make(); }
    explicit NodeOf(Node const& other) : Node(other.height) { this->keys = other.keys; }  // its slots follow
    NodeOf(NodeOf const&) = default;
    NodeOf& operator=(NodeOf const&) = delete;
    ~NodeOf() override = default;
    std::unique_ptr<Node> Copy() const override { return std::make_unique<NodeOf>(*this); }

    void Insert(std::size_t at, K key, Slot slot) {
      this->keys.Get().Insert(at, std::move(key));
      slots.Insert(at, std::move(slot));
    }
    void Remove(std::size_t at) {
      this->keys.Get().Take(at);
      slots.Take(at);
    }
    /// Moves slots between this and \p next, its neighbour behind, so that this has \p size.
    void Share(NodeOf& next, std::size_t size) {
      Keys& own = this->keys.Get();
      Keys& others = next.keys.Get();
      for (std::size_t last = slots.Size(); last-- > size;) { next.Insert(0, own.Take(last), slots.Take(last)); }
      for (std::size_t last = slots.Size(); last < size; ++last) { Insert(last, others.Take(0), next.slots.Take(0)); }
    }

    Row<Slot> slots;
  };

  template <class Slot> static NodeOf<Slot>& As(Node& node) noexcept { return static_cast<NodeOf<Slot>&>(node); }
  template <class Slot> static NodeOf<Slot> const& As(Node const& node) noexcept { return static_cast<NodeOf<Slot> const&>(node); }

  template <class Left, class Right> static auto Compare(Left const& left, Right const& right) {
    if constexpr (requires { left <=> right; }) {
      return left <=> right;
    } else {
      if (left < right) { return std::weak_ordering::less; }
      return right < left ? std::weak_ordering::greater : std::weak_ordering::equivalent;
    }
  }

  struct Place {
    std::size_t at;
    bool found;
  };
  /// Where \p key stands among the keys of a node from \p low on, or would stand.
  template <class Key> static Place PlaceIn(Node const& node, Key const& key, std::uint64_t rank, std::size_t low = 0) {
    Keys const& keys = *node.keys;
    for (std::size_t left = keys.Size() - low; left > 0;) {  // no branch on the outcome, which nobody could foresee
      std::size_t const half = (left + 1) / 2;
      low += keys.Rank(low + half - 1) < rank ? half : 0;
      left -= half;
    }
    std::size_t high = low;
    while (high < keys.Size() && keys.Rank(high) == rank) { ++high; }
    while (low < high) {
      std::size_t const middle = (low + high) / 2;
      auto const order = Compare(key, keys[middle]);
      if (order == 0) { return {middle, true}; }
      order < 0 ? high = middle : low = middle + 1;
    }
    return {low, false};
  }
  /// The child that holds \p key.
  template <class Key> static std::size_t ChildOf(Node const& node, Key const& key, std::uint64_t rank) {
    // not from the first key on, which may be greater than the next ones: its child takes what is less, and may have been halved
    auto const [at, found] = PlaceIn(node, key, rank, 1);
    return found ? at : at - 1;
  }
  /// Calls pass(at) for every node on the way down to \p key.
  template <class Key, class Pass> V const* Find(Key const& key, Pass&& pass) const {
    if (!root_) { return nullptr; }
    std::uint64_t const rank = RankOf(key);
    Node const* node = root_.ConstGet();
    while (node->height > 0) {
      std::size_t const at = ChildOf(*node, key, rank);
      pass(at);
      node = As<Link>(*node).slots[at].ConstGet();
    }
    auto const [at, found] = PlaceIn(*node, key, rank);
    pass(at);
    return found ? &As<V>(*node).slots[at] : nullptr;
  }

  /// What does not fit goes to a new node \p behind. \p last: nothing of the map stands behind the node.
  template <class Slot> static void Put(Node& node, std::size_t at, K key, Slot slot, Link& behind, bool last) {
    auto* to = &As<Slot>(node);
    if (node.Size() == kWide) {
      // keys that come in rising order leave full nodes behind
      std::size_t const kept = last && at == kWide ? kWide : kWide / 2;
      auto next = std::make_unique<NodeOf<Slot>>(node.height);
      to->Share(*next, kept);
      if (at > kept || kept == kWide) {
        to = next.get();
        at -= kept;
      }
      behind = Link(std::move(next));
    }
    to->Insert(at, std::move(key), std::move(slot));
  }
  static bool InsertAt(Link& link, K& key, V& value, Link& behind, bool last) {
    Node& node = link.Get();
    if (node.height == 0) {
      auto const [at, found] = PlaceIn(node, key, RankOf(key));
      if (found) {
        As<V>(node).slots[at] = std::move(value);
      } else {
        Put<V>(node, at, std::move(key), std::move(value), behind, last);
      }
      return !found;
    }
    std::size_t const at = ChildOf(node, key, RankOf(key));
    Link next;
    bool const isNew = InsertAt(As<Link>(node).slots[at], key, value, next, last && at + 1 == node.Size());
    if (next) { Put<Link>(node, at + 1, next->Key(0), next, behind, last); }
    return isNew;
  }

  /// \p key exists below \p link.
  template <class Key> static void RemoveAt(Link& link, Key const& key) {
    Node& node = link.Get();
    if (node.height == 0) { return As<V>(node).Remove(PlaceIn(node, key, RankOf(key)).at); }
    std::size_t const at = ChildOf(node, key, RankOf(key));
    auto& children = As<Link>(node);
    RemoveAt(children.slots[at], key);
    if (children.slots[at]->Size() >= kFew || node.Size() == 1) { return; }
    std::size_t const left = at == 0 ? 0 : at - 1;
    node.height == 1 ? Join<V>(children, left) : Join<Link>(children, left);
  }
  /// Makes one of the children \p left and the next, or two of like size.
  template <class Slot> static void Join(NodeOf<Link>& node, std::size_t left) {
    auto& one = As<Slot>(node.slots[left].Get());
    auto& next = As<Slot>(node.slots[left + 1].Get());
    std::size_t const both = one.Size() + next.Size();
    one.Share(next, both <= kWide ? both : both / 2);
    if (both <= kWide) {
      node.Remove(left + 1);
    } else {
      node.keys.Get().Replace(left + 1, next.Key(0));
    }
  }

  template <class Fn> static void ChangeFrom(Link& link, Fn& fn) {
    Node& node = link.Get();
    for (std::size_t at = 0; at < node.Size(); ++at) {
      if (node.height > 0) {
        ChangeFrom(As<Link>(node).slots[at], fn);
      } else {
        fn(node.Key(at), As<V>(node).slots[at]);
      }
    }
  }

  template <class Fn> static Link MapFrom(Node const& from, Fn& fn) {
    if (from.height > 0) {
      auto made = std::make_unique<NodeOf<Link>>(from);
      for (std::size_t at = 0; at < from.Size(); ++at) { made->slots.Insert(at, MapFrom(*As<Link>(from).slots[at], fn)); }
      return Link(std::move(made));
    }
    auto made = std::make_unique<NodeOf<V>>(from);
    for (std::size_t at = 0; at < from.Size(); ++at) { made->slots.Insert(at, fn(from.Key(at), As<V>(from).slots[at])); }
    return Link(std::move(made));
  }

  class Parts;

  Link root_;
  std::size_t size_ = 0;
};

/// What a comparison has still to see of a map, in key order: subtrees, and single entries of leaves that come apart.
template <class K, class V> class cow_Map<K, V>::Parts {
public:
  explicit Parts(Node const* root) {
    if (root != nullptr) { parts_.push_back({root, kWhole}); }
  }

  bool IsEmpty() const noexcept { return parts_.empty(); }
  Node const* First() const noexcept { return parts_.back().node; }
  bool FirstIsEntry() const noexcept { return parts_.back().at != kWhole; }
  K const& Key() const noexcept { return First()->Key(parts_.back().at); }
  V const& Value() const noexcept { return As<V>(*First()).slots[parts_.back().at]; }
  void Pop() noexcept { parts_.pop_back(); }
  /// Takes the first subtree apart.
  void Split() {
    Node const* const node = First();
    Pop();
    for (std::size_t at = node->Size(); at-- > 0;) {
      parts_.push_back(node->height == 0 ? Part{node, at} : Part{As<Link>(*node).slots[at].ConstGet(), kWhole});
    }
  }

private:
  static constexpr std::size_t kWhole = kWide;
  struct Part {
    Node const* node;
    std::size_t at;  // of an entry
  };
  std::vector<Part> parts_;  // the first one last
};

template <class K, class V>
template <class Fn>
void cow_Map<K, V>::ForEachDifference(cow_Map const& before, cow_Map const& after, Fn&& fn) {
  Parts old(before.root_.ConstGet());
  Parts now(after.root_.ConstGet());
  V const* const none = nullptr;
  while (!old.IsEmpty() || !now.IsEmpty()) {
    bool const splitOld = !old.IsEmpty() && !old.FirstIsEntry();
    bool const splitNow = !now.IsEmpty() && !now.FirstIsEntry();
    if (splitOld && splitNow && old.First() == now.First()) {  // shared
      old.Pop();
      now.Pop();
    } else if (splitOld && (!splitNow || old.First()->height >= now.First()->height)) {
      old.Split();  // the taller one, so that what is shared comes to face itself
    } else if (splitNow) {
      now.Split();
    } else {
      auto const order = old.IsEmpty()   ? std::partial_ordering::greater
                         : now.IsEmpty() ? std::partial_ordering::less
                                         : std::partial_ordering(Compare(old.Key(), now.Key()));
      if (order < 0) {
        fn(old.Key(), &old.Value(), none);
      } else if (order > 0) {
        fn(now.Key(), none, &now.Value());
      } else if (!(old.Value() == now.Value())) {
        fn(now.Key(), &old.Value(), &now.Value());
      }
      if (order <= 0) { old.Pop(); }
      if (order >= 0) { now.Pop(); }
    }
  }
}

/// Visits the entries in key order, each step in O(1) on average. Holds the way down to its entry, so it is cheap to
/// move along and dearer to copy.
template <class K, class V> class cow_Map<K, V>::const_iterator {
public:
  using iterator_category = std::input_iterator_tag;
  using value_type = std::pair<K, V>;
  using difference_type = std::ptrdiff_t;
  using reference = std::pair<K const&, V const&>;
  struct pointer {
    reference of;
    reference const* operator->() const noexcept { return &of; }
  };

  const_iterator() noexcept = default;
  const_iterator(const_iterator const& other) noexcept : depth_(other.depth_) { CopyWay(other); }
  const_iterator& operator=(const_iterator const& other) noexcept {
    depth_ = other.depth_;
    CopyWay(other);
    return *this;
  }
  ~const_iterator() = default;

  reference operator*() const noexcept {
    auto const [leaf, at] = way_[depth_ - 1];
    return {leaf->Key(at), As<V>(*leaf).slots[at]};
  }
  pointer operator->() const noexcept { return {**this}; }
  const_iterator& operator++() noexcept {
    while (depth_ != 0 && ++way_[depth_ - 1].at == way_[depth_ - 1].node->Size()) { --depth_; }
    if (depth_ != 0) { Descend(); }
    return *this;
  }
  const_iterator operator++(int) noexcept {
    const_iterator before = *this;
    ++*this;
    return before;
  }
  friend bool operator==(const_iterator const& left, const_iterator const& right) noexcept {
    return left.depth_ == right.depth_ && (left.depth_ == 0 || left.way_[left.depth_ - 1] == right.way_[left.depth_ - 1]);
  }

private:
  friend class cow_Map;
  struct Stop {
    Node const* node;
    std::size_t at;
    friend bool operator==(Stop const&, Stop const&) = default;
  };

  explicit const_iterator(Node const* root) noexcept {
    if (root == nullptr) { return; }
    way_[depth_++] = {root, 0};
    Descend();
  }
  /// From the last stop to the first entry below it.
  void Descend() noexcept {
    for (Stop last = way_[depth_ - 1]; last.node->height > 0; way_[depth_++] = last) {
      assert(depth_ < kMaxHeight);
      last = {As<Link>(*last.node).slots[last.at].ConstGet(), 0};
    }
  }
  void CopyWay(const_iterator const& other) noexcept { std::copy_n(other.way_.begin(), other.depth_, way_.begin()); }

  std::size_t depth_ = 0;
  std::array<Stop, kMaxHeight> way_;  // the last one is the entry; filled to depth_
};
