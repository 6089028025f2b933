#include <utility>

#include "factory_support.h"

namespace htr60::automation {
namespace {

const Fills kFactory = {
    {"BackupRestore",
     "0C",
     {{"cmbDensBackupRestore", "Backup Last Calibration"}, {"cmbBackupRes(1)", "Backup Last Calibration"}}},
    {"GSDIdentNumber", "80", {{"CmbGSD", "User Ident Number"}}},
    {"FactoryReset", "0A98", {{"cmbFactoryReset", "Factory Reset Address"}}},
    {"USERIdentNumber", "0a6B", {{"txtParameter(177)", "0a6B"}}},  // as it stands
    {"Agile", "01", {{"cmbAgile", "Disabled"}}},
};

void KnowAll(PageDriver& driver) {
  driver.SetMember("FwFlag108", -1);
  driver.SetMember("FwFlagUserIdent", -1);
}

TEST(Factory, TheNodeOpensThePageAndFillsItsListsOnce) {
  PageDriver driver;
  EXPECT_EQ(driver.Items("cmbFactoryReset"), "[]");
  driver.Activate("Factory");
  EXPECT_EQ(driver.Page(), "Factory / Backup Restore");
  EXPECT_TRUE(driver.Visible("frmfactory"));
  EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
  EXPECT_EQ(driver.Traffic(), Strings{"read 40"});
  const char* backups =
      R"(["Initial Value","Restore Factory Calibration","Restore Last Calibration","Sensor Data Restore",)"
      R"("Backup Factory Calibration","Backup Last Calibration"])";
  for (const char* list : {"cmbBackupRes(0)", "cmbBackupRes(1)", "cmbDensBackupRestore"}) {
    EXPECT_EQ(driver.Items(list), backups) << list;
  }
  EXPECT_EQ(driver.Items("cmbAgile"), R"(["Disabled","Enabled"])");
  EXPECT_EQ(driver.Items("cmbFactoryReset"),
            R"(["No Function","Factory Reset Parameters","Warm Startup","Factory Reset Address"])");
  EXPECT_EQ(driver.Items("cmbWriteProtect"), R"(["Write Locked","Write Unlocked"])");
  driver.Choose("cmbFactoryReset", "Warm Startup");
  driver.Tab("SSTabFactory", 2);
  driver.Activate("Factory");
  EXPECT_EQ(driver.Text("cmbFactoryReset"), "Warm Startup");
  EXPECT_EQ(driver.Get("SSTabFactory")["index"], 0);
  EXPECT_EQ(driver.Traffic(), (Strings{"read 40", "read 40", "read 40"}));  // the second is that of tab 0
}

TEST(Factory, TabsNameTheirPageAndRead) {
  struct Case {
    int tab;
    const char* page;
    bool write;
    const char* read;
  };
  const Case cases[] = {
      {1, "Factory / GSD", true, "read 40"},
      {2, "Factory / Factory Reset", true, "read 40"},
      {3, "Factory / Write Protect", true, "read 44"},
      {4, "Factory / x", false, "read 40"},
      {5, "Factory / x", false, "read 40"},
      {0, "Factory / Backup Restore", true, "read 40"},
  };
  PageDriver driver;
  driver.Activate("Observe");
  driver.Activate("Factory");
  driver.Requests();
  for (const Case& c : cases) {
    SCOPED_TRACE(c.tab);
    driver.SetMember("CurrentPage", "y");
    driver.SetMember("SubPage", "x");
    driver.Tab("SSTabFactory", c.tab);
    EXPECT_EQ(driver.Page(), c.page);
    EXPECT_EQ(driver.Enabled("cmdWriteParameter"), c.write);
    EXPECT_EQ(driver.Traffic(), Strings{c.read});
    EXPECT_FALSE(driver.Timer("TimerDeviceView")["enabled"].get<bool>());
  }
}

TEST(Factory, AnswersFillTheirFieldsInOrder) {
  ExpectFillsInOrder(4000, kFactory, KnowAll);
  ExpectFillsInOrder(4400, {{"WriteProtect", "0999", {{"cmbWriteProtect", "Write Unlocked"}}}});
  ExpectFillsInOrder(4400, {{"WriteProtect", "0000", {{"cmbWriteProtect", "Write Locked"}}}});
}

TEST(Factory, CodesWithoutATextLeaveTheLists) {
  PageDriver driver;
  KnowAll(driver);
  driver.AnswerFills(4000, kFactory);
  driver.AnswerTags(4400, {{"WriteProtect", "0000"}});
  for (const char* code : {"04", "06", "0A", "0D", "0E", "7E"}) {
    Fills unknown = kFactory;
    for (Filled& row : unknown) row.value = code;
    driver.AnswerFills(4000, unknown);
    driver.AnswerTags(4400, {{"WriteProtect", code}});
    for (const Filled& row : kFactory) {
      const std::string& text = row.tag == "USERIdentNumber" ? code : row.fields[0].second;
      EXPECT_EQ(driver.Text(row.fields[0].first), text) << row.tag << " " << code;
    }
    EXPECT_EQ(driver.Text("cmbWriteProtect"), "Write Locked");
  }
}

// Older devices do not send the two last tags.
TEST(Factory, WhatTheFirmwareDoesNotKnowIsNotRead) {
  PageDriver driver;
  driver.Type("txtParameter(177)", "12");
  driver.AnswerFills(4000, kFactory);
  EXPECT_EQ(driver.Text("txtParameter(177)"), "12");
  EXPECT_EQ(driver.Text("cmbAgile"), "Enabled");
  driver.SetMember("FwFlagUserIdent", -1);
  driver.AnswerFills(4000, kFactory, "Agile");
  EXPECT_EQ(driver.Text("txtParameter(177)"), "0a6B");
  EXPECT_EQ(driver.Text("cmbAgile"), "Enabled");
}

TEST(Factory, EachTabWritesItsOwnAndReadsTheCommonAnswer) {
  PageDriver driver;
  driver.Activate("Factory");
  struct Case {
    int tab;
    const char* list;
    std::vector<std::pair<const char*, const char*>> rows;  // and what goes out
  };
  const Case cases[] = {
      {0,
       "cmbBackupRes(1)",
       {{"Initial Value", "write 32: 00"},
        {"Restore Factory Calibration", "write 32: 01"},
        {"Restore Last Calibration", "write 32: 02"},
        {"Sensor Data Restore", "write 32: 05"},
        {"Backup Factory Calibration", "write 32: 0B"},
        {"Backup Last Calibration", "write 32: 0C"},
        {"Backup last calibration", "write 32: "}}},
      {2,
       "cmbFactoryReset",
       {{"No Function", "write 34: 0000"},
        {"Factory Reset Parameters", "write 34: 0001"},
        {"Warm Startup", "write 34: 09CA"},
        {"Factory Reset Address", "write 34: 0A98"}}},
      {3, "cmbWriteProtect", {{"Write Locked", "write 36: 0000"}, {"Write Unlocked", "write 36: 0999"}}},
  };
  for (const Case& c : cases) {
    driver.Tab("SSTabFactory", c.tab);
    for (const auto& [text, write] : c.rows) {
      SCOPED_TRACE(text);
      driver.SetList(c.list, text);
      driver.Requests();
      driver.Click("cmdWriteParameter");
      driver.Advance(2000);
      EXPECT_EQ(driver.Traffic(), (Strings{write, "read 40"}));
    }
  }
  EXPECT_TRUE(driver.Shown().empty()) << "no question comes before a command";
  // Where another prepares the list, all eight commands can be sent from here.
  driver.Force("cmdSensorFactory");
  EXPECT_EQ(driver.Get("cmbBackupRes(1)")["items"].size(), 8U);
}

TEST(Factory, TheIdentNumberGetsItsZerosAndWhatTheFirmwareKnows) {
  struct Case {
    const char* gsd;
    const char* ident;
    const char* agile;
    bool user;
    const char* write;
    const char* agileAfter;
  };
  const Case cases[] = {
      {"Profile Specific", "7", "Enabled", true, "write 33: 00, 0007, 00", "Enabled"},
      {"Manufacturer Specific", "a7", "Disabled", true, "write 33: 01, 00a7, 01", "Disabled"},
      {"User Ident Number", "0A7", "", true, "write 33: 80, 00A7, 01", "Disabled"},
      {"User Ident Number", "1A7F", "Disabled", true, "write 33: 80, 1A7F, 01", "Disabled"},
      {"User Ident Number", "12345", "Disabled", true, "write 33: 80, 12345, 01", "Disabled"},
      {"User Ident Number", "", "Disabled", true, "write 33: 80, , 01", "Disabled"},
      {"User Ident Number", "é", "Disabled", true, "write 33: 80, 000é, 01", "Disabled"},
      {"Profile Specific", "7", "Enabled", false, "write 33: 00, None, 00", "Enabled"},
      {"", "7", "no row", false, "write 33: , None, ", "no row"},
  };
  PageDriver driver;
  driver.Activate("Factory");
  driver.Tab("SSTabFactory", 1);
  for (const Case& c : cases) {
    SCOPED_TRACE(c.write);
    driver.SetMember("FwFlagUserIdent", c.user ? -1 : 0);
    driver.SetList("CmbGSD", c.gsd);
    driver.SetList("cmbAgile", c.agile);
    driver.Type("txtParameter(177)", c.ident);
    driver.Requests();
    driver.Click("cmdWriteParameter");
    driver.Advance(2000);
    EXPECT_EQ(driver.Traffic(), (Strings{c.write, "read 40"}));
    EXPECT_EQ(driver.Text("cmbAgile"), c.agileAfter);
  }
}

// ---- the door

TEST(FactoryDoor, AnyOtherCodeIsRefusedAlike) {
  const char* const codes[] = {"", "qk475", "QK47", "QK 475", " QK475", "QK476", "QK457", "K475Q", "Qk475", "*****"};
  PageDriver driver;
  OpenDoor(driver);
  driver.Requests();
  Json first;
  for (const char* code : codes) {
    SCOPED_TRACE(code);
    driver.Type("txtPassword", code);
    driver.Click("cmdFactory");
    const Json shown = driver.Shown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0], (Json{{"text", "Password is wrong."},
                              {"caption", "Passord"},
                              {"icon", "stop"},
                              {"buttons", Json::array({"OK"})},
                              {"answer", "OK"}}));
    EXPECT_EQ(driver.Text("txtPassword"), std::string(code).substr(0, 5)) << "the text stays";
    EXPECT_EQ(driver.Page(), "Factory / Backup Restore");
    EXPECT_TRUE(driver.Visible("frmfactory"));
    EXPECT_FALSE(driver.Visible("frmFactoryPassword"));
    EXPECT_FALSE(driver.Enabled("cmdBack"));
    EXPECT_EQ(driver.Traffic(), Strings{});
    // Nothing of the screen but the number of asterisks tells of the text.
    Json screen = Screen(driver);
    for (Json& row : screen.at("rows")) row.erase("text");
    if (first.is_null()) first = screen;
    EXPECT_EQ(screen, first);
  }
}

