#pragma once

#include <array>
#include <boost/unordered/unordered_flat_map.hpp>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "models/catalogue/Characterisation.h"
#include "models/catalogue/DeviceCatalogue.h"
#include "models/catalogue/IoStandards.h"
#include "models/catalogue/SomBoard.h"

namespace kvxm {

/// One named parameter of the engine.
struct ParameterDefault {
  enum class Kind { Int, Float, String };
  std::string name;
  Kind kind = Kind::Int;
  std::string text;  ///< the default as written in the data
};

/// Coefficient sets, looked up by device or part in one hash probe.
class CharacterisationIndex {
 public:
  /// Sets of the architectures, indexed by Architecture.
  std::array<Characterisation, 3> defaults;

  /// Makes a set the one of each of the names.
  void add(const Characterisation& set, const std::vector<std::string>& names);
  const Characterisation& find(std::string_view architecture, std::string_view deviceOrPart) const;

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
  };
  std::vector<Characterisation> m_sets;
  boost::unordered_flat_map<std::string, unsigned, Hash, std::equal_to<>> m_byName;
};

/// Everything that the data files say, as one immutable whole.
struct ModelDataStore {
  DeviceCatalogue catalogue;
  CharacterisationIndex characterisations;
  std::vector<SomBoard> boards;  ///< of the modules
  IoBankTable ioBanks;
  std::vector<ParameterDefault> parameters;
  std::vector<std::pair<std::string, std::string>> aliases;  ///< former and present name of a device
  std::vector<std::string> errors;
  std::vector<std::string> warnings;

  /// The data in force, loaded on first use.
  static const ModelDataStore& current();
  /// Loads anew.
  static void reload();
};

}  // namespace kvxm
