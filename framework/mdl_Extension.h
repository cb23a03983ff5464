#pragma once

#include "platform/BasicUtils/cls_Object.h"
#include "platform/BasicUtils/cls_Persistent.h"

/// Something that a model holds under a member name: a repository, the step container.
class DDB_API mdl_Extension : public cls_Object {};

class mdl_Repository;
template <> struct cls_TypeIdOf<mdl_Repository> {
  static constexpr unsigned value = 0x02130001;
  static constexpr char const* kName = "mdl_Repository";
};

/// Base of the repositories of a model; the first thing that a repository writes.
class DDB_API mdl_Repository : public mdl_Extension {
public:
  template <class V> static constexpr void VisitMembers(V&&) {}
};
