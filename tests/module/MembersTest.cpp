#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <set>
#include <vector>

#include "framework/ddr_ModelMembers.h"
#include "module/kbc/kbcC_ConnectorBC.h"
#include "module/kbc/kbcC_DisplacementBC.h"
#include "module/kbc/kbcC_MotionBC.h"
#include "module/kbc/kbcC_SubmodelBC.h"
#include "module/kbc/kbcC_TypeBC.h"
#include "module/kfd/kfdC_Field.h"
#include "module/kin/kinC_Interactions.h"
#include "module/kin/kinC_Properties.h"
#include "module/klo/kloC_Loads.h"
#include "module/kor/korC_Filter.h"
#include "module/kor/korC_IntegratedOutputSection.h"
#include "module/kor/korC_Output.h"
#include "module/kpf/kpfC_Fields.h"
#include "module/kpr/mesh/kprC_AdptMeshCons.h"
#include "module/kpr/model/kprC_StepContainer.h"
#include "module/kpr/records/kprC_TimePoint.h"
#include "module/kpr/steps/kprC_Steps.h"
#include "platform/CoreGeometry/dtmC_DatumRef.h"
#include "platform/NonGeometricAttributes/ampC_Curves.h"
#include "tests/support/Library.h"

namespace {

class Members : public test::WithLibrary {};

/// Bytes that belong to no listed member, as far as the classes themselves know them: what every object has, the name under which
/// a repository holds an attribute, and what is worked out from what is stored.
struct Unlisted {
  static std::size_t Of(cls_Object const*) { return sizeof(cls_Object); }
  static std::size_t Of(kprC_State const*) { return sizeof(kprC_State); }
  static std::size_t Of(kprC_AnalysisStep const*) { return sizeof(kprC_AnalysisStep); }  // each class lists what its procedure has
  static std::size_t Of(kprC_StepDependent const*) { return sizeof(kprC_StepDependent); }
};

/// Finds the bytes of an object that a constructor writes and that no row of its class explains. What two objects on differently
/// filled memory leave as it was is padding.
template <class T> void ExpectEveryFieldListed(std::set<std::string> const& known) {
  if constexpr (std::is_default_constructible_v<T>) {
    struct Free {
      void operator()(unsigned char* memory) const { ::operator delete(memory, std::align_val_t(alignof(T))); }
    };
    auto const allocate = [](int fill) {
      std::unique_ptr<unsigned char, Free> memory(static_cast<unsigned char*>(::operator new(sizeof(T), std::align_val_t(alignof(T)))));
      std::memset(memory.get(), fill, sizeof(T));
      return memory;
    };
    auto const zeros = allocate(0x00), ones = allocate(0xFF);
    T* const one = ::new (zeros.get()) T;
    T* const two = ::new (ones.get()) T;
    std::vector<bool> explained(sizeof(T), false);
    std::fill_n(explained.begin(), Unlisted::Of(one), true);
    for (cls_MemberRow const& row : one->MemberRows()) {
      std::fill_n(explained.begin() + row.offset, row.ops->size, true);
      EXPECT_LE(static_cast<std::size_t>(row.offset) + row.ops->size, sizeof(T)) << row.name;
    }
    std::size_t left = 0, first = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i) {
      bool const padding = zeros.get()[i] == 0x00 && ones.get()[i] == 0xFF;
      if (explained[i] || padding) { continue; }
      first = left++ == 0 ? i : first;
    }
    std::string const name = cls_TypeIdOf<T>::kName;
    EXPECT_EQ(left == 0, !known.contains(name)) << name << " has " << left << " bytes that no list names, the first at " << first;
    std::destroy_at(one);
    std::destroy_at(two);
  }
}

TEST_F(Members, AreAllListedByTheirClass) {
  // what these hold beside their members follows from them, or is a repository's bookkeeping
  std::set<std::string> const known = {"kbcC_TypeBC",
                                       "kprC_StepContainer",
                                       "kprC_PropagatingContainer<kbcC_BC>",
                                       "kprC_PropagatingContainer<kloC_Load>",
                                       "kprC_PropagatingContainer<kinC_Interaction>",
                                       "kprC_PropagatingContainer<korC_FieldOutput>",
                                       "kprC_PropagatingContainer<korC_HistoryOutput>",
                                       "kprC_PropagatingState<kbcC_BCState>",
                                       "kprC_PropagatingState<kloC_LoadState>",
                                       "kprC_PropagatingState<kinC_InteractionState>",
                                       "kprC_PropagatingState<korC_OutputState>"};
#define DDB_CLASS(number, Class) ExpectEveryFieldListed<Class>(known);
#include "platform/CoreGeometry/Types.def"
#define DDB_CLASS(number, Class) ExpectEveryFieldListed<Class>(known);
#include "platform/NonGeometricAttributes/Types.def"
#define DDB_CLASS(number, Class) ExpectEveryFieldListed<Class>(known);
#include "module/kpr/Types.def"
#define DDB_CLASS(number, Class) ExpectEveryFieldListed<Class>(known);
#include "module/kfd/Types.def"
#define DDB_INSTANCE(number, Class)
#define DDB_CLASS(number, Class) ExpectEveryFieldListed<Class>(known);
#include "module/kbc/Types.def"
#define DDB_INSTANCE(number, Class)
#define DDB_CLASS(number, Class) ExpectEveryFieldListed<Class>(known);
#include "module/klo/Types.def"
#define DDB_INSTANCE(number, Class)
#define DDB_CLASS(number, Class) ExpectEveryFieldListed<Class>(known);
#include "module/kin/Types.def"
#define DDB_INSTANCE(number, Class)
#define DDB_CLASS(number, Class) ExpectEveryFieldListed<Class>(known);
#include "module/kor/Types.def"
#define DDB_INSTANCE(number, Class)
#define DDB_CLASS(number, Class) ExpectEveryFieldListed<Class>(known);
#include "module/kpf/Types.def"
#define DDB_INSTANCE(number, Class)
#define DDB_CLASS(number, Class) ExpectEveryFieldListed<Class>(known);
#include "module/kpr/mesh/Types.def"
}

TEST_F(Members, AreRefusedWhenTwoHaveOneName) {
  std::vector<cls_MemberRow> rows(cls_RowsOf<conC_Connector>().begin(), cls_RowsOf<conC_Connector>().end());
  rows.push_back(rows.front());
  cls_ClassRegistrar registrar;
  EXPECT_THROW(registrar.AddClass("Doubled", 1, rows), nex_TextException);
  EXPECT_EQ(registrar.Find(1U), nullptr);
  registrar.AddClass("Sound", 1, cls_RowsOf<conC_Connector>());
  EXPECT_THROW(registrar.AddClass("Other", 1, {}), nex_TextException) << "the number is taken";
}

}  // namespace
