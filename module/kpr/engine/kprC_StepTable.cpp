#include "module/kpr/engine/kprC_StepTable.h"

#include <algorithm>
#include <atomic>
#include <functional>
#include <limits>

namespace {

/// Numbers are given this far apart, so that a step can be numbered between two others.
constexpr kprC_StepTable::Number kGap = kprC_StepTable::Number{1} << 32;

std::uint64_t NewVersion() {
  static std::atomic<std::uint64_t> last{0};
  return ++last;
}

std::size_t HashOf(std::string_view name) { return std::hash<std::string_view>{}(name); }

}  // namespace

kprC_StepSource::~kprC_StepSource() = default;

kprC_StepTable::Entry kprC_StepTable::MakeEntry(Number number, kprC_StepNameProcedurePair const& pair) {
  return {number, cow_Handle<Step>::Make(pair), kprC_StepFacts(pair.procedure.ConstGet())};
}

void kprC_StepTable::Block::CountAll() {
  types = 0;
  traits = 0;
  for (Entry const& entry : entries) { Count(entry); }
}

kprC_StepTable::kprC_StepTable() {
  static cow_Handle<Body> const empty = [] {
    auto body = cow_Handle<Body>::Make();
    body.Get().version = NewVersion();
    return body;
  }();
  body_ = empty;
}

kprC_StepTable::kprC_StepTable(kprC_StepSequence const& steps) : body_(cow_Handle<Body>::Make()) {
  std::vector<Entry> entries;
  entries.reserve(steps.Size());
  Number number = 0;
  for (kprC_StepNameProcedurePair const& pair : steps) { entries.push_back(MakeEntry(number += kGap, pair)); }
  Body& body = body_.Get();
  std::vector<std::pair<Key, Number>> numbers;
  numbers.reserve(entries.size());
  for (Entry const& entry : entries) {
    cow_String const& name = entry.step->pair.stepName;
    numbers.emplace_back(Key{HashOf(name.View()), name}, entry.number);
    body.procedures += entry.step->pair.procedure ? 1 : 0;
  }
  std::ranges::sort(numbers);  // what comes in order is put down fastest
  auto const isSame = [](auto const& one, auto const& other) { return one.first == other.first; };
  numbers.erase(std::unique(numbers.begin(), numbers.end(), isSame), numbers.end());
  for (auto& [key, first] : numbers) { body.numbers.Insert(std::move(key), first); }
  Fill(body, std::move(entries));
}

kprC_StepTable kprC_StepTable::OfOne(cow_String const& step) {
  // attributes that are made one after the other mostly begin in the same step
  thread_local kprC_StepTable lately;
  if (lately.body_->loose && lately.Name(0) == step) { return lately; }
  kprC_StepTable table;
  table.body_ = cow_Handle<Body>::Make();
  table.body_.Get().loose = true;
  std::vector<Entry> one;
  one.push_back(MakeEntry(kGap, kprC_StepNameProcedurePair(step, nullptr)));
  Fill(table.body_.Get(), std::move(one));
  lately = table;
  return table;
}

void kprC_StepTable::Fill(Body& body, std::vector<Entry> entries) {
  body.version = NewVersion();
  body.size = entries.size();
  for (std::size_t begin = 0; begin < entries.size(); begin += kBlock / 2) {
    auto block = cow_Handle<Block>::Make();
    auto const first = entries.begin() + static_cast<std::ptrdiff_t>(begin);
    auto const last = entries.size() - begin > kBlock ? first + kBlock / 2 : entries.end();
    block.Get().entries.assign(first, last);
    body.parts.push_back({std::move(block), begin, 0});
    if (last == entries.end()) { break; }
  }
  Settle(body, 0);
  for (Part& part : body.parts) { part.block.Get().CountAll(); }
}

void kprC_StepTable::Settle(Body& body, std::size_t part) {
  std::size_t begin = part == 0 ? 0 : body.parts[part - 1].begin + body.parts[part - 1].block->entries.size();
  for (; part < body.parts.size(); ++part) {
    body.parts[part].begin = begin;
    body.parts[part].first = body.parts[part].block->entries.front().number;
    begin += body.parts[part].block->entries.size();
  }
}

