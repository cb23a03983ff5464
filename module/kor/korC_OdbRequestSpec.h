#pragma once

#include <string_view>

#include "module/kor/korC_Enums.h"
#include "module/kpr/procedures/kprC_Procedures.h"
#include "platform/BasicUtils/cow_List.h"
#include "platform/BasicUtils/cow_String.h"

/// The categories of variables, as users see them, and the classes and places of output.
struct korC_OdbRequestLabels {
  enum class LabelEnm {
    Stresses,
    Strains,
    Motion,
    Forces,
    Contact,
    Connector,
    Energy,
    Failure,
    Thermal,
    Electrical,
    Fluids,
    Acoustics,
    Diffusion,
    Volume,
    MassCenter,
    Errors,
    State,
    INVALID_LABEL,
  };
  enum class PrintEnm {
    Node,
    Element,
    Modal,
    Surface,
    Contact,
    Radiation,
    Incrementation,
    Energy,
    ContactOrElement,
    Integrated,
    INVALID_PRINT
  };
  enum class LocationEnm {
    NODE,
    ELEMENT_INT_PT,
    ELEMENT_SECTION_PT,
    WHOLE_ELEMENT,
    WHOLE_MODEL,
    SURFACE,
    ELEMENT_REBAR,
    ELEMENT_INT_PT_OR_SPRING,
    ELEMENT_FACE,
    INVALID_LOC,
  };
};
template <> struct omu_EnumTable<korC_OdbRequestLabels::LabelEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"Stresses", 0},
                                                               {"Strains", 1},
                                                               {"Displacement/Velocity/Acceleration", 2},
                                                               {"Forces/Reactions", 3},
                                                               {"Contact", 4},
                                                               {"Connector", 5},
                                                               {"Energy", 6},
                                                               {"Failure/Fracture", 7},
                                                               {"Thermal", 8},
                                                               {"Electrical", 9},
                                                               {"Porous media/Fluids", 10},
                                                               {"Acoustics", 11},
                                                               {"Mass diffusion", 12},
                                                               {"Volume/Thickness/Coordinates", 13},
                                                               {"Mass center kinematics", 14},
                                                               {"Error Indicators", 15},
                                                               {"State/Field/User/Time", 16},
                                                               {"INVALID_LABEL", 17},
                                                               {nullptr, 0}};
};
template <> struct omu_EnumTable<korC_OdbRequestLabels::PrintEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"Node output", 0},           {"Element output", 1}, {"Modal output", 2},
      {"Surface output", 3},        {"Contact output", 4}, {"Radiation output", 5},
      {"Incrementation output", 6}, {"Energy output", 7},  {"Contact or element output", 8},
      {"Integrated output", 9},     {"INVALID_PRINT", 10}, {nullptr, 0}};
};
template <> struct omu_EnumTable<korC_OdbRequestLabels::LocationEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"NODE", 0},    {"ELEMENT_INT_PT", 1}, {"ELEMENT_SECTION_PT", 2},       {"WHOLE_ELEMENT", 3}, {"WHOLE_MODEL", 4},
      {"SURFACE", 5}, {"ELEMENT_REBAR", 6},  {"ELEMENT_INT_PT_OR_SPRING", 7}, {"ELEMENT_FACE", 8},  {"INVALID_LOC", 9},
      {nullptr, 0}};
};

/// One variable that may be requested: a row of the table (Variables.def), which says what the columns mean.
struct korC_OdbRequestSpec : korC_OdbRequestLabels {
  std::string_view name;
  int descriptionIndex;  ///< from 1, upward with the rows; korC_OdbDescriptions has the texts
  LocationEnm location;
  LabelEnm label;
  PrintEnm print;
  std::string_view components;  ///< keys with blanks between them
  std::string_view parent;      ///< the variable that this one is worked out from; "" for one of its own
  kprC_ProcedureSet procedures;
  unsigned channels;  ///< bit 0: field, bit 1: history
  kprC_ProcedureSet otherProcedures = {};
  unsigned reserved = 0;
  std::string_view text1 = {}, text2 = {};

  constexpr bool IsIn(korC_OdbChannel::TypeEnm channel) const { return (channels >> channel & 1U) != 0; }
  /// What the variable is, in the field's words. A look-up.
  DDB_API std::string_view Description() const;
  /// Calls \p visit(key) for every component.
  template <class Fn> constexpr void ForEachComponent(Fn&& visit) const {
    for (std::string_view rest = components; !rest.empty();) {
      std::size_t const end = rest.find(' ');
      visit(rest.substr(0, end));
      rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    }
  }
};

/// A request for one variable with a frequency of its own.
struct korC_OdbRequest {
  cow_String name;
  korC_TypeEnm type = korC_TypeEnm::FREQUENCY;
  int frequency = 1, numIntervals = 0;
  double timeInterval = 0;
  cow_List<int> modes;
  cow_String timePoint;

  /// Whether both are written equally often: in the same way, with the same value of that way.
  DDB_API bool EqualFrequency(korC_OdbRequest const& other) const;
};
