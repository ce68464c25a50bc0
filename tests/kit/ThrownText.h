#pragma once

#include <exception>
#include <string>

/// What an action says as it fails; empty when it does not.
template <class Act>
std::string thrownBy(Act act) {
  try {
    act();
    return {};
  } catch (const std::exception& exception) {
    return exception.what();
  }
}
