#include "desktop/page/group_view.h"

#include <QEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "desktop/edge.h"
#include "desktop/qt_text.h"
#include "presentation/line_words.h"

namespace htr60::desktop {
namespace {

constexpr int kUnitCharacters = 16;
constexpr int kLeastUnitCharacters = 6;
constexpr double kPale = 0.7;  // still 4.5 : 1 on its ground

bool SpansPage(RowKind kind) { return kind == RowKind::kMsg || kind == RowKind::kFixed; }

bool IsButton(RowKind kind) { return kind == RowKind::kOpen || kind == RowKind::kWrite; }

bool CanBeChanged(RowKind kind) { return kind == RowKind::kEdit || kind == RowKind::kNum || kind == RowKind::kList; }

bool Touches(const ControlSet& changed, ControlId control) { return control && changed.test(control.ordinal); }

// What the side of a box takes: without one the fields stand in the same line.
int BoxSide() {
  const QGroupBox box;
  box.ensurePolished();
  return box.contentsMargins().left();
}

}  // namespace

UnitLabel::UnitLabel(bool wide, bool pale, QWidget* parent) : QLabel(parent), wide_(wide), pale_(pale) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
}

void UnitLabel::SetClose(bool close) {
  if (std::exchange(close_, close) != close) updateGeometry();
}

QSize UnitLabel::sizeHint() const {
  const QSize own = QLabel::sizeHint();
  return {std::max(own.width(), wide_ && !close_ ? kUnitCharacters * fontMetrics().averageCharWidth() : 0),
          own.height()};
}

QSize UnitLabel::minimumSizeHint() const {
  const QSize own = QLabel::sizeHint();
  return {std::max(own.width(), wide_ && !close_ ? kLeastUnitCharacters * fontMetrics().averageCharWidth() : 0),
          own.height()};
}

void UnitLabel::paintEvent(QPaintEvent* event) {
  if (!pale_) return QLabel::paintEvent(event);
  Guarded([this] {
    QPainter painter(this);
    painter.setOpacity(kPale);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text());
  });
}

GroupView::GroupView(PageContext context, const PageLayout& page, const LayoutGroup& group, QWidget* parent)
    : QWidget(parent), context_(context), page_(page), group_(group) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  auto* body = new QWidget(this);
  if (group.box && (!group.caption.empty() || group.frame)) {
    MakeBox(*body);
    column->addWidget(box_);
  } else {
    column->addWidget(body);
  }
  grid_ = new QGridLayout(body);
  Build();
}

// The title is bold, what stands in the box is not.
void GroupView::MakeBox(QWidget& body) {
  box_ = new QGroupBox(this);
  QFont bold;
  bold.setBold(true);
  QFont plain;
  plain.setBold(false);
  box_->setFont(bold);
  body.setFont(plain);
  auto* inside = new QVBoxLayout(box_);
  inside->setContentsMargins(0, 0, 0, 0);
  inside->addWidget(&body);
}

void GroupView::Build() {
  const int gap = fontMetrics().averageCharWidth();
  const int above = box_ != nullptr ? gap : gap / 2;
  const int aside = page_.tight ? gap / 2 : gap;
  grid_->setContentsMargins(aside + (box_ == nullptr && !page_.tight ? BoxSide() : 0), above, aside, above);
  grid_->setHorizontalSpacing(IsTight() ? gap / 2 : gap);
  grid_->setVerticalSpacing(std::max(2, gap * 2 / 3));
  int lines = 0;
  for (const LayoutRow& row : group_.rows) {
    if (!row.sameLine) ++lines;
    buttonsOnly_ = buttonsOnly_ && IsButton(row.kind);
    unitBeforeSecond_ = unitBeforeSecond_ || (row.second && (row.unit.control || !row.unit.text.empty()));
  }
  const int columns = std::max(1, group_.columns);
  const int linesInColumn = (lines + columns - 1) / columns;
  rows_.reserve(group_.rows.size());
  for (const LayoutRow& row : group_.rows) AddRow(row, *grid_, linesInColumn);
  Finish();
}

