#pragma once

#include "module/kin/kinC_Interaction.h"

/// Per-step state of general contact.
class DDB_API kinC_ContactExpState final : public kprC_StateOf<kinC_ContactExpState, kinC_InteractionState> {
public:
  using kprC_StateOf::kprC_StateOf;
};

/// Contact of a whole domain with itself, in explicit procedures.
class DDB_API kinC_ContactExp final : public kprC_TypeOf<kinC_ContactExp, kinC_Interaction> {
public:
  using kprC_TypeOf::kprC_TypeOf;
};
