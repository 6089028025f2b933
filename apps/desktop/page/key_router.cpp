#include "desktop/page/key_router.h"

#include <QApplication>
#include <QClipboard>
#include <QDockWidget>
#include <QFocusEvent>
#include <QLineEdit>
#include <QScrollArea>

#include "desktop/edge.h"
#include "desktop/page/choice_field.h"
#include "desktop/page/spots.h"
#include "desktop/qt_text.h"

namespace htr60::desktop {
namespace {

using presentation::Key;
using presentation::KeyAct;
using presentation::KeyPress;
using presentation::Spot;

constexpr struct {
  int qt;
  Key key;
} kKeys[] = {
    {Qt::Key_Tab, Key::kTab},     {Qt::Key_Backtab, Key::kTab},   {Qt::Key_Return, Key::kEnter},
    {Qt::Key_Enter, Key::kEnter}, {Qt::Key_Escape, Key::kEscape}, {Qt::Key_Space, Key::kSpace},
    {Qt::Key_Up, Key::kUp},       {Qt::Key_Down, Key::kDown},     {Qt::Key_Left, Key::kLeft},
    {Qt::Key_Right, Key::kRight}, {Qt::Key_PageUp, Key::kPageUp}, {Qt::Key_PageDown, Key::kPageDown},
    {Qt::Key_Home, Key::kHome},   {Qt::Key_End, Key::kEnd},       {Qt::Key_F1, Key::kF1},
    {Qt::Key_F4, Key::kF4},       {Qt::Key_F5, Key::kF5},         {Qt::Key_F6, Key::kF6},
};

KeyPress Translated(const QKeyEvent& event) {
  KeyPress press;
  const Qt::KeyboardModifiers with = event.modifiers();
  press.shift = with.testFlag(Qt::ShiftModifier) || event.key() == Qt::Key_Backtab;
  press.control = with.testFlag(Qt::ControlModifier);
  press.alt = with.testFlag(Qt::AltModifier);
  press.held = event.isAutoRepeat();
  for (const auto& known : kKeys) {
    if (known.qt == event.key()) press.key = known.key;
  }
  if (press.key != Key::kOther || with.testFlag(Qt::MetaModifier)) return press;
  if (press.control || press.alt) {
    if (event.key() < Qt::Key_A || event.key() > Qt::Key_Z) return press;
    press.text = std::string(1, static_cast<char>(event.key()));
  } else {
    if (event.text().isEmpty() || !event.text().at(0).isPrint()) return press;
    press.text = ToUtf8(event.text());
  }
  press.key = Key::kCharacter;
  return press;
}

}  // namespace

KeyRouter::KeyRouter(presentation::Presentation& presented, QWidget& root)
    : presented_(presented), keys_(presented.Keys()), root_(root) {
  qApp->installEventFilter(this);
}

// Boxes and menus before the window have their own keys; an open list is a part of its field.
bool KeyRouter::IsOurs(const QWidget& widget) const {
  const QWidget* window = widget.window();
  if (qobject_cast<const ChoicePopup*>(window) != nullptr) window = window->parentWidget()->window();
  return window == root_.window();
}

// Docks stand beside the pages: their keys are the toolkit's, but for the one that leads back.
bool KeyRouter::IsInDock(const QWidget& widget) const {
  for (const QWidget* at = &widget; at != nullptr && at != &root_; at = at->parentWidget()) {
    if (qobject_cast<const QDockWidget*>(at) != nullptr) return true;
  }
  return false;
}

bool KeyRouter::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (type != QEvent::KeyPress && type != QEvent::ShortcutOverride && type != QEvent::FocusIn) return false;
  const auto* widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr || !IsOurs(*widget)) return false;
  return GuardedTakes([&] {
    if (type == QEvent::FocusIn) {
      Came(*widget, static_cast<QFocusEvent*>(event)->reason());
      return false;
    }
    if (IsInDock(*widget) && static_cast<QKeyEvent*>(event)->key() != Qt::Key_F6) return false;
    // The menu bar has the keys for a while and gives the focus back.
    if (SpotOf(widget) == Spot() && !(keys_.At() == Spot())) return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    const bool takes =
        type == QEvent::KeyPress ? Press(*widget, key) : keys_.Means(Translated(key)) != KeyAct::kToolkit;
    if (takes) event->accept();
    return takes;
  });
}

bool KeyRouter::Press(const QWidget& widget, const QKeyEvent& event) {
  const presentation::KeyOutcome outcome = keys_.Press(Translated(event));
  if (!outcome.taken) return false;
  if (outcome.copy) {
    const auto* entry = qobject_cast<const QLineEdit*>(&widget);
    if (entry != nullptr && entry->hasSelectedText()) return false;
    QApplication::clipboard()->setText(ToQt(*outcome.copy));
  }
  if (outcome.activatesNode) Q_EMIT NodeWanted();
  Q_EMIT Acted();
  Follow();
  if (outcome.help) Q_EMIT HelpWanted();
  if (outcome.closes) Q_EMIT CloseWanted();
  return true;
}

// Where Tab leads is decided by the presentation; with that reason the focus only flees what is hidden or disabled.
void KeyRouter::Came(const QWidget& widget, Qt::FocusReason reason) {
  if (drawing_ || widget.window() != root_.window()) return;
  if (IsInDock(widget)) return keys_.Came(Spot());
  switch (reason) {
    case Qt::MouseFocusReason:
    case Qt::ShortcutFocusReason:
    case Qt::OtherFocusReason:
      keys_.Came(SpotOf(&widget));
      return;
    default:
      return;
  }
}

void KeyRouter::Follow() {
  drawing_ = false;
  FollowList();
  FollowFocus();
}

void KeyRouter::FollowList() {
  auto* popup = qobject_cast<ChoicePopup*>(QApplication::activePopupWidget());
  if (popup != nullptr && !popup->Shows(keys_.Opened())) popup->close();
  if (keys_.Opened() == nullptr) return;
  if (auto* field = qobject_cast<ChoiceField*>(FindSpot(root_, keys_.OpenedOf()))) field->Follow();
}

void KeyRouter::FollowFocus() {
  if (keys_.At() == Spot()) return;
  QWidget* at = root_.window()->focusWidget();
  if (at == nullptr || !(SpotOf(at) == keys_.At())) {
    QWidget* const there = FindSpot(root_, keys_.At());
    if (there == nullptr) {  // a part that this root does not have
      if (at != nullptr) keys_.Came(SpotOf(at));
      return;
    }
    at = there;
    drawing_ = true;
    at->setFocus(Qt::OtherFocusReason);
    drawing_ = false;
    for (QWidget* parent = at->parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
      if (auto* scroll = qobject_cast<QScrollArea*>(parent)) scroll->ensureWidgetVisible(at);
    }
  }
  auto* entry = qobject_cast<QLineEdit*>(at);
  if (keys_.TakeSelect() && entry != nullptr) entry->selectAll();
}

}  // namespace htr60::desktop
