#pragma once

#include <string>

/// A file beside another, to be filled in peace and then put in its place in one step: whoever looks finds
/// the old file or the new one, whole. Its name is ".<target>.<number>.tmp". What is wrong with the place or
/// the disk is an NException with the reason.
class TemporaryFile {
 public:
  /// Makes the file, empty and held, so that a sweep leaves it alone. It has the target's permissions if
  /// there is a target.
  explicit TemporaryFile(const std::string& target);
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  /// Removes the file unless it is the target now.
  ~TemporaryFile();

  const std::string& path() const { return m_path; }
  /// Has what was written reach the disk.
  void flush();
  /// Puts the file in the target's place, for good.
  void replaceTarget();

  /// Removes the temporary files of a target that nobody holds: those of a process that died. What cannot be
  /// removed stays.
  static void sweep(const std::string& target) noexcept;

 private:
  std::string m_target;
  std::string m_path;  // empty when the file is no longer this object's
  int m_descriptor = -1;
};
