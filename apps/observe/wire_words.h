#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "observe/parameter_words.h"
#include "simulator/device/reads.h"
#include "simulator/device/writes.h"

namespace htr60::observe {

/// One tag of an answer or attribute of a request, in words.
struct WireValue {
  std::string tag;              ///< "TRDOutUnit", "Attribute2"
  std::string name;             ///< "Output unit"; empty: a tag that no table knows
  std::string digits;           ///< as they travel
  std::string value;            ///< "37.4", "kPa", "upper 37.4, lower 0"
  std::string unit;             ///< of a number, where it is known
  std::string status;           ///< of a value that travels with one
  std::string fault;            ///< why there is no value, or what is odd about it
  std::string source;           ///< parameter of the tables, with its block: "ai2.hiHi"
  std::vector<double> numbers;  ///< the floats of the digits

  bool operator==(const WireValue&) const = default;
};

/// What a request asks for; the operands decide what some answers mean.
struct WireRequest {
  bool write = false;
  int code = 0;
  sim::ReadOperands operands;  ///< of a read
};

/// Reads documents by the tables by which the simulated transmitter writes them. Documents are handed over in the order
/// in which they travelled: most values travel without their unit, which is that of an earlier answer.
class WireWords {
 public:
  explicit WireWords(char decimalSeparator = '.') : separator_(decimalSeparator) {}

  /// Attributes of a write that are not "None"; of a read the operands that count.
  std::vector<WireValue> OfRequest(const WireRequest& request, std::string_view document) const;
  /// Tags of an answer. `fault` is set where the document is not well-formed; then there are no values.
  std::vector<WireValue> OfAnswer(const WireRequest& request, std::string_view document, std::string& fault);
  /// The code of a unit as last read, by the parameter that holds it; empty: not read.
  std::string UnitText(std::string_view parameter) const;

 private:
  struct Piece {
    std::string tag;
    std::string source;
    std::optional<sim::Form> form;
    std::string digits;
    bool hasValue = true;
  };
  using Units = std::map<std::string, std::string, std::less<>>;  ///< digits of unit codes, by parameter

  std::vector<WireValue> Decode(const std::vector<Piece>& pieces, const WireRequest& request, Units& units) const;
  WireValue DecodeOne(const Piece& piece, const WireRequest& request, const std::vector<Piece>& all,
                      const Units& units) const;
  std::string UnitOf(std::string_view unit, std::string_view source, int block, const Units& units) const;
  void PutNumbers(WireValue& made, sim::Form form, const ParameterWords* row, std::string_view source) const;
  static std::string TextOf(std::string_view digits, sim::Form form, const ParameterWords* row, std::string& fault);
  static std::string MonitoredName(const Piece& index, const std::vector<Piece>& all);

  char separator_;
  Units units_;
};

/// "Good", "Uncertain...": whether it says that the value can be trusted.
bool IsBadStatus(std::string_view status);

/// What the answer to that read means depends on what the request carries.
bool DependsOnOperands(int code);
/// The operands of a request document; all "None" where it has none.
sim::ReadOperands OperandsOf(std::string_view document);

/// A float as its shortest decimal number; "not a number", "infinite".
std::string ShortestNumber(double number, char decimalSeparator);

}  // namespace htr60::observe
