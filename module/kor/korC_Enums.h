#pragma once

#include "platform/CaeUtils/omu_PrimEnum.h"

// The enumerations of output requests. Their texts are stored.

/// In which of five ways a request says how often it writes. INVALID stands between the fourth and the fifth for good.
enum class korC_TypeEnm {
  FREQUENCY = 0,         ///< every so many increments
  NUMBER_INTERVALS = 1,  ///< at equal parts of the step's time
  TIME_INTERVAL = 2,     ///< in intervals of time
  MODES = 3,             ///< for modes
  INVALID = 4,
  TIME_POINT = 5,  ///< at points of time
};
template <> struct omu_EnumTable<korC_TypeEnm> {
  static constexpr auto kNoChoice = korC_TypeEnm::INVALID;
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"FREQUENCY", 0}, {"NUMBER_INTERVALS", 1}, {"TIME_INTERVAL", 2}, {"MODES", 3}, {"INVALID", 4}, {"TIME_POINT", 5}, {nullptr, 0}};
};

/// A word that stands for a list of variables.
enum class korC_VariablesTypeEnm {
  NO_OUTPUT_VARIABLES,
  PRESELECT,
  CONTACT_PRESELECT,
  ELEMENT_PRESELECT,
  ENERGY_PRESELECT,
  INCREMENTATION_PRESELECT,
  NODE_PRESELECT,
  INTEGRATED_PRESELECT,
  CONTACT_ALL,
  ELEMENT_ALL,
  ENERGY_ALL,
  INCREMENTATION_ALL,
  NODE_ALL,
  MODAL_ALL,
  RADIATION_ALL,
  INTEGRATED_ALL,
};
template <> struct omu_EnumTable<korC_VariablesTypeEnm> {
  static constexpr auto kNoChoice = korC_VariablesTypeEnm::NO_OUTPUT_VARIABLES;
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"NO_OUTPUT_VARIABLES", 0},
                                                               {"PRESELECT", 1},
                                                               {"CONTACT_PRESELECT", 2},
                                                               {"ELEMENT_PRESELECT", 3},
                                                               {"ENERGY_PRESELECT", 4},
                                                               {"INCREMENTATION_PRESELECT", 5},
                                                               {"NODE_PRESELECT", 6},
                                                               {"INTEGRATED_PRESELECT", 7},
                                                               {"CONTACT_ALL", 8},
                                                               {"ELEMENT_ALL", 9},
                                                               {"ENERGY_ALL", 10},
                                                               {"INCREMENTATION_ALL", 11},
                                                               {"NODE_ALL", 12},
                                                               {"MODAL_ALL", 13},
                                                               {"RADIATION_ALL", 14},
                                                               {"INTEGRATED_ALL", 15},
                                                               {nullptr, 0}};
};

/// What is written of reinforcing bars.
enum class korC_RebarEnm { EXCLUDE, INCLUDE, ONLY };
template <> struct omu_EnumTable<korC_RebarEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"EXCLUDE", 0}, {"INCLUDE", 1}, {"ONLY", 2}, {nullptr, 0}};
};

/// What editors offer instead of an interval of time: every increment is written where the interval is 0.
enum class korC_EveryIncrementEnm { DEFAULT, EVERY_TIME_INCREMENT };
template <> struct omu_EnumTable<korC_EveryIncrementEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"DEFAULT", 0}, {"EVERY_TIME_INCREMENT", 1}, {nullptr, 0}};
};

/// Where in the plies of a layup values are written.
enum class korC_LayupLocationEnm { ALL_LOCATIONS, SPECIFIED, TYPED_IN };
template <> struct omu_EnumTable<korC_LayupLocationEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"ALL_LOCATIONS", 0}, {"SPECIFIED", 1}, {"TYPED_IN", 2}, {nullptr, 0}};
};

/// What a contour integral evaluates at the tip of a crack.
enum class korC_ContourTypeEnm { J_INTEGRAL, C_INTEGRAL, T_STRESS, K_FACTORS };
template <> struct omu_EnumTable<korC_ContourTypeEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"J_INTEGRAL", 0}, {"C_INTEGRAL", 1}, {"T_STRESS", 2}, {"K_FACTORS", 3}, {nullptr, 0}};
};
/// The criterion for the direction in which a crack is going to grow.
enum class korC_KFactorDirectionEnm {
  MERR,  ///< largest rate at which energy is released
  KII0,  ///< no sliding of the crack's faces
  MTS,   ///< largest tangential stress
};
template <> struct omu_EnumTable<korC_KFactorDirectionEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"MERR", 0}, {"KII0", 1}, {"MTS", 2}, {nullptr, 0}};
};

/// How the reference point of an integrated output section moves.
enum class korC_RefPointMotionEnm { INDEPENDENT, AVERAGE, AVERAGE_TRANSLATION };
template <> struct omu_EnumTable<korC_RefPointMotionEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"INDEPENDENT", 0}, {"AVERAGE", 1}, {"AVERAGE_TRANSLATION", 2}, {nullptr, 0}};
};

/// What a request is about.
enum class korC_DomainTypeEnm {
  WHOLE_MODEL = 0,
  SET = 1,
  BOLT_LOAD = 2,
  CONNECTOR = 3,
  INTERACTION = 4,
  INTEGRATED_OUTPUT_SECTION = 5,
  GENERAL_CONTACT_SURFACE = 6,  ///< in explicit analyses only
  COMPOSITE_LAYUP = 7,
};
template <> struct omu_EnumTable<korC_DomainTypeEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"WHOLE_MODEL", 0},
                                                               {"SET", 1},
                                                               {"BOLT_LOAD", 2},
                                                               {"CONNECTOR", 3},
                                                               {"INTERACTION", 4},
                                                               {"INTEGRATED_OUTPUT_SECTION", 5},
                                                               {"GENERAL_CONTACT_SURFACE", 6},
                                                               {"COMPOSITE_LAYUP", 7},
                                                               {nullptr, 0}};
};

/// Where a request's values go.
struct korC_OdbChannel {
  enum TypeEnm : unsigned { FIELD = 0, HISTORY = 1 };
};
template <> struct omu_EnumTable<korC_OdbChannel::TypeEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"FIELD", 0}, {"HISTORY", 1}, {nullptr, 0}};
};