TEST(FactoryDoor, TheCodeOpensTheMenuAtEveryVisitAnew) {
  PageDriver driver;
  OpenDoor(driver);
  driver.Requests();
  for (int visit = 0; visit < 2; ++visit) {
    driver.Type("txtPassword", kAccessCode);
    driver.Click("cmdFactory");
    EXPECT_TRUE(driver.Shown().empty());
    EXPECT_EQ(driver.Text("txtPassword"), "");
    EXPECT_EQ(driver.Member("CurrentPage"), "Factory Password");
    EXPECT_TRUE(driver.Visible("frmFactoryPassword"));
    EXPECT_FALSE(driver.Visible("frmfactory"));
    EXPECT_TRUE(driver.Enabled("cmdBack"));
    EXPECT_EQ(driver.Traffic(), Strings{}) << "the device has no part in it";
    driver.Click("cmdBack");
    EXPECT_EQ(driver.Member("CurrentPage"), "Factory");
    EXPECT_TRUE(driver.Visible("frmfactory"));
    EXPECT_TRUE(driver.Enabled("cmdBack"));
    driver.Click("cmdFactory");
    EXPECT_EQ(driver.Shown().size(), 1U) << "the access is not remembered";
  }
  // Back on the factory page itself knows no way: a blank page until the next click in the tree.
  driver.Click("cmdBack");
  EXPECT_FALSE(driver.Visible("frmfactory"));
  EXPECT_FALSE(driver.Enabled("cmdBack"));
  EXPECT_EQ(Screen(driver)["frame"], nullptr);
  driver.Activate("Factory");
  EXPECT_TRUE(driver.Visible("frmfactory"));
}

