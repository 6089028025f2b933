#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "presentation/screen.h"

// What a view tells of a field on request: tooltip, description for assistive technology, context menu.
namespace htr60::presentation {

/// What the row of a control notes of it; none of a control that is not one of its two.
std::string_view NoteOf(const LayoutRow& row, ControlId control);

/// Marker and note: "not written; Decimal separator here is .; The upper end."
std::string DescriptionOf(const ScreenRow& row, std::string_view note);

/// What of a field does not fit where it stands, which the view knows.
struct CutOff {
  bool text = false;
  bool words = false;  ///< and the hint
};
/// Lines; none for an access code.
std::string ToolTipOf(const ScreenRow& row, std::string_view note, CutOff cutOff);

enum class FieldAct : std::uint8_t { kCopy, kPaste, kPutBack };
struct FieldMenuItem {
  FieldAct act = FieldAct::kCopy;
  std::string caption;
  bool enabled = true;

  bool operator==(const FieldMenuItem&) const = default;
};
/// What the host adds to the menu of a field.
struct FieldAddition {
  std::string caption;
  bool enabled = true;
  std::function<void()> run{};
};
/// `replaced`: the operator's text that the program has replaced, where it can be put back.
std::vector<FieldMenuItem> MenuOf(const ScreenRow& row, const std::optional<std::string>& replaced);

}  // namespace htr60::presentation
