#pragma once

#include <QKeyEvent>
#include <QObject>

#include "desktop/core.h"

class QWidget;

namespace htr60::desktop {

/// Translates the key events of a window for the presentation, and puts the window's focus and the open list where the
/// presentation has them. What a key means is decided there.
class KeyRouter final : public QObject {
  Q_OBJECT

 public:
  /// `root`: the window, or a part that is shown for itself.
  KeyRouter(presentation::Presentation& presented, QWidget& root);
  /// Before what changed is drawn: a focus that moves by itself is not the operator's.
  void Hold() { drawing_ = true; }
  /// After each turn.
  void Follow();

 Q_SIGNALS:
  /// A key did something: a turn is due.
  void Acted();
  void HelpWanted();
  /// The node at the tree's cursor is to be activated.
  void NodeWanted();
  void CloseWanted();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool IsOurs(const QWidget& widget) const;
  bool IsInDock(const QWidget& widget) const;
  bool Press(const QWidget& widget, const QKeyEvent& event);
  void Came(const QWidget& widget, Qt::FocusReason reason);
  void FollowList();
  void FollowFocus();

  presentation::Presentation& presented_;
  presentation::Keyboard& keys_;
  QWidget& root_;
  bool drawing_ = false;
};

}  // namespace htr60::desktop
