#pragma once

#include <charconv>
#include <string>

#include "module/kpf/kpfC_FieldState.h"

enum class kpfC_StepStateEnm { FIRST_STEP = 0, LAST_STEP = 1 };
template <> struct omu_EnumTable<kpfC_StepStateEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"FIRST_STEP", 0}, {"LAST_STEP", 1}, {nullptr, 0}};
};
enum class kpfC_IncStateEnm { STEP_START = 0, STEP_END = 1 };
template <> struct omu_EnumTable<kpfC_IncStateEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {{"STEP_START", 0}, {"STEP_END", 1}, {nullptr, 0}};
};
/// How values of another mesh are taken over.
enum class kpfC_InterpolateEnm {
  INTERPOLATE_OFF = 0,
  INTERPOLATE_ON = 1,
  MIDSIDE_ONLY = 2,  ///< the meshes differ in their midside nodes alone
};
template <> struct omu_EnumTable<kpfC_InterpolateEnm> {
  static constexpr omu_PrimEnumBase::PrimEnumTableEl rows[] = {
      {"INTERPOLATE_OFF", 0}, {"INTERPOLATE_ON", 1}, {"MIDSIDE_ONLY", 2}, {nullptr, 0}};
};

/// A step of a results file, or a frame or increment of one: its number from 1, or a word for the first or the last.
template <class WordEnm> struct kpfC_Place {
  int number = 0;                             ///< counts where there is no word
  std::optional<omu_PrimEnum<WordEnm>> word;  ///< "FIRST_STEP"

  bool IsValid() const { return word || number > 0; }
  friend bool operator==(kpfC_Place const& a, kpfC_Place const& b) { return Text(a) == Text(b); }
  friend std::string Text(kpfC_Place const& place) { return place.word ? std::string(place.word->View()) : std::to_string(place.number); }
};
/// Stored as a text, scripted as a number or a word.
template <class WordEnm> struct cls_MemberTraits<kpfC_Place<WordEnm>> : cls_PlainTraits {
  using Place = kpfC_Place<WordEnm>;

  static void Describe(cls_MemberInfo& info) {
    cls_MemberTraits<omu_PrimEnum<WordEnm>>::Describe(info);
    info.kind = cls_MemberKind::Integer;
  }
  static void Write(cls_WriteVisitor const& out, std::string_view name, Place const& place) { out.WriteText(name, Text(place)); }
  static void Read(cls_ReadVisitor const& in, std::string_view name, Place& place) {
    std::string const text(in.ReadText(name));
    omu_PrimEnum<WordEnm> word;
    if (word.SetValue(text.c_str())) { return static_cast<void>(place = {0, word}); }
    char const* const end = text.data() + text.size();
    Place read;
    if (std::from_chars(text.data(), end, read.number).ptr != end || text.empty()) { in.Refuse(name, "a number or a word for one"); }
    place = read;
  }
  static cls_Value ToValue(Place const& place) { return place.word ? cls_Value(Text(place)) : cls_Value(place.number); }
  static std::string_view FromValue(Place& place, cls_Value const& from) {
    Place made;
    if (from.As<std::string>() == nullptr) {
      auto const expected = from.IsNull() ? std::string_view("an integer") : cls_MemberTraits<int>::FromValue(made.number, from);
      return expected == "" ? (place = made, expected) : expected;
    }
    omu_PrimEnum<WordEnm> word;
    if (!word.SetValue(from.As<std::string>()->c_str())) { return "an integer, or a word for the first or the last"; }
    return place = {0, word}, "";
  }
};

/// Per-step state of a field that may be read from the results of an earlier analysis: which file, and what of it.
class DDB_API kpfC_FromFileState : public kprC_StateOf<kpfC_FromFileState, kpfC_FieldState> {
public:
  using StepStateEnm = kpfC_StepStateEnm;
  using IncStateEnm = kpfC_IncStateEnm;
  using Step = kpfC_Place<StepStateEnm>;
  using Increment = kpfC_Place<IncStateEnm>;
  /// Characters that the name of a file may have with its path.
  static constexpr std::size_t kLongestName = 32;

  static constexpr omn_FixedString fileNameCmd() { return "fileName"; }

  kpfC_FromFileState() = default;
  explicit kpfC_FromFileState(cls_ReadVisitor const& in) { cls_ReadMembers(*this, in); }

  mdl_PropAttr<cow_String> fileName;  ///< with its extension: .odb, .fil or .res
  mdl_PropAttr<Step> beginStep, endStep;
  mdl_PropAttr<Increment> beginIncrement, endIncrement;
  mdl_PropAttr<omu_PrimEnum<kpfC_InterpolateEnm, 1>> interpolate;

  /// Refuses 95 a name of more than 32 characters, 90 one with a folder, 91 a step that is no number from 1, 92 such an increment.
  void AssertValid() const override;
  /// Where the application has results files: refuses one that is missing, and 84 a step, with its increment, that it does not hold.
  virtual void AssertInFile() const;

  template <class V> static constexpr void VisitMembers(V&& visit) {
    using Self = kpfC_FromFileState;
    kpfC_FieldState::VisitMembers(visit);
    visit(fileNameCmd(), &Self::fileName,
          cls_MemberText{"the results file of an earlier analysis, in the current folder: .odb, .fil or .res"});
    visit("beginStep", &Self::beginStep, cls_MemberText{"the step of the file from which on it is read"}.Refused(kpfC_ErrorEnm::StepValue));
    visit("beginInc", &Self::beginIncrement,
          cls_MemberText{"the increment of that step"}.Refused(kpfC_ErrorEnm::IncrementValue).Called("beginIncrement"));
    visit("endStep", &Self::endStep, cls_MemberText{"the step up to which it is read"}.Refused(kpfC_ErrorEnm::StepValue));
    visit("endInc", &Self::endIncrement,
          cls_MemberText{"the increment of that step"}.Refused(kpfC_ErrorEnm::IncrementValue).Called("endIncrement"));
    visit("interpolate", &Self::interpolate, cls_MemberText{"whether values of another mesh are interpolated"});
  }

protected:
  /// Whether the file is a results file, and no output database: .fil or .res.
  bool IsResultsFile() const;

private:
  /// ".odb" of the file's name; empty where it has none.
  std::string_view Extension() const;
};
