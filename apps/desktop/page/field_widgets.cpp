#include "desktop/page/field_widgets.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "desktop/edge.h"
#include "desktop/figure/shapes.h"
#include "desktop/qt_text.h"

namespace htr60::desktop {
namespace {

constexpr const char* kTooLong = "#####";

}  // namespace

FieldWidth FieldWidth::Of(RowKind kind, WidthClass width, int numberWidth) {
  if (width == WidthClass::kKind) width = WidthOf(kind);
  const bool list = kind == RowKind::kList;
  switch (width) {
    case WidthClass::kS:
      return {.characters = 8, .arrow = list};
    case WidthClass::kM:
      return {.characters = 28, .arrow = true};
    case WidthClass::kW:
      return {.characters = 50, .arrow = true};
    case WidthClass::kPage:
      return {.characters = 50, .page = true};
    case WidthClass::kN:
    case WidthClass::kKind:
      break;
  }
  return {.characters = kind == RowKind::kNum || kind == RowKind::kValue ? numberWidth : 16, .arrow = list};
}

int FieldWidth::Hint(const QWidget& widget) const {
  const int frame = 2 * (widget.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, &widget) + 3);
  return characters * widget.fontMetrics().averageCharWidth() + frame +
         (arrow ? widget.fontMetrics().height() * 3 / 2 : 0);
}

int FieldWidth::Least(const QWidget& widget) const {
  FieldWidth narrow = *this;
  narrow.characters = std::min(characters, least);
  const QFontMetrics metrics = widget.fontMetrics();
  const int wider = digits ? metrics.horizontalAdvance(u'0') - metrics.averageCharWidth() : 0;
  return narrow.Hint(widget) + narrow.characters * wider;
}

int FieldHeight(const QWidget& widget) {
  const QFontMetrics metrics = widget.fontMetrics();
  return metrics.height() + 2 * (widget.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, &widget) +
                                 std::max(2, metrics.height() / 6));
}

// ---- TextEntry

TextEntry::TextEntry(FieldWidth width, bool readOnly, QWidget* parent) : QLineEdit(parent), width_(width) {
  setReadOnly(readOnly);
  setAcceptDrops(false);
  setDragEnabled(false);
  setSizePolicy(width.page ? QSizePolicy::Expanding : QSizePolicy::Maximum, QSizePolicy::Fixed);
  if (!readOnly) return;
  // A frame line without a field's ground tells reading from typing.
  QPalette bare;
  bare.setBrush(QPalette::Base, Qt::NoBrush);
  setPalette(bare);
}

void TextEntry::Show(const QString& text, bool number) {
  number_ = number;
  if (text == QLineEdit::text()) return;
  const bool held = hasFocus() && !isReadOnly();
  const int at = cursorPosition();
  const int first = selectionStart();
  const auto length = static_cast<int>(selectedText().size());
  setText(text);
  if (!held) return ToStart();
  const auto whole = static_cast<int>(text.size());
  if (first < 0 || first >= whole) return setCursorPosition(at);
  const int last = std::min(first + length, whole);
  at == first ? setSelection(last, first - last) : setSelection(first, last - first);
}

void TextEntry::ToStart() { setCursorPosition(0); }

bool TextEntry::CutOff() const {
  const FieldWidth none{.characters = 0};
  return fontMetrics().horizontalAdvance(text()) > width() - none.Hint(*this);
}

QSize TextEntry::sizeHint() const { return {width_.Hint(*this), FieldHeight(*this)}; }

QSize TextEntry::minimumSizeHint() const { return {width_.Least(*this), FieldHeight(*this)}; }

void TextEntry::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) ToStart();
}

void TextEntry::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return Copy();
  if (event->matches(QKeySequence::Paste)) return Paste();
  QLineEdit::keyPressEvent(event);
}

void TextEntry::Copy() {
  if (echoMode() != QLineEdit::Normal) return;
  if (hasSelectedText()) return copy();
  QApplication::clipboard()->setText(text());
}

void TextEntry::Paste() {
  if (isReadOnly()) return;
  const bool taken = takesPaste_ && takesPaste_(QApplication::clipboard()->text());
  if (!taken) paste();
}

void TextEntry::paintEvent(QPaintEvent* event) {
  // Words can be scrolled to where the focus is.
  const bool scrolls = !number_ && (hasFocus() || echoMode() != QLineEdit::Normal);
  if (!isReadOnly() || scrolls || !CutOff()) return QLineEdit::paintEvent(event);
  Guarded([this] { PaintTooLong(); });
}