FieldCell* GroupView::AddCell(const LayoutRow& row, bool second, Line& line) {
  auto* cell = new FieldCell(context_, row, second, page_.numberWidth, IsTight(), line.widget);
  cells_.push_back(cell);
  if (cell->Slot() != nullptr) line.box->addWidget(cell->Slot());
  // A button among fields stands below them.
  if (cell->IsButton() && !buttonsOnly_ && line.rows.empty()) {
    line.box->addSpacing(ShapeSlot(line.widget).sizeHint().width() + line.box->spacing());
  }
  line.box->addWidget(cell->Widget(), SpansPage(cell->Kind()) ? 1 : 0);
  connect(cell, &FieldCell::Pressed, this, &GroupView::Pressed);
  if (cell->Kind() == RowKind::kOpen) openButtons_.push_back(static_cast<QPushButton*>(cell->Widget()));
  return cell;
}

void GroupView::AddUnit(Row& made, Line& line) {
  const LayoutUnit& unit = made.row->unit;
  const bool has = unit.control || !unit.text.empty();
  if (!has && !(made.row->second && unitBeforeSecond_)) return;
  made.unit = new UnitLabel(unit.control || made.row->second, made.row->kind == RowKind::kLabel, line.widget);
  line.box->addWidget(made.unit);
}

void GroupView::AddRow(const LayoutRow& row, QGridLayout& grid, int linesInColumn) {
  const bool joins = row.sameLine && !lines_.empty();
  if (!joins) {
    const int number = static_cast<int>(lines_.size());
    Line line;
    line.widget = new QWidget(grid.parentWidget());
    line.box = new QHBoxLayout;
    line.box->setContentsMargins(0, 0, 0, 0);
    line.column = new QVBoxLayout(line.widget);
    line.column->setContentsMargins(0, 0, 0, 0);
    line.column->addLayout(line.box);
    line.box->setSpacing(fontMetrics().averageCharWidth() / (IsTight() ? 3 : 2) + 1);
    line.gridColumn = 2 * (number / linesInColumn);
    const bool wide = SpansPage(row.kind) || row.captionAbove || (buttonsOnly_ && IsButton(row.kind));
    const int gridRow = number % linesInColumn;
    grid.addWidget(line.widget, gridRow, line.gridColumn + (wide ? 0 : 1), 1, wide ? 2 : 1);
    grid.setColumnStretch(line.gridColumn + 1, 1);
    lines_.push_back(line);
  }
  Line& line = lines_.back();
  Row made;
  made.row = &row;
  made.line = static_cast<int>(lines_.size()) - 1;
  if (!IsButton(row.kind) && !SpansPage(row.kind)) {
    QWidget* parent = joins ? line.widget : grid.parentWidget();
    made.caption = new PlainLabel({}, parent);
    hasCaptions_ = hasCaptions_ || !row.captionAbove;
    if (row.captionAbove) {
      line.column->insertWidget(0, made.caption);
    } else if (joins && line.rows.size() == 1) {
      line.before = new QSpacerItem(0, 0, QSizePolicy::Maximum);
      line.after = new QSpacerItem(0, 0, QSizePolicy::Maximum);
      line.box->addItem(line.before);
      line.box->addWidget(made.caption);
      line.box->addItem(line.after);
    } else if (joins) {
      line.box->addWidget(made.caption);
    } else {
      const Qt::Alignment up = row.kind == RowKind::kListBox ? Qt::AlignTop : Qt::Alignment();
      grid.addWidget(made.caption, (static_cast<int>(lines_.size()) - 1) % linesInColumn, line.gridColumn, up);
    }
  }
  if (row.control || row.kind == RowKind::kFixed) made.cell = AddCell(row, false, line);
  AddUnit(made, line);
  if (row.second) {
    if (!row.secondCaption.empty()) {
      made.secondCaption = new PlainLabel(ToQt(row.secondCaption), line.widget);
      line.box->addWidget(made.secondCaption);
    }
    made.second = AddCell(row, true, line);
  }
  line.changes = line.changes || (made.cell != nullptr && CanBeChanged(made.cell->Kind()));
  line.rows.push_back(rows_.size());
  rows_.push_back(made);
}

// Behind the last field that can be changed, where others follow it; else at the end.
int GroupView::PlaceOfWords(const Line& line) const {
  const QWidget* last = nullptr;
  for (const std::size_t i : line.rows) {
    const Row& made = rows_[i];
    if (made.cell == nullptr || !CanBeChanged(made.cell->Kind())) continue;
    if (made.row->role == RowRole::kAccessCode) continue;  // it has no state
    last = made.second != nullptr ? made.second->Widget() : made.cell->Widget();
    if (made.unit != nullptr && made.second == nullptr) last = made.unit;
  }
  const int at = last == nullptr ? -1 : line.box->indexOf(last);
  return at < 0 ? line.box->count() : at + 1;
}

