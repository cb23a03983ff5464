#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/BasicUtils/cls_Uid.h"
#include "platform/BasicUtils/cow_Handle.h"
#include "platform/BasicUtils/cow_String.h"
#include "platform/CoreUtils/ddb_Export.h"

class cls_Object;

/// Sink of persistent objects. An object opens itself with StartWrite and then writes its members in the order of its
/// list, each under its fixed name. The elements of a list have the empty name.
class DDB_API cls_WriteVisitor {
public:
  virtual ~cls_WriteVisitor();

  /// Opens an object of type \p typeId. False when the object \p uid stands written already; then nothing more is written.
  virtual bool StartWrite(unsigned typeId, cls_Uid const& uid) const = 0;

  virtual void WriteBool(std::string_view member, bool value) const = 0;
  virtual void WriteInteger(std::string_view member, long long value) const = 0;
  virtual void WriteReal(std::string_view member, double value) const = 0;
  virtual void WriteText(std::string_view member, std::string_view value) const = 0;
  /// Writes an enumerated value whose numbers never change, under the name that \p member and \p suffix make: a visitor writes
  /// the text or the number.
  virtual void WriteEnumerated(std::string_view member, std::string_view suffix, std::string_view text, unsigned number) const;
  virtual void WriteNull(std::string_view member) const = 0;
  /// Writes a shared object, of whatever class, as a member; reads back with ReadObject. An object that stands written
  /// already becomes a reference to it.
  virtual void WriteObject(std::string_view member, cls_Object const& object) const = 0;
  /// Writes a shared object that goes by \p name wherever it is written, as a step does; reads back with ReadReference. A visitor
  /// that has written what bears the name may write the name alone.
  virtual void WriteReference(std::string_view member, std::string_view /*name*/, cls_Object const& object) const {
    WriteObject(member, object);
  }
  /// Element \p index of a sequence: its name, and what bears it or null.
  using SequenceElement = std::function<std::pair<std::string_view, cls_Object const*>(std::size_t index)>;
  /// Writes a sequence that a model has once and that others repeat, as that of its steps; reads back as a list. False where the
  /// visitor has no shorter way than the list.
  virtual bool WriteSequence(std::string_view /*member*/, std::size_t /*count*/, SequenceElement const& /*at*/) const { return false; }
  /// Writes an object that the owner holds by value and whose class it knows; reads back with ReadNested.
  virtual void WriteNested(std::string_view member, cls_Object const& object) const = 0;
  /// The same of an object that goes by \p name and that the model may declare under it; reads back with ReadDeclared. A visitor
  /// may write the name alone where the model declares an equal one.
  virtual void WriteDeclared(std::string_view member, std::string_view /*name*/, cls_Object const& object) const {
    WriteNested(member, object);
  }
  virtual void StartList(std::string_view member, std::size_t count) const = 0;
  virtual void EndList() const = 0;
  /// Opens a set of named members, written between here and EndMap under their keys. False when the visitor has them
  /// already; then they are not told, and the set is not closed.
  virtual bool StartMap(std::string_view member, std::size_t count) const = 0;
  virtual void EndMap() const = 0;

  /// Whether a list whose elements follow from some of them may be written as those alone.
  virtual bool WritesOwnRecordsOnly() const { return false; }

  /// Whether what a reader can conclude is left out: members that are as in a new object, the state of a propagating member
  /// that is set, and of a history all but what each step says of its own.
  virtual bool IsBrief() const { return false; }
  /// A new object of the class of \p object, for a brief visitor; null where nothing is left out.
  virtual cls_Object const* NewLike(cls_Object const& /*object*/) const { return nullptr; }
  /// Writes an element of a list: what the step called \p step says, for a brief visitor. \p values is null where that is to
  /// switch off. The first element is told whole, of the others those members that \p values sets or frees.
  virtual void WriteChange(std::string_view step, cls_Object const* values, bool isFirst) const;
};

/// Source of persistent objects; reads what a write visitor wrote, under the same names and in the same order.
/// Content that does not fit is refused with a message that names the object and the member.
class DDB_API cls_ReadVisitor {
public:
  virtual ~cls_ReadVisitor();

  /// Type of the object that is open.
  virtual unsigned TypeId() const = 0;
  virtual bool Has(std::string_view member) const = 0;
  virtual bool IsNull(std::string_view member) const = 0;
  virtual bool ReadBool(std::string_view member) const = 0;
  virtual long long ReadInteger(std::string_view member) const = 0;
  virtual double ReadReal(std::string_view member) const = 0;
  virtual std::string ReadText(std::string_view member) const = 0;
  /// The same as a text to keep: a visitor that has met it before may share it.
  virtual cow_String ReadShared(std::string_view member) const { return ReadText(member); }
  /// The number of an enumerated value; none where its text is to be read instead.
  virtual std::optional<unsigned> ReadEnumerated(std::string_view /*member*/, std::string_view /*suffix*/) const { return {}; }
  /// The object member, made by its class; null for a null member. What was written once comes back as one object.
  virtual cow_Handle<cls_Object> ReadObject(std::string_view member) const = 0;
  /// The same of an object that goes by \p name.
  virtual cow_Handle<cls_Object> ReadReference(std::string_view member, std::string_view name) const;
  /// Opens an object member and hands it to \p read.
  virtual void ReadNested(std::string_view member, std::function<void(cls_ReadVisitor const&)> const& read) const = 0;
  /// The same of an object of type \p typeId that the model may declare.
  virtual void ReadDeclared(std::string_view member, unsigned /*typeId*/, std::function<void(cls_ReadVisitor const&)> const& read) const {
    ReadNested(member, read);
  }
  /// Opens a list; its elements follow in turn under the empty name. Returns their number.
  virtual std::size_t StartList(std::string_view member) const = 0;
  virtual void EndList() const = 0;
  /// Opens a set of named members; returns the keys in the order of writing.
  virtual std::vector<std::string> StartMap(std::string_view member) const = 0;
  virtual void EndMap() const = 0;

  /// Whether the source was written by a visitor that takes lists so.
  virtual bool ReadsOwnRecordsOnly() const { return false; }

  /// Whether the source was written by a brief visitor: a member that is not there is as in a new object.
  virtual bool IsBrief() const { return false; }
  /// The next element of a list of changes: a step's name, and what it sets and frees; null where it switches off.
  virtual std::pair<std::string, cow_Handle<cls_Object>> ReadChange() const;

  /// Refuses the content of \p member: \p expected says what should have stood there.
  [[noreturn]] virtual void Refuse(std::string_view member, std::string_view expected) const = 0;
};
