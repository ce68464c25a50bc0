#pragma once

#include <ios>
#include <string>

#include "platform/tqm_iostreams/filtering_stream.h"

namespace tqm::iostreams {

/// Sets a stream up to write the newest version of the format. The file is one only when the stream is
/// closed.
/// @throws NException when the file cannot be made.
class xp_latest {
 public:
  explicit xp_latest(std::ios::openmode) {}
  void operator()(filtering_stream<output>& stream, const std::string& path) const;
};

/// Sets a stream up to read the format. All of the file is read and verified before a byte is handed on.
/// @throws NException when the file cannot be read, or is not what was written.
class xp_version18 {
 public:
  explicit xp_version18(std::ios::openmode) {}
  void operator()(filtering_stream<input>& stream, const std::string& path) const;
};

}  // namespace tqm::iostreams