cow_Handle<kprC_StepTable::Body> kprC_StepTable::Next() const {
  auto next = cow_Handle<Body>::Make(*body_);
  next.Get().parent = body_->version;
  next.Get().version = NewVersion();
  next.Get().disturbed = 0;
  next.Get().loose = false;
  if (body_->loose) { next.Get().numbers.Insert(Key{HashOf(Name(0).View()), Name(0)}, NumberOf(0)); }
  return next;
}

kprC_StepTable kprC_StepTable::From(cow_Handle<Body> body) {
  kprC_StepTable table;
  table.body_ = std::move(body);
  return table;
}

std::size_t kprC_StepTable::PartOf(std::size_t index) const {
  auto const behind = std::ranges::upper_bound(body_->parts, index, {}, &Part::begin);
  return static_cast<std::size_t>(behind - body_->parts.begin()) - 1;
}

std::size_t kprC_StepTable::Position(Number number) const {
  // as they were numbered first, unless steps have come or gone before
  if (std::size_t const likely = number / kGap - 1; likely < body_->size && NumberOf(likely) == number) { return likely; }
  auto const& parts = body_->parts;
  auto const behind = std::ranges::upper_bound(parts, number, {}, &Part::first);
  if (behind == parts.begin()) { return npos; }
  Part const& part = *std::prev(behind);
  auto const& entries = part.block->entries;
  auto const at = std::ranges::lower_bound(entries, number, {}, &Entry::number);
  bool const known = at != entries.end() && at->number == number;
  return known ? part.begin + static_cast<std::size_t>(at - entries.begin()) : npos;
}

std::size_t kprC_StepTable::Find(std::string_view name) const {
  if (body_->loose) { return Name(0) == name ? 0 : npos; }
  // an edit asks again and again for its step, and for the create step; a version never changes, and no two have a number in common
  struct Found {
    std::uint64_t version;
    std::size_t index;
  };
  [[gnu::tls_model("initial-exec")]] constinit static thread_local Found lately[] = {{0, 0}, {0, 0}};
  for (Found const& found : lately) {
    if (found.version == body_->version && Name(found.index) == name) { return found.index; }
  }
  struct Sought {
    std::size_t hash;
    std::string_view name;
    std::uint64_t Rank() const { return hash; }
    std::strong_ordering operator<=>(Key const& key) const { return hash != key.hash ? hash <=> key.hash : name <=> key.name.View(); }
    bool operator==(Key const& key) const { return hash == key.hash && name == key.name.View(); }
  };
  Number const* const number = body_->numbers.ConstFind(Sought{HashOf(name), name});
  if (number == nullptr) { return npos; }
  lately[1] = std::exchange(lately[0], {body_->version, Position(*number)});
  return lately[0].index;
}

std::size_t kprC_StepTable::SegmentEnd(std::size_t index) const {
  kprC_StepFacts const facts = Facts(index);
  std::uint32_t const bit = kprC_ProcedureBit(facts.procedureType);
  auto const& parts = body_->parts;
  for (std::size_t part = parts.size() == 1 ? 0 : PartOf(index); part < parts.size(); ++part) {
    Block const& block = *parts[part].block;
    if (index == parts[part].begin && block.types == bit && bit != 0 && (facts.traits | block.traits) == 0) {
      index += block.entries.size();
      continue;
    }
    for (std::size_t at = index - parts[part].begin; at < block.entries.size(); ++at, ++index) {
      if (block.entries[at].facts != facts) { return index; }
    }
  }
  return index;
}

kprC_StepTable::Number kprC_StepTable::LastBefore(std::size_t index, unsigned procedureType) const {
  if (index == 0) { return 0; }
  auto const& parts = body_->parts;
  for (std::size_t part = PartOf(index - 1) + 1; part-- > 0;) {
    Block const& block = *parts[part].block;
    if ((block.types & kprC_ProcedureBit(procedureType)) == 0) { continue; }
    for (std::size_t at = std::min(index - parts[part].begin, block.entries.size()); at-- > 0;) {
      if (block.entries[at].facts.procedureType == procedureType) { return block.entries[at].number; }
    }
  }
  return 0;
}

bool kprC_StepTable::HasType(unsigned procedureType) const {
  std::uint32_t const bit = kprC_ProcedureBit(procedureType);
  return std::ranges::any_of(body_->parts, [bit](Part const& part) { return (part.block->types & bit) != 0; });
}

