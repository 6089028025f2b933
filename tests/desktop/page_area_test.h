#pragma once

#include "desktop/page/key_router.h"
#include "page_support.h"

namespace htr60::desktop {

/// The page area of a small control, with its keyboard and without a window around it.
class PageAreaTest : public testing::Test {
 protected:
  explicit PageAreaTest(char separator = '.', const PageRegistry& pages = kTestPages) : control_(separator, pages) {
    area_.resize(700, 460);
    area_.show();
    area_.activateWindow();
    Turn();
  }

  void Turn() {
    const FormChanges changes = presented_.Turn();
    presented_.Show();
    keys_.Hold();
    area_.Apply(changes);
    keys_.Follow();
    QApplication::processEvents();
  }
  template <class Widget>
  Widget* Field(ControlId control) {
    FieldCell* cell = area_.View()->CellOf(control);
    return cell == nullptr ? nullptr : qobject_cast<Widget*>(cell->Widget());
  }
  TextEntry* Entry(ControlId control) { return Field<TextEntry>(control); }
  FieldCell& Cell(ControlId control) { return *area_.View()->CellOf(control); }
  GroupView& Group(int number) { return *area_.View()->Groups()[static_cast<std::size_t>(number)]; }
  void Tab(int index) {
    control_->form.SSTabTRDSettings.SetIndex(index);
    Turn();
  }

  TestControl control_;
  presentation::Presentation presented_{
      *control_, {.now = [] { return std::int64_t{0}; }, .timeOfDay = [](std::int64_t) { return std::string("now"); }}};
  PageArea area_{*control_, presented_};
  KeyRouter keys_{presented_, area_};
};

}  // namespace htr60::desktop
