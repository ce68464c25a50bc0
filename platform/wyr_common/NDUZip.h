#pragma once

#include <string>

#include "platform/wyr_common/NDUFile.h"

/// Zip archives of directories, with a digest of the whole file as the archive's comment: the text
/// "KVX SHA-256 " and 64 hexadecimal digits. Any zip program reads them.
///
/// What cannot be written or will not be unpacked is an NException that says what and why.
class NDUZip {
 public:
  /// Kept for their callers; neither changes anything.
  enum class ZIP_OPTIONS : int {};
  enum class UNZIP_OPTIONS : int {};

  /// Writes the files below the directory into a new archive, under their names relative to it behind
  /// `prefix`. The same files give the same bytes.
  static void compressDir(const NDUFile& archive, const std::string& directory, const std::string& prefix,
                          ZIP_OPTIONS options);
  /// Appends the digest to an archive that compressDir wrote.
  static void attachDigest(const NDUFile& archive);
  /// 0 when the file is as it was when its digest was attached.
  static int checkIntegrity(const NDUFile& archive) noexcept;
  /// Unpacks all entries into the directory. An archive that asks for more than ArchiveLimits allow, or for
  /// anything but plain files inside the directory, is refused before the first of them is written.
  /// `password` is not used.
  static void uncompress(const NDUFile& archive, const std::string& directory, UNZIP_OPTIONS options,
                         const std::string* password);
};
