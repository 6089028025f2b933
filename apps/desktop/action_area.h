#pragma once

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QWidget>
#include <array>

#include "desktop/core.h"
#include "desktop/field_states.h"

namespace htr60::desktop {

/// Back, the counts, the message line, Save and Write.
class ActionArea final : public QWidget {
  Q_OBJECT

 public:
  explicit ActionArea(QWidget* parent);
  /// Takes the flags of the three buttons.
  void Apply(Form& form);
  void ShowCounts(const StateCounts& counts);
  /// For ten seconds.
  void ShowMessage(const QString& text);
  QString Message() const { return message_->text(); }
  QStringList Counts() const;
  QPushButton* Back() const { return back_; }
  QPushButton* Save() const { return save_; }
  QPushButton* Write() const { return write_; }

 Q_SIGNALS:
  void BackPressed();
  void WritePressed();
  void NotWrittenPressed();
  void SentPressed();
  void ConfirmedPressed();

 private:
  QPushButton* back_;
  std::array<QToolButton*, 3> counts_;
  QLabel* message_;
  QPushButton* save_;
  QPushButton* write_;
  QTimer messageTimer_;
};

}  // namespace htr60::desktop
