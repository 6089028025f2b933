#include "observe/wire_words.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <set>

#include "codecs/codecs.h"
#include "codecs/mAllUnits.h"
#include "codecs/mEnumeration.h"
#include "codecs/mFunctions.h"
#include "codecs/mStatusProfibus.h"
#include "observe/parameter_words.h"
#include "pages/alarm_list.h"
#include "simulator/device/write_rules.h"
#include "simulator/manager/request_document.h"
#include "text/hex_digits.h"
#include "text/xml_reader.h"

namespace htr60::observe {
namespace {

using sim::Form;

constexpr int kMonitorRead = 41;

struct Tag {
  std::string tag;
  std::string value;
  bool hasValue = false;
};

/// The tags of an answer, in their order.
class Tags final : public XmlElements {
 public:
  void OnStart(const char* name, const char* const* attributes) override {
    Tag tag;
    bool tagged = false;
    for (; *attributes != nullptr; attributes += 2) {
      const std::string_view key = attributes[0];
      const char* value = attributes[1];
      if (key == "tag") {
        tag.tag = value;
        tagged = true;
      } else if (key == "value") {
        tag.value = value;
        tag.hasValue = true;
      } else if (key == "state" && std::string_view(name) == "DTMInfo") {
        state = value;
      }
    }
    if (tagged) tags.push_back(std::move(tag));
  }

  std::vector<Tag> tags;
  std::string state;
};

bool AllDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return HexValue(c) >= 0; });
}

int BlockOf(const WireRequest& request) { return sim::BlockNumber(request.operands.block); }
/// Reads 29 to 32 and writes 24 to 27 are those of monitors 1 to 4.
int MonitorOf(const WireRequest& request) { return request.code - (request.write ? 23 : 28); }

std::span<const sim::ReadRow> RowsOf(int code) { return sim::ReadRows(code).value_or(std::span<const sim::ReadRow>()); }

/// Forms of the parameters as the reads send them.
std::optional<Form> FormOf(std::string_view source) {
  static const auto kForms = [] {
    std::map<std::string, Form, std::less<>> forms;
    for (const int code : sim::ReadCodes()) {
      for (const sim::ReadRow& row : RowsOf(code)) forms.emplace(row.source, row.form);
    }
    forms.emplace("ai.out", Form::kS10);
    forms.emplace("connected", Form::kE2);
    forms.emplace("snsScale", Form::kP16);
    forms.emplace("snsUnit", Form::kU4);
    return forms;
  }();
  const auto found = kForms.find(source);
  return found == kForms.end() ? std::nullopt : std::optional(found->second);
}

bool IsOfBlock(std::string_view source) {
  constexpr std::string_view kOfBlock[] = {"@out",     "@mode",   "@alarm",      "@channel",
                                           "@pvScale", "@pvUnit", "@pvUnitScale"};
  return source.starts_with("ai.") || std::find(std::begin(kOfBlock), std::end(kOfBlock), source) != std::end(kOfBlock);
}

/// The answer to that read depends on the block of the request.
bool AsksForBlock(int code) {
  const auto rows = RowsOf(code);
  return std::any_of(rows.begin(), rows.end(), [](const sim::ReadRow& row) { return IsOfBlock(row.source); });
}

std::string AlarmWords(std::string_view digits) {
  const auto word = static_cast<unsigned>(sim::NumberOf(digits.substr(0, 4)));
  std::string words;
  for (const auto& row : pages::kAlarmRows) {
    if ((word & row.bit) == 0) continue;
    std::string_view text = row.text;
    while (text.ends_with(' ')) text.remove_suffix(1);
    words.append(words.empty() ? "" : ", ").append(text);
  }
  return words.empty() ? "No Alarm" : words;
}

std::string TextBytes(std::string_view digits) {
  std::string text(HexToTextField(digits).View());
  while (text.ends_with(' ')) text.pop_back();
  return text;
}

}  // namespace

bool IsBadStatus(std::string_view status) { return status.starts_with("Bad"); }

bool DependsOnOperands(int code) {
  static const auto kCodes = [] {
    std::set<int> codes = {kMonitorRead};
    for (const int read : sim::ReadCodes()) {
      if (AsksForBlock(read)) codes.insert(read);
    }
    return codes;
  }();
  return kCodes.count(code) > 0;
}

