#include "store/Document.h"

#include <functional>
#include <utility>

#include "store/StoreError.h"
#include "text/Text.h"

namespace gattr {

namespace {

constexpr std::string_view kModelMap = "extensions";
constexpr std::string_view kExtensionMap = "map";
constexpr std::size_t kExtensionDepth = 2;  // the model, its map, the extension

constexpr std::size_t kSlots = 1024;    // for texts at the beginning; a power of two
constexpr std::size_t kShownText = 40;  // characters of a text that a message repeats

void Join(std::string& path, std::string_view part) {
  if (!path.empty()) { path += " / "; }
  path += part;
}

}  // namespace

Document::Document(std::string_view fileName) : fileName_(fileName), slots_(kSlots) { Intern(""); }

Document::At Document::Find(At at, std::string_view name) const {
  if (at == npos || nodes_[at].kind != Kind::Object) { return npos; }
  At child = at + 1;
  while (child != nodes_[at].end && NameOf(child) != name) { child = nodes_[child].end; }
  return child != nodes_[at].end ? child : npos;
}

Document::Text Document::Intern(std::string_view text) {
  auto const hash = static_cast<std::uint32_t>(std::hash<std::string_view>{}(text));
  std::size_t slot = SlotOf(text, hash);
  if (slots_[slot].text != npos) { return slots_[slot].text; }
  if (2 * texts_.size() >= slots_.size()) {
    std::vector<Slot> const old = std::exchange(slots_, std::vector<Slot>(2 * slots_.size()));
    for (Slot const& one : old) {
      if (one.text != npos) { slots_[SlotOf(texts_[one.text], one.hash)] = one; }
    }
    slot = SlotOf(text, hash);
  }
  auto const number = static_cast<Text>(texts_.size());
  texts_.push_back(storage_.emplace_back(text));
  slots_[slot] = {hash, number};
  return number;
}

std::size_t Document::SlotOf(std::string_view text, std::uint32_t hash) const {
  std::size_t const mask = slots_.size() - 1;
  std::size_t slot = hash & mask;
  while (slots_[slot].text != npos && (slots_[slot].hash != hash || texts_[slots_[slot].text] != text)) { slot = (slot + 1) & mask; }
  return slot;
}

Document::At Document::Add(Kind kind, Text name) {
  auto const at = static_cast<At>(nodes_.size());
  Node& node = nodes_.emplace_back();
  node.kind = kind;
  node.name = name;
  node.end = at + 1;
  if (!open_.empty()) {
    ++nodes_[open_.back().at].count;
    ++open_.back().index;
  }
  return at;
}

Document::At Document::Open(Kind kind, Text name) {
  At const at = Add(kind, name);
  nodes_[at].count = 0;
  open_.push_back({at, 0});
  return at;
}

void Document::Close() {
  At const at = open_.back().at;
  Node& node = nodes_[at];
  node.end = static_cast<At>(nodes_.size());
  if (node.kind == Kind::Object) {
    seen_.resize(texts_.size(), npos);
    for (At child = at + 1; child != node.end; child = nodes_[child].end) {
      Text const name = nodes_[child].name;
      if (seen_[name] == at) { Refuse(OpenPath(View(name)), "stands twice"); }
      seen_[name] = at;
    }
  }
  open_.pop_back();
}

std::string Document::Path(std::vector<Step> const& way, std::string_view member) const {
  std::string path;
  auto const place = [&path](Step const& list) {
    if (list.index > 0) { path += "[" + std::to_string(list.index - 1) + "]"; }
  };
  for (std::size_t depth = 1; depth < way.size(); ++depth) {
    std::string_view const name = NameOf(way[depth].at);
    bool const isMap = (depth == 1 && name == kModelMap) || (depth == kExtensionDepth + 1 && name == kExtensionMap);
    if (nodes_[way[depth - 1].at].kind == Kind::List) {
      place(way[depth - 1]);
    } else if (!isMap) {
      Join(path, name);
    }
  }
  if (!way.empty() && nodes_[way.back().at].kind == Kind::List) {
    place(way.back());
  } else if (!member.empty()) {
    Join(path, member);
  }
  return path;
}

std::string Document::Describe(At at) const {
  Node const& node = nodes_[at];
  switch (node.kind) {
    case Kind::Null: return "null";
    case Kind::False: return "false";
    case Kind::True: return "true";
    case Kind::Integer: return std::to_string(node.integer);
    case Kind::Real: {
      char digits[32];
      return std::string(Digits(node.real, digits));
    }
    case Kind::Text: {
      std::string_view const text = View(node.text);
      return "\"" + std::string(text.substr(0, kShownText)) + (text.size() > kShownText ? "...\"" : "\"");
    }
    case Kind::Object: return "an object";
    case Kind::List: return "a list";
  }
  return {};
}

void Document::Refuse(std::string_view path, std::string_view what) const {
  std::string message = fileName_;
  for (std::string_view const part : {path, what}) {
    if (!message.empty() && !part.empty()) { message += ": "; }
    message += part;
  }
  throw StoreError(message);
}

}  // namespace gattr
