#pragma once

#include <boost/filesystem/path.hpp>
#include <string>
#include <vector>

/// Plain zip archives of directories, for tools: without the digest of a project file, and without messages.
///
/// The parts of an entry's name may be parted by slashes, backslashes or commas; each makes a directory
/// level. Of a name only what comes before a NUL, and of that the first 256 bytes, are looked at. What goes
/// beyond ArchiveLimits is not unpacked.
class KVXEZip {
 public:
  KVXEZip() = default;
  ~KVXEZip() {}

  /// Packs the files below a directory under their names relative to it. False when there is none, or not
  /// each of them got into the archive; the others are there then.
  static bool kvxCompress(const boost::filesystem::path& sourceDir, const boost::filesystem::path& archive);
  /// Unpacks all entries below a directory, over what is there; missing directories are made. False when
  /// something is wrong with any of them: damaged, on the way out of the directory, or with a link or another
  /// thing that is no file in its way. The others are unpacked all the same.
  static bool kvxUncompress(const boost::filesystem::path& archive, const boost::filesystem::path& targetDir);
  /// Appends the entries' names as paths; none for what is no archive.
  static void getPathsInZip(const boost::filesystem::path& archive, std::vector<std::string>& paths);
};