// Everything that the program gives away but the field itself, which scripts may read.
TEST(FactoryDoor, TheCodeIsInNothingThatIsShownSentOrKept) {
  PageDriver driver(Driver::Simulated());
  std::string told;
  const auto look = [&] {
    told += Screen(driver).dump();
    for (const char* command : {"requests", "answers", "shown", "members", "status", "tree", "registrations"}) {
      told += driver.Ok({{"do", command}}).dump();
    }
    told += driver.Ok({{"do", "simulator"}, {"log", true}}).dump();
  };
  OpenDoor(driver);
  driver.Advance(kSettled);
  driver.Type("txtPassword", "QK47");
  driver.Click("cmdFactory");
  look();
  driver.Type("txtPassword", kAccessCode);
  look();
  EXPECT_EQ(Rows(driver).at(0).at("text"), "*****");
  driver.Activate("Observe");  // left standing in the field
  driver.Advance(kSettled);
  look();
  driver.Activate("Factory");
  driver.Tab("SSTabFactory", 3);
  driver.Choose("cmbWriteProtect", "Write Unlocked");
  WriteAndWait(driver);
  look();
  driver.Tab("SSTabFactory", kDoorTab);
  driver.Click("cmdFactory");
  look();
  for (const char* button : {"cmdSensorFactory", "cmdAutoZeroTrim", "cmdFactoryTrdInputScale", "Command5"}) {
    driver.Click(button);
    driver.Advance(kSettled);
    WriteAndWait(driver);
    look();
    driver.Click("cmdBack");
  }
  EXPECT_NE(told.find("\"write\""), std::string::npos);
  EXPECT_EQ(told.find(kAccessCode), std::string::npos);
  EXPECT_EQ(told.find("514B343735"), std::string::npos) << "nor as the digits of a text";
}

