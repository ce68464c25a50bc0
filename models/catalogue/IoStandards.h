#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kvxm {

/// The kinds of banks of pins, each with standards of its own; a device's count of their pins is a resource.
enum class IoBank : std::size_t {
  TarvekHsio,  ///< high speed, up to 1.5 V
  TarvekLsio,  ///< low speed, 1.8 to 3.3 V
  MorlanMsio,  ///< medium speed, up to 1.8 V
  MorlanLsio,  ///< low speed, 1.2 to 3.3 V
  Count
};

/// How a driver and a receiver of a standard work.
enum class IoSignalling {
  Rail,          ///< swings from ground to VCCO
  MidReference,  ///< compared with half of VCCO, to which terminations pull
  TopReference,  ///< terminations pull to VCCO
  Current,       ///< a constant current between the two pins of a pair
};

/// What is known of one standard.
struct IoStandard {
  std::string name;
  std::string rail;  ///< VCCO rail of the bank, by its internal name
  IoSignalling signalling = IoSignalling::Rail;
  bool isDifferential = false;
  double driverOhms = 40.0;                     ///< of the output driver
  double swing = 1.0;                           ///< of an unterminated output, as a share of VCCO
  double receiverMilliamps = 0.0;               ///< of an input's comparator, from the auxiliary supply
  double driverMilliamps = 0.0;                 ///< of a current driver, from VCCO
  std::vector<std::string> inputTerminations;   ///< inside the chip; "None" comes first
  std::vector<std::string> outputTerminations;  ///< at the far end of the line; "None" comes first
};

/// All standards of a kind of banks, in the order of the list that the user sees.
struct IoBankStandards {
  std::vector<IoStandard> standards;
  std::vector<std::string> names;
};

/// By IoBank.
using IoBankTable = std::array<IoBankStandards, static_cast<std::size_t>(IoBank::Count)>;

/// The name of no termination.
inline constexpr std::string_view noTermination = "None";

/// The standards of a bank. What is read here is valid until reloadModelData().
const IoBankStandards& ioStandards(IoBank bank);
/// The standard of that name; null when the bank has none.
const IoStandard* findIoStandard(IoBank bank, std::string_view name);
/// The resistance that the name of a termination ends in ("RTT_40" has 40 ohms); 0 for "None" and for any
/// other text.
double terminationOhms(std::string_view name);
/// As above; 0 for a name that is not among the offered ones, too.
double offeredOhms(const std::vector<std::string>& offered, std::string_view name);

/// What the tabs ask about the standards of one kind of banks; the data classes of the banks are this.
class IoQueries {
 public:
  explicit IoQueries(IoBank bank) : m_bank(bank) {}
  /// Names of all standards.
  const std::vector<std::string>& getIoList() const { return ioStandards(m_bank).names; }
  /// Names of the differential, or of the single-ended ones.
  std::vector<std::string> getIoList(bool isDifferential) const;
  /// Names of the terminations of an input, and of an output; "None" alone for an unknown standard.
  const std::vector<std::string>& getIbuf(std::string_view standard) const;
  const std::vector<std::string>& getObuf(std::string_view standard) const;
  const IoStandard* find(std::string_view standard) const { return findIoStandard(m_bank, standard); }

 private:
  IoBank m_bank;
};

}  // namespace kvxm
