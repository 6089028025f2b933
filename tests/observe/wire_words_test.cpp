// What travels, in words: every read and every write of the simulated transmitter.
#include "observe/wire_words.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>

#include "observe/parameter_words.h"
#include "simulator/device/reads.h"
#include "simulator/device/write_rules.h"
#include "simulator/manager/settings.h"

namespace htr60::observe {
namespace {

sim::Device MakeDevice(int type, const std::string& firmware = "1.09") {
  sim::Settings settings;
  settings.device.primaryValueType = type;
  settings.device.firmware = firmware;
  sim::Device device(settings.device, settings.process, 1);
  device.Settle();
  return device;
}

std::string Document(const std::vector<sim::AnswerTag>& tags) {
  std::string document = "<Answer>";
  for (const auto& tag : tags) {
    document += "<Parameter tag=\"" + std::string(tag.tag) + "\" value=\"" + tag.digits + "\"/>";
  }
  return document + "</Answer>";
}

std::string RequestDocument(const std::vector<std::string>& attributes) {
  std::string document = "<ViewData><ControlData";
  for (std::size_t i = 0; i < 24; ++i) {
    document += " Attribute" + std::to_string(i + 1) + "=\"" + (i < attributes.size() ? attributes[i] : "None") + "\"";
  }
  return document + "/></ViewData>";
}

float FloatOf(const std::string& digits) {
  const auto bits = static_cast<std::uint32_t>(std::stoul(digits, nullptr, 16));
  float number = 0;
  std::memcpy(&number, &bits, sizeof number);
  return number;
}

const WireValue* Find(const std::vector<WireValue>& values, std::string_view tag) {
  for (const WireValue& value : values) {
    if (value.tag == tag) return &value;
  }
  return nullptr;
}

std::string Say(const WireValue& value) {
  std::string text = value.name + "=" + value.value;
  if (!value.unit.empty()) text += " " + value.unit;
  if (!value.status.empty()) text += " (" + value.status + ")";
  return text + (value.fault.empty() ? "" : " !" + value.fault);
}

/// Every number of a value is that of its digits.
void ExpectNumbers(const WireValue& value, std::size_t first) {
  for (std::size_t i = 0; i < value.numbers.size(); ++i) {
    EXPECT_EQ(static_cast<float>(value.numbers[i]), FloatOf(value.digits.substr(first + 8 * i, 8))) << Say(value);
  }
}

void ExpectAllInWords(int type, const std::string& firmware) {
  sim::Device device = MakeDevice(type, firmware);
  for (const int code : sim::ReadCodes()) {
    for (const char* block : {"1", "2", "3"}) {
      if (code == 41) continue;  // has operands of its own
      SCOPED_TRACE("type " + std::to_string(type) + " read " + std::to_string(code) + " block " + block);
      WireWords words;
      const WireRequest request{false, code, {block, "None"}};
      const auto tags = *sim::AnswerRead(device, code, request.operands);
      std::string fault;
      const auto values = words.OfAnswer(request, Document(tags), fault);
      EXPECT_EQ(fault, "");
      ASSERT_EQ(values.size(), tags.size());
      for (std::size_t i = 0; i < tags.size(); ++i) {
        const WireValue& value = values[i];
        EXPECT_EQ(value.tag, tags[i].tag);
        EXPECT_EQ(value.digits, tags[i].digits);
        EXPECT_NE(value.name, "") << value.tag;
        const bool noUnit = tags[i].digits == "0000";  // of a block without one
        const bool noText = tags[i].form == sim::Form::kT16 || noUnit;
        if (!noText) {
          EXPECT_NE(value.value, "") << value.tag << " " << value.digits;
        }
        if (!noUnit && value.digits.find("000000") == std::string::npos) {
          EXPECT_EQ(value.fault, "") << Say(value);
        }
        ExpectNumbers(value, sim::FloatsOf(tags[i].form).first);
      }
    }
  }
}

TEST(WireWords, SayEveryTagOfEveryReadForEveryTypeAndFirmware) {
  for (const int type : {sim::kPressure, sim::kFlow, sim::kLevel, sim::kDensity}) ExpectAllInWords(type, "1.09");
  for (const char* firmware : {"1.03", "1.04", "1.05", "1.07", "1.08", "2.00"}) ExpectAllInWords(0, firmware);
}

struct Said {
  int code;
  const char* block;
  const char* tag;
  const char* text;
};

TEST(WireWords, SayWhatTheDeviceMeans) {
  constexpr Said kSaid[] = {
      {1, "1", "TRDPVType", "Primary value type=Pressure"},
      {1, "1", "PHYTag", "Tag=HTR60-1"},
      {1, "1", "PHYWriteProtection", "Write protection=Write Unlocked"},
      {2, "1", "TRDSensorSerialNumber_Lo", "Sensor serial number, sensor 2=12346"},
      {5, "1", "TRDFlowLinSqrt", "Square root point=10 %"},
      {6, "1", "TRDInputScale", "Input scale=upper 37.4, lower 0 kPa"},
      {6, "1", "TRDUpperSnsLimit", "Upper sensor limit=37.4 kPa"},
      {9, "1", "TRDX2Y2", "Table point 2=X 100, Y 100 %"},
      {9, "1", "TRDTableStatus", "Table status=Table Not Initialised"},
      {11, "2", "AIUpperLimAlarm", "AI 2 upper alarm limit=41.14 kPa"},
      {11, "1", "AICurrAlarm", "AI 1 alarms=No Alarm"},
      {14, "3", "AIOutput", "AI 3 output=10 kPa (Good, Non-Cascade)"},
      {16, "1", "TRDPressure", "Differential pressure=10 kPa (Good, Non-Cascade)"},
      {16, "1", "TRDOperResult", "Calibration result=Good"},
      {19, "1", "TRDTempVal", "Temperature=20 (Good, Non-Cascade)"},
      {29, "1", "LCDFunctionBlock", "Monitor 1 block=Analog Input 1"},
      {29, "1", "LCDRelIndex", "Monitor 1 parameter=Out"},
      {30, "1", "LCDRelIndex", "Monitor 2 parameter=Primary Value"},
      {57, "1", "TRDAzTrimTimeAction", "Auto zero time=60 s"},
      {58, "1", "Gravity", "Gravity=9.80665 m/s²"},
      {59, "1", "K1", "Coefficient K 1=100"},
      {73, "1", "CalPoint", "Upper calibration point, sensor 1=37.4 kPa"},
      {76, "1", "SensorVal", "Sensor pressure, sensor 2=10 kPa (Good, Non-Cascade)"},
      {80, "2", "TrdScaleSnsHi", "Sensor scale, sensor 1=upper 37.4, lower 0 kPa"},
  };
  sim::Device device = MakeDevice(0);
  for (const Said& said : kSaid) {
    WireWords words;
    const WireRequest request{false, said.code, {said.block, "None"}};
    std::string fault;
    const auto values = words.OfAnswer(request, Document(*sim::AnswerRead(device, said.code, request.operands)), fault);
    const WireValue* value = Find(values, said.tag);
    ASSERT_NE(value, nullptr) << said.tag;
    std::string text = Say(*value);
    // The status of a value at rest begins so in every version of the list.
    if (const auto at = text.find(" (Good"); at != std::string::npos && std::strstr(said.text, "(Good") != nullptr) {
      text = text.substr(0, at) + " (Good, Non-Cascade)";
    }
    EXPECT_EQ(text, said.text);
  }
}

TEST(WireWords, TakeTheUnitOfALiveValueFromAnEarlierAnswer) {
  sim::Device device = MakeDevice(0);
  WireWords words;
  std::string fault;
  const WireRequest live{false, 35, {}};
  const auto ask = [&](int code) {
    const WireRequest request{false, code, {}};
    return words.OfAnswer(request, Document(*sim::AnswerRead(device, code, request.operands)), fault);
  };
  EXPECT_EQ(ask(35)[0].unit, "") << "nobody has read it yet";
  ask(16);
  EXPECT_EQ(ask(35)[0].unit, "kPa");
  device.Put("sensorUnit", "0473");
  ask(15);
  EXPECT_EQ(ask(35)[0].unit, words.UnitText("sensorUnit"));
  EXPECT_NE(words.UnitText("sensorUnit"), "kPa");
}

TEST(WireWords, SayEveryMonitoredParameter) {
  sim::Device device = MakeDevice(0);
  const std::pair<const char*, const char*> kPairs[] = {
      {"Transducer", "Sensor Value"},   {"Transducer", "Primary Value"}, {"Transducer", "Scale In"},
      {"Analog Input 2", "Out"},        {"Analog Input 3", "Simulate"},  {"Physical", "Write Locking"},
      {"Analog Input 1", "Mode Block"}, {"Physical", "Target Mode"},     {"Analog Input 2", "L Type"}};
  for (const auto& [block, name] : kPairs) {
    WireWords words;
    const WireRequest request{false, 41, {block, name}};
    std::string fault;
    const auto values = words.OfAnswer(request, Document(*sim::AnswerRead(device, 41, request.operands)), fault);
    ASSERT_EQ(values.size(), 1U);
    EXPECT_NE(values[0].name, "") << block << " " << name;
    EXPECT_NE(values[0].value, "") << block << " " << name;
    EXPECT_EQ(values[0].fault, "") << block << " " << name;
  }
  WireWords words;
  std::string fault;
  const WireRequest request{false, 41, {"Analog Input 2", "Out"}};
  EXPECT_EQ(words.OfAnswer(request, Document(*sim::AnswerRead(device, 41, request.operands)), fault)[0].name,
            "AI 2 output");
}

// ---- writes

/// The parameter of the device's log line "... attribute 3 ai2.damping: accepted".
std::string Logged(const std::string& line, std::size_t& attribute) {
  const std::string mark = " attribute ";
  const std::size_t at = line.find(mark);
  if (at == std::string::npos) return {};
  std::size_t used = 0;
  attribute = std::stoul(line.substr(at + mark.size()), &used);
  const std::string rest = line.substr(at + mark.size() + used);
  const std::size_t end = rest.find(':');
  return end == 0 ? std::string() : rest.substr(1, end - 1);
}

/// Digits that the parameter holds now; for what is none a number that its form takes.
std::string DigitsFor(const sim::Device& device, const std::string& source) {
  if (device.Parameters().Has(source)) return device.Digits(source);
  return source.find("out") != std::string::npos ? "4120000080" : "00";
}

TEST(WireWords, NameEveryAttributeOfEveryWriteAsTheDeviceDoes) {
  std::set<int> told;
  for (const int type : {sim::kPressure, sim::kDensity}) {
    for (const sim::WriteRow& row : sim::WriteRows()) {
      SCOPED_TRACE("write " + std::to_string(row.code));
      sim::Device device = MakeDevice(type);
      sim::Attributes attributes;
      attributes.fill("None");
      if (row.block) attributes[0] = "2";
      const auto put = [&](std::size_t attribute, std::string_view source) {
        const std::string full = NameParameter(source, 2, row.code - 23).full;
        std::string digits = DigitsFor(device, full);
        if (source == "points") digits = "000000000000000042C8000042C80000";
        if (source == "tableEnable") digits = "No";
        if (source == "configuration") digits = "Config 1";
        if (source == "snsScale" || source == "snsUnit") digits = device.Digits(std::string(source) + ".hi");
        if (source == "curveX" || source == "curveY") digits = digits.substr(0, 40);
        if (source == "poly.hi" || source == "poly.lo") digits = digits.substr(0, 96);
        attributes[attribute - 1] = digits;
      };
      for (const sim::WriteItem& item : row.items) {
        for (std::size_t i = 0; i < item.Count(); ++i) put(item.attribute + i, item.names[i]);
      }
      for (const sim::WriteOperand& operand : row.operands) put(operand.attribute, operand.name);
      const WireWords words;
      const WireRequest request{true, row.code, {}};
      const auto values = words.OfRequest(request, RequestDocument({attributes.begin(), attributes.end()}));
      for (const WireValue& value : values) {
        EXPECT_NE(value.name, "") << value.tag;
        EXPECT_EQ(value.fault, "") << Say(value);
        if (value.digits.find_first_not_of("0") != std::string::npos) {
          EXPECT_NE(value.value, "") << value.tag;
        }
      }
      device.TakeLog();
      sim::ExecuteWrite(device, row.code, attributes);
      for (const std::string& line : device.TakeLog().entries) {
        std::size_t attribute = 0;
        const std::string parameter = Logged(line, attribute);
        if (parameter.empty() || parameter == "table" || parameter == "self calibration") continue;
        const WireValue* value = Find(values, "Attribute" + std::to_string(attribute));
        ASSERT_NE(value, nullptr) << line;
        const bool same = value->source == parameter || (parameter == "not used" && value->source == "unused") ||
                          (attribute == 3 && (row.code == 73 || row.code == 74)) || row.code == 31;
        EXPECT_TRUE(same) << line << " is told as " << value->source;
        told.insert(row.code);
      }
    }
  }
  EXPECT_GT(told.size(), 45U);
}

TEST(WireWords, TellEveryStepOfAChangeOfUnit) {
  WireWords words;
  // Write 3: input scale and unit are judged together, and the unit in the write counts for the scale in it.
  const auto values = words.OfRequest({true, 3, {}}, RequestDocument({"4348000000000000", "046C"}));
  ASSERT_EQ(values.size(), 2U);
  EXPECT_EQ(Say(values[0]), "Input scale=upper 200, lower 0 " + values[1].value);
  EXPECT_EQ(Say(values[1]), "Input unit=" + values[0].unit);
  EXPECT_EQ(words.UnitText("inUnit"), "") << "what is written holds once it is read back";
}

TEST(WireWords, SayWhatIsWrongWithAnAnswer) {
  struct Case {
    const char* document;
    const char* fault;
    const char* said;
  };
  const Case kCases[] = {
      {"", "empty", ""},
      {"<Answer><Parameter tag=\"TRDTempUnit\" value=\"03", "not well-formed", ""},
      {"<!DOCTYPE a><Answer/>", "not well-formed", ""},
      {"<Answer></Answer>", "", ""},
      {"<Answer><Parameter tag=\"TRDTempUnit\"/></Answer>", "", "Temperature unit= !no value"},
      {"<Answer><Parameter tag=\"TRDTempUnit\" value=\"03E\"/></Answer>", "",
       "Temperature unit= !3 digits where 4 belong"},
      {"<Answer><Parameter tag=\"TRDTempUnit\" value=\"0GE9\"/></Answer>", "",
       "Temperature unit= !not all of it digits"},
      {"<Answer><Parameter tag=\"TRDTempUnit\" value=\"07D0\"/></Answer>", "",
       "Temperature unit= !a code without a text"},
      {"<Answer><Parameter tag=\"Foreign\" value=\"1\"/></Answer>", "", "=1"},
  };
  for (const Case& one : kCases) {
    WireWords words;
    std::string fault;
    const auto values = words.OfAnswer({false, 8, {}}, one.document, fault);
    EXPECT_EQ(fault, one.fault) << one.document;
    EXPECT_EQ(values.empty() ? "" : Say(values[0]), one.said) << one.document;
  }
  WireWords words;
  std::string fault;
  const char* const kFloats[][2] = {{"7FC00000", "not a number"}, {"7F800000", "infinite"}, {"00000001", "1e-45"}};
  for (const auto& [digits, text] : kFloats) {
    const std::string document = "<A><P tag=\"Gravity\" value=\"" + std::string(digits) + "\"/></A>";
    EXPECT_EQ(words.OfAnswer({false, 58, {}}, document, fault)[0].value, text);
  }
}

TEST(WireWords, HaveARowForEverySourceOfTheTables) {
  std::set<std::string_view> sources;
  for (const int code : sim::ReadCodes()) {
    for (const sim::ReadRow& row : sim::ReadRows(code).value_or(std::span<const sim::ReadRow>())) {
      if (row.source != "@monitored") sources.insert(row.source);
    }
  }
  for (const sim::WriteRow& row : sim::WriteRows()) {
    for (const sim::WriteItem& item : row.items) {
      for (std::size_t i = 0; i < item.Count(); ++i) sources.insert(item.names[i]);
    }
    for (const sim::WriteOperand& operand : row.operands) sources.insert(operand.name);
  }
  EXPECT_GT(sources.size(), 150U);
  for (const std::string_view source : sources) {
    const ParameterName found = NameParameter(source, 2, 1);
    EXPECT_NE(found.row, nullptr) << source;
    EXPECT_NE(found.name, "") << source;
  }
}

}  // namespace
}  // namespace htr60::observe
