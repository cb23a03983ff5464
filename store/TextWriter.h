#pragma once

#include <iosfwd>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "framework/mdl_MapString2ObjCow.h"
#include "store/StoreWriter.h"
#include "text/Progress.h"

namespace gattr {

/// Writes a model as canonical JSON; the layout is described in README.md. Nothing but content decides about it.
class TextWriter final : public StoreWriter {
public:
  static constexpr std::string_view kFormat = "gattr model";
  static constexpr long long kVersion = 2;
  static constexpr std::string_view kOwnSteps = "steps";           ///< stands for a sequence that is the model's own
  static constexpr std::string_view kStep = "step", kOff = "off";  ///< tell of a record which step sets values or switches off

  /// \p tick is told of every object.
  TextWriter(ModelSteps const& steps, std::ostream& out, Ticker& tick);

  void WriteModel(ddr_Model const& model);

  bool WritesOwnRecordsOnly() const override { return true; }
  bool IsBrief() const override { return true; }
  cls_Object const* NewLike(cls_Object const& object) const override;
  void WriteChange(std::string_view step, cls_Object const* values, bool isFirst) const override;
  void WriteDeclared(std::string_view member, std::string_view name, cls_Object const& object) const override;
  bool WriteSequence(std::string_view member, std::size_t count, SequenceElement const& at) const override;

protected:
  void PutNull(std::string_view member) const override { Put(member, "null"); }
  void PutBool(std::string_view member, bool value) const override { Put(member, value ? "true" : "false"); }
  void PutInteger(std::string_view member, long long value) const override;
  void PutReal(std::string_view member, double value) const override;
  void PutText(std::string_view member, std::string_view value) const override;
  bool PutShared(std::string_view /*member*/, cls_Object const* /*object*/) const override { return false; }
  void OpenObject(std::string_view member, std::string_view className) const override;
  void OpenList(std::string_view member, std::size_t count) const override;
  bool OpenMap(std::string_view member) const override;
  void Close(Kind kind) const override;

private:
  /// How what is open is laid out.
  enum class Layout {
    Spread,     ///< a member has lines of its own
    OneLine,    ///< all on one line
    Undecided,  ///< a list without an element as yet: one of plain values takes one line, any other is spread
  };
  struct Opened {
    Kind kind;
    Layout layout;
    std::size_t count = 0;  ///< of what has been begun here
  };

  void Put(std::string_view member, std::string_view value) const;
  void Open(std::string_view member, Kind kind, Layout layout) const;
  /// All that stands before a value: comma, line, name. \p spread: the value takes lines of its own.
  void BeginMember(std::string_view member, bool spread) const;
  /// Goes from the name of a member of \p owner to its value.
  void ToValue(Opened const& owner, bool spread) const;
  /// Keeps what comes next apart from a value of \p owner.
  void Settle(Opened const& owner) const { apart_ = owner.layout == Layout::Spread && owner.kind != Kind::List; }
  void NewLine(std::size_t indentation) const;
  void Flush() const;

  std::ostream& out_;
  Ticker& tick_;
  std::vector<mdl_NamedObjects const*> declared_;
  // writing goes through a const interface
  mutable std::string buffer_;
  mutable std::vector<Opened> open_;
  mutable bool apart_ = false;                                     // an empty line is due
  mutable std::map<unsigned, std::unique_ptr<cls_Object>> fresh_;  // by type
};

}  // namespace gattr
