#include "automate/control_lookup.h"

#include "automate/fields.h"

namespace htr60::automation {

ControlId FindByName(std::string_view name) {
  const auto found = FindControl(name);
  if (!found) throw CommandError("there is no control " + Quoted(name));
  return *found;
}

ControlId FindOfKind(std::string_view name, ControlKind kind) {
  const ControlId found = FindByName(name);
  if (KindOf(found) != kind) {
    throw CommandError(Quoted(name) + " is of the kind " + Quoted(WordOf(KindOf(found))) + ", not " +
                       Quoted(WordOf(kind)));
  }
  return found;
}

void RequireEnabled(const Control& control) {
  if (!control.Enabled()) throw CommandError(Quoted(NameOf(control.Id())) + " is disabled");
}

std::string_view WordOf(ControlKind kind) {
  switch (kind) {
    case ControlKind::kText:
      return "text";
    case ControlKind::kLabel:
      return "label";
    case ControlKind::kButton:
      return "button";
    case ControlKind::kChoice:
      return "list";
    case ControlKind::kListBox:
      return "listbox";
    case ControlKind::kTabs:
      return "tabs";
    case ControlKind::kFrame:
      return "frame";
    case ControlKind::kPicture:
      break;
  }
  return "picture";
}

}  // namespace htr60::automation
