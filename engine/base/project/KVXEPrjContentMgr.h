#pragma once

#include <boost/filesystem/path.hpp>
#include <boost/property_tree/ptree.hpp>
#include <memory>
#include <string>

/// What a staging directory holds: "kvx.xml" says which program wrote the project, and
/// "versions/topVersion/version.xml" is the book (KVXEVersion).
class KVXEPrjContentMgr {
 public:
  KVXEPrjContentMgr();
  KVXEPrjContentMgr(const KVXEPrjContentMgr&) = delete;
  KVXEPrjContentMgr& operator=(const KVXEPrjContentMgr&) = delete;
  ~KVXEPrjContentMgr();

  /// Writes both files. True; a file that cannot be written is an NException.
  bool prepProject(const boost::filesystem::path& stagingDir);
  /// Reads both, and makes the book that of the project. False as for KVXEVersion::read.
  bool readProject(const boost::filesystem::path& stagingDir);
  void writeProjectXml(const boost::filesystem::path& stagingDir);
  /// A missing file gives an empty record.
  void readProjectXml(const boost::filesystem::path& stagingDir);
  /// The version of the program that wrote the project; empty when the record does not say.
  std::string getBuildInfo() const;

 private:
  std::unique_ptr<boost::property_tree::ptree> m_xmlTree;  // the record as last read or written
};
