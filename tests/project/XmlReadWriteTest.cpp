// Trees as rows of attributes, and as files: what is written reads back, and what is damaged or hostile is
// refused with its file and line.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/property_tree/ptree.hpp>

#include "engine/base/project/KVXEXmlReadWrite.h"
#include "engine/base/project/XmlScan.h"
#include "tests/kit/Captured.h"
#include "tests/kit/ProjectDirectory.h"

using boost::property_tree::ptree;
using testing::HasSubstr;
using AttrMap = KVXEXmlReadWrite::AttrMap;
using AttrVector = KVXEXmlReadWrite::AttrVector;

namespace {

std::string repeat(const std::string& text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

/// The tree on one line: "A(x=1;B()B=text())", with attributes in front.
std::string show(const ptree& tree) {
  std::string text;
  for (const auto& [name, child] : tree) {
    if (name == "<xmlattr>")
      for (const auto& [key, value] : child) text += key + "=" + value.data() + ";";
    else
      text += name + (child.data().empty() ? "" : "=" + child.data()) + "(" + show(child) + ")";
  }
  return text;
}

// Rows and attributes.

TEST(XmlTree, WritersReuseOrAppend) {
  const struct {
    const char* label;
    std::function<void(KVXEXmlReadWrite&)> write;
    const char* expected;
  } cases[] = {
      {"no path",
       [](auto& xml) {
         xml.addAttrMap("", {{"k", "v"}});
       },
       ""},
      {"no attributes", [](auto& xml) { xml.addAttrVector("A.B", {}); }, ""},
      {"no rows", [](auto& xml) { xml.addVectorOfAttrMap("A.B", {}); }, ""},
      {"text is replaced", [](auto& xml) { xml.putAttrValue("A.B", "1"), xml.putAttrValue("A.B", "2"); },
       "A(B=2())"},
      {"text is appended", [](auto& xml) { xml.addAttrValue("A.B", "1"), xml.addAttrValue("A.B", "2"); },
       "A(B=1()B=2())"},
      {"a later attribute wins in its old place",
       [](auto& xml) {
         xml.addAttrVector("A.B", {{"x", "1"}, {"y", "2"}});
         xml.addAttrMap("A.B", {{"x", "3"}});
       },
       "A(B(x=3;y=2;))"},
      {"attributes go to the first element of a name",
       [](auto& xml) {
         xml.addAttrValue("A.B", "1"), xml.addAttrValue("A.B", "2");
         xml.addAttrVector("A.B", {{"x", "1"}});
       },
       "A(B=1(x=1;)B=2())"},
      {"rows are appended, empty ones too",
       [](auto& xml) {
         xml.addVectorOfAttrMap("A.R", {{{"x", "1"}}, {}});
         xml.addVectorOfAttrVector("A.R", {{{"z", "1"}, {"a", "2"}, {"z", "3"}}});
       },
       "A(R(x=1;)R()R(z=3;a=2;))"},
      {"a dot in an attribute name is no path",
       [](auto& xml) {
         xml.addAttrMap("A", {{"a.b", "1"}});
       },
       "A(a.b=1;)"},
      {"groups stand in a new element",
       [](auto& xml) {
         xml.addAttrMap("A.B", {{"old", "1"}});
         xml.addNodesOfVectorOfAttrMap("A.B.C.R", {{"one", {{{"x", "1"}}, {}}}, {"two", {}}});
         xml.addNodesOfVectorOfAttrVector("A.B.C.R", {{"three", {{{"x", "2"}}}}});
         xml.addNodesOfVectorOfAttrVector("R", {{"lost", {}}});
       },
       "A(B(old=1;)B(C(name=one;R(x=1;)R())C(name=two;))B(C(name=three;R(x=2;))))"},
      {"all of a name are removed",
       [](auto& xml) {
         xml.addVectorOfAttrMap("A.R", {{}, {}});
         xml.addAttrValue("A.S", "1");
         xml.removeNode("A.R"), xml.removeNode("A"), xml.removeNode("X.Y"), xml.removeNode("");
       },
       "A(S=1())"},
  };
  for (const auto& [label, write, expected] : cases) {
    KVXEXmlReadWrite xml("");
    write(xml);
    EXPECT_EQ(show(xml.tree()), expected) << label;
  }
}

TEST(XmlTree, ReadersTakeRowsInOrderAndDropEmptyValues) {
  KVXEXmlReadWrite xml("");
  xml.addVectorOfAttrMap("A.B.R", {{{"x", "1"}, {"e", ""}}, {}, {{"x", "2"}}});
  xml.addAttrMap("A.B.other", {{"x", "9"}});
  const std::vector<AttrMap> kept = {{{"x", "1"}, {"e", ""}}, {{"x", "2"}}};
  EXPECT_EQ(xml.getVectorOfAttrMap("A.B.R", true), kept) << "an element without attributes is no row";
  EXPECT_EQ(xml.getVectorOfAttrMap("A.B.R", false).front(), (AttrMap{{"x", "1"}}));
  EXPECT_EQ(xml.getVectorOfAttrMap("R", xml.tree().get_child("A.B"), true), kept);
  EXPECT_EQ(xml.getAttrMap("A.B.R"), (AttrMap{{"x", "1"}}));
  EXPECT_EQ(xml.getAttrMap("", xml.tree().get_child("A.B.other")), (AttrMap{{"x", "9"}}));
  for (const char* absent : {"", "A", "A.B", "A.X.R", "R", "."}) {
    EXPECT_TRUE(xml.getVectorOfAttrMap(absent, true).empty()) << absent;
    EXPECT_TRUE(xml.getAttrMap(absent).empty()) << absent;
  }
}

TEST(XmlTree, TreesGoInAndOut) {
  KVXEXmlReadWrite xml("x.xml");
  xml.addAttrValue("A.B", "1");
  ptree copy;
  copy.put("old", "1");
  xml.getXmlTree(copy);
  EXPECT_EQ(show(copy), "A(B=1())");
  EXPECT_EQ(KVXEXmlReadWrite(copy).tree(), xml.tree());
  EXPECT_EQ(show(xml.takeXmlTree()), "A(B=1())");
  EXPECT_TRUE(xml.tree().empty());
  xml.setXmlTree(copy);
  xml.clearXmlData();
  EXPECT_TRUE(xml.tree().empty());
  EXPECT_EQ(xml.getXmlPath(), "x.xml");
}

TEST(XmlTree, DumpIndentsByDepth) {
  KVXEXmlReadWrite xml("");
  xml.addAttrMap("A.B", {{"x", "1"}});
  xml.addAttrValue("A.C", "text");
  const Captured out;
  xml.dumpTree(false, xml.tree(), 0);
  xml.dumpTree(true, xml.tree(), 1);
  EXPECT_EQ(out.text(), " A\n  B\n   <xmlattr>\n     x=1\n   C=text\n");
}

// Files.

class XmlFile : public testing::Test {
 protected:
  std::string pathOf(const std::string& name) const { return (m_directory.path() / name).string(); }

  /// What reading a plain file of that text says.
  std::string errorOf(const std::string& text) {
    ProjectDirectory::write(pathOf("in.xml"), text);
    const Captured err(std::cerr);
    try {
      KVXEXmlReadWrite(pathOf("in.xml")).parseXml(false);
      return "";
    } catch (const std::exception& error) {
      EXPECT_EQ(err.text(), std::string("ERROR: Invalid XML: ") + error.what() + "\n");
      return error.what();
    }
  }

  ProjectDirectory m_directory;
};

TEST_F(XmlFile, AnyNameAndValueOfAnAttributeSurvives) {
  const std::string values[] = {"",           " ",
                                "   ",        " lead and trail ",
                                "tab\there",  "two\nlines\n",
                                "cr\r\nlf",   "\t",
                                "\n",         "<a b='c' d=\"e\">&amp;]]>--",
                                "µ€😀",        "&#0;&nbsp;",
                                "_x0041_ _x", "\x7F"};
  const std::string names[] = {"plain",
                               "a.b",
                               "a b",
                               "a/b",
                               "a=b",
                               "1st",
                               "-x",
                               ".x",
                               "",
                               "_x_",
                               "_x0020_",
                               "_x0020 ",
                               "_x002",
                               "_x005F_",
                               "__x0020_",
                               "<>&'\"",
                               "new\nline",
                               "ctrl\x01",
                               "grüße",
                               "<xmlattr>",
                               "_x-000_",
                               "a:b",
                               std::string("nul\0l", 5)};
  AttrVector attributes;
  for (const std::string& name : names) attributes.emplace_back(name, std::to_string(attributes.size()));
  for (const std::string& value : values)
    attributes.emplace_back("v" + std::to_string(attributes.size()), value);

  for (const bool xpFormat : {false, true}) {
    KVXEXmlReadWrite written(pathOf("out.xml"));
    written.addVectorOfAttrVector("Root.Row", {attributes, {}, attributes});
    written.addAttrMap("Root.odd name/", {{"k", "v"}});
    written.writeXml(xpFormat);
    EXPECT_EQ(KVXEXmlReadWrite(pathOf("out.xml")).parseXml(xpFormat), written.tree()) << xpFormat;
  }
}

TEST_F(XmlFile, WhatXmlCannotHoldIsEscapedOrReplaced) {
  const std::pair<std::string, std::string> cases[] = {{std::string("a\0b", 3), std::string("a\0b", 3)},
                                                       {"list\x17of\x07", "list\x17of\x07"},
                                                       {"_x0007_", "_x0007_"},
                                                       {"cut \xE2\x82", "cut \uFFFD"}};
  KVXEXmlReadWrite xml(pathOf("out.xml"));
  for (const auto& [value, expected] : cases) xml.addVectorOfAttrMap("A.R", {{{"k", value}}});
  xml.writeXml(false);
  const auto rows = KVXEXmlReadWrite(pathOf("out.xml")).getVectorOfAttrMap("A.R", true);
  EXPECT_TRUE(rows.empty()) << "nothing is read before parseXml";
  xml.parseXml(false);
  for (std::size_t i = 0; i < std::size(cases); ++i)
    EXPECT_EQ(xml.getVectorOfAttrMap("A.R", true).at(i).at("k"), cases[i].second);
}

TEST_F(XmlFile, IsIndentedXml) {
  KVXEXmlReadWrite xml(pathOf("new/deep/data.txt"));
  xml.addVectorOfAttrVector("A.R", {{{"x y", "<1>"}}, {}});
  xml.putAttrValue("A.T", "text");
  xml.writeXml(false);
  EXPECT_EQ(xml.getXmlPath(), pathOf("new/deep/data.txt.xml"));
  EXPECT_EQ(ProjectDirectory::read(xml.getXmlPath()),
            "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<A>\n   <R x_x0020_y=\"&lt;1&gt;\"/>\n   <R/>\n"
            "   <T>text</T>\n</A>\n");
}

TEST_F(XmlFile, WhatIsNoFileOfTheFormatReadsAsEmpty) {
  const std::string text = "<A/>";
  for (const char* name : {"a.xml", "a.lvr", "a.txt", "a", "a.XML"})
    ProjectDirectory::write(pathOf(name), text);
  std::filesystem::create_directory(pathOf("dir.xml"));
  KVXEXmlReadWrite wrapped(pathOf("wrapped.xml"));
  wrapped.addAttrValue("A", "");
  wrapped.writeXml(true);
  std::filesystem::copy_file(pathOf("wrapped.xml"), pathOf("wrapped.lvr"));
  const struct {
    std::string name;
    bool xpFormat;
    bool isRead;
  } cases[] = {{"a.xml", false, true},       {"a.lvr", false, true},
               {"a.txt", false, false},      {"a", false, false},
               {"a.XML", false, false},      {"dir.xml", false, false},
               {"none.xml", false, false},   {"none.xml", true, false},
               {"a.xml", true, false},       {"wrapped.xml", true, true},
               {"wrapped.lvr", true, false}, {std::string("a.xml\0.xml", 10), false, false}};
  const Captured err(std::cerr);
  for (const auto& [name, xpFormat, isRead] : cases) {
    KVXEXmlReadWrite xml(pathOf("") + name);
    xml.addAttrValue("Old", "1");
    EXPECT_EQ(show(xml.parseXml(xpFormat)), isRead ? "A()" : "") << name << xpFormat;
  }
  KVXEXmlReadWrite("").parseXml(false);
  EXPECT_EQ(err.text(), "");
}

TEST_F(XmlFile, ReadsWhatOthersWrite) {
  ProjectDirectory::write(
      pathOf("in.xml"),
      "\xEF\xBB\xBF<?xml version='1.0'?>\r\n<!-- by hand --><!DOCTYPE A SYSTEM 'a.dtd'>\n"
      "<A x = '1' y=\">&#x41;&#10;\"><?do it?>  some\n text<!-- <B> --><![CDATA[<&]]><B ></B\n></A>\n");
  EXPECT_EQ(show(KVXEXmlReadWrite(pathOf("in.xml")).parseXml(false)),
            "<xmlcomment>= by hand ()A=some text<&(x=1;y=>A\n;<xmlcomment>= <B> ()B())");
}

TEST_F(XmlFile, DamagedTextIsRefusedWithItsLine) {
  const struct {
    const char* label;
    std::string text;
    const char* expected;
  } cases[] = {
      {"nothing", "", "in.xml(1): the text holds no element"},
      {"blank", " \n ", "in.xml(2): the text holds no element"},
      {"cut in a tag", "<A>\n<B", "in.xml(2): expected '>'"},
      {"cut between tags", "<A>\n<B/>", "in.xml(1): element 'A' is not closed"},
      {"closed by another", "<A>\n<B>\n</A>", "in.xml(3): end of 'A' inside 'B'"},
      {"not open", "<A/></A>", "end of 'A', which is not open"},
      {"two roots", "<A/>\n<B/>", "in.xml(2): a second root element"},
      {"text before", "x<A/>", "text outside the root element"},
      {"text behind", "<A/>x", "text outside the root element"},
      {"character data outside", "<A/><![CDATA[x]]>", "text outside the root element"},
      {"twice", "<A\nx='1' x='2'/>", "in.xml(2): attribute 'x' is given twice"},
      {"NUL", std::string("<A>\n\0</A>", 9), "in.xml(2): control character 0"},
      {"NUL by number", "<A x='&#0;'/>", "reference to no character"},
      {"control by number", "<A>&#x1F;</A>", "reference to no character"},
      {"number without end", "<A>&#65</A>", "reference to no character"},
      {"no number", "<A>&#;</A>", "reference to no character"},
      {"no name", "<A>< </A>", "expected the name of an element"},
      {"name of an attribute", "<A 1='x'/>", "expected '>'"},
      {"no value", "<A x/>", "expected '='"},
      {"no quote", "<A x=1/>", "expected a quoted value"},
      {"open quote", "<A x='1/>", "value of an attribute without end"},
      {"open comment", "<A><!-- </A>", "comment without end"},
      {"open character data", "<A><![CDATA[ ]] </A>", "character data without end"},
      {"open instruction", "<?xml ", "processing instruction without end"},
      {"entities", "<!DOCTYPE A [<!ENTITY a 'b'>]><A/>", "document types with declarations"},
      {"late document type", "<A><!DOCTYPE B></A>", "document type after"},
      {"declaration", "<A><!ELEMENT B></A>", "unknown declaration"},
      {"no XML", "PK\x03\x04", "control character 3"},
  };
  for (const auto& [label, text, expected] : cases) EXPECT_THAT(errorOf(text), HasSubstr(expected)) << label;
  EXPECT_EQ(errorOf("<?xml version='1.0'?>\n"), "") << "what writing an empty tree makes";
}

TEST_F(XmlFile, HostileTextIsRefusedBeforeATreeIsBuilt) {
  constexpr int most = static_cast<int>(kvxe::maxXmlNodes);
  const std::string tooMany = "more than " + std::to_string(most) + " elements and attributes";
  std::string attributes = "<A";
  for (int i = 0; i < most; ++i) attributes += " a" + std::to_string(i) + "=''";
  const struct {
    const char* label;
    std::string text;
    std::string expected;
  } cases[] = {
      {"deepest allowed", repeat("<a>", 256) + repeat("</a>", 256), ""},
      {"one deeper", repeat("<a>", 257) + repeat("</a>", 257), "nested deeper than 256"},
      {"100,000 deep", repeat("<a>", 100'000) + repeat("</a>", 100'000), "nested deeper than 256"},
      {"10 million rows", "<a>" + repeat("<b/>", 10'000'000) + "</a>", tooMany},
      {"attributes", attributes + "/>", tooMany},
      {"comments", "<a>" + repeat("<!---->", most) + "</a>", tooMany},
      {"pieces of text", "<a>" + repeat("x<?y?>", most) + "</a>", tooMany},
      {"long", "<a>" + std::string(kvxe::maxXmlTextSize, 'x') + "</a>", "longer than 67108864 bytes"},
  };
  for (const auto& [label, text, expected] : cases) {
    const std::string error = errorOf(text);
    EXPECT_EQ(error.empty(), expected.empty()) << label << error;
    EXPECT_THAT(error, HasSubstr(expected)) << label;
  }
}

TEST_F(XmlFile, WhatCouldNotBeReadIsNotWritten) {
  std::string deep = "a";
  for (int i = 0; i < 256; ++i) deep += ".a";
  KVXEXmlReadWrite tooDeep(pathOf("deep.xml")), twoRoots(pathOf("two.xml")), nul(std::string("a\0b", 3));
  tooDeep.putAttrValue(deep, "x");
  twoRoots.putAttrValue("A", "1"), twoRoots.putAttrValue("B", "1");
  for (KVXEXmlReadWrite* xml : {&tooDeep, &twoRoots, &nul})
    EXPECT_THROW(xml->writeXml(false), std::exception);
  EXPECT_EQ(m_directory.list(), std::vector<std::string>());
}

TEST_F(XmlFile, AFullDiskIsTold) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no full device here";
  std::filesystem::create_symlink("/dev/full", pathOf("full.xml"));
  for (const bool xpFormat : {false, true}) {
    for (const int rows : {1, 10'000}) {
      KVXEXmlReadWrite xml(pathOf("full.xml"));
      xml.addVectorOfAttrMap("A.R", std::vector<AttrMap>(static_cast<std::size_t>(rows), {{"key", "value"}}));
      try {
        xml.writeXml(xpFormat);
        ADD_FAILURE() << "written " << xpFormat << rows;
      } catch (const std::exception& error) {
        EXPECT_THAT(error.what(), HasSubstr("full.xml: No space left on device")) << xpFormat << rows;
      }
    }
  }
}

}  // namespace
