#include "desktop/docks/trend/trend_dock.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QStyleOptionFocusRect>
#include <QTableWidget>
#include <algorithm>
#include <array>

#include "desktop/edge.h"
#include "desktop/figure/figure_widget.h"
#include "desktop/figure/tones.h"
#include "desktop/qt_text.h"

namespace htr60::desktop {
namespace {

using observe::Trend;

enum Column { kName, kValue, kUnit, kStatus, kState };
constexpr std::array<const char*, 5> kHeads = {"Field", "Value", "Unit", "Status", "State"};
constexpr int kSecond = 1000;

Trend::Surroundings SurroundingsOf(DesktopHost& host) {
  const QDateTime start = host.Time().Start();
  return {.timeOfDay = ClockOf(host, false), .timeStamp = [start](std::int64_t at) {
            return ToUtf8(start.addMSecs(at).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz")));
          }};
}

/// The line of a curve as the drawing has it.
QIcon Swatch(const QWidget& widget, std::size_t series) {
  const int side = widget.fontMetrics().height();
  QPixmap picture(2 * side, side);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setPen(SeriesPen(widget.palette(), series, 2));
  painter.drawLine(0, side / 2, 2 * side, side / 2);
  return QIcon(picture);
}

}  // namespace

// ---- the drawings

TrendPlots::TrendPlots(Trend& trend, QWidget* parent)
    : QWidget(parent), trend_(trend), column_(new QVBoxLayout(this)), empty_(new QLabel(this)) {
  setObjectName(QStringLiteral("trendPlots"));
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(tr("Trend"));
  setAccessibleDescription(tr("Left and Right move the cursor from value to value, Escape takes it away."));
  column_->setContentsMargins(2, 2, 2, 2);
  empty_->setText(tr("Nothing is followed. Choose \"Add to trend\" in the menu of a live value on a page."));
  empty_->setWordWrap(true);
  empty_->setAlignment(Qt::AlignCenter);
  column_->addWidget(empty_);
}

void TrendPlots::Refresh() {
  std::vector<observe::TrendPlot> plots = trend_.Plots();
  while (figures_.size() > plots.size()) {
    delete figures_.back();
    figures_.pop_back();
  }
  while (figures_.size() < plots.size()) {
    auto* figure = new FigureWidget(true, this);
    figure->setMouseTracking(true);
    figure->installEventFilter(this);
    column_->addWidget(figure, 1);
    figures_.push_back(figure);
  }
  double numbers = 0;
  for (std::size_t i = 0; i < plots.size(); ++i) {
    figures_[i]->Show(std::move(plots[i].figure));
    numbers = std::max(numbers, figures_[i]->WidthOfNumbers());
  }
  // One time stands at one place in all of them.
  for (FigureWidget* figure : figures_) figure->SetWidthOfNumbers(numbers);
  empty_->setVisible(plots.empty());
  if (plots.empty() && !trend_.Fields().empty()) {
    empty_->setText(tr("No value has come in this time."));
  } else if (plots.empty()) {
    empty_->setText(tr("Nothing is followed. Choose \"Add to trend\" in the menu of a live value on a page."));
  }
}

void TrendPlots::MoveTo(std::optional<std::int64_t> at) {
  if (at) at = std::clamp(*at, trend_.From(), trend_.To());
  if (at == trend_.Cursor()) return;
  trend_.SetCursor(at);
  Q_EMIT CursorMoved();
}

bool TrendPlots::eventFilter(QObject* watched, QEvent* event) {
  Guarded([&] {
    const auto* figure = qobject_cast<FigureWidget*>(watched);
    if (figure == nullptr) return;
    if (event->type() == QEvent::MouseMove) {
      MoveTo(std::llround(figure->At(static_cast<QMouseEvent*>(event)->position()).x));
    } else if (event->type() == QEvent::Leave && !hasFocus()) {
      MoveTo(std::nullopt);
    }
  });
  return QWidget::eventFilter(watched, event);
}

bool TrendPlots::Key(int key) {
  switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right:
      trend_.StepCursor(key == Qt::Key_Left ? -1 : 1);
      Q_EMIT CursorMoved();
      return true;
    case Qt::Key_Home:
      MoveTo(trend_.From());
      return true;
    case Qt::Key_End:
      MoveTo(trend_.To());
      return true;
    case Qt::Key_Escape:
      MoveTo(std::nullopt);
      return true;
    default:
      return false;
  }
}

void TrendPlots::keyPressEvent(QKeyEvent* event) {
  if (!GuardedTakes([&] { return Key(event->key()); })) QWidget::keyPressEvent(event);
}

void TrendPlots::paintEvent(QPaintEvent* event) {
  QWidget::paintEvent(event);
  if (!hasFocus()) return;
  Guarded([this] {
    QPainter painter(this);
    QStyleOptionFocusRect frame;
    frame.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, this);
  });
}

