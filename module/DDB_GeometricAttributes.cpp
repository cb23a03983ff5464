#include "module/DDB_GeometricAttributes.h"

#include <iterator>

#include "framework/ddr_ModelMembers.h"
#include "module/ddb_BareModules.h"
#include "module/kbc/kbcC_module.h"
#include "module/kfd/kfdC_Field.h"
#include "module/kin/kinC_module.h"
#include "module/klo/kloC_module.h"
#include "module/kor/korC_module.h"
#include "module/kpf/kpfC_module.h"
#include "module/kpr/kprC_module.h"
#include "platform/BasicUtils/ZLKUTI_BasicUtils.h"
#include "platform/CaeUtils/ZLKUTI_CaeUtils.h"
#include "platform/CoreGeometry/ZLKDDB_CoreGeometry.h"
#include "platform/CoreUtils/ZLKUTI_CoreUtils.h"
#include "platform/CoreUtils/ddb_CallCounter.h"
#include "platform/ModelServices/ZLKDDB_DiagnosticExtractor.h"
#include "platform/ModelServices/ZLKDDB_ROM.h"
#include "platform/ModelServices/ZLKUTI_RfmInterface.h"
#include "platform/NonGeometricAttributes/ZLKDDB_NonGeometricAttributes.h"

namespace {
struct Part {
  void (*initialize)(int&);
  void (*finalize)(int&);
};
#define DDB_PART(name) \
  { &name##_initialize, &name##_finalize }

void modelMembers_initialize(int& /*count*/) { ddr_RegisterModelMembers(); }
void modelMembers_finalize(int& /*count*/) { ddr_UnregisterModelMembers(); }

/// The order of the start; the stop is the reverse.
constexpr Part kParts[] = {
    // libraries
    DDB_PART(ZLKUTI_CoreUtils),
    DDB_PART(ZLKUTI_BasicUtils),
    DDB_PART(ZLKUTI_CaeUtils),
    DDB_PART(ZLKUTI_RfmInterface),
    DDB_PART(ZLKDDB_CoreGeometry),
    DDB_PART(ZLKDDB_NonGeometricAttributes),
    DDB_PART(ZLKDDB_ROM),
    DDB_PART(ZLKDDB_DiagnosticExtractor),
    DDB_PART(modelMembers),
    // modules
    DDB_PART(utf),
    DDB_PART(kseC),
    DDB_PART(kfdC),
    DDB_PART(kefC),
    DDB_PART(kcoC),
    DDB_PART(kcnC),
    DDB_PART(karC),
    DDB_PART(kadC),
    DDB_PART(ptoC),
    DDB_PART(kprC),
    DDB_PART(kpfC),
    DDB_PART(korC),
    DDB_PART(kloC),
    DDB_PART(kinC),
    DDB_PART(kbcC),
};
#undef DDB_PART
}  // namespace

void DDB_GeometricAttributes_initialize(int& count) {
  ddb_Start<Part>(count, [] {
    int started = 0;  // the parts' own counts; the caller counts the library
    for (Part const& part : kParts) { part.initialize(started); }
  });
}

void DDB_GeometricAttributes_finalize(int& count) {
  ddb_Stop<Part>(count, [] {
    int started = static_cast<int>(std::size(kParts));
    for (auto part = std::rbegin(kParts); part != std::rend(kParts); ++part) { part->finalize(started); }
  });
}
