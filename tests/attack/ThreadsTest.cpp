#include <thread>

#include "module/kpr/engine/kprC_StepAwareRepository.h"
#include "tests/store/Models.h"

namespace {

/// Everything that a reader of a model can ask for, as one text.
std::string Read(ddr_Model const& model) {
  std::string read = Dump(model);
  for (omn_FixedString const member : {ddr_Model::bcCmd(), kloC_Load::loadRepositoryCmd()}) {
    dynamic_cast<kprC_StepAwareRepository const&>(*model.ConstExtension(member.View()))
        .ForEach([&](cow_String const& name, auto const& item) {
          item.ForEachRecord([&](std::size_t, mdl_PropagationStatusEnm status, cls_Object const* state) {
            read.append(name.View()) += std::to_string(static_cast<int>(status)) + (state == nullptr ? " " : "s ");
          });
        });
  }
  return read;
}

// Each thread has handles of its own on what they share.
TEST(SnapshotsOnSeveralThreads, AreReadEditedAndSavedIndependently) {
  constexpr int kThreads = 4, kRounds = 20;
  ddr_Model const model = SmallModel();
  std::string const before = Read(model);
  ScratchFolder folder;
  std::vector<std::string> read(kThreads);
  std::vector<std::thread> threads;
  for (int number = 0; number < kThreads; ++number) {
    threads.emplace_back([&, number, snapshot = model]() mutable {
      for (int round = 0; round < kRounds; ++round) {
        if (Read(model) != before) { return; }
        std::string unknown;
        GetBCs(snapshot).Get("Move").SetInStep("Step-3", {{"u2", 1.0 * round}}, &unknown);
        kprC_RenameStep(snapshot, "Step-2", "Step-2");
        Store const& store = kStores[round % 2];
        auto const path = folder / (std::to_string(number) + store.fileName);
        store.write(snapshot, path);
        if (Dump(store.read(path)) != Dump(snapshot)) { return; }
      }
      read[static_cast<std::size_t>(number)] = Read(model);
    });
  }
  for (std::thread& thread : threads) { thread.join(); }
  for (std::string const& text : read) { EXPECT_EQ(text, before); }
}

}  // namespace
