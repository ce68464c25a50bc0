#include "models/tarvek/KVXMTarvekDspConfig.h"

#include "models/tarvek/KVXMTarvekDspConfigData.h"

void KVXMTarvekDspConfigModel::calculate(KVXMTarvekDspConfigParams& params) const {
  using I = KVXMTarvekDspConfigParams::IntEnum;
  using S = KVXMTarvekDspConfigParams::StringEnum;
  static constexpr kvxm::DspConfiguration unknown;
  const auto& data = KVXMTarvekDspConfigData::getGlobal();
  const kvxm::DspConfiguration* found = data.getDspConfigData(params[S::CONFIGURATION]);
  const kvxm::DspConfiguration& configuration = found ? *found : unknown;
  params[S::MODE] = configuration.mode;
  params[I::WIDTH_A] = configuration.widthA;
  params[I::WIDTH_B] = configuration.widthB;
  params[I::PRODUCTS] = configuration.products;
  params[I::SLICES_PER_USE] = configuration.slices;
  params[I::ADDER_WIDTH] = configuration.adderWidth;
  params[I::OUTPUT_WIDTH] = configuration.outputWidth;
  params[I::IS_DERIVED] = configuration.isDerived;
  params[I::HAS_PREADD] = configuration.hasPreadder;
  params[I::HAS_ADREG] = configuration.hasAdReg;
}
