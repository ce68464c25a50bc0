#pragma once

#include <string_view>

namespace kvxm {
class ClockManagerKinds;
}

namespace kvxe {

// The architectures as types, by which the configuration layer picks tables and rules. Modules use what
// Morlan has.
struct Tarvek {};
struct Morlan {};
struct Som {};

/// What the layer must know of an architecture beside its tables.
template <class A>
struct ArchTraits;

template <>
struct ArchTraits<Tarvek> {
  static constexpr std::string_view getName() { return "Tarvek"; }
  static const kvxm::ClockManagerKinds& getClockManagerKinds();
};

template <>
struct ArchTraits<Morlan> {
  static constexpr std::string_view getName() { return "Morlan"; }
  static const kvxm::ClockManagerKinds& getClockManagerKinds();
};

template <>
struct ArchTraits<Som> : ArchTraits<Morlan> {
  static constexpr std::string_view getName() { return "Som"; }
};

}  // namespace kvxe
