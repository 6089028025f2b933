#include "characterization_driver.h"

namespace htr60::automation {
namespace {

const Fills kCurve = {
    {"TRDCharOperation", "0004", {{"cmbCharOperation", "Enable Curve"}}},
    {"TRDPVOut", "41200000C0", {{"txtParameter(109)", "10.000"}, {"cmbStatusChar", "Good (C) & Non-specific"}}},
    {"TRDCurveX",
     "3DCCCCCD3FC00000401000004120000041A00000" + std::string(88, 'F'),
     {{"txtParameter(114)", "0.100000001490116"},
      {"txtParameter(115)", "1.5"},
      {"txtParameter(116)", "2.25"},
      {"txtParameter(117)", "10"},
      {"txtParameter(118)", "20"}}},
    {"TRDCurveY",
     "BF800000" + std::string(120, '0'),
     {{"txtParameter(104)", "-1"},
      {"txtParameter(105)", "0"},
      {"txtParameter(106)", "0"},
      {"txtParameter(107)", "0"},
      {"txtParameter(108)", "0"}}},
    {"TRDCurveLenght", "0A", {{"txtParameter(110)", "0A"}}},
    {"TRDUnit", "0471", {{"lbArray(148)", "bar"}}},
};

TEST(Characterization, TheMenuOpensThePageAndItsLiveReads) {
  CharDriver driver;
  driver.Type("txtPassword", "abc");
  driver.Activate("Observe");
  driver.Ok({{"do", "set"}, {"member", "RequestXml"}, {"value", "<kept/>"}});
  driver.Requests();
  driver.Click("cmdSensorChar");
  EXPECT_EQ(driver.Text("txtPassword"), "");
  EXPECT_EQ(driver.Member("CurrentPage"), "Char");
  EXPECT_TRUE(driver.Visible("frmChar"));
  EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
  EXPECT_TRUE(driver.Enabled("cmdBack"));
  EXPECT_EQ(driver.Panel(), "Reading Xmtr Data...");
  driver.Advance(6000);
  const Json sent = driver.Requests();
  ASSERT_EQ(sent.size(), 3U);
  EXPECT_EQ(sent[0]["code"], "20");
  EXPECT_EQ(sent[1]["code"], "39");
  for (const Json& read : sent) EXPECT_EQ(read["document"], "<kept/>");  // the stored document as it stands

  driver.Advance(1000);
  driver.Click("cmdResultChar");
  EXPECT_EQ(driver.Member("CurrentPage"), "Result Char");
  EXPECT_TRUE(driver.Visible("frmResultChar"));
  EXPECT_FALSE(driver.Visible("frmChar"));
  EXPECT_FALSE(driver.Enabled("cmdWriteParameter"));
  EXPECT_TRUE(driver.Enabled("cmdBack"));
  driver.Advance(3000);
  EXPECT_EQ(driver.Traffic(), (Strings{"read 20", "read 39"}));
}

TEST(Characterization, TheMenuStartsItsTimerAlsoWhereTheReadFails) {
  CharDriver driver;
  driver.Ok({{"do", "fail"}, {"reads", true}, {"writes", false}});
  driver.Click("cmdSensorChar");
  EXPECT_EQ(driver.Timer("TimerChar"), (Json{{"enabled", true}, {"interval", 3000}}));
}

TEST(Characterization, AnswersFillTheirFieldsInOrder) {
  ExpectFillsInOrder(2000, kCurve);
  ExpectFillsInOrder(
      3900,
      {{"Pressure",
        "412000000C",
        {{"txtParameter(109)", "10.000"}, {"cmbStatusChar", "Bad & Device Failure"}, {"txtParameter(39)", "10.000"}}}});
  const Fills point = {{"PV", "4010000080", {{"txtParameter(39)", "2.250"}}},
                       {"PVUnit", "046D", {{"lbParameter(40)", "kPa"}, {"lbParameter(115)", "kPa"}}},
                       {"CharNumPoints", "04", {{"cmbCharNumPoints", "4"}}}};
  ExpectFillsInOrder(3800, point, EnterPoints);
  PageDriver idle;
  idle.AnswerFills(3800, point);
  EXPECT_EQ(idle.Text("txtParameter(39)"), "2.250");
  EXPECT_EQ(idle.Text("cmbCharNumPoints"), "");  // no point is being entered
}

TEST(Characterization, AnUnknownUnitEmptiesItsLabelsAndAnUnknownOperationLeavesTheList) {
  CharDriver driver;
  driver.AnswerFills(2000, kCurve);
  Fills unknown = kCurve;
  unknown[0].value = "0005";
  unknown[5].value = "0000";
  driver.AnswerFills(2000, unknown);
  EXPECT_EQ(driver.Text("cmbCharOperation"), "Enable Curve");
  EXPECT_EQ(driver.Text("lbArray(148)"), "");
}

TEST(Characterization, EachOperationHasItsCodeBothWays) {
  const std::pair<const char*, const char*> operations[] = {{"Disabled", "0000"},
                                                            {"Disable and Restore Cal", "0002"},
                                                            {"Enable Curve and Backup Cal", "0003"},
                                                            {"Enable Curve", "0004"}};
  CharDriver driver;
  driver.Open();
  EXPECT_EQ(driver.Items("cmbCharOperation"),
            R"j(["Disabled","Disable and Allow to Enter Points","Disable and Restore Cal",)j"
            R"j("Enable Curve and Backup Cal","Enable Curve"])j");
  for (const auto& [text, code] : operations) {
    driver.Open();  // its timer begins anew
    driver.Choose("cmbCharOperation", text);
    driver.Write();
    driver.Advance(2000);
    EXPECT_EQ(driver.Traffic(), (Strings{std::string("write 30: ") + code, "read 20"}));
    driver.SetList("cmbCharOperation", "");
    driver.AnswerTags(2000, {{"TRDCharOperation", code}});
    EXPECT_EQ(driver.Text("cmbCharOperation"), text);
  }
  EXPECT_TRUE(driver.Shown().empty());
  driver.AnswerTags(2000, {{"TRDCharOperation", "0001"}});
  EXPECT_EQ(driver.Text("cmbCharOperation"), kEnterPoints);
}

// ---- the entry of points

TEST(CharacterizationEntry, BeginsAfterItsQuestion) {
  CharDriver driver;
  driver.Open();
  driver.Choose("cmbCharOperation", kEnterPoints);
  for (const char* answer : {"No", "Close"}) {
    driver.Boxes({answer});
    driver.Write();
    EXPECT_EQ(driver.Member("CurrentPage"), "Char");
    EXPECT_TRUE(driver.Visible("frmChar"));
    EXPECT_EQ(driver.Message(), "Nothing sent.");
  }
  EXPECT_EQ(driver.Traffic(), Strings{});
  const Json box = driver.Shown()[0];
  EXPECT_EQ(
      box["text"],
      "Do you want to proceed with sensor characterization method?This method can affect the sensor performance.");
  EXPECT_EQ(box["caption"], "Warning");
  EXPECT_EQ(box["icon"], "none");
  EXPECT_EQ(box["buttons"], (Json{"Yes", "No"}));

  driver.Force("cmdSend");  // leaves its marks on a form that no entry has prepared
  driver.Type("txtParameter(38)", "7");
  driver.Boxes({"Yes"});
  driver.Write();
  EXPECT_EQ(driver.Member("CurrentPage"), "Method Char");
  EXPECT_TRUE(driver.Visible("frmMethodChar"));
  EXPECT_FALSE(driver.Visible("frmChar"));
  EXPECT_EQ(driver.RecordedPoints(), 0);
  EXPECT_EQ(driver.Text("frmGroupParameter(32)"), "Enter Applied Pressure Point P1");
  EXPECT_EQ(driver.Text("lbParameter(114)"), "P1:");
  EXPECT_EQ(driver.Text("txtParameter(38)"), "");
  EXPECT_EQ(driver.Member("CharPointIndex"), 1);
  EXPECT_EQ(driver.Member("CharX"), (Json{"", "0", "0", "0", "0", "0"}));
  EXPECT_EQ(driver.Member("CharY"), driver.Member("CharX"));
  EXPECT_EQ(driver.Traffic(), Strings{"read 38"});
  EXPECT_EQ(driver.Panel(), "Reading Xmtr Data...");
  // The page has no write of its own.
  driver.Write();
  EXPECT_EQ(driver.Traffic(), Strings{});
  EXPECT_EQ(driver.Message(), "Nothing sent: this page writes nothing here.");
}

TEST(CharacterizationEntry, DoesNotBeginWithoutALink) {
  CharDriver driver;
  driver.Open();
  driver.Choose("cmbCharOperation", kEnterPoints);
  driver.Answer(9000, "<DTMInfo state='Offline' />");
  driver.Write();
  EXPECT_TRUE(driver.Shown().empty());
  EXPECT_EQ(driver.Member("CurrentPage"), "Char");
  EXPECT_EQ(driver.Message(), "Nothing sent: the device is disconnected.");
}

TEST(CharacterizationEntry, TakesPointByPointAndAsksForTheNext) {
  CharDriver driver;
  driver.BeginEntry("03");
  driver.Click("cmdSend");  // nothing typed: nothing at all
  EXPECT_EQ(driver.RecordedPoints(), 0);
  EXPECT_EQ(driver.Traffic(), Strings{});
  driver.Type("txtParameter(38)", "1.25");
  driver.Click("cmdSend");
  EXPECT_EQ(driver.RecordedPoints(), 1);
  EXPECT_EQ(driver.Text("txtParameter(192)"), "1.500");
  EXPECT_EQ(driver.Text("txtParameter(187)"), "1.25");
  EXPECT_EQ(driver.Text("txtParameter(38)"), "");
  EXPECT_EQ(driver.Text("frmGroupParameter(32)"), "Enter Applied Pressure Point P2");
  EXPECT_EQ(driver.Text("lbParameter(114)"), "P2:");
  EXPECT_EQ(driver.Member("CharPointIndex"), 2);
  EXPECT_EQ(driver.Member("CharX"), (Json{"", "1.500", "0", "0", "0", "0"}));
  EXPECT_EQ(driver.Member("CharY"), (Json{"", "1.25", "0", "0", "0", "0"}));
  EXPECT_EQ(driver.Traffic(), Strings{"read 38"});
  driver.Measures(k2_25, "05");
  EXPECT_EQ(driver.Text("cmbCharNumPoints"), "3");  // the device's number counts for the first point alone
}

TEST(CharacterizationEntry, TheLastPointAsksAndWritesTheCurve) {
  struct Case {
    Json answers;
    const char* code;
    std::size_t boxes;
  };
  const Case cases[] = {
      {{"Yes"}, "0003", 1}, {{"No", "Yes"}, "0002", 2}, {{"No", "No"}, "0000", 2}, {{"Close", "Close"}, "0000", 2}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.answers.dump());
    CharDriver driver;
    driver.BeginEntry();
    driver.SendPoint(k1_5, "1.25");
    driver.Requests();
    driver.Boxes(c.answers);
    driver.SendPoint(k2_25, "2.5");
    // Points that were not entered go out as 0.
    const std::string rest = kZero + kZero + kZero;
    EXPECT_EQ(driver.Traffic(),
              Strings{"write 31: 02, 3FC0000040100000" + rest + ", 3FA0000040200000" + rest + ", " + c.code});
    EXPECT_EQ(driver.Panel(), "Writing Xmtr Data...");
    const Json boxes = driver.Shown();
    ASSERT_EQ(boxes.size(), c.boxes);
    EXPECT_EQ(boxes[0]["text"], "Do you want to enable the curve?");
    for (const Json& box : boxes) {
      EXPECT_EQ(box["caption"], "Characterization");
      EXPECT_EQ(box["icon"], "none");
      EXPECT_EQ(box["buttons"], (Json{"Yes", "No"}));
    }
    EXPECT_EQ(boxes.back()["text"], c.boxes > 1 ? "Disable and Restore Cal?" : "Do you want to enable the curve?");
    EXPECT_EQ(driver.Member("CurrentPage"), "Char");
    EXPECT_TRUE(driver.Visible("frmChar"));
    EXPECT_FALSE(driver.Visible("frmMethodChar"));
    EXPECT_FALSE(driver.Enabled("cmdSend"));
    EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
    EXPECT_EQ(driver.Member("CharPointIndex"), 2);  // until the next entry
    driver.Advance(999);
    EXPECT_EQ(driver.Traffic(), Strings{});
    driver.Advance(1);
    EXPECT_EQ(driver.Traffic(), Strings{"read 20"});
    driver.Measures(k1_5, "04");
    EXPECT_EQ(driver.Text("cmbCharNumPoints"), "2");
  }
}

TEST(CharacterizationEntry, FivePointsFillTheCurve) {
  CharDriver driver;
  driver.BeginEntry();
  driver.Choose("cmbCharNumPoints", "5");
  const std::pair<const char*, const char*> points[] = {
      {"3FC00000", "1"}, {"40100000", "2"}, {"40A00000", "4"}, {"41200000", "8"}, {"41A00000", "16"}};
  for (const auto& [measured, applied] : points) {
    driver.AnswerTags(3900, {{"Pressure", std::string(measured) + "80"}});
    driver.Type("txtParameter(38)", applied);
    driver.Click("cmdSend");
  }
  EXPECT_EQ(driver.RecordedPoints(), 5);
  EXPECT_EQ(driver.Text("txtParameter(188)"), "20.000");
  EXPECT_EQ(driver.Text("txtParameter(183)"), "16");
  EXPECT_EQ(driver.Traffic(), (Strings{"read 38", "read 38", "read 38", "read 38",
                                       "write 31: 05, 3FC000004010000040A000004120000041A00000, "
                                       "3F80000040000000408000004100000041800000, 0003"}));
}

// The number that the list shows when a point is sent decides.
TEST(CharacterizationEntry, GoesByTheNumberThatTheListShows) {
  struct Case {
    const char* number;
    const char* expected;
    int index;
  };
  const Case cases[] = {{"2", "write 31", 3}, {"4", "read 38", 4}, {"", "", 3}, {"many", "", 3}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.number);
    CharDriver driver;
    driver.BeginEntry("05");
    driver.SendPoint(k1_5, "1");
    driver.SendPoint(k2_25, "2");
    driver.SetList("cmbCharNumPoints", c.number);
    driver.Requests();
    driver.SendPoint("40A00000", "4");
    const auto sent = driver.Sent();
    EXPECT_EQ(sent, *c.expected == '\0' ? Strings{} : Strings{c.expected});
    EXPECT_EQ(driver.Member("CharPointIndex"), c.index);
    EXPECT_EQ(driver.RecordedPoints(), 3);  // taken before the number is looked at
    EXPECT_EQ(driver.Text("txtParameter(38)"), "");
  }
}

