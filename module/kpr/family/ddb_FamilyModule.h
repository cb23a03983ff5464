#pragma once

#include "framework/ddb_Module.h"
#include "framework/ddr_Model.h"
#include "module/kpr/engine/kprC_PropagatingContainer.h"
#include "platform/BasicUtils/nex_ErrorTable.h"

/// Gives every new model an empty repository of \p Attribute under \p extension. A module may have several, of one family or of more.
template <class Attribute> void ddb_OfferRepository(std::string_view extension) {
  mdl_ExtensionSubject::RegisterExtension(extension, cow_Handle<kprC_PropagatingContainer<Attribute>>::Make());
}

/// Start of the module of a family that has one repository: enters it, offers the repository, publishes its refusals and runs
/// \p metadata. Counted.
template <class Attribute, class Metadata>
void ddb_EnterFamily(int& count, unsigned number, std::string_view extension, nex_Catalogue const& refusals, Metadata&& metadata) {
  ddb_EnterModule<Attribute>(count, number, Attribute::kModule, [&] {
    ddb_OfferRepository<Attribute>(extension);
    thr_GlobalSingleton<nex_Catalogues>::Instance().Register(refusals);
    metadata();
  });
}

/// Stop of a family's module, mirroring its start; \p extensions are the repository and what else the module offers to models.
template <class Attribute, class... Extensions> void ddb_LeaveFamily(int& count, unsigned number, Extensions const&... extensions) {
  ddb_LeaveModule<Attribute>(count, number, [&] {
    thr_GlobalSingleton<nex_Catalogues>::Instance().Withdraw(Attribute::kModule);
    (mdl_ExtensionSubject::UnregisterExtension(extensions), ...);
  });
}
