#include "desktop/docks/communication/communication_dock.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTableView>
#include <QTreeWidget>
#include <array>

#include "desktop/edge.h"
#include "desktop/figure/shapes.h"
#include "desktop/qt_text.h"

namespace htr60::desktop {
namespace {

using observe::EntryKind;
using observe::TrafficLine;

enum Column { kTime, kKind, kCode, kPage, kWords, kTook, kState };
constexpr std::array<const char*, 7> kHeads = {"Time", "Kind", "Code", "Page", "Content", "ms", "State"};
constexpr std::array<const char*, 7> kValueHeads = {"Name", "Value", "Unit", "Status", "Digits", "Tag", "Fault"};
// Of each column a text that it holds whole.
constexpr std::array<const char*, 7> kSamples = {"00:00:00.000", "\u2190 answer", "90000", "Analog Input 1, Scales", "",
                                                 "90000",        "no answer"};

QString KindText(EntryKind kind) {
  // The arrows tell the direction: to the device, from the device.
  switch (kind) {
    case EntryKind::kRead:
      return QStringLiteral("\u2192 read");
    case EntryKind::kWrite:
      return QStringLiteral("\u2192 write");
    case EntryKind::kAnswer:
      break;
  }
  return QStringLiteral("\u2190 answer");
}

}  // namespace

// ---- the model

int TrafficModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(list_.Rows());
}

int TrafficModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(kHeads.size());
}

QVariant TrafficModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return tr(kHeads.at(static_cast<std::size_t>(section)));
}

QVariant TrafficModel::data(const QModelIndex& index, int role) const {
  const auto row = static_cast<std::size_t>(index.row());
  if (!index.isValid() || row >= list_.Rows()) return {};
  const TrafficLine& line = list_.Row(row);
  if (role == Qt::TextAlignmentRole && (index.column() == kCode || index.column() == kTook)) {
    return QVariant(Qt::AlignRight | Qt::AlignVCenter);
  }
  if (role == Qt::FontRole && line.IsMarked()) {
    QFont bold;
    bold.setBold(true);
    return bold;
  }
  if (role == Qt::ForegroundRole && line.IsMarked()) return AlertColor(QApplication::palette());
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
  switch (index.column()) {
    case kTime:
      return ToQt(list_.Time(line.at));
    case kKind:
      return KindText(line.kind);
    case kCode:
      return QString::number(line.code);
    case kPage:
      return ToQt(line.page);
    case kWords:
      return ToQt(line.Words());
    case kTook:
      return line.took < 0 ? QString() : QString::number(line.took);
    default:
      return ToQt(observe::NameOf(line.state));
  }
}

// The list changes at once and tells what it did; a view wants to be told before. So it is told of a new beginning
// where rows have gone.
bool TrafficModel::Refresh() {
  const std::size_t before = list_.Rows();
  const observe::TrafficList::Change change = list_.Refresh();
  if (change.gone > 0) {
    beginResetModel();
    endResetModel();
  } else if (change.come > 0) {
    beginInsertRows({}, static_cast<int>(before), static_cast<int>(before + change.come) - 1);
    endInsertRows();
  }
  if (change.heads && list_.Rows() > 0) {
    Q_EMIT dataChanged(index(0, kTook), index(static_cast<int>(list_.Rows()) - 1, kState));
  }
  return change.gone + change.come > 0;
}

void TrafficModel::SetFilter(observe::TrafficFilter filter) {
  beginResetModel();
  list_.SetFilter(std::move(filter));
  endResetModel();
}

void TrafficModel::Clear() {
  beginResetModel();
  list_.Clear();
  endResetModel();
}

// ---- the dock

CommunicationDock::CommunicationDock(DockContext context, QWidget* parent)
    : QDockWidget(tr("Communication"), parent),
      context_(context),
      list_(context.host.Watched(), context.host.Control().codecs.DecimalSeparator(), ClockOf(context.host, true)) {
  setObjectName(QStringLiteral("communicationDock"));
  auto* all = new QWidget(this);
  auto* column = new QVBoxLayout(all);
  const int gap = fontMetrics().averageCharWidth();
  column->setContentsMargins(gap, gap / 2, gap, gap / 2);
  column->setSpacing(gap / 2);
  column->addWidget(MakeTools());
  MakeTables(*all);
  message_ = new DockMessage(all);
  column->addWidget(message_);
  setWidget(all);
}

