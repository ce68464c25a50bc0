// What goes into a wrapped stream comes out of it, or nothing does.

#include <boost/property_tree/xml_parser.hpp>
#include <random>

#include "platform/tqm_iostreams/filters.h"
#include "platform/tqm_iostreams/xp.h"
#include "tests/kit/ProjectDirectory.h"
#include "tests/kit/ThrownText.h"
#include "tests/platform/FullDisk.h"

namespace fs = std::filesystem;
namespace io = tqm::iostreams;

using ::testing::HasSubstr;

namespace {

using io::xp::is_xp_format;

void wrap(const std::string& path, const std::string& payload) {
  io::filtering_stream<io::output> stream;
  io::xp_latest{std::ios::binary}(stream, path);
  stream.write(payload.data(), static_cast<std::streamsize>(payload.size()));
  stream.close();
}

std::string unwrap(const std::string& path) {
  io::filtering_stream<io::input> stream;
  io::xp_version18{std::ios::binary}(stream, path);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::string noise(std::size_t count) {
  std::mt19937 random(4);
  std::string bytes(count, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  return bytes;
}

/// The stream of "123456789", whose CRC-32 is the published check value CBF43926.
const std::string known = std::string("\x89KVXS\r\n\x1a", 8) + std::string("\1\0\0\0", 4) +
                          "\x26\x39\xF4\xCB" + std::string("\x9\0\0\0\0\0\0\0", 8) + "123456789";

class WrappedStream : public ::testing::Test {
 protected:
  ProjectDirectory m_directory;
};

TEST_F(WrappedStream, BringsBackWhatWasWritten) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  for (const std::string& payload : {std::string(), std::string(1, '\0'), all, noise((1 << 16) - 1),
                                     noise(1 << 16), noise((1 << 22) + 1), std::string("\x89KVXS\r\n\x1a")}) {
    wrap("a.xml", payload);
    EXPECT_TRUE(is_xp_format("a.xml")) << payload.size();
    EXPECT_EQ(fs::file_size("a.xml"), 24 + payload.size());
    EXPECT_TRUE(unwrap("a.xml") == payload) << payload.size();
  }
  wrap("a.xml", "123456789");
  EXPECT_EQ(ProjectDirectory::read("a.xml"), known) << "the format is the same for good";
}

TEST_F(WrappedStream, CarriesXml) {
  boost::property_tree::ptree tree, back;
  tree.put("A.B.<xmlattr>.key", "<\u00fc> & \"more\"");
  io::filtering_stream<io::output> out;
  io::xp_latest{std::ios::binary}(out, "a.xml");
  boost::property_tree::xml_parser::write_xml_internal(
      out, tree, "a.xml", boost::property_tree::xml_writer_make_settings<std::string>(' ', 3, "utf-8"));
  out.close();
  io::filtering_stream<io::input> in;
  io::xp_version18{std::ios::binary}(in, "a.xml");
  boost::property_tree::xml_parser::read_xml_internal(in, back, 4, "a.xml");
  EXPECT_EQ(back, tree);
}

TEST_F(WrappedStream, WithAnyByteChangedOrMissingIsRefused) {
  const auto refusal = [](const std::string& bytes) {
    ProjectDirectory::write("a.xml", bytes);
    return thrownBy([] { unwrap("a.xml"); });
  };
  for (std::size_t at = 0; at < known.size(); ++at)
    for (const char change : {'\x01', '\x80'}) {
      std::string bytes = known;
      bytes[at] = static_cast<char>(bytes[at] ^ change);
      EXPECT_EQ(refusal(bytes).find("a.xml: "), 0u) << "byte " << at;
      EXPECT_EQ(is_xp_format("a.xml"), at >= 8) << "byte " << at;
    }
  for (std::size_t length = 0; length < known.size(); ++length) {
    EXPECT_NE(refusal(known.substr(0, length)), "") << length << " bytes";
    EXPECT_EQ(is_xp_format("a.xml"), length >= 24) << length << " bytes";
  }
  struct Case {
    std::size_t at;
    std::string bytes, reason;
  };
  for (const Case& lie : {
           Case{8, std::string("\2\0\0\0", 4), "version 2 of the stream format is not known"},
           Case{16, std::string(8, '\xFF'), "a stream of 18446744073709551615 bytes is too long"},
           Case{16, std::string("\1\0\0\4\0\0\0\0", 8), "a stream of 67108865 bytes is too long"},
           Case{16, std::string("\0\0\0\4\0\0\0\0", 8), "the stream is cut short"},
           Case{16, std::string("\x8", 1), "something stands behind the stream"},
           Case{24, "0", "the checksum does not match"},
           Case{33, "0", "something stands behind the stream"},
       }) {
    std::string bytes = known;
    EXPECT_THAT(refusal(bytes.replace(lie.at, lie.bytes.size(), lie.bytes)), HasSubstr(lie.reason))
        << lie.reason;
  }
}

TEST_F(WrappedStream, ThatWasNotFinishedIsNone) {
  {
    io::filtering_stream<io::output> stream;
    io::xp_latest{std::ios::binary}(stream, "a.xml");
    stream << "as when an exception leaves its writer";
  }
  EXPECT_TRUE(fs::exists("a.xml"));
  EXPECT_FALSE(is_xp_format("a.xml"));
  EXPECT_NE(thrownBy([] { unwrap("a.xml"); }), "");

  io::filtering_stream<io::output> failed;
  io::xp_latest{std::ios::binary}(failed, "b.xml");
  failed << "one";
  failed.setstate(std::ios::failbit);
  EXPECT_THAT(thrownBy([&] { failed.close(); }), HasSubstr("b.xml: not all of it was written"));

  EXPECT_THAT(thrownBy([] { wrap("c.xml", std::string(io::xp::maxPayload + 1, 'x')); }),
              HasSubstr("c.xml: more than"));
  for (const char* path : {"a.xml", "b.xml", "c.xml"}) EXPECT_FALSE(is_xp_format(path)) << path;
}

TEST_F(WrappedStream, OnAFullDiskIsNoSuccess) {
  const std::string payload = noise(200'000);
  for (const std::size_t room : {0, 10, 24, 100'000, 200'000, 200'023})
    withRoomFor(room, [&] {
      EXPECT_THAT(thrownBy([&] { wrap("a.xml", payload); }), HasSubstr("a.xml: File too large")) << room;
      EXPECT_FALSE(is_xp_format("a.xml"));
    });
  withRoomFor(200'024, [&] { EXPECT_EQ(thrownBy([&] { wrap("a.xml", payload); }), ""); });
  EXPECT_TRUE(unwrap("a.xml") == payload);
}

TEST_F(WrappedStream, TellsOfFilesThatAreNone) {
  EXPECT_THAT(thrownBy([] { unwrap("missing.xml"); }), HasSubstr("missing.xml: No such file"));
  EXPECT_NE(thrownBy([] { unwrap("."); }), "");
  EXPECT_THAT(thrownBy([] { wrap("missing/a.xml", ""); }), HasSubstr("missing/a.xml: No such file"));
  ProjectDirectory::write("plain.xml", "<?xml version=\"1.0\"?><Version/>");
  for (const char* path : {"", "missing.xml", ".", "plain.xml"}) EXPECT_FALSE(is_xp_format(path)) << path;
  EXPECT_THAT(thrownBy([] { unwrap("plain.xml"); }), HasSubstr("plain.xml: not a wrapped stream"));
}

}  // namespace
