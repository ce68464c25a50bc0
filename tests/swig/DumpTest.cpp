#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <regex>

#include "tests/kit/Captured.h"
#include "tests/kit/ParamSwitch.h"
#include "tests/swig/FrontEnd.h"

namespace {

namespace fs = std::filesystem;
using Op = KvxOperationData;

/// Works in an empty directory of its own.
class Dump : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string name = (fs::temp_directory_path() / "kvx_dump_XXXXXX").string();
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    m_before = fs::current_path();
    m_directory = name;
    fs::current_path(m_directory);
  }
  void TearDown() override {
    fs::current_path(m_before);
    fs::remove_all(m_directory);
  }

  /// The contents by the part of the name after the time.
  static std::map<std::string, std::string> files() {
    std::map<std::string, std::string> contents;
    for (const auto& entry : fs::directory_iterator(".")) {
      std::ifstream file(entry.path());
      const std::string name = entry.path().filename().string();
      contents[name.substr(std::min<std::size_t>(20, name.size()))] = {std::istreambuf_iterator<char>(file),
                                                                       {}};
    }
    return contents;
  }

 private:
  fs::path m_before, m_directory;
};

constexpr const char* Printed =
    "\\d{4}(-\\d\\d){5}-(GuiToEngine|EngineToGui)Handshake\\.json file written \\(@Line:\\d+ - unsigned int "
    "KVXEGuiInterface::getKvxHandshakeDataSize\\(unsigned char\\*, int, bool, bool, bool, bool\\)\\)\n";

TEST_F(Dump, ShowsRequestAndReply) {
  FrontEnd frontEnd;
  Captured captured;
  frontEnd.send(FrontEnd::request(Op::DIALOG_PACKET, {{Op::FILE_PATH, "über\n"}}), {.dumpJson = true});
  auto contents = files();
  ASSERT_EQ(contents.size(), 2u);
  const auto request = nlohmann::json::parse(contents["GuiToEngineHandshake.json"]);
  EXPECT_EQ(request["operation"]["type"], "DIALOG_PACKET");
  EXPECT_EQ(request["operation"]["arguments"][0]["value"], "über\n");
  EXPECT_TRUE(nlohmann::json::parse(contents["EngineToGuiHandshake.json"]).empty());
  const std::string text = captured.text();
  const std::regex printed(Printed);
  EXPECT_EQ(std::distance(std::sregex_iterator(text.begin(), text.end(), printed), {}), 2) << text;
}

TEST_F(Dump, IsSwitchedOnByItsParameterForEachNonEmptyHandshake) {
  FrontEnd frontEnd;
  Captured captured;
  const ParamSwitch on("DUMP_PROTO_JSON");
  frontEnd.sendBytes("");
  EXPECT_TRUE(files().empty());
  KvxHandshakeData message;  // even without an operation
  message.mutable_status()->set_parttext("x");
  frontEnd.send(message);
  EXPECT_EQ(files().size(), 2u);
}

TEST_F(Dump, SaysWhenThereIsNoFile) {
  FrontEnd frontEnd;
  Captured captured;
  const fs::path gone = fs::current_path() / "gone";
  fs::create_directory(gone);
  fs::current_path(gone);
  fs::remove(gone);
  frontEnd.send(FrontEnd::request(Op::DIALOG_PACKET), {.dumpJson = true});
  fs::current_path(gone.parent_path());
  EXPECT_EQ(captured.text().rfind("Error: NoFileCreated file written (@Line:", 0), 0u) << captured.text();
}

}  // namespace