QWidget* CommunicationDock::MakeTools() {
  auto* tools = new QWidget(this);
  auto* line = new QHBoxLayout(tools);
  line->setContentsMargins(0, 0, 0, 0);
  text_ = new QLineEdit(tools);
  text_->setObjectName(QStringLiteral("trafficText"));
  text_->setPlaceholderText(tr("Filter by text"));
  text_->setAccessibleName(tr("Filter by text"));
  text_->setClearButtonEnabled(true);
  kind_ = new QComboBox(tools);
  kind_->setObjectName(QStringLiteral("trafficKind"));
  kind_->addItems({tr("All kinds"), tr("Reads"), tr("Writes"), tr("Answers")});
  kind_->setAccessibleName(tr("Kind"));
  marked_ = new QCheckBox(tr("Marked only"), tools);
  marked_->setToolTip(tr("Failed, unanswered or unasked, and what cannot be read."));
  pause_ = new QPushButton(tr("Pause"), tools);
  pause_->setCheckable(true);
  pause_->setToolTip(tr("Holds the list. The recording goes on."));
  auto* copy = new QPushButton(tr("Copy"), tools);
  copy->setToolTip(tr("Copies the selected lines with their values, or all lines where none is selected."));
  auto* save = new QPushButton(tr("Save..."), tools);
  save->setToolTip(tr("Saves the lines shown as JSON Lines."));
  auto* clear = new QPushButton(tr("Clear"), tools);
  count_ = new QLabel(tools);
  line->addWidget(text_, 1);
  line->addWidget(kind_);
  line->addWidget(marked_);
  line->addWidget(pause_);
  line->addWidget(copy);
  line->addWidget(save);
  line->addWidget(clear);
  line->addWidget(count_);
  for (QPushButton* button : {pause_, copy, save, clear}) button->setAutoDefault(false);
  Connect(text_, &QLineEdit::textChanged, this, [this](const QString& /*text*/) { ApplyFilter(); });
  Connect(kind_, &QComboBox::currentIndexChanged, this, [this](int /*row*/) { ApplyFilter(); });
  Connect(marked_, &QCheckBox::toggled, this, [this](bool /*on*/) { ApplyFilter(); });
  Connect(pause_, &QPushButton::toggled, this, [this](bool held) {
    list_.Hold(held);
    Turn();
  });
  Connect(copy, &QPushButton::clicked, this, [this](bool /*checked*/) { Copy(); });
  Connect(clear, &QPushButton::clicked, this, [this](bool /*checked*/) {
    model_->Clear();
    Turn();
  });
  Connect(save, &QPushButton::clicked, this, [this](bool /*checked*/) {
    const QString file = AskForFile(this, context_, "traffic", "jsonl", tr("JSON Lines (*.jsonl)"));
    if (!file.isEmpty()) SaveTo(file);
  });
  return tools;
}

void CommunicationDock::MakeTables(QWidget& parent) {
  auto* split = new QSplitter(Qt::Vertical, &parent);
  const int character = fontMetrics().averageCharWidth();
  model_ = new TrafficModel(list_, this);
  table_ = new QTableView(split);
  table_->setObjectName(QStringLiteral("traffic"));
  table_->setAccessibleName(tr("Requests and answers"));
  table_->setModel(model_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setTabKeyNavigation(false);
  table_->setWordWrap(false);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
  table_->horizontalHeader()->setStretchLastSection(false);
  QFont bold = font();
  bold.setBold(true);  // what is marked needs more
  for (std::size_t i = 0; i < kSamples.size(); ++i) {
    const int wide = QFontMetrics(bold).horizontalAdvance(QString::fromUtf8(kSamples.at(i)));
    table_->setColumnWidth(static_cast<int>(i), wide + 2 * character);
  }
  table_->horizontalHeader()->setSectionResizeMode(kWords, QHeaderView::Stretch);
  values_ = new QTreeWidget(split);
  values_->setObjectName(QStringLiteral("trafficValues"));
  values_->setAccessibleName(tr("Values of the selected line, or of the last"));
  values_->setRootIsDecorated(false);
  QStringList heads;
  for (const char* head : kValueHeads) heads << tr(head);
  values_->setHeaderLabels(heads);
  split->addWidget(table_);
  split->addWidget(values_);
  split->setStretchFactor(0, 2);
  split->setStretchFactor(1, 1);
  static_cast<QVBoxLayout*>(parent.layout())->addWidget(split, 1);
  Connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& /*now*/, const QModelIndex& /*before*/) { ShowSelected(); });
  QScrollBar* bar = table_->verticalScrollBar();
  Connect(bar, &QScrollBar::actionTriggered, this,
          [this, bar](int /*action*/) { follows_ = bar->sliderPosition() == bar->maximum(); });
  Connect(bar, &QScrollBar::rangeChanged, this, [this](int /*least*/, int /*most*/) { Follow(); });
  auto* copy = new QShortcut(QKeySequence::Copy, table_, nullptr, nullptr, Qt::WidgetShortcut);
  Connect(copy, &QShortcut::activated, this, [this] { Copy(); });
}

