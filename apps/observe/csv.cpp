#include "observe/csv.h"

#include "text/numbers.h"

namespace htr60::observe {
namespace {

void AddField(std::string& text, std::string_view field, char separator, char decimalSeparator) {
  constexpr std::string_view kFormula = "=+-@";
  const bool number = !field.empty() && FindLocaleNumber(field, decimalSeparator).has_value();
  const bool formula = !field.empty() && kFormula.find(field.front()) != std::string_view::npos && !number;
  const bool quoted = formula || field.find_first_of("\"\r\n\t") != std::string_view::npos ||
                      field.find(separator) != std::string_view::npos;
  if (!quoted) {
    text += field;
    return;
  }
  text += '"';
  if (formula) text += '\'';
  for (const char c : field) {
    if (c == '"') text += '"';
    text += c;
  }
  text += '"';
}

}  // namespace

void AddCsvLine(std::string& text, const std::vector<std::string_view>& fields, char decimalSeparator) {
  const char separator = decimalSeparator == ',' ? ';' : ',';
  bool first = true;
  for (const std::string_view field : fields) {
    if (!first) text += separator;
    first = false;
    AddField(text, field, separator, decimalSeparator);
  }
  text += "\r\n";
}

}  // namespace htr60::observe
