#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/device/device.h"
#include "simulator/device/wire.h"

namespace htr60::sim {

/// One tag of an answer.
struct AnswerTag {
  std::string_view tag;
  Form form = Form::kE2;
  std::string digits;
};

/// One row of the read table. `source` is a parameter's name, "ai." and "lcd." standing for the block and monitor of
/// the read, or "@" and the name of a live or derived quantity.
struct ReadRow {
  std::string_view tag;
  Form form;
  std::string_view source;
  int since = 100;  ///< first firmware that sends the tag, 107 for 1.07
};

/// Rows of a read code; none for a code without a row.
std::optional<std::span<const ReadRow>> ReadRows(int code);
/// All codes that have rows, rising.
std::vector<int> ReadCodes();

/// What a read carries with it: a block ("1" to "3", or the block's name for read 41) and a parameter's name.
struct ReadOperands {
  std::string block = "None";
  std::string name = "None";
};

/// The tags of a read, with the values of this moment; none for a code without a row.
std::optional<std::vector<AnswerTag>> AnswerRead(Device& device, int code, const ReadOperands& operands);

/// A live quantity in its display unit.
struct Quantified {
  double value = 0;
  std::string unit;  ///< four digits of the unit code, empty for none
  unsigned status = kStatusGood;
};
/// `raw`, `trim`, `press`, `p.hi`, `p.lo`, `cap.hi`, `cap.lo`, `t`, `pv`, `sv1`, `sv2`, `weight`, `diag`, `pv%`,
/// `ai1.out` to `ai3.out`, `densGain`, `densOffset`; none for another name.
std::optional<Quantified> LiveQuantity(const Device& device, std::string_view name);

/// Digits of a derived source (without its "@").
std::string DerivedDigits(const Device& device, std::string_view name, const ReadOperands& operands);
/// Parameter of a block as the monitor shows it, by the names of both.
AnswerTag MonitoredParameter(const Device& device, std::string_view block, std::string_view name);
/// The row behind such a parameter, for whoever reads what travels: form and source, "=" and digits for a fixed value.
/// One that the block does not have travels as zeros of that form; none for a pair that no block knows.
std::optional<ReadRow> MonitoredRowOf(std::string_view block, std::string_view name);
/// The line of the display at this moment.
std::string DisplayLine(const Device& device);
/// Block number of an operand; what is none of the three counts as block 1.
int BlockNumber(std::string_view operand);

}  // namespace htr60::sim
