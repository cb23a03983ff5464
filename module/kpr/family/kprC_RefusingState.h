#pragma once

#include "module/kpr/engine/kprC_State.h"

/// Base of the states whose members are refused by the numbers that their lists give them. \p Assert raises them.
template <auto Assert> class kprC_RefusingState : public kprC_State {
protected:
  [[noreturn]] void RefuseValue(std::string_view name, cls_MemberText const& text, std::string_view expected) const override {
    if (text.refusal >= 0) { Raise(Assert, text.refusal); }
    kprC_State::RefuseValue(name, text, expected);
  }

private:
  template <class Error> static void Raise(void (*refuse)(bool, Error), int code) { refuse(false, static_cast<Error>(code)); }
};
