#include "framework/mdl_ExtensionSubject.h"

#include "platform/CoreUtils/thr_Singleton.h"

namespace {
struct Registry {
  mdl_ExtensionSubject::Table table;
};
mdl_ExtensionSubject::Table& Known() { return thr_GlobalSingleton<Registry>::Instance().table; }
}  // namespace

void mdl_ExtensionSubject::RegisterExtension(std::string_view name, cow_Handle<mdl_Extension> prototype) {
  Known().insert_or_assign(std::string(name), std::move(prototype));
}
void mdl_ExtensionSubject::UnregisterExtension(std::string_view name) {
  if (auto const at = Known().find(name); at != Known().end()) { Known().erase(at); }
}
mdl_ExtensionSubject::Table const& mdl_ExtensionSubject::Registered() { return Known(); }
