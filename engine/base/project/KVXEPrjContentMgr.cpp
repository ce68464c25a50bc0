#include "engine/base/project/KVXEPrjContentMgr.h"

#include "engine/base/project/KVXEVersion.h"
#include "engine/base/project/KVXEXmlReadWrite.h"
#include "platform/wyr_common/NDUEnv.h"

namespace {

constexpr const char* RecordFile = "kvx.xml";
constexpr const char* RecordPath = "KVX.ProductInfo";

}  // namespace

KVXEPrjContentMgr::KVXEPrjContentMgr() : m_xmlTree(std::make_unique<boost::property_tree::ptree>()) {}

KVXEPrjContentMgr::~KVXEPrjContentMgr() = default;

bool KVXEPrjContentMgr::prepProject(const boost::filesystem::path& stagingDir) {
  writeProjectXml(stagingDir);
  KVXEVersion(stagingDir).write("");
  return true;
}

bool KVXEPrjContentMgr::readProject(const boost::filesystem::path& stagingDir) {
  readProjectXml(stagingDir);
  return KVXEVersion(stagingDir).read("");
}

void KVXEPrjContentMgr::writeProjectXml(const boost::filesystem::path& stagingDir) {
  KVXEXmlReadWrite xml((stagingDir / RecordFile).string());
  xml.addAttrVector(RecordPath, {{"product", NDUEnv::getFullProductStr()},
                                 {"build", NDUEnv::getFullBuildStr()},
                                 {"version", NDUEnv::getProductVersion()}});
  xml.getXmlTree(*m_xmlTree);
  xml.writeXml(true);
}

void KVXEPrjContentMgr::readProjectXml(const boost::filesystem::path& stagingDir) {
  *m_xmlTree = KVXEXmlReadWrite((stagingDir / RecordFile).string()).parseXml(true);
}

std::string KVXEPrjContentMgr::getBuildInfo() const {
  const auto attributes = KVXEXmlReadWrite(*m_xmlTree).getAttrMap(RecordPath);
  const auto version = attributes.find("version");
  return version == attributes.end() ? std::string() : version->second;
}
