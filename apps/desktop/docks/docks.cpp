#include "desktop/docks/docks.h"

#include <QApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>
#include <QSettings>
#include <algorithm>

#include "desktop/docks/communication/communication_dock.h"
#include "desktop/docks/record/record_dock.h"
#include "desktop/docks/simulator/simulator_dock.h"
#include "desktop/docks/trend/trend_dock.h"
#include "desktop/edge.h"
#include "desktop/qt_text.h"

namespace htr60::desktop {
namespace {

constexpr const char* kStateKey = "window/docks";
// What a kept state must have in common with the docks there are.
constexpr int kStateVersion = 1;

}  // namespace

Docks::Docks(DockContext context, QMainWindow& window)
    : QObject(&window),
      window_(window),
      communication_(new CommunicationDock(context, &window)),
      trend_(new TrendDock(context, &window)),
      simulator_(new SimulatorDock(context, &window)),
      record_(new RecordDock(context, &window)) {
  window.setDockNestingEnabled(true);
  Add(*communication_, Qt::BottomDockWidgetArea, 330);
  Add(*trend_, Qt::BottomDockWidgetArea, 400);
  Add(*simulator_, Qt::RightDockWidgetArea, 420);
  Add(*record_, Qt::BottomDockWidgetArea, 420);
}

// They look at what goes before the window does.
Docks::~Docks() {
  for (QDockWidget* dock : docks_) delete dock;
}

void Docks::Add(QDockWidget& dock, Qt::DockWidgetArea area, int side) {
  dock.setAccessibleName(dock.windowTitle());
  dock.hide();
  window_.addDockWidget(area, &dock);
  docks_.push_back(&dock);
  sides_.push_back(side);
}

void Docks::AddTo(QMenu& menu) {
  int number = 0;
  for (QDockWidget* dock : docks_) {
    QAction* action = menu.addAction(dock->windowTitle());
    actions_.push_back(action);
    action->setCheckable(true);
    action->setShortcut(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + number++)));
    Connect(action, &QAction::triggered, this, [this, dock](bool shown) { Toggle(*dock, shown); });
    // Closed by its own button, or behind another in its place.
    Connect(dock->toggleViewAction(), &QAction::toggled, action, [action](bool shown) { action->setChecked(shown); });
  }
  AddFloating(menu);
}

void Docks::AddFloating(QMenu& menu) {
  QAction* action = menu.addAction(tr("Float or Put Back"));
  action->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F));
  action->setToolTip(tr("The dock with the focus: into a window of its own, or back to where it was."));
  Connect(action, &QAction::triggered, this, [this](bool /*checked*/) { Float(); });
}

void Docks::Float() {
  QWidget* focus = QApplication::focusWidget();
  for (QDockWidget* dock : docks_) {
    if (focus == nullptr || !dock->isAncestorOf(focus)) continue;
    dock->setFloating(!dock->isFloating());
    (dock->isFloating() ? dock->window() : &window_)->activateWindow();
    focus->setFocus(Qt::OtherFocusReason);
    return;
  }
}

Qt::Orientation Docks::OrientationOf(QDockWidget& dock) const {
  const Qt::DockWidgetArea area = window_.dockWidgetArea(&dock);
  return area == Qt::BottomDockWidgetArea || area == Qt::TopDockWidgetArea ? Qt::Vertical : Qt::Horizontal;
}

// The page keeps more than half of the window.
int Docks::SideOf(QDockWidget& dock) const {
  const auto row = std::find(docks_.begin(), docks_.end(), &dock) - docks_.begin();
  const int whole = OrientationOf(dock) == Qt::Vertical ? window_.height() : window_.width();
  return std::min(Pixels(window_, sides_.at(static_cast<std::size_t>(row))), whole * 9 / 20);
}

void Docks::Toggle(QDockWidget& dock, bool shown) {
  dock.setVisible(shown);
  if (!shown) return;
  if (!placed_.contains(&dock)) {
    placed_ << &dock;
    // Behind each other in one place, but not before it has to be: the window's strip for that stands there empty.
    for (QDockWidget* other : docks_) {
      const bool beside = other != &dock && other->isVisible() && !other->isFloating() && !dock.isFloating();
      if (beside && window_.dockWidgetArea(other) == window_.dockWidgetArea(&dock)) {
        window_.tabifyDockWidget(other, &dock);
        break;
      }
    }
    if (!dock.isFloating()) window_.resizeDocks({&dock}, {SideOf(dock)}, OrientationOf(dock));
  }
  dock.raise();
  if (dock.isFloating()) dock.activateWindow();
  if (QWidget* first = dock.widget()->nextInFocusChain()) {
    for (int i = 0; i < 50 && !(first->focusPolicy() & Qt::TabFocus); ++i) first = first->nextInFocusChain();
    if (dock.isAncestorOf(first)) first->setFocus(Qt::OtherFocusReason);
  }
}

void Docks::Turn() {
  Guarded([this] { communication_->Turn(); });
  Guarded([this] { trend_->Turn(); });
  Guarded([this] { simulator_->Turn(); });
  Guarded([this] { record_->Turn(); });
}

void Docks::Restore(const QSettings& settings) {
  window_.restoreState(settings.value(QLatin1String(kStateKey)).toByteArray(), kStateVersion);
}

void Docks::Keep(QSettings& settings) const {
  settings.setValue(QLatin1String(kStateKey), window_.saveState(kStateVersion));
}

}  // namespace htr60::desktop
