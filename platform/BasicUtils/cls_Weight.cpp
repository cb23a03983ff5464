#include "platform/BasicUtils/cls_Weight.h"

#include <algorithm>
#include <deque>
#include <utility>

namespace {

constexpr std::size_t kOfTheHeap = 16;  // what every block takes beside its content
constexpr std::size_t kBody = 48;       // of a text or list: the counted body, its vector

class Weigher final : public cls_WriteVisitor {
public:
  std::size_t Bytes() const { return bytes_; }

  bool StartWrite(unsigned, cls_Uid const&) const override { return true; }
  void WriteBool(std::string_view, bool) const override { Add(sizeof(char)); }
  void WriteInteger(std::string_view, long long) const override { Add(sizeof(int)); }
  void WriteReal(std::string_view, double) const override { Add(sizeof(double)); }
  void WriteEnumerated(std::string_view, std::string_view, std::string_view, unsigned) const override { Add(sizeof(void*)); }
  void WriteText(std::string_view, std::string_view value) const override {
    Add(sizeof(void*));
    if (!value.empty()) { bytes_ += kBody + value.size(); }
  }
  void WriteNull(std::string_view) const override { Add(sizeof(double)); }
  void WriteObject(std::string_view, cls_Object const& object) const override {
    Add(sizeof(void*));
    WriteNested({}, object);
  }
  void WriteNested(std::string_view, cls_Object const& object) const override {
    constexpr std::size_t kLookedAt = 4;
    std::size_t const before = bytes_;
    if (list_ != nullptr && list_->told == kLookedAt) {
      bytes_ += list_->weight / kLookedAt;
      return;
    }
    List* const outer = std::exchange(list_, nullptr);
    bytes_ += cls_OwnBytes(object);
    object.DBWrite(*this);
    list_ = outer;
    if (list_ != nullptr) {
      ++list_->told;
      list_->weight += bytes_ - before;
    }
  }
  void StartList(std::string_view, std::size_t) const override {
    bytes_ += kBody + kOfTheHeap;
    lists_.push_back({.outer = list_});
    list_ = &lists_.back();
  }
  void EndList() const override {
    list_ = lists_.back().outer;
    lists_.pop_back();
  }
  bool StartMap(std::string_view, std::size_t count) const override {
    bytes_ += count * (kBody + kOfTheHeap);
    return true;
  }
  void EndMap() const override {}

private:
  struct List {
    List* outer;
    std::size_t told = 0, weight = 0;  // elements that have been looked at
  };
  /// A plain value, which has a place of its own in a list and stands in its object otherwise.
  void Add(std::size_t size) const { bytes_ += list_ == nullptr ? 0 : size; }

  // writing goes through a const interface
  mutable std::size_t bytes_ = 0;
  mutable std::deque<List> lists_;
  mutable List* list_ = nullptr;  // the innermost, unless an object is open in it
};

}  // namespace

std::size_t cls_OwnBytes(cls_Object const& object) {
  std::size_t bytes = sizeof(cls_Object);
  for (cls_MemberRow const& row : object.MemberRows()) { bytes = std::max(bytes, static_cast<std::size_t>(row.offset) + row.ops->size); }
  return bytes + kOfTheHeap;
}

std::size_t cls_HeldBytes(cls_MemberRow const& row, cls_Object const& object) {
  Weigher weigher;
  row.Write(weigher, static_cast<void const*>(&object));
  return weigher.Bytes();
}

std::size_t cls_HeldBytes(cls_Object const& object, std::span<cls_Object const* const> others, std::string_view but) {
  std::size_t bytes = 0;
  for (cls_MemberRow const& row : object.MemberRows()) {
    if (row.again || row.name == but) { continue; }
    bool const isShared = std::ranges::any_of(others, [&](cls_Object const* other) {
      return other != nullptr && other->DynTypeId() == object.DynTypeId() &&
             row.ops->equal(row.In(static_cast<void const*>(&object)), row.In(static_cast<void const*>(other)));
    });
    if (!isShared) { bytes += cls_HeldBytes(row, object); }
  }
  return bytes;
}