TEST(FactoryMenu, LeadsToItsPagesAndBack) {
  struct Case {
    const char* button;
    const char* page;
    const char* frame;
    const char* read;
  };
  const Case cases[] = {
      {"cmdSensorFactory", "Factory Sensor", "frmFactorySensorInfo", "read 46"},
      {"cmdFactoryTrdInputScale", "Factory Trd Input Scale", "frmTRDInputScale", "read 6"},
      {"cmdAutoZeroTrim", "Auto Zero Trim", "frmAutoZeroTrim", "read 57"},
      {"Command5", "Constant_Level", "frmConstants", "read 58"},
  };
  PageDriver driver;
  OpenMenu(driver);
  for (const Case& c : cases) {
    SCOPED_TRACE(c.button);
    driver.Click(c.button);
    EXPECT_EQ(driver.Member("CurrentPage"), c.page);
    EXPECT_TRUE(driver.Visible(c.frame));
    EXPECT_FALSE(driver.Visible("frmFactoryPassword"));
    EXPECT_TRUE(driver.Enabled("cmdWriteParameter"));
    EXPECT_TRUE(driver.Enabled("cmdBack"));
    EXPECT_EQ(driver.Traffic(), Strings{c.read});
    driver.Click("cmdBack");
    EXPECT_EQ(driver.Member("CurrentPage"), "Factory Password");
    EXPECT_TRUE(driver.Visible("frmFactoryPassword"));
    EXPECT_FALSE(driver.Visible(c.frame));
    EXPECT_TRUE(driver.Enabled("cmdBack"));
    EXPECT_EQ(driver.Traffic(), Strings{});
  }
  EXPECT_EQ(Screen(driver)["title"], "Factory Menu");
  EXPECT_EQ(Screen(driver)["dataLine"], "");
  driver.Force("cmdWriteParameter");
  EXPECT_EQ(driver.Traffic(), Strings{}) << "the menu writes nothing";
}

TEST(FactoryMenu, TheInputScaleIsThatOfTheTransducer) {
  PageDriver driver;
  driver.Activate("Level");
  driver.Click("cmdTRDLevelInputScale");
  const std::string group = driver.Text("frmzGroup(13)");
  OpenMenu(driver);
  driver.Click("cmdFactoryTrdInputScale");
  EXPECT_EQ(driver.Text("frmzGroup(13)"), group);  // the caption of the last page stays
  EXPECT_EQ(driver.Text("lbArray(107)"), "Pressure Unit (EU)");
  EXPECT_TRUE(driver.Visible("frmzGroup(8)"));
  EXPECT_EQ(driver.Get("cmbPressureUnit")["items"].size(), 17U);
  EXPECT_EQ(driver.Items("cmbPressureUnit").find("\"mH2O\""), std::string::npos);
  EXPECT_EQ(Screen(driver)["title"], "Transducer Input Scale");
  EXPECT_EQ(Screen(driver)["dataLine"], "Not read since opened");
  driver.Type("txtParameter(99)", "50");
  driver.Type("txtParameter(100)", "-20");
  driver.Choose("cmbPressureUnit", "bar");
  driver.Click("cmdWriteParameter");
  driver.Advance(2000);
  EXPECT_EQ(driver.Traffic(), (Strings{"read 6", "write 3: 42480000C1A00000, 0471", "read 6"}));
}

