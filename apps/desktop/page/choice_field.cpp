#include "desktop/page/choice_field.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/edge.h"
#include "desktop/qt_text.h"

namespace htr60::desktop {
namespace {

constexpr qsizetype kSearchAbove = 33;
constexpr int kVisibleRows = 12;

}  // namespace

// ---- ChoiceRows

ChoiceRows::ChoiceRows(QStringList rows, const QString& shown, QObject* parent)
    : QAbstractListModel(parent), rows_(std::move(rows)) {
  if (!shown.isEmpty() && !rows_.contains(shown)) now_ = tr("Now: %1 (not in this list)").arg(shown);
  Search({});
}

void ChoiceRows::Search(const QString& text) {
  beginResetModel();
  searching_ = !text.isEmpty();
  found_.clear();
  for (const bool exact : {true, false}) {
    for (int i = 0; i < rows_.size(); ++i) {
      const bool equal = rows_[i].compare(text, Qt::CaseInsensitive) == 0;
      if (equal == exact && (equal || rows_[i].contains(text, Qt::CaseInsensitive))) found_.push_back(i);
    }
  }
  endResetModel();
}

int ChoiceRows::RowAt(int line) const {
  const int i = line - Extra();
  return i < 0 || i >= static_cast<int>(found_.size()) ? -1 : found_[static_cast<std::size_t>(i)];
}

int ChoiceRows::FirstLine(const QString& shown) const {
  if (searching_) return found_.empty() ? -1 : Extra();
  for (std::size_t i = 0; i < found_.size(); ++i) {
    if (rows_[found_[i]] == shown) return static_cast<int>(i) + Extra();
  }
  return -1;  // Enter takes no row that nobody has chosen
}

int ChoiceRows::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(found_.size()) + Extra();
}

QVariant ChoiceRows::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole) return {};
  const int row = RowAt(index.row());
  return row < 0 ? now_ : rows_[row];
}

Qt::ItemFlags ChoiceRows::flags(const QModelIndex& index) const {
  return RowAt(index.row()) < 0 ? Qt::NoItemFlags : Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

// ---- ChoicePopup

ChoicePopup::ChoicePopup(QStringList rows, const QString& shown, bool search, QWidget* field)
    : QFrame(field, Qt::Popup), shown_(shown), model_(new ChoiceRows(std::move(rows), shown, this)), list_(nullptr) {
  setAttribute(Qt::WA_DeleteOnClose);
  setAttribute(Qt::WA_NoMouseReplay);  // a click on the field closes the list and does not open it again
  setFrameShape(QFrame::StyledPanel);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(1, 1, 1, 1);
  column->setSpacing(1);
  if (search) {
    search_ = new QLineEdit(this);
    search_->setPlaceholderText(tr("Search"));
    search_->setAccessibleName(tr("Search in the list"));
    search_->installEventFilter(this);
    column->addWidget(search_);
    Connect(search_, &QLineEdit::textChanged, this, &ChoicePopup::Searched);
  }
  list_ = new QListView(this);
  list_->setModel(model_);
  list_->setUniformItemSizes(true);
  list_->setLayoutMode(QListView::Batched);
  list_->setFrameShape(QFrame::NoFrame);
  list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->setTextElideMode(Qt::ElideRight);
  list_->installEventFilter(this);
  list_->setFocusProxy(nullptr);
  column->addWidget(list_);
  Connect(list_, &QListView::clicked, this, &ChoicePopup::Take);
}

void ChoicePopup::Open() {
  const QWidget& field = *parentWidget();
  int widest = 0;
  for (int i = 0; i < model_->rowCount(); ++i) {
    const QString text = model_->data(model_->index(i), Qt::DisplayRole).toString();
    widest = std::max(widest, fontMetrics().horizontalAdvance(text));
  }
  const int lines = std::clamp(model_->rowCount(), 1, kVisibleRows);
  const int rowHeight = std::max(list_->sizeHintForRow(0), fontMetrics().height());
  list_->setFixedHeight(lines * rowHeight + 2);
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, list_);
  const QRect screen = field.screen()->availableGeometry();
  const int wide = std::min(std::max(field.width(), widest + bar + 16), screen.width());
  resize(wide, sizeHint().height());
  QPoint at = field.mapToGlobal(QPoint(0, field.height()));
  if (at.y() + height() > screen.bottom()) at.setY(field.mapToGlobal(QPoint(0, 0)).y() - height());
  at.setX(std::clamp(at.x(), screen.left(), std::max(screen.left(), screen.right() - wide)));
  at.setY(std::max(at.y(), screen.top()));
  move(at);
  show();
  const int first = model_->FirstLine(shown_);
  if (first >= 0) list_->setCurrentIndex(model_->index(first));
  list_->scrollTo(list_->currentIndex(), QAbstractItemView::PositionAtCenter);
  (search_ != nullptr ? static_cast<QWidget*>(search_) : list_)->setFocus(Qt::PopupFocusReason);
  // With the focus the view makes its first row the current one, though nobody chose it.
  if (search_ == nullptr && first < 0) {
    list_->selectionModel()->setCurrentIndex(QModelIndex(), QItemSelectionModel::NoUpdate);
  }
}

