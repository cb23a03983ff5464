#include "platform/BasicUtils/nex_ErrorTable.h"

#include <algorithm>

namespace {

auto FindModule(std::vector<nex_Catalogue>& catalogues, std::string_view module) {
  return std::find_if(catalogues.begin(), catalogues.end(),
                      [module](nex_Catalogue const& catalogue) { return catalogue.module == module; });
}

}  // namespace

void nex_Catalogues::Register(nex_Catalogue catalogue) {
  std::lock_guard const lock(mutex_);
  auto const existing = FindModule(catalogues_, catalogue.module);
  if (existing != catalogues_.end()) {
    *existing = catalogue;
  } else {
    catalogues_.push_back(catalogue);
  }
}

void nex_Catalogues::Withdraw(std::string_view module) {
  std::lock_guard const lock(mutex_);
  auto const existing = FindModule(catalogues_, module);
  if (existing != catalogues_.end()) { catalogues_.erase(existing); }
}

std::vector<nex_Catalogue> nex_Catalogues::All() const {
  std::lock_guard const lock(mutex_);
  return catalogues_;
}
