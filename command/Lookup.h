#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "framework/ddr_Model.h"
#include "platform/CoreUtils/ddb_Export.h"

class kprC_StepAwareRepository;
class kprC_StepDependent;

namespace gattr {

/// A name that the model does not have, or that two objects bear. The message tells which there are.
class DDB_API UnknownName : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// An attribute and its family. Good as long as the model.
struct FoundAttribute {
  kprC_StepAwareRepository const* family;
  kprC_StepDependent const* item;
};

/// The attribute called \p name: "Push", or "load:Push", which tells the kind where two families use the name. A name that holds a colon is
/// looked up as it is first. Raises UnknownName with the nearest name, or with those that may be meant. Costs a look-up in each family.
DDB_API FoundAttribute FindAttribute(ddr_Model const& model, std::string_view name);

/// The attribute of that kind, "load", and name.
DDB_API FoundAttribute FindAttribute(ddr_Model const& model, std::string_view kind, std::string_view name);

/// The object called \p name among those that the model holds under \p member (KindInfo::member): a step, an attribute or what others refer
/// to. Null where there is none. Good until the model is changed.
DDB_API cls_Object const* FindObject(ddr_Model const& model, std::string_view member, std::string_view name);
/// The names of all of them, of steps in their order.
DDB_API std::vector<std::string> ObjectNamesIn(ddr_Model const& model, std::string_view member);

/// The names of all attributes as FindAttribute takes them: with the kind where two families use one.
DDB_API std::vector<std::string> FindableNames(ddr_Model const& model);

/// The position of the step called \p name. Raises UnknownName with the nearest.
DDB_API std::size_t FindStep(ddr_Model const& model, std::string_view name);

}  // namespace gattr