void ChoicePopup::Type(const QString& text) {
  if (search_ != nullptr) {
    search_->setText(text);
  } else {
    list_->keyboardSearch(text);
  }
}

void ChoicePopup::Searched() {
  model_->Search(search_->text());
  const int first = model_->FirstLine(shown_);
  list_->setCurrentIndex(first < 0 ? QModelIndex() : model_->index(first));
}

void ChoicePopup::Take(const QModelIndex& index) {
  const int row = index.isValid() ? model_->RowAt(index.row()) : -1;
  if (row < 0) return;
  close();
  Q_EMIT Taken(row);
}

bool ChoicePopup::Key(QKeyEvent& event, bool inSearch) {
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Take(list_->currentIndex());
      return true;
    case Qt::Key_Escape:
    case Qt::Key_F4:
      close();
      return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
      if (event.modifiers().testFlag(Qt::AltModifier)) {
        close();
        return true;
      }
      [[fallthrough]];
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
      if (!inSearch) return false;
      QCoreApplication::sendEvent(list_, &event);
      return true;
    default:
      return false;
  }
}

bool ChoicePopup::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const bool inSearch = watched == search_;
    if (GuardedTakes([&] { return Key(*static_cast<QKeyEvent*>(event), inSearch); })) return true;
  }
  return QFrame::eventFilter(watched, event);
}

// ---- ChoiceField

ChoiceField::ChoiceField(FieldWidth width, QWidget* parent) : QComboBox(parent), width_(width) {
  setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
  setFocusPolicy(Qt::StrongFocus);
  setAcceptDrops(false);
  addItem(QString());
}

void ChoiceField::Show(const QString& text, std::span<const std::string_view> rows) {
  rows_ = rows;
  if (itemText(0) != text) setItemText(0, text);
}

bool ChoiceField::CutOff() const {
  QStyleOptionComboBox option;
  initStyleOption(&option);
  const QRect room = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
  return fontMetrics().horizontalAdvance(currentText()) > room.width() - 2;
}

void ChoiceField::showPopup() { OpenWith({}); }

void ChoiceField::OpenWith(const QString& letters) {
  if (popup_ != nullptr || rows_.empty()) return;
  Guarded([&] { MakePopup(letters); });
}

void ChoiceField::MakePopup(const QString& letters) {
  QStringList rows;
  rows.reserve(static_cast<qsizetype>(rows_.size()));
  for (const std::string_view row : rows_) rows << ToQt(row);
  popup_ = new ChoicePopup(rows, currentText(), rows.size() > kSearchAbove, this);
  popup_->setAccessibleName(accessibleName());
  Connect(popup_.data(), &ChoicePopup::Taken, this, [this, rows](int row) {
    // The program may have filled the list anew while it stood open.
    const auto at = static_cast<std::size_t>(row);
    if (at < rows_.size() && ToQt(rows_[at]) == rows[row]) Q_EMIT Picked(row);
  });
  popup_->Open();
  if (!letters.isEmpty()) popup_->Type(letters);
}

void ChoiceField::hidePopup() {
  if (popup_ != nullptr) popup_->close();
}

QSize ChoiceField::sizeHint() const { return {width_.Hint(*this), FieldHeight(*this)}; }

QSize ChoiceField::minimumSizeHint() const { return {width_.Least(*this), FieldHeight(*this)}; }

void ChoiceField::keyPressEvent(QKeyEvent* event) {
  const bool alt = event->modifiers().testFlag(Qt::AltModifier);
  switch (event->key()) {
    case Qt::Key_F4:
    case Qt::Key_Space:
      showPopup();
      return;
    case Qt::Key_Up:
    case Qt::Key_Down:
      if (alt) showPopup();
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Q_EMIT Entered();
      return;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
      return;  // would change the closed list
    default:
      break;
  }
  const QString letters = event->text();
  const bool control = event->modifiers().testFlag(Qt::ControlModifier);
  if (!alt && !control && !letters.isEmpty() && letters.at(0).isPrint()) {
    OpenWith(letters);
    return;
  }
  event->ignore();
}

void ChoiceField::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) showPopup();
}

void ChoiceField::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace htr60::desktop