kprC_StepSequence kprC_StepTable::Sequence() const {
  std::vector<kprC_StepNameProcedurePair> steps;
  steps.reserve(Size());
  ForEach([&steps](kprC_StepNameProcedurePair const& pair) { steps.push_back(pair); });
  return kprC_StepSequence(std::move(steps));
}

bool kprC_StepTable::SameNames(kprC_StepTable const& other) const {
  if (Same(other)) { return true; }
  if (Size() != other.Size()) { return false; }
  for (std::size_t i = 0; i < Size(); ++i) {
    if (!(Name(i) == other.Name(i))) { return false; }
  }
  return true;
}

kprC_StepTable kprC_StepTable::WithInserted(std::size_t index, kprC_StepNameProcedurePair const& pair) const {
  Number const before = index == 0 ? 0 : NumberOf(index - 1);
  Number const behind = index < Size() ? NumberOf(index) : before + 2 * kGap;
  if (behind - before < 2 || before > std::numeric_limits<Number>::max() - 2 * kGap) {  // no room: all are numbered anew
    kprC_StepSequence steps = Sequence();
    steps.Insert(index, pair);
    return kprC_StepTable(steps);
  }
  auto next = Next();
  Body& body = next.Get();
  Entry entry = MakeEntry(before + (behind - before) / 2, pair);
  Key key{HashOf(pair.stepName.View()), pair.stepName};
  Number const* const present = body.numbers.ConstFind(key);
  if (present == nullptr || entry.number < *present) { body.numbers.Insert(std::move(key), entry.number); }
  body.procedures += pair.procedure ? 1 : 0;
  ++body.size;
  if (body.parts.empty()) { body.parts.push_back({cow_Handle<Block>::Make(), 0, 0}); }
  std::size_t const part = index == 0 ? 0 : PartOf(index - 1);
  Block& block = body.parts[part].block.Get();
  block.Count(entry);
  block.entries.insert(block.entries.begin() + static_cast<std::ptrdiff_t>(index - body.parts[part].begin), std::move(entry));
  if (block.entries.size() > kBlock) {
    // a sequence that grows at its end leaves full blocks behind, one that grows elsewhere halves
    bool const atEnd = index + 1 == body.size;
    auto const middle = block.entries.begin() + static_cast<std::ptrdiff_t>(atEnd ? kBlock : kBlock / 2);
    auto rest = cow_Handle<Block>::Make();
    rest.Get().entries.assign(middle, block.entries.end());
    rest.Get().CountAll();
    block.entries.erase(middle, block.entries.end());
    block.CountAll();
    body.parts.insert(body.parts.begin() + static_cast<std::ptrdiff_t>(part + 1), {std::move(rest), 0, 0});
  }
  Settle(body, part);
  return From(std::move(next));
}

kprC_StepTable kprC_StepTable::WithRemoved(std::size_t index) const {
  auto next = Next();
  Body& body = next.Get();
  std::size_t const part = PartOf(index);
  Block& block = body.parts[part].block.Get();
  auto const at = block.entries.begin() + static_cast<std::ptrdiff_t>(index - body.parts[part].begin);
  Entry const removed = *at;
  body.disturbed = removed.number;
  block.entries.erase(at);
  block.CountAll();
  if (block.entries.empty()) { body.parts.erase(body.parts.begin() + static_cast<std::ptrdiff_t>(part)); }
  --body.size;
  body.procedures -= removed.step->pair.procedure ? 1 : 0;
  Settle(body, part);
  cow_String const& name = removed.step->pair.stepName;
  Key key{HashOf(name.View()), name};
  if (Number const* const number = body.numbers.ConstFind(key); number != nullptr && *number == removed.number) {
    bool const twice = body_->numbers.Size() < Size();  // another step may have the name
    body.numbers.Remove(key);
    for (Part const& other : body.parts) {
      if (!twice) { break; }
      for (Entry const& entry : other.block->entries) {
        if (entry.step->pair.stepName == name && !body.numbers.Contains(key)) { body.numbers.Insert(key, entry.number); }
      }
    }
  }
  return From(std::move(next));
}

