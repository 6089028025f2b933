#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "presentation/field_states.h"
#include "presentation/screen.h"

namespace htr60::presentation {

/// The groups of the visible tab in reading order, hidden ones included, the waiting panel not.
std::vector<const LayoutGroup*> GroupsInFront(Form& form, const PageLayout& page);

/// The title of a group: its box's text, or the layout's while that is empty.
std::string_view TitleOf(Form& form, const LayoutGroup& group);

/// Its box is shown, or it has none.
bool IsShown(Form& form, const LayoutGroup& group);

/// A monitor's status stands while its box is high: an old status never stands beside a new value.
bool StatusFits(Form& form, const LayoutGroup& group, const LayoutRow& row);

/// Groups, fields and buttons of the visible tab, into `screen`. `stale`: values that a timer should renew are old.
void AddRows(Screen& screen, UserCntrl& control, const FieldStates& states, const PageLayout& page, bool stale);

/// The message of a waiting panel that is shown, whatever page is in front.
void AddWaitingPanel(Screen& screen, UserCntrl& control);

/// Caption of a row's first or second control as it stands.
std::string_view CaptionOf(Form& form, const LayoutRow& row, bool second);

/// Without the blanks around it.
std::string_view Trimmed(std::string_view text);

}  // namespace htr60::presentation