// ---- the dock

TrendDock::TrendDock(DockContext context, QWidget* parent)
    : QDockWidget(tr("Trend"), parent),
      context_(context),
      trend_(context.host.Control(), context.host.Watched(), SurroundingsOf(context.host)) {
  setObjectName(QStringLiteral("trendDock"));
  auto* all = new QWidget(this);
  auto* column = new QVBoxLayout(all);
  const int gap = fontMetrics().averageCharWidth();
  column->setContentsMargins(gap, gap / 2, gap, gap / 2);
  column->setSpacing(gap / 2);
  column->addWidget(MakeTools());
  auto* scroll = new QScrollArea(all);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setFocusPolicy(Qt::NoFocus);
  plots_ = new TrendPlots(trend_, scroll);
  scroll->setWidget(plots_);
  column->addWidget(scroll, 1);
  MakeTable(*all);
  message_ = new DockMessage(all);
  column->addWidget(message_);
  setWidget(all);
  context_.presented.AddToMenus([this](ControlId field) { return Offer(field); });
  Connect(plots_, &TrendPlots::CursorMoved, this, [this] { Refresh(); });
  second_.setInterval(kSecond);
  Connect(&second_, &QTimer::timeout, this, [this] { Turn(); });
}

TrendDock::~TrendDock() { context_.presented.AddToMenus(nullptr); }

QWidget* TrendDock::MakeTools() {
  auto* tools = new QWidget(this);
  auto* line = new QHBoxLayout(tools);
  line->setContentsMargins(0, 0, 0, 0);
  window_ = new QComboBox(tools);
  window_->setObjectName(QStringLiteral("trendWindow"));
  window_->setAccessibleName(tr("Time shown"));
  for (const int minutes : Trend::kWindows) {
    window_->addItem(tr("%n min", nullptr, minutes).replace(QStringLiteral("%n"), QString::number(minutes)), minutes);
    if (minutes == trend_.Window()) window_->setCurrentIndex(window_->count() - 1);
  }
  pause_ = new QPushButton(tr("Pause"), tools);
  pause_->setCheckable(true);
  pause_->setToolTip(tr("Holds the drawing. The fields go on."));
  remove_ = new QPushButton(tr("Remove"), tools);
  remove_->setToolTip(tr("Takes the selected field from the trend."));
  auto* save = new QPushButton(tr("Save..."), tools);
  save->setToolTip(tr("Saves what is seen as a table."));
  at_ = new QLabel(tools);
  at_->setAccessibleName(tr("Cursor"));
  line->addWidget(window_);
  line->addWidget(pause_);
  line->addWidget(remove_);
  line->addWidget(save);
  line->addStretch(1);
  line->addWidget(at_);
  for (QPushButton* button : {pause_, remove_, save}) button->setAutoDefault(false);
  Connect(window_, &QComboBox::currentIndexChanged, this, [this](int /*row*/) {
    trend_.SetWindow(window_->currentData().toInt());
    Refresh();
  });
  Connect(pause_, &QPushButton::toggled, this, [this](bool held) {
    trend_.Hold(held);
    Refresh();
  });
  Connect(remove_, &QPushButton::clicked, this, [this](bool /*checked*/) {
    if (fields_->currentRow() >= 0) trend_.RemoveAt(static_cast<std::size_t>(fields_->currentRow()));
    Refresh();
  });
  Connect(save, &QPushButton::clicked, this, [this](bool /*checked*/) {
    const QString file = AskForFile(this, context_, "trend", "csv", tr("Table (*.csv)"));
    if (!file.isEmpty()) SaveTo(file);
  });
  return tools;
}

