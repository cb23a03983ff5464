#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "platform/BasicUtils/cls_Members.h"

/// What objects weigh in memory, in bytes and roughly: for those who bound it.

/// The object itself, as far as its list tells, with what the heap takes for it.
DDB_API std::size_t cls_OwnBytes(cls_Object const& object);

/// What a member holds beside its object: a text, a list, another object. Of the elements of a list the first few are looked at.
DDB_API std::size_t cls_HeldBytes(cls_MemberRow const& row, cls_Object const& object);

/// What the members of \p object hold, but for the one called \p but, and for those that are as in one of \p others, of which those of its
/// class share them then.
DDB_API std::size_t cls_HeldBytes(cls_Object const& object, std::span<cls_Object const* const> others, std::string_view but = {});