TEST(FactoryScreen, HasTheFixedTextsAboveAndTheCaptionOfTheDoor) {
  PageDriver driver;
  OpenDoor(driver);
  const Json row = Rows(driver).at(0);
  EXPECT_EQ(row.at("control"), "txtPassword");
  EXPECT_EQ(row.at("name"), "Please, enter the password and click on the botton");
  EXPECT_EQ(row.at("state"), "");
  driver.Type("txtPassword", "1234567");
  EXPECT_EQ(Rows(driver).at(0).at("text"), "*****");
  EXPECT_EQ(Rows(driver).at(0).at("state"), "");
  EXPECT_EQ(Screen(driver).at("footer"), "");
  driver.Tab("SSTabFactory", 1);
  const Json rows = Rows(driver);
  ASSERT_EQ(rows.size(), 2U) << "Agile is hidden until the firmware is known";
  EXPECT_EQ(rows[1].at("name"), "User Identifier Number, IDENT_NUMBER, (hexadecimal)");
}

// ---- with the simulated transmitter

std::string Strip(PageDriver& driver) { return Screen(driver)["strip"].dump(); }

TEST(FactoryAtTheInstrument, TheIdentNumberIsReadBackAndShownOnTheFirstPage) {
  PageDriver driver(Driver::Simulated());
  driver.Activate("Factory");
  driver.Tab("SSTabFactory", 1);
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("CmbGSD"), "Manufacturer Specific");
  EXPECT_EQ(driver.Text("txtParameter(177)"), "0000");
  EXPECT_EQ(driver.Text("cmbAgile"), "Disabled");
  driver.Choose("CmbGSD", "User Ident Number");
  driver.Choose("cmbAgile", "Enabled");
  driver.Type("txtParameter(177)", "a7");
  WriteAndWait(driver);
  EXPECT_EQ(driver.Text("txtParameter(177)"), "00A7");
  EXPECT_EQ(StateOf(driver, "CmbGSD"), "confirmed: confirmed");
  EXPECT_EQ(StateOf(driver, "cmbAgile"), "confirmed: confirmed");
  driver.Type("txtParameter(177)", "12345");
  WriteAndWait(driver);
  EXPECT_EQ(StateOf(driver, "txtParameter(177)"), "differs: device: 00A7, sent: 12345");
  driver.Activate("Device Identification");
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("txtParameter(6)"), "User Ident Number");
}

TEST(FactoryAtTheInstrument, FirmwareBefore105KnowsNoIdentNumberOfItsUser) {
  PageDriver driver(Driver::Simulated({{"device", {{"firmware", "1.04"}}}}));
  driver.Activate("Factory");
  driver.Tab("SSTabFactory", 1);
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Items("CmbGSD"), R"(["Profile Specific","Manufacturer Specific"])");
  EXPECT_EQ(driver.Text("cmbAgile"), "Enabled");
  EXPECT_FALSE(driver.Visible("cmbAgile"));
  driver.Choose("CmbGSD", "Profile Specific");
  driver.Requests();
  WriteAndWait(driver);
  EXPECT_EQ(driver.Traffic(), (Strings{"write 33: 00, None, 00", "read 40"}));
  EXPECT_EQ(StateOf(driver, "CmbGSD"), "confirmed: confirmed");
}

