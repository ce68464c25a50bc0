#pragma once

#include <string>
#include <string_view>

namespace kvxm {

/// The two ways to give the rails of a device to the regulators of a board. The first keeps every power
/// domain under control of its own: rails share only where they are switched and scaled together anyway. The
/// second needs the fewest regulators: rails share wherever voltage and tolerance of noise allow it.
inline constexpr const char* fullPowerManagement = "Full Power Management";
inline constexpr const char* minimumRails = "Minimum Rails";

/// The regulator to which a rail goes, named like a net: "SYSTEM_CORE_0V80". Rails of one name may share.
/// Blank for a rail that shares with no other, and for a voltage of 0 or less. Any consolidation but
/// `minimumRails` is taken for full power management.
std::string railGroup(std::string_view consolidation, std::string_view rail, std::string_view category,
                      float nominalVolts);

}  // namespace kvxm
