#pragma once

#include "framework/mdl_PropList.h"
#include "module/kin/Types.h"

// What general contact assigns to surfaces, and the propagating members that hold it.

enum class kinC_SurfThickEnm { ORIGINAL = 0, THINNING = 1, SPECIFIED = 2, CURRENT = 3 };
template <> struct omu_EnumTable<kinC_SurfThickEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"ORIGINAL", 0}, {"THINNING", 1}, {"SPECIFIED", 2}, {"CURRENT", 3}, {nullptr, 0}};
};
enum class kinC_SurfOffsetEnm { ORIGINAL = 0, SPOS = 1, SNEG = 2, SPECIFIED = 3 };
template <> struct omu_EnumTable<kinC_SurfOffsetEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"ORIGINAL", 0}, {"SPOS", 1}, {"SNEG", 2}, {"SPECIFIED", 3}, {nullptr, 0}};
};
enum class kinC_SurfFeatureEnm { PERIMETER = 0, NONE = 1, SPECIFIED = 2 };
template <> struct omu_EnumTable<kinC_SurfFeatureEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"PERIMETER", 0}, {"NONE", 1}, {"SPECIFIED", 2}, {nullptr, 0}};
};
enum class kinC_MasterSlaveEnm { MASTER = 0, SLAVE = 1 };
template <> struct omu_EnumTable<kinC_MasterSlaveEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"MASTER", 0}, {"SLAVE", 1}, {nullptr, 0}};
};

/// A value that is assigned: a definition, by an enumeration, and what belongs to it.
template <class Derived, class Enum> class kinC_SurfaceValue : public cls_Persistent<Derived, cls_Object> {
public:
  kinC_SurfaceValue() = default;
  explicit kinC_SurfaceValue(Enum of) : definition(of) {}

  omu_PrimEnum<Enum, 1> definition;

  friend bool operator==(Derived const& a, Derived const& b) { return a.Equals(b); }
};

/// Thickness of a surface.
class DDB_API kinC_SurfThick final : public kinC_SurfaceValue<kinC_SurfThick, kinC_SurfThickEnm> {
public:
  using SurfThickEnm = kinC_SurfThickEnm;
  using enum kinC_SurfThickEnm;

  explicit kinC_SurfThick(SurfThickEnm of = ORIGINAL, double thickness = 0.0, double factor = 1.0)
      : kinC_SurfaceValue(of), value(thickness), scaleFactor(factor) {}
  explicit kinC_SurfThick(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  double value = 0.0, scaleFactor = 1.0;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("definition", &kinC_SurfThick::definition, cls_MemberText{"which thickness contact takes"});
    visit("value", &kinC_SurfThick::value, cls_MemberText{"the thickness, where it is SPECIFIED", "length"});
    visit("scaleFactor", &kinC_SurfThick::scaleFactor, cls_MemberText{"factor on the thickness"});
  }
};

/// Distance of the surface in contact from that between the faces of a shell.
class DDB_API kinC_SurfOffset final : public kinC_SurfaceValue<kinC_SurfOffset, kinC_SurfOffsetEnm> {
public:
  using SurfOffsetEnm = kinC_SurfOffsetEnm;
  using enum kinC_SurfOffsetEnm;

  explicit kinC_SurfOffset(SurfOffsetEnm of = ORIGINAL, double fraction = 0.0) : kinC_SurfaceValue(of), value(fraction) {}
  explicit kinC_SurfOffset(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  double value = 0.0;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("definition", &kinC_SurfOffset::definition,
          cls_MemberText{"which offset contact takes: that of the section, a face, or a value"});
    visit("value", &kinC_SurfOffset::value, cls_MemberText{"the offset, where it is SPECIFIED, as a fraction of the thickness"});
  }
};

/// Which edges of a surface take part in contact.
class DDB_API kinC_SurfFeature final : public kinC_SurfaceValue<kinC_SurfFeature, kinC_SurfFeatureEnm> {
public:
  using SurfFeatureEnm = kinC_SurfFeatureEnm;
  using enum kinC_SurfFeatureEnm;

  explicit kinC_SurfFeature(SurfFeatureEnm of = PERIMETER, double angle = 0.0) : kinC_SurfaceValue(of), value(angle) {}
  explicit kinC_SurfFeature(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  double value = 0.0;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("definition", &kinC_SurfFeature::definition, cls_MemberText{"which edges take part in contact"});
    visit("value", &kinC_SurfFeature::value,
          cls_MemberText{"the angle between two faces from which their edge takes part, where it is SPECIFIED", "degrees"});
  }
};

/// The part of the first surface of a pair.
class DDB_API kinC_MasterSlave final : public kinC_SurfaceValue<kinC_MasterSlave, kinC_MasterSlaveEnm> {
public:
  using MasterSlaveEnm = kinC_MasterSlaveEnm;
  using enum kinC_MasterSlaveEnm;

  explicit kinC_MasterSlave(MasterSlaveEnm of = MASTER) : kinC_SurfaceValue(of) {}
  explicit kinC_MasterSlave(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  template <class V> static constexpr void VisitMembers(V&& visit) {
    visit("definition", &kinC_MasterSlave::definition, cls_MemberText{"the part of the first surface of the pair in contact"});
  }
};

using kinC_PropSurfThick = mdl_PropAttr<kinC_SurfThick>;
using kinC_PropSurfOffset = mdl_PropAttr<kinC_SurfOffset>;
using kinC_PropSurfFeature = mdl_PropAttr<kinC_SurfFeature>;
using kinC_PropMasterSlave = mdl_PropAttr<kinC_MasterSlave>;
