#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "platform/BasicUtils/cls_Uid.h"
#include "platform/BasicUtils/cls_Value.h"
#include "platform/BasicUtils/mem_Counted.h"
#include "platform/CoreUtils/ddb_Export.h"

class cls_ReadVisitor;
class cls_WriteVisitor;
struct cls_MemberRow;
struct cls_MemberText;
using cls_MemberRows = std::span<cls_MemberRow const>;

/// Root of every persistent class. What is stored, compared and scripted of one are its rows (cls_Members.h); the overrides
/// that only the class can give come from cls_Persistent. The members begin where the object begins: a persistent class has
/// its persistent base first, and no virtual ones.
class DDB_API cls_Object : public mem_Counted {
public:
  using Root = cls_Object;

  cls_Object() = default;
  cls_Object(cls_Object const&) = default;
  cls_Object& operator=(cls_Object const&) = default;
  virtual ~cls_Object();

  /// Type identity of the object's own class: module number in the upper 16 bits, class number in the lower.
  virtual unsigned DynTypeId() const = 0;
  /// The members of the object's own class, in the order of writing.
  virtual cls_MemberRows MemberRows() const = 0;
  virtual void DBWrite(cls_WriteVisitor const& out) const;
  /// A copy of the object's own class, with the same identity.
  virtual std::unique_ptr<cls_Object> Copy() const = 0;
  /// Gives the object, and the members that have one, a fresh identity. A copy that is changed must get one, or a
  /// writer would take it for its source.
  virtual void NewUid();
  /// Same class and equal members; identities do not count.
  virtual bool Equals(cls_Object const& other) const;
  /// The member called \p name by its list or by commands; nothing when the class has none.
  virtual cls_Value Member(std::string_view name) const;
  /// Sets the member called \p name by its list or by commands. False when there is none; a value that does not fit is refused
  /// (RefuseValue).
  virtual bool SetMember(std::string_view name, cls_Value const& value);

  /// Called once all members of an object that is made from \p in are read: works out what is not stored, and refuses
  /// members that do not fit each other.
  virtual void Restored(cls_ReadVisitor const& /*in*/) {}

  virtual cls_Uid Uid() const { return cls_Uid::OfObject(number_); }

protected:
  /// Refuses a value for the member \p name; \p expected says what fits. Raises nex_TextException unless the class has a
  /// numbered refusal of its own.
  [[noreturn]] virtual void RefuseValue(std::string_view name, cls_MemberText const& text, std::string_view expected) const;

private:
  std::uint64_t number_ = cls_Uid::AllocateNumber();  // of its identity
};
