#include "desktop/docks/record/record_dock.h"

#include <QBoxLayout>
#include <QDoubleSpinBox>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QTableWidget>
#include <QTimer>
#include <algorithm>

#include "desktop/docks/record/record_pdf.h"
#include "desktop/edge.h"
#include "desktop/figure/figure_widget.h"
#include "desktop/qt_text.h"

namespace htr60::desktop {
namespace {

using observe::Record;

bool IsOperators(int column) { return column == Record::kRemark || column == Record::kOperator; }

}  // namespace

RecordDock::RecordDock(DockContext context, QWidget* parent)
    : QDockWidget(tr("Calibration Record"), parent),
      context_(context),
      record_(context.host.Watched(), context.host.Control().codecs.DecimalSeparator(), ClockOf(context.host, false)) {
  setObjectName(QStringLiteral("recordDock"));
  auto* all = new QWidget(this);
  auto* column = new QVBoxLayout(all);
  const int gap = fontMetrics().averageCharWidth();
  column->setContentsMargins(gap, gap / 2, gap, gap / 2);
  column->setSpacing(gap / 2);
  column->addWidget(MakeTools());
  MakeTable(*all);
  auto* scroll = new QScrollArea(all);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setFocusPolicy(Qt::NoFocus);
  auto* drawings = new QWidget(scroll);
  charts_ = new QVBoxLayout(drawings);
  charts_->setContentsMargins(0, 0, 0, 0);
  empty_ = new QLabel(tr("Nothing has been calibrated yet. What you calibrate is kept here by itself."), drawings);
  empty_->setWordWrap(true);
  empty_->setAlignment(Qt::AlignCenter);
  charts_->addWidget(empty_);
  scroll->setWidget(drawings);
  column->addWidget(scroll, 1);
  worst_ = new QLabel(all);
  worst_->setObjectName(QStringLiteral("worstErrors"));
  worst_->setAccessibleName(tr("Worst errors"));
  worst_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  worst_->hide();
  column->addWidget(worst_);
  message_ = new DockMessage(all);
  column->addWidget(message_);
  setWidget(all);
}

QWidget* RecordDock::MakeTools() {
  auto* tools = new QWidget(this);
  auto* line = new QHBoxLayout(tools);
  line->setContentsMargins(0, 0, 0, 0);
  name_ = new QLineEdit(tools);
  name_->setObjectName(QStringLiteral("operatorName"));
  name_->setAccessibleName(tr("Operator"));
  name_->setMaxLength(100);
  name_->setToolTip(tr("Who calibrates from now on. What has been done keeps the name it has."));
  tolerance_ = new QDoubleSpinBox(tools);
  tolerance_->setObjectName(QStringLiteral("tolerance"));
  tolerance_->setAccessibleName(tr("Tolerance in percent of span"));
  tolerance_->setRange(0, 100);
  tolerance_->setDecimals(3);
  tolerance_->setSingleStep(0.05);
  tolerance_->setSuffix(tr(" % of span"));
  tolerance_->setSpecialValueText(tr("none"));
  auto* save = new QPushButton(tr("Save..."), tools);
  save->setToolTip(tr("Saves the record as PDF, HTML or CSV."));
  auto* clear = new QPushButton(tr("Begin anew"), tools);
  clear->setToolTip(tr("Takes all steps away."));
  line->addWidget(new QLabel(tr("Operator"), tools));
  line->addWidget(name_, 1);
  line->addWidget(new QLabel(tr("Tolerance"), tools));
  line->addWidget(tolerance_);
  line->addWidget(save);
  line->addWidget(clear);
  for (QPushButton* button : {save, clear}) button->setAutoDefault(false);
  Connect(name_, &QLineEdit::editingFinished, this, [this] {
    TakeName();
    Turn();
  });
  Connect(tolerance_, &QDoubleSpinBox::valueChanged, this, [this](double percent) {
    record_.SetTolerance(percent > 0 ? std::optional(percent) : std::nullopt);
    Turn();
  });
  Connect(save, &QPushButton::clicked, this, [this](bool /*checked*/) {
    const QString file =
        AskForFile(this, context_, "calibration", "pdf", tr("Document (*.pdf);;Web page (*.html);;Table (*.csv)"));
    if (!file.isEmpty()) SaveTo(file);
  });
  Connect(clear, &QPushButton::clicked, this, [this](bool /*checked*/) {
    if (record_.Steps().empty()) return;
    const auto answer = QMessageBox::question(this, windowTitle(), tr("Take all steps of the record away?"),
                                              QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer == QMessageBox::Yes) record_.Clear();
    Turn();
  });
  return tools;
}

void RecordDock::MakeTable(QWidget& parent) {
  table_ = new QTableWidget(0, static_cast<int>(Record::kColumns), &parent);
  table_->setObjectName(QStringLiteral("recordSteps"));
  table_->setAccessibleName(tr("Steps of the calibration"));
  QStringList heads;
  for (const std::string_view head : Record::Heads()) heads << ToQt(head);
  table_->setHorizontalHeaderLabels(heads);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  table_->setTabKeyNavigation(false);
  for (int column = 0; column < table_->columnCount(); ++column) {
    const bool wide = column == Record::kStep || column == Record::kRemark;
    table_->horizontalHeader()->setSectionResizeMode(column,
                                                     wide ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
  }
  table_->setMinimumHeight(HeightOf(2));
  static_cast<QVBoxLayout*>(parent.layout())->addWidget(table_, 1);
  Connect(table_, &QTableWidget::itemChanged, this, [this](QTableWidgetItem* item) {
    if (showing_) return;
    const auto step = static_cast<std::size_t>(item->row());
    if (item->column() == Record::kRemark) record_.SetRemark(step, ToUtf8(item->text()));
    if (item->column() == Record::kOperator) record_.SetOperatorOf(step, ToUtf8(item->text()));
    QTimer::singleShot(0, this, [this] { Guarded([this] { Turn(); }); });
  });
}

void RecordDock::showEvent(QShowEvent* event) {
  QDockWidget::showEvent(event);
  Guarded([this] { Turn(); });
}

void RecordDock::Turn() {
  if (!isVisible() || shown_ == record_.Revision()) return;
  shown_ = record_.Revision();
  showing_ = true;
  Show();
  showing_ = false;
  ShowCharts();
}

int RecordDock::HeightOf(int steps) const {
  return table_->horizontalHeader()->sizeHint().height() + 2 * table_->frameWidth() +
         steps * table_->verticalHeader()->defaultSectionSize();
}

void RecordDock::TakeName() { record_.SetOperator(ToUtf8(name_->text().trimmed())); }

void RecordDock::Show() {
  table_->setColumnHidden(Record::kOperator, record_.ColumnsShown() <= Record::kOperator);
  table_->setRowCount(static_cast<int>(record_.Steps().size()));
  // Where there are few, the drawing has the room.
  table_->setMaximumHeight(HeightOf(std::max(2, table_->rowCount())));
  for (std::size_t step = 0; step < record_.Steps().size(); ++step) {
    const auto cells = record_.Cells(step);
    for (std::size_t column = 0; column < cells.size(); ++column) {
      const int row = static_cast<int>(step);
      const int at = static_cast<int>(column);
      QTableWidgetItem* item = table_->item(row, at);
      if (item == nullptr) {
        item = new QTableWidgetItem;
        if (!IsOperators(at)) item->setFlags(item->flags() & ~Qt::ItemIsEditable);
        table_->setItem(row, at, item);
      }
      const QString text = ToQt(cells[column]);
      if (item->text() != text) item->setText(text);
      if (Record::IsNumber(column)) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
  }
}

void RecordDock::ShowCharts() {
  std::vector<observe::RecordChart> charts = record_.Charts();
  empty_->setVisible(record_.Steps().empty());
  while (figures_.size() > charts.size()) {
    delete figures_.back();
    figures_.pop_back();
  }
  while (figures_.size() < charts.size()) {
    figures_.push_back(new FigureWidget(true, this));
    charts_->addWidget(figures_.back(), 1);
  }
  for (std::size_t i = 0; i < charts.size(); ++i) figures_[i]->Show(std::move(charts[i].figure));
  QStringList worst;
  for (const std::string& line : record_.Worst()) worst << ToQt(line) + QLatin1Char('.');
  worst_->setText(worst.join(u'\n'));
  worst_->setVisible(!worst.isEmpty());
}

observe::RecordHead RecordDock::Head() const {
  const auto& screen = context_.presented.Shown();
  const auto part = [&](std::size_t i) { return i < screen.identity.size() ? screen.identity[i] : std::string(); };
  const QDateTime now = context_.host.Time().Start().addMSecs(context_.host.Time().Now());
  return {.tag = part(0),
          .manufacturer = part(1),
          .serialNumber = part(2),
          .firmware = part(3),
          .measurement = part(4),
          .simulated = screen.badges.empty() ? context_.host.Simulated() : screen.badges.front(),
          .date = ToUtf8(now.toString(QStringLiteral("yyyy-MM-dd HH:mm")))};
}

void RecordDock::SaveTo(const QString& file) {
  TakeName();
  const QString ending = QFileInfo(file).suffix().toLower();
  if (ending == QLatin1String("html")) return SaveAndSay(file, record_.Html(Head()), *message_);
  if (ending == QLatin1String("csv")) return SaveAndSay(file, record_.Csv(Head()), *message_);
  const QByteArray pdf = RecordPdf(record_, Head());
  SaveAndSay(file, {pdf.constData(), static_cast<std::size_t>(pdf.size())}, *message_);
}

}  // namespace htr60::desktop