void TextEntry::PaintTooLong() {
  QStylePainter painter(this);
  QStyleOptionFrame option;
  initStyleOption(&option);
  painter.drawPrimitive(QStyle::PE_PanelLineEdit, option);
  const QRect room = style()->subElementRect(QStyle::SE_LineEditContents, &option, this).adjusted(2, 0, -2, 0);
  if (hasSelectedText()) painter.fillRect(room, palette().highlight());
  painter.setPen(palette().color(hasSelectedText() ? QPalette::HighlightedText : QPalette::Text));
  const QString shown =
      number_ ? QLatin1String(kTooLong) : fontMetrics().elidedText(text(), Qt::ElideRight, room.width());
  painter.drawText(room, static_cast<int>(alignment()) | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}

// ---- labels

PlainLabel::PlainLabel(const QString& text, QWidget* parent) : QLabel(text, parent) { setTextFormat(Qt::PlainText); }

WordsLabel::WordsLabel(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void WordsLabel::SetWords(presentation::LineWords words) {
  if (words == words_) return;
  words_ = std::move(words);
  updateGeometry();
  update();
}

QString WordsLabel::Words() const { return ToQt(words_.words); }

QString WordsLabel::Shown() const {
  const QFontMetrics metrics = fontMetrics();
  const std::string_view fitting =
      presentation::FittingIn(words_, width(), metrics.averageCharWidth(),
                              [&](std::string_view text) { return metrics.horizontalAdvance(ToQt(text)); });
  return metrics.elidedText(ToQt(fitting), Qt::ElideRight, width());
}

bool WordsLabel::Fits() const { return fontMetrics().horizontalAdvance(Words()) <= width(); }

QSize WordsLabel::sizeHint() const { return {fontMetrics().horizontalAdvance(Words()), fontMetrics().height()}; }

QSize WordsLabel::minimumSizeHint() const {
  return {words_.least.empty() ? 0 : fontMetrics().horizontalAdvance(ToQt(words_.least)), fontMetrics().height()};
}

void WordsLabel::paintEvent(QPaintEvent* /*event*/) {
  Guarded([this] { Paint(); });
}

void WordsLabel::Paint() {
  const QString text = Shown();
  if (text.isEmpty()) return;
  QPainter painter(this);
  painter.setPen(words_.alert ? AlertColor(palette()) : palette().color(QPalette::WindowText));
  painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
}

// ---- strips, list boxes

PageTabs::PageTabs(QWidget* parent) : QTabBar(parent) {
  setExpanding(false);
  setElideMode(Qt::ElideNone);
  setDrawBase(true);
  setUsesScrollButtons(true);
  setFocusPolicy(Qt::StrongFocus);
}

void PageTabs::wheelEvent(QWheelEvent* event) { event->ignore(); }

ReadList::ReadList(FieldWidth width, QWidget* parent) : QListWidget(parent), width_(width) {
  setEditTriggers(NoEditTriggers);
  setDragDropMode(NoDragDrop);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setUniformItemSizes(true);
  setTabKeyNavigation(false);
  setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
  QPalette bare;
  bare.setBrush(QPalette::Base, Qt::NoBrush);
  setPalette(bare);
  setFrameShape(QFrame::StyledPanel);
}

void ReadList::Show(RowRole role, const std::vector<std::string>& rows) {
  role_ = role;
  rows_ = rows;
  Fill();
}

void ReadList::changeEvent(QEvent* event) {
  QListWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) Guarded([this] { Fill(); });
}

void ReadList::Fill() {
  clear();
  const int side = fontMetrics().ascent();
  setIconSize({side, side});
  for (const std::string& row : rows_) {
    auto* item = new QListWidgetItem(ToQt(row), this);
    item->setToolTip(ToQt(row));
    const auto shape = ShapeOf(presentation::MarkOf(role_, RowKind::kListBox, row));
    if (shape == desktop::Shape::kNone) continue;
    item->setIcon(ShapeIcon(shape, side, palette()));
  }
}

QSize ReadList::sizeHint() const {
  return {width_.Hint(*this), 3 * (fontMetrics().height() + 4) + 2 * frameWidth() + 2};
}

QSize ReadList::minimumSizeHint() const { return {width_.Least(*this), sizeHint().height()}; }

void ReadList::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return Copy();
  QListWidget::keyPressEvent(event);
}

void ReadList::Copy() {
  QStringList texts;
  for (int i = 0; i < count(); ++i) {
    if (currentRow() < 0 || i == currentRow()) texts << item(i)->text();
  }
  QApplication::clipboard()->setText(texts.join(u'\n'));
}

}  // namespace htr60::desktop