sim::ReadOperands OperandsOf(std::string_view document) {
  sim::ReadOperands operands;
  const auto attributes = sim::ParseRequest(document);
  if (!attributes) return operands;
  operands.block = (*attributes)[0].value_or(std::string(sim::kUnused));
  operands.name = (*attributes)[1].value_or(std::string(sim::kUnused));
  return operands;
}

std::string ShortestNumber(double number, char decimalSeparator) {
  if (std::isnan(number)) return "not a number";
  if (std::isinf(number)) return number > 0 ? "infinite" : "minus infinite";
  std::array<char, 64> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), static_cast<float>(number)).ptr;
  std::replace(text.data(), end, '.', decimalSeparator);
  return {text.data(), end};
}

std::string WireWords::UnitText(std::string_view parameter) const {
  const auto found = units_.find(parameter);
  return found == units_.end() ? std::string() : UnitOf(parameter, {}, 1, units_);
}

std::string WireWords::UnitOf(std::string_view unit, std::string_view source, int block, const Units& units) const {
  if (unit.empty()) return {};
  if (unit.front() == '=') return std::string(unit.substr(1));
  if (unit == "@weightUnit") {
    const auto type = units.find("pvType");
    if (type == units.end()) return {};
    if (type->second != "0081") return "g/cm³";
    return UnitOf("outUnit", {}, block, units);
  }
  std::string name(unit);
  if (unit.starts_with("ai.")) name = "ai" + std::to_string(block) + name.substr(2);
  auto found = units.end();
  // The scale of a sensor has a unit of its own side.
  if (source.size() > 3) found = units.find(name + std::string(source.substr(source.size() - 3)));
  if (found == units.end()) found = units.find(name);
  if (found == units.end() || !AllDigits(found->second)) return {};
  return std::string(UnitCodeToText(static_cast<std::int32_t>(sim::NumberOf(found->second))));
}

// ---- one value

namespace {

/// Why digits are none of that form; empty: they are.
std::string FaultOf(std::string_view digits, Form form, bool write) {
  if (!AllDigits(digits)) return "not all of it digits";
  // A list of floats may be written in part; a text and a time are written in what they need.
  const bool open = form == Form::kT16 || form == Form::kD8;
  const std::size_t wanted = sim::DigitsOf(form);
  const bool fits = form == Form::kA128 ? digits.size() % 8 == 0
                                        : digits.size() == wanted || (write && open && digits.size() <= wanted);
  return fits ? std::string() : std::to_string(digits.size()) + " digits where " + std::to_string(wanted) + " belong";
}

std::int32_t CodeOf(std::string_view digits) { return static_cast<std::int32_t>(sim::NumberOf(digits)); }

std::vector<double> FloatsIn(std::string_view digits, Form form) {
  const sim::FloatPlaces places = sim::FloatsOf(form);
  const std::size_t count = form == Form::kA128 ? digits.size() / 8 : places.count;
  std::vector<double> numbers;
  for (std::size_t i = 0; i < count; ++i) {
    const auto bits = static_cast<std::uint32_t>(sim::NumberOf(digits.substr(places.first + 8 * i, 8)));
    numbers.push_back(static_cast<double>(std::bit_cast<float>(bits)));
  }
  return numbers;
}

/// The text of a code, or the code as a number.
std::string CodeText(const ParameterWords* row, std::string_view digits, std::string& fault) {
  if (row == nullptr || row->decode == nullptr) return std::to_string(sim::NumberOf(digits));
  const std::string_view words = row->decode(CodeOf(digits));
  if (words.empty()) fault = "a code without a text";
  return words.empty() ? std::to_string(sim::NumberOf(digits)) : std::string(words);
}

std::string UnitCodeText(std::string_view digits, std::string& fault) {
  std::string text(UnitCodeToText(CodeOf(digits)));
  if (text.empty()) fault = "a code without a text";
  return text;
}

}  // namespace