void GroupView::Finish() {
  for (Line& line : lines_) {
    const bool page = std::any_of(line.rows.begin(), line.rows.end(), [&](std::size_t i) {
      return SpansPage(rows_[i].row->kind) || rows_[i].row->width == WidthClass::kPage;
    });
    line.words = new WordsLabel(line.widget);
    line.box->insertWidget(PlaceOfWords(line), line.words, page ? 0 : 1);
    for (const std::size_t i : line.rows) {
      for (FieldCell* cell : {rows_[i].cell, rows_[i].second}) {
        if (cell != nullptr) cell->SetWordsFit([words = line.words] { return words->Fits(); });
      }
    }
  }
  ControlSet all;
  all.set();
  Refresh(all);
}

// They give way before anything else does.
void GroupView::AlignJoined() {
  const auto widthsOf = [this](const Line& line) {
    const Row& first = rows_[line.rows[0]];
    int width = first.cell->Widget()->sizeHint().width() + (first.unit == nullptr ? 0 : line.box->spacing());
    if (first.cell->Slot() != nullptr) width += first.cell->Slot()->sizeHint().width();
    if (first.unit != nullptr) width += first.unit->sizeHint().width();
    return std::pair(width, rows_[line.rows[1]].caption->sizeHint().width());
  };
  std::pair<int, int> widest;
  for (const Line& line : lines_) {
    if (line.before == nullptr || line.widget->isHidden()) continue;
    const auto [first, caption] = widthsOf(line);
    widest = {std::max(widest.first, first), std::max(widest.second, caption)};
  }
  for (const Line& line : lines_) {
    if (line.before == nullptr || line.widget->isHidden()) continue;
    const auto [first, caption] = widthsOf(line);
    line.before->changeSize(widest.first - first, 0, QSizePolicy::Maximum);
    line.after->changeSize(widest.second - caption, 0, QSizePolicy::Maximum);
    line.box->invalidate();
  }
}

// ---- texts

QString GroupView::Caption() const { return ToQt(presentation::TitleOf(context_.control.form, group_)); }

QString GroupView::CaptionOf(const LayoutRow& row) const {
  return ToQt(presentation::CaptionOf(context_.control.form, row, false));
}

QString GroupView::UnitOf(const LayoutRow& row) const {
  return ToQt(row.unit.control ? context_.control.form.TextOf(row.unit.control) : row.unit.text);
}

// ---- taking from the form

void GroupView::Refresh(const ControlSet& changed) {
  for (Row& made : rows_) {
    const LayoutRow& row = *made.row;
    const bool touched = Touches(changed, row.control) || Touches(changed, row.second) ||
                         Touches(changed, row.captionControl) || Touches(changed, row.unit.control) ||
                         Touches(changed, group_.frame);
    if (!touched && !changed.all()) continue;
    RefreshRow(made);
  }
  for (const Line& line : lines_) {
    const bool shown =
        std::any_of(line.rows.begin(), line.rows.end(), [this](std::size_t i) { return Shows(rows_[i]); });
    line.widget->setVisible(shown);
    RefreshWords(line);
  }
  AlignJoined();
  if (box_ != nullptr) box_->setTitle(WithMnemonic(ToUtf8(Caption()), mnemonic_));
  if (openButtons_.size() > 1) {
    int widest = 0;
    for (const QPushButton* button : openButtons_) widest = std::max(widest, button->sizeHint().width());
    for (QPushButton* button : openButtons_) button->setMinimumWidth(widest);
  }
}

