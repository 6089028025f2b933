#include <gtest/gtest.h>

#include "automate/driver.h"

namespace htr60 {
namespace {

using automation::Driver;
using Json = nlohmann::json;

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
