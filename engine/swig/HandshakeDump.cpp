#include "engine/swig/HandshakeDump.h"

#include <google/protobuf/util/json_util.h>

#include <array>
#include <ctime>
#include <fstream>

#include "messages/handshake.pb.h"

namespace {

std::string timeStamp() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 64> text{};
  const std::size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%d-%H-%M-%S-", &local);
  return {text.data(), length};
}

}  // namespace

std::string kvxe::dumpHandshake(const KvxHandshakeData& message, const std::string& name) {
  google::protobuf::util::JsonPrintOptions options;
  options.add_whitespace = true;
  std::string json;
  const auto status = google::protobuf::util::MessageToJsonString(message, &json, options);
  if (!status.ok()) json = status.ToString();

  const std::string fileName = timeStamp() + name + ".json";
  std::ofstream file(fileName);
  if (!file) return "Error: NoFileCreated";
  file << json << std::endl;
  return fileName;
}
