#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace htr60::observe {

/// Appends a line of a table as spreadsheets read it: fields with a semicolon between where numbers have a comma, else
/// with a comma. What a spreadsheet would take for a formula gets an apostrophe before it; numbers stay.
void AddCsvLine(std::string& text, const std::vector<std::string_view>& fields, char decimalSeparator);

}  // namespace htr60::observe
