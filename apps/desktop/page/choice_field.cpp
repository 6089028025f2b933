#include "desktop/page/choice_field.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/edge.h"
#include "desktop/qt_text.h"

namespace htr60::desktop {
namespace {

using presentation::ListSearch;

// Qt's own takes the text shown for the list's name on some systems: here it is the value, beside the name.
class ChoiceAccess final : public QAccessibleWidget {
 public:
  explicit ChoiceAccess(ChoiceField* field) : QAccessibleWidget(field, QAccessible::ComboBox) {
    addControllingSignal(QStringLiteral("currentTextChanged(QString)"));
  }

  QString text(QAccessible::Text which) const override {
    return which == QAccessible::Value ? Field().currentText() : QAccessibleWidget::text(which);
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = true;
    state.hasPopup = true;
    state.expanded = Field().Popup() != nullptr;
    state.collapsed = !state.expanded;
    return state;
  }
  QStringList actionNames() const override { return {showMenuAction(), setFocusAction()}; }
  void doAction(const QString& name) override {
    if (name != showMenuAction()) return QAccessibleWidget::doAction(name);
    Guarded([this] { Field().showPopup(); });
  }

 private:
  ChoiceField& Field() const { return *static_cast<ChoiceField*>(widget()); }
};

QAccessibleInterface* MakeAccess(const QString& /*className*/, QObject* object) {
  auto* field = qobject_cast<ChoiceField*>(object);
  return field == nullptr ? nullptr : new ChoiceAccess(field);
}

}  // namespace

// ---- ChoiceLines

ChoiceLines::ChoiceLines(std::shared_ptr<ListSearch> list, QObject* parent)
    : QAbstractListModel(parent), list_(std::move(list)), generation_(list_->Generation()) {}

void ChoiceLines::Follow() {
  if (generation_ == list_->Generation()) return;
  beginResetModel();
  generation_ = list_->Generation();
  endResetModel();
}

int ChoiceLines::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : list_->Lines(); }

QVariant ChoiceLines::data(const QModelIndex& index, int role) const {
  return role == Qt::DisplayRole ? QVariant(ToQt(list_->Line(index.row()))) : QVariant();
}

Qt::ItemFlags ChoiceLines::flags(const QModelIndex& index) const {
  if (list_->RowAt(index.row()) == ListSearch::kNone) return Qt::NoItemFlags;
  return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

// ---- ChoicePopup

ChoicePopup::ChoicePopup(presentation::Keyboard& keys, QWidget* field)
    : QFrame(field, Qt::Popup),
      keys_(keys),
      shown_(keys.Opened()),
      model_(new ChoiceLines(shown_, this)),
      list_(new QListView(this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setAttribute(Qt::WA_NoMouseReplay);  // a click on the field closes the list and does not open it again
  setFrameShape(QFrame::StyledPanel);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(1, 1, 1, 1);
  column->setSpacing(1);
  if (shown_->HasSearchLine()) {
    search_ = new QLineEdit(this);
    search_->setPlaceholderText(tr("Search"));
    search_->setAccessibleName(tr("Search in the list"));
    column->addWidget(search_);
    Connect(search_, &QLineEdit::textEdited, this, [this](const QString& text) {
      keys_.Search(ToUtf8(text));
      Follow();
    });
  }
  list_->setModel(model_);
  list_->setUniformItemSizes(true);
  list_->setLayoutMode(QListView::Batched);
  list_->setFrameShape(QFrame::NoFrame);
  list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->setTextElideMode(Qt::ElideRight);
  list_->setAccessibleName(field->accessibleName());
  column->addWidget(list_);
  Connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& index) {
    if (!following_) shown_->MoveTo(index.row());
  });
  Connect(list_, &QListView::clicked, this, [this](const QModelIndex& index) {
    if (keys_.Opened() == shown_) keys_.Take(index.row());
    if (keys_.Opened() != shown_) close();
  });
}

void ChoicePopup::Open() {
  const QWidget& field = *parentWidget();
  int widest = 0;
  for (int line = 0; line < shown_->Lines(); ++line) {
    widest = std::max(widest, fontMetrics().horizontalAdvance(ToQt(shown_->Line(line))));
  }
  const int lines = std::clamp(shown_->Lines(), 1, ListSearch::kVisibleLines);
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
  following_ = true;  // with the focus the view makes its first row the current one, though nobody chose it
  show();
  (search_ != nullptr ? static_cast<QWidget*>(search_) : list_)->setFocus(Qt::PopupFocusReason);
  following_ = false;
  Follow();
  list_->scrollTo(list_->currentIndex(), QAbstractItemView::PositionAtCenter);
}

void ChoicePopup::Follow() {
  following_ = true;
  if (search_ != nullptr && ToUtf8(search_->text()) != shown_->Text()) search_->setText(ToQt(shown_->Text()));
  model_->Follow();
  const int line = shown_->Current();
  if (line == ListSearch::kNone) {
    list_->selectionModel()->clear();
  } else if (list_->currentIndex().row() != line) {
    list_->setCurrentIndex(model_->index(line));
  }
  following_ = false;
}

void ChoicePopup::hideEvent(QHideEvent* event) {
  QFrame::hideEvent(event);
  if (keys_.Opened() == shown_) keys_.Close();
}

// ---- ChoiceField

ChoiceField::ChoiceField(presentation::Keyboard& keys, ControlId control, FieldWidth width, QWidget* parent)
    : QComboBox(parent), keys_(keys), control_(control), width_(width) {
  static const bool installed = (QAccessible::installFactory(MakeAccess), true);
  Q_UNUSED(installed);
  setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
  setFocusPolicy(Qt::StrongFocus);
  setAcceptDrops(false);
  addItem(QString());
}

void ChoiceField::Show(const QString& text) {
  if (itemText(0) != text) setItemText(0, text);
}

bool ChoiceField::CutOff() const {
  QStyleOptionComboBox option;
  initStyleOption(&option);
  const QRect room = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
  return fontMetrics().horizontalAdvance(currentText()) > room.width() - 2;
}

void ChoiceField::Follow() {
  const bool opened = keys_.Opened() != nullptr && keys_.OpenedOf() == control_;
  if (popup_ != nullptr && !(opened && popup_->Shows(keys_.Opened()))) {
    popup_->close();
    popup_ = nullptr;
  }
  if (!opened) return;
  if (popup_ != nullptr) return popup_->Follow();
  popup_ = new ChoicePopup(keys_, this);
  popup_->setAccessibleName(accessibleName());
  popup_->Open();
}

void ChoiceField::showPopup() {
  Guarded([this] {
    keys_.Open(control_);
    Follow();
  });
}

void ChoiceField::hidePopup() {
  if (popup_ != nullptr) popup_->close();
}

QSize ChoiceField::sizeHint() const { return {width_.Hint(*this), FieldHeight(*this)}; }

QSize ChoiceField::minimumSizeHint() const { return {width_.Least(*this), FieldHeight(*this)}; }

// No key of Qt's: each would change the closed list.
void ChoiceField::keyPressEvent(QKeyEvent* event) { event->ignore(); }

void ChoiceField::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) showPopup();
}

void ChoiceField::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace htr60::desktop