// The lock is not read back where it is set; every other page tells of it.
TEST(FactoryAtTheInstrument, ALockInTheMiddleRefusesWhatIsWrittenAfterIt) {
  PageDriver driver(Driver::Simulated());
  OpenFromMenu(driver, "cmdAutoZeroTrim");
  driver.Advance(kSettled);
  driver.Type("txtParameter(203)", "30");
  WriteAndWait(driver);
  EXPECT_EQ(StateOf(driver, "txtParameter(203)"), "confirmed: confirmed");
  driver.Activate("Factory");
  driver.Tab("SSTabFactory", 3);
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("cmbWriteProtect"), "Write Unlocked");
  driver.Choose("cmbWriteProtect", "Write Locked");
  driver.Requests();
  WriteAndWait(driver);
  EXPECT_EQ(driver.Traffic(), (Strings{"write 36: 0000", "read 40"}));
  driver.Advance(10000);
  EXPECT_EQ(StateOf(driver, "cmbWriteProtect"), "not read back: sent, not read back");
  EXPECT_EQ(Simulated(driver, "writeLock"), "0000");
  driver.Activate("Device Identification");
  driver.Advance(kSettled);
  EXPECT_NE(Strip(driver).find("Write Locked"), std::string::npos);
  OpenFromMenu(driver, "cmdAutoZeroTrim");
  driver.Advance(kSettled);
  driver.Type("txtParameter(203)", "99");
  WriteAndWait(driver);
  EXPECT_EQ(StateOf(driver, "txtParameter(203)"), "differs: device: 30, sent: 99, the instrument is write locked");
  driver.Activate("Factory");
  driver.Choose("cmbBackupRes(1)", "Backup Last Calibration");
  WriteAndWait(driver);
  EXPECT_EQ(StateOf(driver, "cmbBackupRes(1)"), "shown: device shows: Initial Value");
  // Unlocking is the one write that goes through.
  driver.Tab("SSTabFactory", 3);
  driver.Advance(kSettled);
  EXPECT_EQ(driver.Text("cmbWriteProtect"), "Write Locked");
  driver.Choose("cmbWriteProtect", "Write Unlocked");
  WriteAndWait(driver);
  EXPECT_EQ(Simulated(driver, "writeLock"), "0999");
  driver.Tab("SSTabFactory", 0);
  driver.Advance(kSettled);
  driver.Choose("cmbBackupRes(1)", "Backup Last Calibration");
  WriteAndWait(driver);
  EXPECT_EQ(StateOf(driver, "cmbBackupRes(1)"), "shown: device shows: Backup Last Calibration");
}

void Simulate(PageDriver& driver) {
  driver.Activate("Pressure/Flow");
  driver.Tab("SSTabTRDSettings", 2);
  driver.Advance(kSettled);
  driver.Choose("cmbPVSimulateEnable", "Enable");
  WriteAndWait(driver);
}

TEST(FactoryAtTheInstrument, AResetTakesTheDeviceOffTheLinkForAWhile) {
  struct Case {
    const char* command;
    int absentMs;
    const char* simulation;  // what is left of a simulation
    const char* band;        // of the auto zero trim
  };
  const Case cases[] = {
      {"Warm Startup", 5000, "00", "3F800000"},
      {"Factory Reset Address", 15000, "FF", "3F800000"},
      {"Factory Reset Parameters", 5000, "00", "3D4CCCCD"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.command);
    PageDriver driver(Driver::Simulated());
    OpenFromMenu(driver, "cmdAutoZeroTrim");
    driver.Advance(kSettled);
    driver.Type("txtParameter(204)", "1");
    WriteAndWait(driver);
    Simulate(driver);
    driver.Activate("Factory");
    driver.Tab("SSTabFactory", 2);
    driver.Advance(kSettled);
    EXPECT_EQ(driver.Text("cmbFactoryReset"), "No Function");
    driver.Choose("cmbFactoryReset", c.command);
    driver.Requests();
    driver.Click("cmdWriteParameter");
    driver.Advance(c.absentMs - 100);
    EXPECT_EQ(driver.Member("ConnectionState"), "Disconnected");
    EXPECT_EQ(driver.Sent(), Strings{"write 34"}) << "no re-read without a link";
    driver.Click("cmdWriteParameter");
    EXPECT_EQ(driver.Sent(), Strings{});
    driver.Advance(300);
    EXPECT_EQ(driver.Member("ConnectionState"), "Connected");
    EXPECT_EQ(Simulated(driver, "simEnable"), c.simulation);
    EXPECT_EQ(Simulated(driver, "azBand"), c.band);
    driver.Activate("Factory");
    driver.Tab("SSTabFactory", 2);
    driver.Advance(kSettled);
    EXPECT_EQ(driver.Text("cmbFactoryReset"), "No Function");
  }
}

}  // namespace
}  // namespace htr60::automation
