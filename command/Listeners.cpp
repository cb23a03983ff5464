#include "command/Listeners.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace gattr {

Subscription Listeners::Add(Listener listener) {
  std::erase_if(listeners_, [](auto const& one) { return one.expired(); });
  auto const kept = std::make_shared<Listener const>(std::move(listener));
  listeners_.emplace_back(kept);
  return Subscription(kept);
}

bool Listeners::IsEmpty() const {
  return std::ranges::all_of(listeners_, [](auto const& one) { return one.expired(); });
}

void Listeners::Tell(ChangeEvent event) {
  waiting_.push_back(std::move(event));
  if (std::exchange(telling_, true)) { return; }
  std::exception_ptr thrown;
  while (!waiting_.empty()) {
    ChangeEvent const told = std::move(waiting_.front());
    waiting_.pop_front();
    for (auto const& one : std::vector(listeners_)) {  // they may add to them
      std::shared_ptr<Listener const> const listener = one.lock();
      if (listener == nullptr) { continue; }
      try {
        (*listener)(told);
      } catch (...) {
        if (!thrown) { thrown = std::current_exception(); }
      }
    }
  }
  telling_ = false;
  if (thrown) { std::rethrow_exception(thrown); }
}

ObjectNames::~ObjectNames() {
  for (auto const& [key, one] : names_) {
    if (auto const name = one.lock()) { name->lost = true; }
  }
}

std::string ObjectNames::KeyOf(std::string_view kind, std::string_view name) { return std::string(kind).append(1, '\0').append(name); }

std::shared_ptr<ObjectName const> ObjectNames::Follow(std::string_view kind, std::string_view name) {
  std::string key = KeyOf(kind, name);
  auto const [begin, end] = names_.equal_range(key);
  for (auto one = begin; one != end; ++one) {
    if (auto const held = one->second.lock()) { return held; }
  }
  names_.erase(begin, end);
  auto const made = std::make_shared<ObjectName>(ObjectName{std::string(kind), std::string(name)});
  names_.emplace(std::move(key), made);
  return made;
}

void ObjectNames::Renamed(Rename const& rename) {
  auto const [begin, end] = names_.equal_range(KeyOf(rename.kind, rename.from));
  std::vector<std::shared_ptr<ObjectName>> follow;
  for (auto one = begin; one != end; ++one) {
    if (auto held = one->second.lock()) { follow.push_back(std::move(held)); }
  }
  names_.erase(begin, end);
  for (auto const& name : follow) {
    name->name = rename.to;
    names_.emplace(KeyOf(rename.kind, rename.to), name);
  }
}

}  // namespace gattr