void GroupView::RefreshRow(Row& made) {
  const LayoutRow& row = *made.row;
  const QString caption = CaptionOf(row);
  const QString unit = UnitOf(row);
  const bool fits = presentation::IsShown(context_.control.form, group_, row);
  const bool shown = Shows(made);
  if (made.caption != nullptr) {
    made.caption->setText(caption);
    const bool own = !row.captionControl || context_.control.form.Any(row.captionControl).Visible();
    made.caption->setVisible(shown && own);
  }
  if (made.unit != nullptr) {
    made.unit->setText(unit);
    const bool placed = row.unit.control && !row.unit.echo;
    made.unit->setVisible(shown && (!placed || context_.control.form.Any(row.unit.control).Visible()));
  }
  if (made.cell != nullptr) {
    made.cell->SetCaption(caption);
    made.cell->Refresh();
    const bool visible = made.cell->Shows() && fits;
    made.cell->Widget()->setVisible(visible);
    if (made.cell->Slot() != nullptr) made.cell->Slot()->setVisible(visible);
  }
  if (made.second != nullptr) {
    made.second->SetCaption(ToQt(presentation::CaptionOf(context_.control.form, row, true)));
    made.second->Refresh();
    const bool visible = made.second->Shows() && fits;
    made.second->Widget()->setVisible(visible);
    made.second->Slot()->setVisible(visible);
    if (made.secondCaption != nullptr) made.secondCaption->setVisible(visible);
  }
}

bool GroupView::Shows(const Row& made) const {
  if (made.cell == nullptr) {
    const ControlId caption = made.row->captionControl;
    return !caption || context_.control.form.Any(caption).Visible();
  }
  if (!presentation::IsShown(context_.control.form, group_, *made.row)) return false;
  return made.cell->Shows() || (made.second != nullptr && made.second->Shows());
}

bool GroupView::Shows() const {
  if (group_.frame && !context_.control.form.Any(group_.frame).Visible()) return false;
  return rows_.empty() || std::any_of(rows_.begin(), rows_.end(), [this](const Row& row) { return Shows(row); });
}

int GroupView::TopOfFrame() const { return group_.frame ? context_.control.form.At(FrameId{group_.frame}).Top() : 0; }

void GroupView::RefreshStates() {
  for (FieldCell* cell : cells_) cell->RefreshState();
  for (const Line& line : lines_) RefreshWords(line);
}

void GroupView::RefreshWords(const Line& line) {
  std::vector<const presentation::ScreenRow*> fields;
  for (const std::size_t i : line.rows) {
    for (const FieldCell* cell : {rows_[i].cell, rows_[i].second}) {
      if (cell == nullptr || !cell->Shows() || !cell->Control()) continue;
      if (const presentation::ScreenRow* row = context_.presented.Row(cell->Control())) fields.push_back(row);
    }
  }
  line.words->SetWords(presentation::WordsOf(fields));
  const QString all = line.words->Words();
  // Long words begin right behind the unit, short ones below each other.
  for (const std::size_t i : line.rows) {
    if (rows_[i].unit != nullptr && rows_[i].second == nullptr)
      rows_[i].unit->SetClose(all.size() > presentation::kWordsCharacters);
  }
}

// ---- widths

// Its widest row, with room for the words of a state.
QSize GroupView::sizeHint() const {
  const int character = fontMetrics().averageCharWidth();
  int widest = 0;
  int widestWithWords = 0;
  for (const Line& line : lines_) {
    if (line.widget->isHidden()) continue;
    const int width = line.box->sizeHint().width();
    int words = line.words->sizeHint().width();
    if (group_.columns == 1 && line.changes) words = std::max(words, presentation::kWordsCharacters * character);
    widest = std::max(widest, width);
    widestWithWords = std::max(widestWithWords, width + words);
  }
  const QSize own = QWidget::sizeHint();
  return {own.width() + widestWithWords - widest, own.height()};
}

bool GroupView::Fills() const {
  return std::any_of(rows_.begin(), rows_.end(), [this](const Row& made) {
    return (made.row->kind == RowKind::kMsg || made.row->width == WidthClass::kPage) && Shows(made);
  });
}

// ---- captions in one line

int GroupView::CaptionWidth() const {
  int width = 0;
  for (const Row& made : rows_) {
    if (made.caption == nullptr || made.row->sameLine || made.row->captionAbove) continue;
    width = std::max(width, made.caption->sizeHint().width());
  }
  return width;
}

void GroupView::SetCaptionWidth(int width) { grid_->setColumnMinimumWidth(0, width); }

void GroupView::SetMnemonic(char letter) {
  mnemonic_ = letter;
  if (box_ != nullptr) box_->setTitle(WithMnemonic(ToUtf8(Caption()), mnemonic_));
}

void GroupView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::FontChange) return;
  Guarded([this] {
    for (FieldCell* cell : cells_) cell->FollowFont(font());
  });
}

}  // namespace htr60::desktop
