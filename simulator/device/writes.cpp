#include "simulator/device/writes.h"

#include <algorithm>
#include <cmath>

#include "simulator/device/units.h"
#include "simulator/device/write_rules.h"

namespace htr60::sim {
namespace {

/// 1 to 3, or 0 for what names no block.
int BlockOf(const std::string& text) {
  return text.size() == 1 && text[0] >= '1' && text[0] <= '3' ? text[0] - '0' : 0;
}

std::string Resolved(std::string_view name, int code, int block) {
  if (name.starts_with("ai.")) return BlockName(block, name.substr(3));
  // Writes 24 to 27 are those of monitors 1 to 4.
  if (name.starts_with("lcd.")) return "lcd[" + std::to_string(code - 23) + "]." + std::string(name.substr(4));
  return std::string(name);
}

bool FinitePieces(std::string_view digits, FloatPlaces places) {
  for (std::size_t i = 0; i < places.count; ++i) {
    const std::size_t at = places.first + 8 * i;
    if (at + 8 <= digits.size() && !std::isfinite(FloatAt(digits, at))) return false;
  }
  return true;
}

/// The digits that an attribute puts into a parameter, or why it cannot.
Refusal Shaped(const WriteItem& item, const ParameterStore& p, const std::string& name, std::string& digits) {
  digits = ToCapitals(digits);
  if (!IsHexadecimal(digits)) return kRefusedDigits;
  const Form form = p.FormOf(name);
  switch (item.shape) {
    case Shape::kMnemonic:
      if (digits.size() % 2 != 0) return kRefusedDigits;
      digits.resize(DigitsOf(form), '0');
      return {};
    case Shape::kLong:
      if (digits.size() < 2 || digits.size() > 8) return kRefusedDigits;
      digits.insert(0, 8 - digits.size(), '0');
      return {};
    case Shape::kTwelve:
      if (digits.size() != 96) return kRefusedDigits;
      digits += p.Digits(name).substr(96);
      return CheckForm(digits, form);
    case Shape::kForm:
      return CheckForm(digits, form);
  }
  return {};
}

Refusal Judge(WriteContext& c, bool locked, const std::array<std::string, 5>& given) {
  const ParameterStore& p = c.device.Parameters();
  const std::size_t count = c.item.Count();
  if (locked && c.item.names[0] != "writeLock") return kRefusedLocked;
  bool same = true;
  for (std::size_t i = 0; i < count; ++i) {
    c.digits[i] = p.Digits(c.names[i]);
    if (given[i] == kUnused) continue;
    std::string digits = given[i];
    if (const auto refusal = Shaped(c.item, p, c.names[i], digits)) return refusal;
    same = same && digits == c.digits[i];
    c.digits[i] = digits;
  }
  if (same && !c.item.always) return {};
  if (c.item.check != nullptr) {
    if (const auto refusal = c.item.check(c)) return refusal;
  }
  (c.item.effect != nullptr ? c.item.effect : PutAll)(c);
  return {};
}

WriteContext ContextOf(Device& device, int code, int block, const WriteItem& item) {
  WriteContext c{device, item, code, block, {}, {}};
  for (std::size_t i = 0; i < item.Count(); ++i) c.names[i] = Resolved(item.names[i], code, block);
  return c;
}

void RefuseAll(Device& device, int code, const Attributes& attributes, std::string_view reason) {
  for (std::size_t i = 0; i < kAttributes; ++i) {
    if (attributes[i] != kUnused) LogWrite(device, code, i + 1, "", reason);
  }
}

struct OnSiteItem {
  const WriteRow* row = nullptr;
  const WriteItem* item = nullptr;
  int block = 1;
};

/// The write that sets a parameter by itself.
OnSiteItem FindItem(const std::string& name) {
  for (const auto& row : WriteRows()) {
    for (const auto& item : row.items) {
      for (int block = 1; block <= (row.block ? 3 : 1); ++block) {
        for (std::size_t i = 0; i < item.Count(); ++i) {
          if (Resolved(item.names[i], row.code, block) == name) return {&row, &item, block};
        }
      }
    }
  }
  return {};
}

bool SetByCommand(Device& device, const std::string& name, const std::string& digits) {
  constexpr std::array<std::pair<std::string_view, int>, 3> kCommands{
      {{"charOperation", 30}, {"backupRestore", 32}, {"factoryReset", 34}}};
  for (const auto& [parameter, code] : kCommands) {
    if (parameter != name) continue;
    Attributes attributes;
    attributes.fill(std::string(kUnused));
    attributes[0] = digits;
    ExecuteWrite(device, code, attributes);
    return true;
  }
  return false;
}

void SetOne(Device& device, const std::map<std::string, std::string>& parameters, const std::string& name,
            std::vector<std::string>& done) {
  const std::string where = "device.parameters." + name;
  if (!device.Parameters().Has(name)) throw SettingsError(where + ": there is no parameter of that name");
  if (const auto refusal = CheckForm(parameters.at(name), device.Parameters().FormOf(name))) {
    throw SettingsError(where + ": " + std::string(*refusal));
  }
  if (SetByCommand(device, name, parameters.at(name))) return;
  const OnSiteItem found = FindItem(name);
  if (found.item == nullptr) {
    device.Put(name, parameters.at(name));
    return;
  }
  WriteContext c = ContextOf(device, found.row->code, found.block, *found.item);
  std::array<std::string, 5> given;
  given.fill(std::string(kUnused));
  for (std::size_t i = 0; i < found.item->Count(); ++i) {
    const auto value = parameters.find(c.names[i]);
    if (value == parameters.end()) continue;
    // The first twelve coefficients are what a write carries.
    given[i] = found.item->shape == Shape::kTwelve ? value->second.substr(0, 96) : value->second;
    done.push_back(c.names[i]);
  }
  auto refusal = found.row->gate != nullptr ? found.row->gate(device) : Refusal();
  if (!refusal) refusal = Judge(c, false, given);
  if (refusal) throw SettingsError(where + ": " + std::string(*refusal));
}

}  // namespace

void LogWrite(Device& device, int code, std::size_t attribute, std::string_view parameter, const Refusal& refusal) {
  std::string line =
      std::to_string(device.NowMs()) + " ms write " + std::to_string(code) + " attribute " + std::to_string(attribute);
  if (!parameter.empty()) line.append(" ").append(parameter);
  line += refusal ? ": refused, " : ": accepted";
  if (refusal) line.append(*refusal);
  device.Log(std::move(line));
}

Refusal CheckForm(std::string_view digits, Form form) {
  if (digits.size() != DigitsOf(form) || !IsHexadecimal(digits)) return kRefusedDigits;
  return FinitePieces(digits, FloatsOf(form)) ? Refusal() : Refusal("no finite number");
}

Refusal ExecuteItem(Device& device, int code, int block, const WriteItem& item, const Attributes& attributes,
                    bool locked) {
  WriteContext c = ContextOf(device, code, block, item);
  std::array<std::string, 5> given;
  bool any = false;
  for (std::size_t i = 0; i < item.Count(); ++i) {
    given[i] = attributes[item.attribute - 1 + i];
    any = any || given[i] != kUnused;
  }
  if (!any) return {};
  const bool known = device.Version().AtLeast(item.since / 100, item.since % 100);
  const Refusal refusal = known ? Judge(c, locked, given) : Refusal(kRefusedFirmware);
  for (std::size_t i = 0; i < item.Count(); ++i) {
    if (given[i] != kUnused) LogWrite(device, code, item.attribute + i, c.names[i], refusal);
  }
  return refusal;
}

void ExecuteWrite(Device& device, int code, const Attributes& attributes) {
  const WriteRow* row = FindWrite(code);
  if (row == nullptr) return;
  const int block = row->block ? BlockOf(attributes[0]) : 1;
  if (block == 0) {
    RefuseAll(device, code, attributes, "no such block");
    return;
  }
  if (row->gate != nullptr) {
    if (const auto refusal = row->gate(device)) {
      RefuseAll(device, code, attributes, *refusal);
      return;
    }
  }
  if (row->command != nullptr) {
    row->command(device, code, attributes);
    return;
  }
  const bool locked = device.Locked();
  for (const auto& item : row->items) ExecuteItem(device, code, block, item, attributes, locked);
}

void SetOnSite(Device& device, const std::map<std::string, std::string>& parameters) {
  // What brings other changes with it goes first.
  constexpr std::array<std::string_view, 7> kFirst{"pvType",   "densityRange", "measuredType", "range.hi",
                                                   "range.lo", "sensorUnit",   "tempUnit"};
  std::vector<std::string> order;
  for (const auto name : kFirst) {
    if (parameters.find(std::string(name)) != parameters.end()) order.emplace_back(name);
  }
  for (const auto& [name, digits] : parameters) {
    if (std::find(order.begin(), order.end(), name) == order.end()) order.push_back(name);
  }
  std::vector<std::string> done;
  for (const auto& name : order) {
    if (std::find(done.begin(), done.end(), name) == done.end()) SetOne(device, parameters, name, done);
  }
}

}  // namespace htr60::sim