kprC_StepTable kprC_StepTable::WithReplaced(std::size_t index, kprC_StepNameProcedurePair const& pair) const {
  Entry entry = MakeEntry(NumberOf(index), pair);
  bool const renamed = !(Name(index) == pair.stepName);
  if (renamed && body_->numbers.Size() < Size()) {  // names that stand twice: worked out anew
    kprC_StepSequence steps = Sequence();
    steps.Get(index) = pair;
    return kprC_StepTable(steps);
  }
  auto next = Next();
  Body& body = next.Get();
  if (renamed) {
    body.numbers.Remove(Key{HashOf(Name(index).View()), Name(index)});
    Key key{HashOf(pair.stepName.View()), pair.stepName};
    Number const* const present = body.numbers.ConstFind(key);
    if (present == nullptr || entry.number < *present) { body.numbers.Insert(std::move(key), entry.number); }
  }
  body.procedures += pair.procedure ? 1 : 0;
  body.procedures -= (*this)[index].procedure ? 1 : 0;
  if (entry.facts != Facts(index)) { body.disturbed = entry.number; }
  std::size_t const part = PartOf(index);
  Block& block = body.parts[part].block.Get();
  block.entries[index - body.parts[part].begin] = std::move(entry);
  block.CountAll();
  return From(std::move(next));
}

kprC_StepTable kprC_StepTable::WithNames(kprC_StepTable const& other) const {
  kprC_StepSequence steps = Sequence();
  for (std::size_t i = 0; i < Size(); ++i) { steps.Get(i).stepName = other.Name(i); }
  kprC_StepTable renamed(steps);
  Body& body = renamed.body_.Get();
  body.parent = body_->version;
  std::size_t index = 0;
  body.numbers.Clear();
  for (Part& part : body.parts) {
    for (Entry& entry : part.block.Get().entries) {
      entry.number = NumberOf(index++);
      Key key{HashOf(entry.step->pair.stepName.View()), entry.step->pair.stepName};
      if (!body.numbers.Contains(key)) { body.numbers.Insert(std::move(key), entry.number); }
    }
  }
  Settle(body, 0);
  return renamed;
}

void cls_MemberTraits<kprC_StepTable>::Describe(cls_MemberInfo& info) { cls_MemberTraits<kprC_StepSequence>::Describe(info); }

void cls_MemberTraits<kprC_StepTable>::Write(cls_WriteVisitor const& out, std::string_view name, kprC_StepTable const& table) {
  bool const written = out.WriteSequence(name, table.Size(), [&table](std::size_t index) {
    kprC_StepNameProcedurePair const& pair = table[index];
    return std::pair<std::string_view, cls_Object const*>(pair.stepName.View(), pair.procedure.ConstGet());
  });
  if (written) { return; }
  out.StartList(name, table.Size());
  table.ForEach([&out](kprC_StepNameProcedurePair const& pair) { cls_MemberTraits<kprC_StepNameProcedurePair>::Write(out, "", pair); });
  out.EndList();
}

void cls_MemberTraits<kprC_StepTable>::Read(cls_ReadVisitor const& in, std::string_view name, kprC_StepTable& table) {
  auto const* const source = dynamic_cast<kprC_StepSource const*>(&in);
  if (source != nullptr && source->ReadSteps(name, table)) { return; }
  kprC_StepSequence steps;
  cls_MemberTraits<kprC_StepSequence>::Read(in, name, steps);
  table = kprC_StepTable(steps);
}

bool cls_MemberTraits<kprC_StepTable>::Equal(kprC_StepTable const& a, kprC_StepTable const& b) {
  if (a.Same(b)) { return true; }
  if (a.Size() != b.Size()) { return false; }
  for (std::size_t i = 0; i < a.Size(); ++i) {
    if (!cls_MemberTraits<kprC_StepNameProcedurePair>::Equal(a[i], b[i])) { return false; }
  }
  return true;
}

cls_Value cls_MemberTraits<kprC_StepTable>::ToValue(kprC_StepTable const& table) {
  cls_Value::List values;
  table.ForEach(
      [&values](kprC_StepNameProcedurePair const& pair) { values.push_back(cls_MemberTraits<kprC_StepNameProcedurePair>::ToValue(pair)); });
  return values;
}