void TrendDock::MakeTable(QWidget& parent) {
  fields_ = new QTableWidget(0, static_cast<int>(kHeads.size()), &parent);
  fields_->setObjectName(QStringLiteral("trendFields"));
  fields_->setAccessibleName(tr("Fields followed"));
  QStringList heads;
  for (const char* head : kHeads) heads << tr(head);
  fields_->setHorizontalHeaderLabels(heads);
  fields_->verticalHeader()->hide();
  const int line = fontMetrics().height() + 4;
  fields_->verticalHeader()->setDefaultSectionSize(line);
  fields_->setSelectionBehavior(QAbstractItemView::SelectRows);
  fields_->setSelectionMode(QAbstractItemView::SingleSelection);
  fields_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  fields_->setTabKeyNavigation(false);
  fields_->setIconSize({2 * fontMetrics().height(), fontMetrics().height()});
  fields_->horizontalHeader()->setSectionResizeMode(kName, QHeaderView::Stretch);
  fields_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  static_cast<QVBoxLayout*>(parent.layout())->addWidget(fields_);
}

// What the menu of a field offers.
std::vector<presentation::FieldAddition> TrendDock::Offer(ControlId field) {
  switch (trend_.Offers(field)) {
    case Trend::Offer::kAdd:
      return {{"Add to trend", true, [this, field] {
                 trend_.Add(field);
                 show();
                 raise();
                 Refresh();
               }}};
    case Trend::Offer::kFull:
      return {{"Add to trend (four fields are there)", false, {}}};
    case Trend::Offer::kRemove:
      return {{"Remove from trend", true, [this, field] {
                 trend_.Remove(field);
                 Refresh();
               }}};
    case Trend::Offer::kNone:
      break;
  }
  return {};
}

void TrendDock::showEvent(QShowEvent* event) {
  QDockWidget::showEvent(event);
  Guarded([this] {
    second_.start();
    Refresh();
  });
}

void TrendDock::hideEvent(QHideEvent* event) {
  QDockWidget::hideEvent(event);
  second_.stop();
}

// The drawing goes on with the time, a second at a time; it is drawn anew where there is something to be seen.
void TrendDock::Turn() {
  if (!isVisible()) return;
  const bool later = trend_.To() / kSecond != shownAt_ / kSecond;
  if (shown_ != trend_.Revision() || (later && !trend_.Fields().empty())) Refresh();
}

void TrendDock::Refresh() {
  shown_ = trend_.Revision();
  shownAt_ = trend_.To();
  if (!isVisible()) return;
  plots_->Refresh();
  ShowFields();
}

void TrendDock::ShowFields() {
  const auto& fields = trend_.Fields();
  fields_->setRowCount(static_cast<int>(fields.size()));
  fields_->setFixedHeight(fields_->horizontalHeader()->sizeHint().height() + 2 * fields_->frameWidth() +
                          std::max(1, fields_->rowCount()) * fields_->verticalHeader()->defaultSectionSize());
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const auto reading = trend_.Reading(fields[i]);
    const observe::TrendReading none;
    const observe::TrendReading& shown = reading ? *reading : none;
    const std::string_view state = observe::NameOf(trend_.StateOf(fields[i]));
    const std::array<QString, 5> texts = {ToQt(fields[i].name), ToQt(shown.value), ToQt(shown.unit), ToQt(shown.status),
                                          ToQt(state)};
    for (std::size_t column = 0; column < texts.size(); ++column) {
      const int row = static_cast<int>(i);
      QTableWidgetItem* item = fields_->item(row, static_cast<int>(column));
      if (item == nullptr) {
        item = new QTableWidgetItem;
        fields_->setItem(row, static_cast<int>(column), item);
      }
      if (item->text() != texts.at(column)) item->setText(texts.at(column));
      if (column == kValue) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      if (column == kName) item->setIcon(Swatch(*fields_, i));
    }
  }
  const auto cursor = trend_.Cursor();
  const auto time = ClockOf(context_.host, false);
  at_->setText(cursor ? tr("Values at %1").arg(ToQt(time(*cursor)))
                      : (trend_.Held() ? tr("Held at %1").arg(ToQt(time(trend_.To()))) : tr("Values now")));
  remove_->setEnabled(!fields.empty());
}

void TrendDock::SaveTo(const QString& file) { SaveAndSay(file, trend_.Csv(), *message_); }

}  // namespace htr60::desktop
