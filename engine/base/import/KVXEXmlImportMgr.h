#pragma once

#include <string>

/// Brings the estimates of other tools into the book. They cannot be read so far: the user is told.
class KVXEXmlImportMgr {
 public:
  static KVXEXmlImportMgr& getGlobal();

  /// Imports a `.lvr` file: into a new project, added to what is there (`isAppend`) or in its place;
  /// `allowBlockFile` admits the file of a block's compiler. False, with a message to the user, when that
  /// fails.
  bool importLvrFile(const std::string& path, bool isNewProject, bool isAppend, bool allowBlockFile);

 private:
  KVXEXmlImportMgr() = default;
};
