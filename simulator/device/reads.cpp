#include "simulator/device/reads.h"

namespace htr60::sim {
namespace {

/// Reads 29 to 32 are those of monitors 1 to 4.
std::string MonitorName(int code, std::string_view rest) {
  return "lcd[" + std::to_string(code - 28) + "]." + std::string(rest);
}

std::string Resolve(const Device& device, const ReadRow& row, int code, const ReadOperands& operands) {
  const std::string_view source = row.source;
  if (source.starts_with("@")) return DerivedDigits(device, source.substr(1), operands);
  if (source.starts_with("ai.")) return device.Digits(BlockName(BlockNumber(operands.block), source.substr(3)));
  if (source.starts_with("lcd.")) return device.Digits(MonitorName(code, source.substr(4)));
  return device.Digits(source);
}

}  // namespace

int BlockNumber(std::string_view operand) {
  if (operand == "2") return 2;
  return operand == "3" ? 3 : 1;
}

std::optional<std::vector<AnswerTag>> AnswerRead(Device& device, int code, const ReadOperands& operands) {
  const auto rows = ReadRows(code);
  if (!rows) return std::nullopt;
  if (code == 38) device.enteringCurve = true;
  if (code == 20) device.enteringCurve = false;
  std::vector<AnswerTag> tags;
  tags.reserve(rows->size());
  for (const auto& row : *rows) {
    if (!device.Version().AtLeast(row.since / 100, row.since % 100)) continue;
    if (row.source == "@monitored") {
      tags.push_back(MonitoredParameter(device, operands.block, operands.name));
      tags.back().tag = row.tag;
      continue;
    }
    tags.push_back({row.tag, row.form, Resolve(device, row, code, operands)});
    // The unit of a sensor channel travels as its whole scale.
    if (row.form == Form::kU4 && tags.back().digits.size() == DigitsOf(Form::kR22)) tags.back().form = Form::kR22;
  }
  return tags;
}

}  // namespace htr60::sim
