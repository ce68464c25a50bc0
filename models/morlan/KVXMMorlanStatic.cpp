#include "models/morlan/KVXMMorlanStatic.h"

#include "models/common/StaticPower.h"

namespace {

using kvxm::StaticBlock;

constexpr kvxm::StaticBlockRule blockRules[] = {
    {"", "MXCVRB", StaticBlock::XcvrB},         {"LPD", "", StaticBlock::ProcessingSystem},
    {"FPD", "", StaticBlock::ProcessingSystem}, {"XCVRA", "", StaticBlock::XcvrA},
    {"XCVRC", "", StaticBlock::XcvrC},          {"HBM", "", StaticBlock::Hbm},
    {"", "", StaticBlock::ProgrammableLogic},
};

}  // namespace

void KVXMMorlanStaticModel::calculate(KVXMMorlanStaticParams& params) const {
  kvxm::calculateStatic(params, blockRules);
}
