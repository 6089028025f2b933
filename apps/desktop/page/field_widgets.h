#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabBar>
#include <functional>
#include <string_view>
#include <vector>

#include "desktop/core.h"

namespace htr60::desktop {

/// Widths of fields, taken from the font: the same class is equally wide whatever widget it holds.
struct FieldWidth {
  int characters = 16;
  bool page = false;    ///< takes all there is
  bool arrow = false;   ///< has room for a list's arrow
  int least = 24;       ///< characters to which it shrinks on a narrow page
  bool digits = false;  ///< shrunk, there is room for as many digits, which are wider than other characters

  static FieldWidth Of(RowKind kind, WidthClass width, int numberWidth);
  int Hint(const QWidget& widget) const;
  int Least(const QWidget& widget) const;
};

/// The one height of fields and lists.
int FieldHeight(const QWidget& widget);

/// A field the operator types into, or a read-only one, which is selected and copied.
class TextEntry final : public QLineEdit {
  Q_OBJECT

 public:
  TextEntry(FieldWidth width, bool readOnly, QWidget* parent);
  /// The form's text; the operator's cursor and selection stay as far as it allows. A number that is only read is
  /// never cut: where it does not fit, "#####" stands for it. Words end in dots there.
  void Show(const QString& text, bool number = false);
  bool CutOff() const;
  /// The selection, or the whole text.
  void Copy();
  void Paste();
  /// `take` is asked first what is to be pasted; where it takes it, the field does not.
  void OnPaste(std::function<bool(const QString&)> take) { takesPaste_ = std::move(take); }
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 Q_SIGNALS:

 protected:
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void ToStart();
  void PaintTooLong();

  FieldWidth width_;
  std::function<bool(const QString&)> takesPaste_;
  bool number_ = false;
};

/// A caption, a unit: text as it stands.
class PlainLabel final : public QLabel {
  Q_OBJECT

 public:
  PlainLabel(const QString& text, QWidget* parent);
};

/// Words after a field: all of them where they fit, else their beginning or the short form. They take no room from the
/// field but for the least form.
class WordsLabel final : public QWidget {
  Q_OBJECT

 public:
  explicit WordsLabel(QWidget* parent);
  void SetWords(presentation::LineWords words);
  QString Words() const;
  /// What is to be seen of them.
  QString Shown() const;
  bool Fits() const;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Paint();
  presentation::LineWords words_;
};

/// A strip that the wheel does not turn.
class PageTabs final : public QTabBar {
  Q_OBJECT

 public:
  explicit PageTabs(QWidget* parent);

 protected:
  void wheelEvent(QWheelEvent* event) override;
};

/// A list box to be read, three rows high; a shape stands before each alarm.
class ReadList final : public QListWidget {
  Q_OBJECT

 public:
  ReadList(FieldWidth width, QWidget* parent);
  void Show(RowRole role, const std::vector<std::string>& rows);
  /// The current row, or all.
  void Copy();
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Fill();

  FieldWidth width_;
  RowRole role_ = RowRole::kNone;
  std::vector<std::string> rows_;
};

}  // namespace htr60::desktop
