#pragma once

#include <span>
#include <unordered_map>
#include <vector>

#include "module/kor/korC_OdbRequestSpec.h"
#include "platform/CoreUtils/thr_Singleton.h"

/// The variables that output requests may ask for: the rows of Variables.def and their indices. One per thread, made when it is first
/// asked: thr_ThreadSingleton<korC_OdbRequestTable>::Instance(). The rows themselves are constants that cost nothing.
///
/// Several rows may have one name, as far as their procedures differ or a channel has components of its own: who asks says the procedure
/// type. A key that no row has may be a component of one ("S11"), for which the rows that list it answer. A look-up
/// costs one hash of the key, a question about a list one for each of its keys.
class DDB_API korC_OdbRequestTable {
public:
  using Row = korC_OdbRequestSpec;
  using LabelEnm = Row::LabelEnm;
  using PrintEnm = Row::PrintEnm;
  using ChannelEnm = korC_OdbChannel::TypeEnm;
  using DomainEnm = korC_DomainTypeEnm;
  using Identifiers = cow_List<cow_String>;

  korC_OdbRequestTable();
  static korC_OdbRequestTable& Instance() { return thr_ThreadSingleton<korC_OdbRequestTable>::Instance(); }

  /// All rows, in the order of the table.
  static std::span<Row const> Rows();

  // The names of the variables that may be requested in a step of \p procedureType, each once, in row order.

  Identifiers All(unsigned procedureType, ChannelEnm channel, DomainEnm domain) const;
  /// Those that PRESELECT stands for.
  Identifiers Defaults(unsigned procedureType, ChannelEnm channel, DomainEnm domain) const;
  /// The same as requests, each as often as a new request of such a step.
  std::vector<korC_OdbRequest> DefaultRequests(unsigned procedureType, ChannelEnm channel, DomainEnm domain) const;
  /// Those of \p list, names or components, that may.
  Identifiers Filter(Identifiers const& list, unsigned procedureType, ChannelEnm channel, DomainEnm domain) const;
  /// Those of a category.
  Identifiers Requests(LabelEnm label, unsigned procedureType, ChannelEnm channel, DomainEnm domain) const;
  /// The categories that have a variable of the channel, in their order.
  std::vector<LabelEnm> Labels(ChannelEnm channel) const;
  std::vector<LabelEnm> Labels(ChannelEnm channel, unsigned procedureType, DomainEnm domain) const;

  /// The row of that name that holds the procedure type; null where none does. Refuses 12 a name that no row has.
  Row const* Request(std::string_view name, unsigned procedureType) const;
  /// Of the row that holds the procedure type, else of the first one of that name.
  LabelEnm Label(std::string_view name, unsigned procedureType) const;
  PrintEnm Print(std::string_view name, unsigned procedureType) const;

  /// Whether the key is a component of a row, and the name of none.
  bool IsComponentRequest(std::string_view key) const;
  /// The first row that lists the component and holds the procedure type; null where none does. Refuses 13 a key that no row lists.
  Row const* RequestSpecFromComponent(std::string_view component, unsigned procedureType) const;
  /// Its name; empty where there is none.
  cow_String RequestFromComponent(std::string_view component, unsigned procedureType) const;
  LabelEnm LabelFromComponent(std::string_view component, unsigned procedureType) const;
  PrintEnm PrintFromComponent(std::string_view component, unsigned procedureType) const;
  bool ComponentHasLabel(std::string_view component, LabelEnm label, unsigned procedureType) const;

  /// Whether other variables are worked out from that one.
  bool IsParentRequest(std::string_view name) const;
  /// Those that are, as far as a step of \p procedureType has them.
  Identifiers SpawnedIdentifiers(std::string_view name, unsigned procedureType) const;

  // The keys of \p list, in its order, that a request of such a step may not have.

  Identifiers GetInvalidIdentifiers(Identifiers const& list, unsigned procedureType, ChannelEnm channel, DomainEnm domain) const;
  Identifiers GetInvalidFieldIdentifiers(Identifiers const& list, unsigned procedureType, DomainEnm domain) const {
    return GetInvalidIdentifiers(list, procedureType, korC_OdbChannel::FIELD, domain);
  }
  Identifiers GetInvalidHistoryIdentifiers(Identifiers const& list, unsigned procedureType, DomainEnm domain) const {
    return GetInvalidIdentifiers(list, procedureType, korC_OdbChannel::HISTORY, domain);
  }
  /// The same where only those of a category, or of one or two classes of output, may be requested.
  Identifiers GetInvalidLabelIdentifiers(Identifiers const& list, unsigned procedureType, LabelEnm label, ChannelEnm channel,
                                         DomainEnm domain) const;
  Identifiers GetInvalidPrintIdentifiers(Identifiers const& list, unsigned procedureType, PrintEnm print, ChannelEnm channel,
                                         DomainEnm domain) const;
  Identifiers GetInvalidPrintIdentifiers(Identifiers const& list, unsigned procedureType, PrintEnm one, PrintEnm other, ChannelEnm channel,
                                         DomainEnm domain) const;

  /// Whether a row has that name or lists that component.
  bool IsKnown(std::string_view key) const { return !RowsOf(key).empty(); }
  /// Refuses a key that is not known: 13 where it is a variable's with a number behind it, else 12.
  void AssertKnown(std::string_view key) const;
  /// The first row of a key that is known, whatever the step.
  Row const& First(std::string_view key) const { return Rows()[RowsOf(key).front()]; }
  /// The first row that answers for the key, a name or a component, in a step of \p procedureType and in that channel; null where none
  /// does.
  Row const* Find(std::string_view key, unsigned procedureType, ChannelEnm channel) const;
  /// The procedures in whose steps such a request may have the key.
  kprC_ProcedureSet Procedures(std::string_view key, ChannelEnm channel, DomainEnm domain) const;
  /// Whether a request about that domain may have a variable of that row.
  static bool Fits(Row const& row, DomainEnm domain);

private:
  using Numbers = std::vector<std::uint16_t>;
  using Index = std::unordered_map<std::string_view, Numbers>;

  /// The rows of that name, else those that list the component, by their numbers.
  std::span<std::uint16_t const> RowsOf(std::string_view key) const;
  template <class Keep> Identifiers Names(unsigned procedureType, ChannelEnm channel, DomainEnm domain, Keep&& keep) const;
  template <class Is>
  Identifiers Rejected(Identifiers const& list, unsigned procedureType, ChannelEnm channel, DomainEnm domain, Is&& is) const;
  static Row const& FirstOf(Row const* row, std::span<std::uint16_t const> rows) { return row != nullptr ? *row : Rows()[rows.front()]; }

  Index names_, components_, children_;
};

/// The texts that describe the variables, by their indices: thr_GlobalSingleton<korC_OdbDescriptions>::Instance().
class DDB_API korC_OdbDescriptions {
public:
  /// Empty for an index that no row has.
  std::string_view Text(int index) const;
};

/// The categories as lists show them, in their order. One has the key of its translation behind it.
DDB_API std::span<std::string_view const> korC_OdbCategories();

/// The keys that a symbol stands for in a step of \p procedureType, in row order. Empty where it stands for none there.
DDB_API cow_List<cow_String> korC_VariablesOf(korC_VariablesTypeEnm symbol, unsigned procedureType, korC_OdbChannel::TypeEnm channel,
                                              korC_DomainTypeEnm domain);
