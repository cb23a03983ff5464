#include "store/Extensions.h"

#include <optional>

#include "framework/mdl_ExtensionSubject.h"
#include "module/kpr/engine/kprC_StepAwareRepository.h"
#include "platform/BasicUtils/cls_ClassRegistrar.h"

namespace gattr {

namespace {

void RefuseOther(std::string const& member, mdl_Extension const& expected, RefuseExtension const& refuse) {
  auto const* const type = cls_MetadataRegistrar::Registrar().Find(expected.DynTypeId());
  refuse(member, "expected an object of class " + (type != nullptr ? type->name : member));
}

}  // namespace

void CompleteExtensions(ddr_Model& model, RefuseExtension const& refuse) {
  std::optional<kprC_StepTable> steps;  // on which the model's families stand
  for (auto const& [member, extension] : model.Extensions()) {
    auto const* const repository = mdl_ExtensionAs<kprC_StepAwareRepository>(extension.ConstGet());
    if (repository != nullptr && !steps) { steps = repository->Steps(); }
  }
  for (auto const& [member, prototype] : mdl_ExtensionSubject::Registered()) {
    mdl_Extension const* const extension = model.ConstExtension(member);
    if (extension == nullptr && member != ddr_Model::stepsCmd().View()) {
      model.SetExtension(member, prototype);
      bool const isFamily = mdl_ExtensionAs<kprC_StepAwareRepository>(prototype.ConstGet()) != nullptr;
      if (isFamily && steps) { model.Get<kprC_StepAwareRepository>(member).UpdateSteps(*steps); }
    } else if (extension == nullptr || extension->DynTypeId() != prototype->DynTypeId()) {
      RefuseOther(member, *prototype, refuse);
    }
  }
}

void RefuseLackOfSteps(RefuseExtension const& refuse) {
  for (auto const& [member, prototype] : mdl_ExtensionSubject::Registered()) {
    if (member == ddr_Model::stepsCmd().View()) { RefuseOther(member, *prototype, refuse); }
  }
}

}  // namespace gattr
