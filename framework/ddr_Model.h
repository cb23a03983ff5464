#pragma once

#include <typeinfo>

#include "framework/mdl_Extension.h"
#include "framework/mdl_ExtensionSubject.h"
#include "framework/mdl_MapString2ObjCow.h"
#include "platform/CaeUtils/omu_PrimEnumTraits.h"
#include "platform/CoreUtils/omn_FixedString.h"

/// The space that a model lives in.
enum class ddr_ModelSpaceEnm { THREE_D, TWO_D_PLANAR, AXISYMMETRIC };
template <> struct omu_EnumTable<ddr_ModelSpaceEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"THREE_D", 0}, {"TWO_D_PLANAR", 1}, {"AXISYMMETRIC", 2}, {nullptr, 0}};
};

/// One analysis model: its extensions by member name. It starts with those that the modules have registered: the steps,
/// one repository per family of step-dependent attributes, regions, amplitudes, connectors, datums and fields.
///
/// A value: a copy is a snapshot that shares everything, and an edit of either separates only what it changes. That is
/// how transactions and undo keep a model.
class DDB_API ddr_Model final : public cls_Persistent<ddr_Model, cls_Object> {
public:
  using SpaceEnm = ddr_ModelSpaceEnm;
  using enum ddr_ModelSpaceEnm;

  /// A three-dimensional model with an empty copy of every registered extension.
  ddr_Model();
  /// What was written before models knew their space is three-dimensional.
  explicit ddr_Model(cls_ReadVisitor const& in);

  static constexpr omn_FixedString stepsCmd() { return "steps"; }
  static constexpr omn_FixedString bcCmd() { return "boundaryConditions"; }
  static constexpr omn_FixedString regionsCmd() { return "regions"; }
  static constexpr omn_FixedString amplitudesCmd() { return "amplitudes"; }
  static constexpr omn_FixedString connectorsCmd() { return "connectors"; }
  static constexpr omn_FixedString coordinateSystemsCmd() { return "coordinateSystems"; }
  static constexpr omn_FixedString axesCmd() { return "axes"; }
  static constexpr omn_FixedString fieldsCmd() { return "fields"; }
  static constexpr omn_FixedString spaceCmd() { return "space"; }

  cow_String const& Name() const { return name_; }
  void SetName(cow_String name) { name_ = std::move(name); }

  SpaceEnm Space() const { return space_; }
  void SetSpace(SpaceEnm space) { space_ = space; }

  /// The extension under \p member, or null.
  mdl_Extension const* ConstExtension(std::string_view member) const;
  /// The same for change, separated from all who share it.
  mdl_Extension* Extension(std::string_view member);
  /// The extension under \p member as a \p T. Refuses one that the model does not have, as when the library has not been
  /// started; std::bad_cast where it is of another class.
  template <class T> T const& ConstGet(std::string_view member) const {
    mdl_Extension const* const found = ConstExtension(member);
    if (found == nullptr) { mdl_RefuseMissing(member, "model"); }
    T const* const typed = mdl_ExtensionAs<T>(found);
    if (typed == nullptr) { throw std::bad_cast(); }
    return *typed;
  }
  template <class T> T& Get(std::string_view member) {
    mdl_Extension* const found = Extension(member);
    if (found == nullptr) { mdl_RefuseMissing(member, "model"); }
    T* const typed = mdl_ExtensionAs<T>(found);
    if (typed == nullptr) { throw std::bad_cast(); }
    return *typed;
  }
  /// Puts an extension in the place of the one under \p member.
  void SetExtension(std::string_view member, cow_Handle<mdl_Extension> extension);

  cow_Map<cow_String, cow_Handle<mdl_Extension>> const& Extensions() const { return extensions_; }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("name", &ddr_Model::name_, cls_MemberText{"the model's name"});
    visit(spaceCmd(), &ddr_Model::space_, cls_MemberText{"the space that it lives in"});
    visit("extensions", &ddr_Model::extensions_, cls_MemberText{"what the model holds, by member name"});
  }

private:
  cow_String name_;
  omu_PrimEnum<SpaceEnm> space_ = SpaceEnm::THREE_D;
  cow_Map<cow_String, cow_Handle<mdl_Extension>> extensions_;
};

/// The models of a program by name.
using ddr_ModelContainer = mdl_MapString2ObjCow<ddr_Model>;