// A device that tells of six points: the curve has room for five.
TEST(CharacterizationEntry, ThereIsNoSixthPoint) {
  CharDriver driver;
  driver.BeginEntry("06");
  for (const char* applied : {"1", "2", "3", "4", "5"}) driver.SendPoint(k1_5, applied);
  EXPECT_EQ(driver.Member("CharPointIndex"), 6);
  driver.Requests();
  driver.SendPoint(k1_5, "6");
  EXPECT_EQ(driver.Traffic(), Strings{});
  EXPECT_EQ(driver.Text("txtParameter(38)"), "6");
}

TEST(CharacterizationEntry, AWriteThatFailsLeavesThePagesName) {
  CharDriver driver;
  driver.BeginEntry();
  driver.SendPoint(k1_5, "1");
  driver.Ok({{"do", "fail"}, {"reads", false}, {"writes", true}});
  driver.Boxes({"Yes"});
  driver.SendPoint(k2_25, "2");
  EXPECT_EQ(driver.Member("CurrentPage"), "Method Char");
  EXPECT_TRUE(driver.Visible("frmChar"));
  EXPECT_EQ(driver.Timer("TimerReadAfterWrite")["enabled"], false);
}

TEST(CharacterizationEntry, ATextThatIsNoNumberStopsTheWriteAtTheEnd) {
  CharDriver driver;
  driver.BeginEntry();
  driver.SendPoint(k1_5, "1.x");
  driver.Requests();
  driver.Boxes({"Yes"});
  driver.SendPoint(k2_25, "2");
  EXPECT_EQ(driver.Traffic(), Strings{});
  EXPECT_TRUE(driver.Visible("frmChar"));
}

