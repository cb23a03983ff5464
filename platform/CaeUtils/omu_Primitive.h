#pragma once

#include "platform/BasicUtils/cow_Map.h"
#include "platform/BasicUtils/cow_String.h"
#include "platform/CoreUtils/ddb_Export.h"

/// A value that a command can set from a text.
class DDB_API omu_Primitive {
public:
  virtual ~omu_Primitive();

  /// Two primitives of different kinds are not equal.
  friend bool operator==(omu_Primitive const& left, omu_Primitive const& right) { return left.IsEqual(right); }
  /// False, and nothing has changed, when \p text does not stand for a value.
  virtual bool SetValue(char const* text) = 0;
  /// A new copy, which the caller owns.
  [[nodiscard]] virtual omu_Primitive* Copy() const = 0;
  /// The texts that SetValue accepts, each with its number.
  virtual cow_Map<cow_String, unsigned int> PermissibleValues() const = 0;

protected:
  omu_Primitive() = default;
  omu_Primitive(omu_Primitive const&) = default;
  omu_Primitive& operator=(omu_Primitive const&) = default;

private:
  virtual bool IsEqual(omu_Primitive const& other) const = 0;
};
