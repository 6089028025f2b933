#include <gtest/gtest.h>

#include "automate/driver.h"
#include "shell/answer.h"

namespace htr60 {
namespace {

using automation::Driver;
using Json = nlohmann::json;

TEST(AnswerReader, TakesWellFormedDocumentsAlone) {
  struct Case {
    const char* name;
    std::string document;
    bool wellFormed;
  };
  const std::string tag = R"(<P tag="T" value="1F"/>)";
  const Case kCases[] = {
      {"plain", "<A>" + tag + "</A>", true},
      {"any depth and name", "<A><B><C/>" + tag + "</B></A>", true},
      {"declared encoding is not applied", "<?xml version='1.0' encoding='UTF-16'?><A>" + tag + "</A>", true},
      {"comments and CDATA", "<A><!-- x --><![CDATA[<&]]>" + tag + "</A>", true},
      {"predefined entity", "<A><P tag='T' value='&#49;F'/></A>", true},
      {"empty", "", false},
      {"blank", "   ", false},
      {"two roots", "<A>" + tag + "</A><B/>", false},
      {"text after the root", "<A>" + tag + "</A>x", false},
      {"doubled attribute", R"(<A><P tag="T" tag="U" value="1F"/></A>)", false},
      {"bare ampersand", "<A>" + tag + "a & b</A>", false},
      {"unknown entity", "<A>" + tag + "&nbsp;</A>", false},
      {"broken UTF-8", "<A>" + tag + "\xC3\x28</A>", false},
      {"overlong UTF-8", "<A>" + tag + "\xC0\xAF</A>", false},
      {"unclosed", "<A>" + tag, false},
      {"cut in a tag", "<A>" + tag + "<P tag=\"", false},
      {"wrong nesting", "<A><B>" + tag + "</A></B>", false},
      {"unquoted attribute", "<A>" + tag + "<P tag=T/></A>", false},
      {"less-than in a value", "<A>" + tag + "<P tag='<'/></A>", false},
      {"DOCTYPE", "<!DOCTYPE A><A>" + tag + "</A>", false},
      {"internal entity", "<!DOCTYPE A [<!ENTITY e 'x'>]><A>" + tag + "&e;</A>", false},
      {"external entity", "<!DOCTYPE A [<!ENTITY e SYSTEM 'file:///etc/passwd'>]><A>" + tag + "&e;</A>", false},
      {"NUL", std::string("<A>") + tag + std::string(1, '\0') + "</A>", false},
      {"control character", "<A>" + tag + "\x01</A>", false},
      {"declaration after a blank", " <?xml version='1.0'?><A>" + tag + "</A>", false},
  };
  AnswerReader reader;  // one for all: a failed document must leave no trace
  for (const Case& c : kCases) {
    const Answer* answer = reader.Read(c.document);
    ASSERT_EQ(answer != nullptr, c.wellFormed) << c.name;
    if (answer != nullptr) {
      EXPECT_EQ(answer->Number("T"), 31) << c.name;
      EXPECT_THROW((void)answer->Text("U"), RuntimeFailure) << c.name;
    }
  }
}

TEST(AnswerReader, TheFirstOfATagCounts) {
  AnswerReader reader;
  const Answer* answer =
      reader.Read(R"(<A><P tag="T"/><P tag="T" value="1"/><P tag="V" value=""/><P tag="V" value="2"/>)"
                  R"(<P value="9" tag="W"/><P TAG="w" value="3"/></A>)");
  ASSERT_NE(answer, nullptr);
  EXPECT_THROW((void)answer->Text("T"), RuntimeFailure);
  EXPECT_EQ(answer->Text("V"), "");
  EXPECT_THROW((void)answer->Number("V"), RuntimeFailure);
  EXPECT_EQ(answer->Text("W"), "9");
  EXPECT_THROW((void)answer->Text("w"), RuntimeFailure);
}

TEST(AnswerReader, StandsLargeAndDeepDocuments) {
  AnswerReader reader;
  std::string many = "<A>";
  for (int i = 0; i < 20000; ++i)
    many += "<P tag=\"X" + std::to_string(i) + "\" value=\"" + std::to_string(i % 10) + "\"/>";
  const Answer* answer = reader.Read(many + "</A>");
  ASSERT_NE(answer, nullptr);
  EXPECT_EQ(answer->Text("X19999"), "9");
  EXPECT_EQ(answer->Text("X0"), "0");

  const std::string text = "<A>" + std::string(10'000'000, 'x') + "<P tag='T' value='1'/></A>";
  answer = reader.Read(text);
  ASSERT_NE(answer, nullptr);
  EXPECT_EQ(answer->Text("T"), "1");

  std::string deep;
  for (int i = 0; i < 100000; ++i) deep += "<A>";
  EXPECT_EQ(reader.Read(deep), nullptr);
  for (int i = 0; i < 100000; ++i) deep += "</A>";
  EXPECT_NE(reader.Read(deep), nullptr);
  EXPECT_NE(reader.Read("<A/>"), nullptr);
}

TEST(BadAnswers, LeaveThePageAsItWas) {
  Driver d(Driver::Captured());
  d.Init();
  d.AnswerTags(100, {{"TRDPVType", "0000"}, {"PHYTag", "414243"}});
  ASSERT_EQ(d.Text("txtParameter(0)"), "ABC");
  for (const char* document : {"", "<A", "<A><P tag='TRDPVType' value='0001'/><P tag='PHYTag' value='44'/></A><B/>"}) {
    d.Answer(100, document);
    EXPECT_EQ(d.Text("txtParameter(0)"), "ABC") << document;
    EXPECT_EQ(d.Text("cmbPVType"), "Pressure") << document;
  }
}

TEST(BadAnswers, AreSurvivedForEveryCode) {
  Driver d(Driver::Captured());
  d.Init();
  const std::string digits[] = {"", "0", "ZZ", "FFFFFFFFFFFFFFFF", "7F800000", "&#0;", std::string(5000, 'F')};
  for (int code = 0; code <= 9200; code += 100) {
    for (const std::string& value : digits) {
      d.Answer(code, "<A><P tag='TRDPVType' value='" + value + "'/><P tag='MeasuredType' value='" + value + "'/></A>");
    }
  }
  d.Answer(-100, "<A/>");
  d.Answer(2147483647, "<A/>");
  EXPECT_TRUE(d.Ok({{"do", "members"}})["ok"].get<bool>());
}

}  // namespace
}  // namespace htr60