// ---- Back

TEST(CharacterizationBack, LeadsBackFromEveryState) {
  CharDriver driver;
  const auto back = [&](const char* page, const char* frame) {
    driver.Click("cmdBack");
    EXPECT_EQ(driver.Member("CurrentPage"), page);
    EXPECT_TRUE(driver.Visible(frame));
    EXPECT_TRUE(driver.Enabled("cmdBack"));
    EXPECT_EQ(driver.Timer("TimerChar")["enabled"], false);
    driver.Advance(10'000);
    EXPECT_EQ(driver.Traffic(), Strings{});  // nothing starts the live reads again
  };
  driver.Open();
  driver.Click("cmdResultChar");
  driver.Requests();
  back("Char", "frmChar");
  EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));

  driver.BeginEntry();
  driver.SendPoint(k1_5, "1");
  driver.Requests();
  back("Char", "frmChar");
  EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
  EXPECT_EQ(driver.Member("CharPointIndex"), 2);

  // The point taken is dropped at the next start.
  driver.Boxes({"Yes"});
  driver.Write();
  EXPECT_EQ(driver.RecordedPoints(), 0);
  EXPECT_EQ(driver.Member("CharX"), (Json{"", "0", "0", "0", "0", "0"}));
  driver.Requests();
  back("Char", "frmChar");
  driver.Open();
  back("Factory Password", "frmFactoryPassword");
}

