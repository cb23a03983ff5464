#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/BasicUtils/cls_Visitor.h"
#include "store/ModelSteps.h"

namespace gattr {

/// What both writers have in common: steps become their names, and what cannot be stored is
/// refused with a StoreError that names the object and the member: a number that is not finite, a text that is not UTF-8,
/// an object of a class that nobody has described.
class StoreWriter : public cls_WriteVisitor {
public:
  bool StartWrite(unsigned /*typeId*/, cls_Uid const& /*uid*/) const override { return true; }  // sharing is settled in PutShared
  void WriteBool(std::string_view member, bool value) const override { PutBool(Named(member), value); }
  void WriteInteger(std::string_view member, long long value) const override;
  void WriteReal(std::string_view member, double value) const override;
  void WriteText(std::string_view member, std::string_view value) const override;
  void WriteNull(std::string_view member) const override;
  void WriteObject(std::string_view member, cls_Object const& object) const override;
  void WriteReference(std::string_view member, std::string_view name, cls_Object const& object) const override;
  void WriteNested(std::string_view member, cls_Object const& object) const override;
  void StartList(std::string_view member, std::size_t count) const override;
  void EndList() const override { End(); }
  bool StartMap(std::string_view member, std::size_t count) const override;
  void EndMap() const override { End(); }

protected:
  enum class Kind { Object, List, Map };
  struct Level {
    Kind kind;
    std::string_view name;
    std::size_t count = 0;  ///< of what has been written here
  };

  /// \p where opens the messages: the file, and the way to what is written.
  StoreWriter(ModelSteps const& steps, std::string_view where);
  void SetWhere(std::string where) { where_ = std::move(where); }

  /// Outermost first; the first is what DBWrite was called for.
  std::vector<Level> const& Levels() const { return levels_; }
  ModelSteps const& Steps() const { return steps_; }
  /// The name of the class of \p object, which is about to be written under \p member.
  std::string const& ClassName(std::string_view member, cls_Object const& object) const;
  /// \p member as it may be written; counts it.
  std::string_view Named(std::string_view member) const;
  void Begin(Kind kind, std::string_view name) const { levels_.push_back({kind, name, 0}); }
  void End() const;
  [[noreturn]] void Refuse(std::string_view member, std::string_view expected) const;

  virtual void PutNull(std::string_view member) const = 0;
  virtual void PutBool(std::string_view member, bool value) const = 0;
  virtual void PutInteger(std::string_view member, long long value) const = 0;
  virtual void PutReal(std::string_view member, double value) const = 0;
  virtual void PutText(std::string_view member, std::string_view value) const = 0;
  /// Writes \p object short where it stands written already; false to have it written whole. Null for a null member.
  virtual bool PutShared(std::string_view member, cls_Object const* object) const = 0;
  /// Opens an object; \p className is empty where the owner knows the class.
  virtual void OpenObject(std::string_view member, std::string_view className) const = 0;
  virtual void OpenList(std::string_view member, std::size_t count) const = 0;
  /// False when the map is stored elsewhere.
  virtual bool OpenMap(std::string_view member) const = 0;
  virtual void Close(Kind kind) const = 0;
  /// Whether steps are written by their names: not where the model holds them, and not in what has to be complete in itself.
  virtual bool RefersToSteps() const { return !inHome_; }

private:
  ModelSteps const& steps_;
  std::string where_;
  mutable bool inHome_ = false;        // in the extension that holds the steps
  mutable std::vector<Level> levels_;  // writing goes through a const interface
};

}  // namespace gattr