void CommunicationDock::showEvent(QShowEvent* event) {
  QDockWidget::showEvent(event);
  Guarded([this] { Turn(); });
}

void CommunicationDock::Turn() {
  if (!isVisible()) return;
  const bool came = model_->Refresh();
  if (came) Follow();
  if (came && !table_->currentIndex().isValid()) ShowSelected();
  const QString shown = QString::number(list_.Rows());
  count_->setText(list_.Rows() == list_.All() ? tr("%1 lines").arg(shown)
                                              : tr("%1 of %2 lines").arg(shown).arg(list_.All()));
}

// The end of the list stays in sight until the operator looks at something else.
void CommunicationDock::Follow() {
  if (follows_ && !table_->currentIndex().isValid()) table_->scrollToBottom();
}

void CommunicationDock::ApplyFilter() {
  observe::TrafficFilter filter;
  filter.text = ToUtf8(text_->text());
  filter.markedOnly = marked_->isChecked();
  constexpr std::array kKinds = {EntryKind::kRead, EntryKind::kWrite, EntryKind::kAnswer};
  if (kind_->currentIndex() > 0) filter.kind = kKinds.at(static_cast<std::size_t>(kind_->currentIndex()) - 1);
  model_->SetFilter(std::move(filter));
  ShowSelected();
  Turn();
}

void CommunicationDock::ShowSelected() {
  values_->clear();
  if (list_.Rows() == 0) return;
  const bool chosen = table_->currentIndex().isValid();
  const auto row = chosen ? static_cast<std::size_t>(table_->currentIndex().row()) : list_.Rows() - 1;
  for (const observe::WireValue& value : list_.Row(row).values) {
    const auto cells = {value.name, value.value, value.unit, value.status, value.digits, value.tag, value.fault};
    QStringList texts;
    for (const std::string& cell : cells) texts << ToQt(cell);
    auto* item = new QTreeWidgetItem(values_, texts);
    for (int column = 0; column < texts.size(); ++column) item->setToolTip(column, texts.at(column));
    if (!value.fault.empty()) item->setForeground(0, AlertColor(palette()));
  }
  for (int column = 0; column + 1 < values_->columnCount(); ++column) {
    values_->resizeColumnToContents(column);
    values_->setColumnWidth(column, qMin(values_->columnWidth(column), 34 * fontMetrics().averageCharWidth()));
  }
}

void CommunicationDock::Copy() {
  std::vector<std::size_t> rows;
  for (const QModelIndex& index : table_->selectionModel()->selectedRows()) {
    rows.push_back(static_cast<std::size_t>(index.row()));
  }
  std::sort(rows.begin(), rows.end());
  if (rows.empty()) {
    for (std::size_t row = 0; row < list_.Rows(); ++row) rows.push_back(row);
  }
  QApplication::clipboard()->setText(ToQt(list_.AsText(rows)));
  message_->Say(tr("%1 lines copied.").arg(rows.size()));
}

void CommunicationDock::SaveTo(const QString& file) { SaveAndSay(file, list_.JsonLines(), *message_); }

}  // namespace htr60::desktop