/// The value of what is no number.
std::string WireWords::TextOf(std::string_view digits, sim::Form form, const ParameterWords* row, std::string& fault) {
  switch (form) {
    case Form::kU4:
      return UnitCodeText(digits, fault);
    case Form::kL16:
      return AlarmWords(digits);
    case Form::kB6:
      return CodeText(row, digits.substr(0, 2), fault);
    case Form::kX2:
    case Form::kX4:
      return std::string(digits);
    case Form::kT32:
    case Form::kT16:
    case Form::kT16b:
      return TextBytes(digits);
    default:
      return CodeText(row, digits, fault);
  }
}

/// The value of one or more floats, with what travels beside them.
void WireWords::PutNumbers(WireValue& made, sim::Form form, const ParameterWords* row, std::string_view source) const {
  const std::string_view digits = made.digits;
  const auto number = [&](std::size_t i) { return ShortestNumber(made.numbers[i], separator_); };
  const bool points = source.starts_with("point");
  if (form == Form::kP16 || form == Form::kR22) {
    made.value = (points ? "X " : "upper ") + number(0) + (points ? ", Y " : ", lower ") + number(1);
    if (form == Form::kR22) made.unit = UnitCodeText(digits.substr(16, 4), made.fault);
    return;
  }
  for (std::size_t i = 0; i < made.numbers.size(); ++i) {
    if (i > 0) made.value += ", ";
    if (points) made.value += i % 2 == 0 ? "X " : "Y ";
    made.value += number(i);
  }
  if (form == Form::kS10) made.status = StatusByteToText(CodeOf(digits.substr(8)));
  if (form != Form::kM12) return;
  made.status = StatusByteToText(CodeOf(digits.substr(0, 2)));
  made.value += ", " + CodeText(row, digits.substr(10), made.fault);
}

WireValue WireWords::DecodeOne(const Piece& piece, const WireRequest& request, const std::vector<Piece>& all,
                               const Units& units) const {
  WireValue made;
  made.tag = piece.tag;
  made.digits = piece.digits;
  const int block = BlockOf(request);
  const ParameterName parameter = NameParameter(piece.source, block, MonitorOf(request));
  made.name = parameter.name;
  made.source = parameter.full;
  if (!piece.hasValue) {
    made.fault = "no value";
    return made;
  }
  // Texts of the control's own are no digits.
  if (!piece.form) {
    made.value = piece.digits;
    return made;
  }
  // The unit of a sensor's channel travels as its whole scale.
  const bool scale = *piece.form == Form::kU4 && piece.digits.size() == sim::DigitsOf(Form::kR22);
  const Form form = scale ? Form::kR22 : *piece.form;
  made.fault = FaultOf(piece.digits, form, request.write);
  if (!made.fault.empty()) return made;
  if (parameter.row != nullptr) made.unit = UnitOf(parameter.row->unit, parameter.full, block, units);
  if (sim::FloatsOf(form).count > 0) {
    made.numbers = FloatsIn(piece.digits, form);
    PutNumbers(made, form, parameter.row, piece.source);
  } else {
    made.value = TextOf(piece.digits, form, parameter.row, made.fault);
  }
  if (piece.source == "lcd.index") made.value = MonitoredName(piece, all);
  return made;
}

/// What a monitor shows: the number counts within the block that stands beside it.
std::string WireWords::MonitoredName(const Piece& index, const std::vector<Piece>& all) {
  const auto block =
      std::find_if(all.begin(), all.end(), [](const Piece& other) { return other.source == "lcd.block"; });
  std::string_view name;
  if (block != all.end() && AllDigits(block->digits)) {
    name = DecodeMonitIndexFull(CodeOf(index.digits), DecodeMonitBlock(CodeOf(block->digits)));
  }
  return name.empty() ? std::to_string(CodeOf(index.digits)) : std::string(name);
}

std::vector<WireValue> WireWords::Decode(const std::vector<Piece>& pieces, const WireRequest& request,
                                         Units& units) const {
  for (const Piece& piece : pieces) {
    const bool type = piece.source == "pvType";
    if (!piece.hasValue || !piece.form || (!type && *piece.form != Form::kU4 && *piece.form != Form::kR22)) continue;
    const bool scale = piece.digits.size() == sim::DigitsOf(Form::kR22);
    const std::string digits = scale ? piece.digits.substr(16, 4) : piece.digits;
    if (digits.size() == sim::DigitsOf(Form::kU4)) {
      units[NameParameter(piece.source, BlockOf(request), MonitorOf(request)).full] = digits;
    }
  }
  std::vector<WireValue> values;
  values.reserve(pieces.size());
  for (const Piece& piece : pieces) values.push_back(DecodeOne(piece, request, pieces, units));
  return values;
}

