#pragma once

#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "command/Changes.h"

/// Who follows a session from outside: callbacks that are told of its edits, and names that follow its objects.
namespace gattr {

/// The listeners of a session.
class Listeners {
public:
  Subscription Add(Listener listener);
  bool IsEmpty() const;
  /// Tells all, in the order in which they came. What is to be told while this runs comes behind it. Of what they throw the first
  /// passes, when all are told.
  void Tell(ChangeEvent event);

private:
  std::vector<std::weak_ptr<Listener const>> listeners_;
  std::deque<ChangeEvent> waiting_;
  bool telling_ = false;
};

/// The names that somebody outside a session holds.
class ObjectNames {
public:
  ObjectNames() = default;
  ObjectNames(ObjectNames const&) = delete;
  ObjectNames& operator=(ObjectNames const&) = delete;
  ~ObjectNames();

  /// The one name that all share who hold it of that object.
  std::shared_ptr<ObjectName const> Follow(std::string_view kind, std::string_view name);
  void Renamed(Rename const& rename);

private:
  static std::string KeyOf(std::string_view kind, std::string_view name);

  // several of one key where a name that is held was free when another object was given it
  std::unordered_multimap<std::string, std::weak_ptr<ObjectName>> names_;
};

}  // namespace gattr
