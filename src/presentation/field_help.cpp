#include "presentation/field_help.h"

#include <initializer_list>

namespace htr60::presentation {
namespace {

std::string Joined(std::initializer_list<std::string_view> parts, std::string_view between) {
  std::string text;
  for (const std::string_view part : parts) {
    if (part.empty()) continue;
    if (!text.empty()) text += between;
    text += part;
  }
  return text;
}

}  // namespace

std::string_view NoteOf(const LayoutRow& row, ControlId control) {
  if (row.control == control) return row.note;
  return row.second == control ? row.secondNote : std::string_view();
}

std::string DescriptionOf(const ScreenRow& row, std::string_view note) {
  return Joined({NameOf(row.mark), row.words, row.hint, note}, "; ");
}

std::string ToolTipOf(const ScreenRow& row, std::string_view note, CutOff cutOff) {
  if (row.role == RowRole::kAccessCode) return {};
  return Joined({cutOff.text ? std::string_view(row.text) : "", cutOff.words ? std::string_view(row.words) : "",
                 cutOff.words ? std::string_view(row.hint) : "", note},
                "\n");
}

std::vector<FieldMenuItem> MenuOf(const ScreenRow& row, const std::optional<std::string>& replaced) {
  std::vector<FieldMenuItem> menu;
  if (row.role != RowRole::kAccessCode) menu.push_back({FieldAct::kCopy, "Copy", !row.text.empty()});
  if (row.kind == RowKind::kEdit || row.kind == RowKind::kNum) menu.push_back({FieldAct::kPaste, "Paste", row.enabled});
  if (replaced) menu.push_back({FieldAct::kPutBack, "Put back " + *replaced, row.enabled});
  return menu;
}

}  // namespace htr60::presentation
