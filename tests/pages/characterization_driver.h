#pragma once

#include <string>
#include <utility>
#include <vector>

#include "screen_driver.h"

namespace htr60::automation {

inline constexpr const char* kEnterPoints = "Disable and Allow to Enter Points";

/// The fields of a recorded point and their labels.
struct Recorded {
  const char* x;
  const char* y;
  const char* xLabel;
  const char* yLabel;
};
inline constexpr Recorded kRecorded[] = {
    {"txtParameter(192)", "txtParameter(187)", "lbArray(303)", "lbArray(298)"},
    {"txtParameter(191)", "txtParameter(186)", "lbArray(302)", "lbArray(297)"},
    {"txtParameter(190)", "txtParameter(185)", "lbArray(301)", "lbArray(296)"},
    {"txtParameter(189)", "txtParameter(184)", "lbArray(300)", "lbArray(295)"},
    {"txtParameter(188)", "txtParameter(183)", "lbArray(299)", "lbArray(294)"},
};

inline void EnterPoints(PageDriver& driver) {
  driver.Click("cmdSensorChar");
  driver.Choose("cmbCharOperation", kEnterPoints);
  driver.Ok({{"do", "boxes"}, {"answers", {"Yes"}}});
  driver.Click("cmdWriteParameter");
  driver.Shown();
  driver.Requests();
}

class CharDriver : public ScreenDriver {
 public:
  using ScreenDriver::ScreenDriver;

  void Boxes(const Json& answers) { Ok({{"do", "boxes"}, {"answers", answers}}); }
  /// The operation's page, on whose Write the entry of points begins.
  void Open() {
    Click("cmdSensorChar");
    Requests();
  }
  /// The entry, where the device has told of `points` points.
  void BeginEntry(const char* points = "02") {
    EnterPoints(*this);
    Measures("3FC00000", points);
  }
  /// The device measures `pressure` (digits) and has `points` points.
  void Measures(const char* pressure, const char* points = "02") {
    AnswerTags(3800, {{"PV", std::string(pressure) + "80"}, {"PVUnit", "046D"}, {"CharNumPoints", points}});
  }
  void SendPoint(const char* measured, const char* applied) {
    AnswerTags(3900, {{"Pressure", std::string(measured) + "80"}});
    Type("txtParameter(38)", applied);
    Click("cmdSend");
  }
  int RecordedPoints() {
    int count = 0;
    for (const Recorded& point : kRecorded) {
      const bool shown = Visible(point.x);
      for (const char* other : {point.y, point.xLabel, point.yLabel}) EXPECT_EQ(Visible(other), shown) << other;
      count += shown ? 1 : 0;
    }
    return count;
  }
  std::string Sentence() { return Screen().at("figure").at("sentence"); }
  Strings Remarks() { return Screen().at("figure").at("remarks"); }
};

// Digits of numbers that are the same in binary: 1.5, 2.25, 5, 10, 20.
inline constexpr const char* k1_5 = "3FC00000";
inline constexpr const char* k2_25 = "40100000";
inline const std::string kZero = "00000000";

}  // namespace htr60::automation