// ---- documents

std::vector<WireValue> WireWords::OfRequest(const WireRequest& request, std::string_view document) const {
  const auto attributes = sim::ParseRequest(document);
  if (!attributes) return {};
  const auto text = [&](std::size_t attribute) {
    return (*attributes)[attribute - 1].value_or(std::string(sim::kUnused));
  };
  const auto tag = [](std::size_t attribute) { return "Attribute" + std::to_string(attribute); };
  std::vector<WireValue> values;
  const auto own = [&](std::size_t attribute, const char* name) {
    if (text(attribute) == sim::kUnused) return;
    WireValue value;
    value.tag = tag(attribute);
    value.name = name;
    value.digits = value.value = text(attribute);
    values.push_back(std::move(value));
  };
  if (!request.write) {
    // What else a read carries is what the request before it left there.
    if (AsksForBlock(request.code) || request.code == kMonitorRead) own(1, "Block");
    if (request.code == kMonitorRead) own(2, "Parameter");
    return values;
  }
  const sim::WriteRow* row = sim::FindWrite(request.code);
  std::vector<Piece> pieces;
  std::array<bool, sim::kAttributes> known{};
  WireRequest meant = request;
  meant.operands = {text(1), text(2)};
  const auto add = [&](std::size_t attribute, std::string_view source) {
    known[attribute - 1] = true;
    if (text(attribute) == sim::kUnused) return;
    Piece piece{
        .tag = tag(attribute), .source = std::string(source), .form = FormOf(source), .digits = text(attribute)};
    if (source == "points") piece.form = Form::kA128;
    pieces.push_back(std::move(piece));
  };
  if (row != nullptr) {
    if (row->block) {
      known[0] = true;
      own(1, "Block");
    }
    for (const sim::WriteItem& item : row->items) {
      for (std::size_t i = 0; i < item.Count(); ++i) add(item.attribute + i, item.names[i]);
    }
    for (const sim::WriteOperand& operand : row->operands) add(operand.attribute, operand.name);
  }
  Units units = units_;  // what a write carries holds only once it is read back
  for (WireValue& value : Decode(pieces, meant, units)) values.push_back(std::move(value));
  for (std::size_t attribute = 1; attribute <= sim::kAttributes; ++attribute) {
    if (!known[attribute - 1]) own(attribute, "");
  }
  return values;
}

std::vector<WireValue> WireWords::OfAnswer(const WireRequest& request, std::string_view document, std::string& fault) {
  Tags read;
  if (!XmlReader().Read(document, read)) {
    fault = document.empty() ? "empty" : "not well-formed";
    return {};
  }
  std::vector<WireValue> values;
  if (!read.state.empty()) {
    WireValue value;
    value.tag = "state";
    value.name = "Link";
    value.digits = value.value = read.state;
    values.push_back(std::move(value));
  }
  const auto rows = RowsOf(request.code);
  std::vector<Piece> pieces;
  for (Tag& tag : read.tags) {
    Piece piece{
        .tag = std::move(tag.tag), .source = {}, .form = {}, .digits = std::move(tag.value), .hasValue = tag.hasValue};
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const sim::ReadRow& r) { return r.tag == piece.tag; });
    if (row != rows.end()) {
      piece.source = row->source;
      piece.form = row->form;
    }
    if (piece.source == "@monitored") {
      const auto shown = sim::MonitoredRowOf(request.operands.block, request.operands.name);
      piece.source = shown ? std::string(shown->source) : std::string();
      if (shown) piece.form = shown->form;
    }
    pieces.push_back(std::move(piece));
  }
  WireRequest meant = request;
  // A monitor asks for a block by its name.
  if (request.code == kMonitorRead && !meant.operands.block.empty())
    meant.operands.block = meant.operands.block.substr(meant.operands.block.size() - 1);
  for (WireValue& value : Decode(pieces, meant, units_)) values.push_back(std::move(value));
  return values;
}

}  // namespace htr60::observe
