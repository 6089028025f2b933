#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace htr60::observe {

/// Appends a line of a table as spreadsheets read it: fields with a semicolon between where numbers have a comma, else
/// with a comma. What a spreadsheet would take for a formula gets an apostrophe before it; numbers stay.
void AddCsvLine(std::string& text, std::initializer_list<std::string_view> fields, char decimalSeparator);

}  // namespace htr60::observe