// ---- what the operator sees

TEST(CharacterizationScreen, TheAppliedPressureHasNoStateAndItsHintComesWhenItIsEdited) {
  CharDriver driver;
  driver.BeginEntry();
  EXPECT_EQ(driver.Title(), "Characterization Points");
  EXPECT_EQ(driver.Row("txtParameter(38)")["kind"], "num");
  EXPECT_EQ(driver.Row("txtParameter(38)")["unit"], "kPa");
  EXPECT_EQ(driver.Hint("txtParameter(38)"), "");
  driver.Type("txtParameter(38)", "x");
  EXPECT_EQ(driver.State("txtParameter(38)"), "");
  EXPECT_EQ(driver.Hint("txtParameter(38)"), "No number");
  EXPECT_EQ(driver.Footer(), "");
  driver.Advance(10'000);  // what was said when the page changed is over
  driver.Type("txtParameter(38)", "");
  driver.Click("cmdSend");
  EXPECT_EQ(driver.Message(), "");  // an empty field is no failed write
  driver.Type("txtParameter(38)", "1");
  driver.Click("cmdSend");
  EXPECT_EQ(driver.Hint("txtParameter(38)"), "");
  EXPECT_EQ(driver.Screen()["revertable"], 0);
}

TEST(CharacterizationScreen, LivesOnReadsThatBackDoesNotStartAgain) {
  CharDriver driver;
  driver.Open();
  EXPECT_EQ(driver.DataLine(), "Not read since opened");
  driver.AnswerFills(2000, kCurve);
  EXPECT_EQ(driver.DataLine(), "Read 00:00:02, every 3 s");
  driver.Click("cmdResultChar");
  driver.AnswerFills(2000, kCurve);
  EXPECT_EQ(driver.Row("cmbStatusChar")["kind"], "list-ro");
  EXPECT_EQ(driver.Row("txtParameter(110)")["text"], "0A");
  EXPECT_EQ(driver.Row("txtParameter(109)")["name"], "Primary Value (Out), Value, bar");
  driver.Click("cmdBack");
  EXPECT_EQ(driver.DataLine(), "As read 00:00:02");
}

TEST(CharacterizationScreen, TheNumberOfPointsIsSentWithTheLastPoint) {
  CharDriver driver;
  driver.BeginEntry("05");
  driver.Choose("cmbCharNumPoints", "2");
  driver.SendPoint(k1_5, "1");
  EXPECT_EQ(driver.State("cmbCharNumPoints"), "not written");
  driver.Advance(10'000);
  // The page gives way while the question stands open, but what is sent then was not left unwritten.
  const Json during = Json::array({{{"do", "advance"}, {"ms", 3000}}});
  driver.Boxes(Json::array({{{"answer", "Yes"}, {"during", during}}}));
  driver.SendPoint(k2_25, "2");
  EXPECT_EQ(driver.Title(), "Characterization");
  EXPECT_EQ(driver.Message(), "");
  driver.BeginEntry("05");
  driver.Choose("cmbCharNumPoints", "2");
  driver.Click("cmdBack");
  EXPECT_EQ(driver.Message(), "Left without writing: 1 field on Characterization Points.");
}

TEST(CharacterizationScreen, TheCurveGrowsWithThePoints) {
  CharDriver driver;
  EnterPoints(driver);
  EXPECT_EQ(driver.Sentence(), "No point recorded and no pressure read yet.");
  driver.Measures(k1_5, "04");
  EXPECT_EQ(driver.Sentence(), "0 points recorded; measured now, for P1, 1.500 kPa.");
  driver.SendPoint(k2_25, "2");
  EXPECT_EQ(driver.Sentence(), "1 point recorded; measured now, for P2, 2.250 kPa.");
  driver.SendPoint("40A00000", "5");
  EXPECT_EQ(driver.Remarks(), Strings{});
  driver.SendPoint(k1_5, "4");
  EXPECT_EQ(driver.Remarks(), Strings{"Check: X does not rise from point 2 to point 3."});
  EXPECT_TRUE(driver.Enabled("cmdSend"));  // it is said and never held back
  EXPECT_EQ(driver.Screen()["figure"]["above"], Json::array());
}

}  // namespace
}  // namespace htr60::automation
