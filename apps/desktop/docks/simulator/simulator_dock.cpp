#include "desktop/docks/simulator/simulator_dock.h"

#include <QAction>
#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QSlider>
#include <QSpinBox>
#include <algorithm>
#include <cmath>

#include "desktop/edge.h"
#include "desktop/qt_text.h"

namespace htr60::desktop {
namespace {

using observe::ProcessRow;

constexpr int kSteps = 1000;  // of a slider
constexpr int kSecond = 1000;

QWidget* Group(const QString& title, QWidget& parent) {
  auto* group = new QGroupBox(title, &parent);
  QFont bold = parent.font();
  bold.setBold(true);
  group->setFont(bold);
  return group;
}

// The title of a group is bold, what stands in it is not.
template <class Widget>
Widget* Plain(Widget* widget, const QWidget& from) {
  QFont font = from.font();
  font.setBold(false);
  widget->setFont(font);
  return widget;
}

QSpinBox* Number(QWidget& parent, int most, const QString& suffix, const QString& zero, const QString& name) {
  auto* box = new QSpinBox(&parent);
  box->setRange(0, most);
  box->setSuffix(suffix);
  box->setSpecialValueText(zero);
  box->setAccessibleName(name);
  return box;
}

}  // namespace

SimulatorDock::SimulatorDock(DockContext context, QWidget* parent)
    : QDockWidget(tr("Simulator"), parent), context_(context), panel_(context.host.Transmitter()) {
  setObjectName(QStringLiteral("simulatorDock"));
  auto* scroll = new QScrollArea(this);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  auto* all = new QWidget(scroll);
  auto* column = new QVBoxLayout(all);
  const int gap = fontMetrics().averageCharWidth();
  column->setContentsMargins(gap, gap / 2, gap, gap / 2);
  column->setSpacing(gap);
  column->addWidget(MakeProcess(*all));
  column->addWidget(MakeRamp(*all));
  column->addWidget(MakeFaults(*all));
  column->addWidget(MakePresent(*all));
  column->addWidget(MakeLink(*all));
  message_ = new DockMessage(all);
  column->addWidget(message_);
  column->addStretch(1);
  scroll->setWidget(all);
  // What stands in it needs that, and the scroll bar beside it.
  scroll->setMinimumWidth(all->minimumSizeHint().width() + 3 * gap);
  setWidget(scroll);
  second_.setInterval(kSecond);
  Connect(&second_, &QTimer::timeout, this, [this] { Turn(); });
  ShowKind();
}

// ---- process

QWidget* SimulatorDock::MakeProcess(QWidget& parent) {
  QWidget* group = Group(tr("Process"), parent);
  new QGridLayout(group);
  for (const ProcessRow& row : observe::ProcessRows()) AddRow(row, *group);
  return group;
}

void SimulatorDock::AddRow(const ProcessRow& row, QWidget& group) {
  auto* grid = static_cast<QGridLayout*>(group.layout());
  const QString caption = ToQt(row.caption);
  Row made;
  made.row = &row;
  made.caption = Plain(new QLabel(caption, &group), *this);
  made.number = Plain(new QDoubleSpinBox(&group), *this);
  made.number->setDecimals(row.decimals);
  made.number->setRange(row.least, row.most);
  made.number->setKeyboardTracking(false);
  made.number->setAccessibleName(caption + QStringLiteral(", ") + ToQt(row.unit));
  made.number->setAccessibleDescription(ToQt(row.note));
  made.number->setToolTip(ToQt(row.note));
  made.number->setObjectName(ToQt(row.member));
  made.unit = Plain(new QLabel(ToQt(row.unit), &group), *this);
  made.slider = new QSlider(Qt::Horizontal, &group);
  made.slider->setRange(0, kSteps);
  made.slider->setPageStep(kSteps / 20);
  made.slider->setAccessibleName(made.number->accessibleName());
  made.slider->setToolTip(ToQt(row.note));
  const double from = panel_.SliderFrom(row);
  const double to = panel_.SliderTo(row);
  made.number->setSingleStep((to - from) / 200);
  const int line = grid->rowCount();
  grid->addWidget(made.caption, line, 0);
  grid->addWidget(made.slider, line, 1);
  grid->addWidget(made.number, line, 2);
  grid->addWidget(made.unit, line, 3);
  grid->setColumnStretch(1, 1);
  rows_.push_back(made);
  const std::size_t index = rows_.size() - 1;
  Connect(made.number, &QDoubleSpinBox::valueChanged, this,
          [this, index](double value) { SetNumber(rows_[index], value); });
  Connect(made.slider, &QSlider::valueChanged, this, [this, index, from, to](int step) {
    if (!showing_) SetNumber(rows_[index], from + (to - from) * step / kSteps);
  });
}

void SimulatorDock::SetNumber(const Row& row, double value) {
  if (showing_) return;
  panel_.Set(*row.row, value);
  Acted();
}

QWidget* SimulatorDock::MakeRamp(QWidget& parent) {
  QWidget* group = Group(tr("Profile"), parent);
  auto* lines = new QVBoxLayout(group);
  auto* what = new QHBoxLayout;
  auto* line = new QHBoxLayout;
  lines->addLayout(what);
  lines->addLayout(line);
  rampRow_ = Plain(new QComboBox(group), *this);
  rampRow_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  rampRow_->setMinimumContentsLength(12);
  rampRow_->setAccessibleName(tr("Quantity of the ramp"));
  for (const ProcessRow& row : observe::ProcessRows()) rampRow_->addItem(ToQt(row.caption));
  rampTarget_ = Plain(new QDoubleSpinBox(group), *this);
  rampTarget_->setObjectName(QStringLiteral("rampTarget"));
  rampTarget_->setRange(-100'000, 100'000);
  rampTarget_->setDecimals(3);
  rampTarget_->setAccessibleName(tr("Target of the ramp"));
  rampSeconds_ = Plain(new QSpinBox(group), *this);
  rampSeconds_->setObjectName(QStringLiteral("rampSeconds"));
  rampSeconds_->setRange(0, 86'400);
  rampSeconds_->setValue(60);
  rampSeconds_->setSuffix(tr(" s"));
  rampSeconds_->setAccessibleName(tr("Duration of the ramp"));
  auto* start = Plain(new QPushButton(tr("Start"), group), *this);
  start->setToolTip(tr("Goes there in a straight line, in place of a profile that runs."));
  rampStop_ = Plain(new QPushButton(tr("Stop"), group), *this);
  rampStop_->setToolTip(tr("Ends the profile: the process stays as it is now."));
  what->addWidget(rampRow_, 1);
  what->addWidget(Plain(new QLabel(tr("to"), group), *this));
  what->addWidget(rampTarget_);
  line->addWidget(Plain(new QLabel(tr("in"), group), *this));
  line->addWidget(rampSeconds_, 1);
  line->addWidget(start);
  line->addWidget(rampStop_);
  for (QPushButton* button : {start, rampStop_}) button->setAutoDefault(false);
  Connect(start, &QPushButton::clicked, this, [this](bool /*checked*/) {
    const ProcessRow& row = observe::ProcessRows()[static_cast<std::size_t>(rampRow_->currentIndex())];
    panel_.Ramp(row, rampTarget_->value(), rampSeconds_->value());
    Acted();
  });
  Connect(rampStop_, &QPushButton::clicked, this, [this](bool /*checked*/) {
    panel_.StopProfile();
    Acted();
  });
  return group;
}

// ---- faults

QWidget* SimulatorDock::MakeFaults(QWidget& parent) {
  QWidget* group = Group(tr("Begin a fault"), parent);
  auto* column = new QVBoxLayout(group);
  auto* line = new QHBoxLayout;
  kind_ = Plain(new QComboBox(group), *this);
  kind_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  kind_->setObjectName(QStringLiteral("faultKind"));
  kind_->setAccessibleName(tr("Kind of fault"));
  for (const sim::FaultKindRow& kind : sim::FaultKinds()) {
    kind_->addItem(ToQt(kind.name));
    kind_->setItemData(kind_->count() - 1, ToQt(kind.sentence), Qt::ToolTipRole);
  }
  auto* begin = Plain(new QPushButton(tr("Begin"), group), *this);
  begin->setObjectName(QStringLiteral("beginFault"));
  begin->setAutoDefault(false);
  line->addWidget(kind_, 1);
  line->addWidget(begin);
  sentence_ = Plain(new QLabel(group), *this);
  sentence_->setWordWrap(true);
  sentence_->setMinimumHeight(2 * fontMetrics().lineSpacing());
  sentence_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  column->addLayout(line);
  column->addWidget(sentence_);
  MakeOptions(*group);
  Connect(kind_, &QComboBox::currentIndexChanged, this, [this](int /*row*/) { ShowKind(); });
  Connect(begin, &QPushButton::clicked, this, [this](bool /*checked*/) { BeginFault(); });
  return group;
}

void SimulatorDock::MakeOptions(QWidget& group) {
  auto* grid = new QGridLayout;
  codes_ = new QLineEdit(&group);
  codes_->setPlaceholderText(tr("all"));
  codes_->setAccessibleName(tr("Codes"));
  codes_->setToolTip(tr("Codes of the requests that it touches, for example 5, 45. Empty: all."));
  tags_ = new QLineEdit(&group);
  tags_->setPlaceholderText(tr("all"));
  tags_->setAccessibleName(tr("Tags"));
  tags_->setToolTip(tr("Tags that it touches, for example TRDOutUnit. Empty: all."));
  sensor_ = new QComboBox(&group);
  sensor_->addItems({tr("both"), tr("1"), tr("2")});
  sensor_->setAccessibleName(tr("Sensor"));
  milliseconds_ = Number(group, 3'600'000, tr(" ms"), tr("as usual"), tr("Delay"));
  count_ = Number(group, 1'000'000, tr(" times"), tr("no end"), tr("How often"));
  seconds_ = Number(group, 86'400, tr(" s"), tr("until ended"), tr("How long"));
  const std::pair<const char*, QWidget*> kOptions[] = {{"Codes", codes_},     {"Tags", tags_},
                                                       {"Sensor", sensor_},   {"Delay", milliseconds_},
                                                       {"How often", count_}, {"How long", seconds_}};
  int at = 0;
  for (const auto& [caption, widget] : kOptions) {
    auto* label = Plain(new QLabel(tr(caption), &group), *this);
    label->setBuddy(widget);
    grid->addWidget(label, at / 2, at % 2 * 2);
    grid->addWidget(Plain(widget, *this), at / 2, at % 2 * 2 + 1);
    ++at;
  }
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 1);
  static_cast<QVBoxLayout*>(group.layout())->addLayout(grid);
}

// What the kind has no use for is disabled.
void SimulatorDock::ShowKind() {
  const sim::FaultKindRow& kind = sim::FaultKinds()[static_cast<std::size_t>(kind_->currentIndex())];
  sentence_->setText(ToQt(kind.sentence));
  kind_->setAccessibleDescription(ToQt(kind.sentence));
  codes_->setEnabled(kind.codes);
  tags_->setEnabled(kind.tags);
  sensor_->setEnabled(kind.sensor);
  milliseconds_->setEnabled(kind.ms);
  count_->setEnabled(kind.count);
}

void SimulatorDock::BeginFault() {
  observe::FaultWish wish;
  wish.kind = static_cast<std::size_t>(kind_->currentIndex());
  wish.codes = ToUtf8(codes_->text());
  wish.tags = ToUtf8(tags_->text());
  wish.sensor = sensor_->currentIndex();
  wish.milliseconds = milliseconds_->value();
  wish.count = count_->value();
  wish.seconds = seconds_->value();
  message_->Say(ToQt(panel_.Begin(wish)));
  Acted();
}

QWidget* SimulatorDock::MakePresent(QWidget& parent) {
  QWidget* group = Group(tr("Faults that act"), parent);
  auto* line = new QHBoxLayout(group);
  present_ = Plain(new QListWidget(group), *this);
  present_->setObjectName(QStringLiteral("presentFaults"));
  present_->setAccessibleName(tr("Faults that act"));
  present_->setFixedHeight(4 * (fontMetrics().height() + 4));
  end_ = Plain(new QPushButton(tr("End"), group), *this);
  endAll_ = Plain(new QPushButton(tr("End all"), group), *this);
  auto* buttons = new QVBoxLayout;
  for (QPushButton* button : {end_, endAll_}) {
    button->setAutoDefault(false);
    buttons->addWidget(button);
  }
  buttons->addStretch(1);
  line->addWidget(present_, 1);
  line->addLayout(buttons);
  Connect(end_, &QPushButton::clicked, this, [this](bool /*checked*/) { EndFault(); });
  Connect(endAll_, &QPushButton::clicked, this, [this](bool /*checked*/) {
    panel_.EndAll();
    Acted();
  });
  return group;
}

void SimulatorDock::EndFault() {
  const QListWidgetItem* item = present_->currentItem();
  if (item == nullptr && present_->count() > 0) item = present_->item(0);
  if (item == nullptr) return;
  panel_.End(item->data(Qt::UserRole).toInt());
  Acted();
}

// ---- link and ready-made settings

QWidget* SimulatorDock::MakeLink(QWidget& parent) {
  QWidget* group = Group(tr("Link and transmitter"), parent);
  auto* column = new QVBoxLayout(group);
  link_ = Plain(new QCheckBox(tr("Link off"), group), *this);
  link_->setObjectName(QStringLiteral("linkOff"));
  preset_ = Plain(new QComboBox(group), *this);
  preset_->setObjectName(QStringLiteral("preset"));
  preset_->setAccessibleName(tr("Ready-made settings"));
  for (const std::string_view name : sim::PresetNames()) preset_->addItem(ToQt(name));
  auto* start = Plain(new QPushButton(tr("Start anew"), group), *this);
  start->setAutoDefault(false);
  start->setToolTip(tr("Another transmitter takes the place of this one."));
  presetSentence_ = Plain(new QLabel(group), *this);
  presetSentence_->setWordWrap(true);
  presetSentence_->setMinimumHeight(2 * fontMetrics().lineSpacing());
  presetSentence_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  auto* line = new QHBoxLayout;
  line->addWidget(preset_, 1);
  line->addWidget(start);
  column->addWidget(link_);
  column->addLayout(line);
  column->addWidget(presetSentence_);
  const auto say = [this](int /*row*/) {
    presetSentence_->setText(ToQt(sim::PresetSentence(ToUtf8(preset_->currentText()))));
    preset_->setAccessibleDescription(presetSentence_->text());
  };
  say(0);
  Connect(preset_, &QComboBox::currentIndexChanged, this, say);
  Connect(start, &QPushButton::clicked, this,
          [this](bool /*checked*/) { Q_EMIT TransmitterWanted(preset_->currentText()); });
  return group;
}

void SimulatorDock::UseLink(QAction& offline) {
  Connect(link_, &QCheckBox::toggled, &offline, [&offline](bool off) { offline.setChecked(off); });
  Connect(&offline, &QAction::toggled, link_, [this](bool off) {
    link_->setChecked(off);
    Acted();
  });
}

// ---- what is shown

void SimulatorDock::showEvent(QShowEvent* event) {
  QDockWidget::showEvent(event);
  Guarded([this] {
    second_.start();
    Turn();
  });
}

void SimulatorDock::hideEvent(QHideEvent* event) {
  QDockWidget::hideEvent(event);
  second_.stop();
}

// A profile moves the numbers, and faults end by themselves.
void SimulatorDock::Turn() {
  if (!isVisible()) return;
  ShowProcess();
  ShowFaults();
}

void SimulatorDock::Acted() {
  context_.host.WantTurn();
  Turn();
}

void SimulatorDock::ShowProcess() {
  showing_ = true;
  for (const Row& row : rows_) {
    const bool acts = panel_.Acts(*row.row);
    for (QWidget* widget : {static_cast<QWidget*>(row.caption), static_cast<QWidget*>(row.number),
                            static_cast<QWidget*>(row.slider), static_cast<QWidget*>(row.unit)}) {
      widget->setVisible(acts);
    }
    const double value = panel_.Value(*row.row);
    const double from = panel_.SliderFrom(*row.row);
    const double share = (value - from) / (panel_.SliderTo(*row.row) - from);
    // What is being typed stays; the slider stays where the hand has it.
    if (!row.number->hasFocus() || panel_.RunsProfile()) row.number->setValue(value);
    if (!row.slider->isSliderDown()) {
      row.slider->setValue(static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * kSteps)));
    }
  }
  showing_ = false;
  rampStop_->setEnabled(panel_.RunsProfile());
}

void SimulatorDock::ShowFaults() {
  const std::vector<observe::PresentFault> faults = panel_.Faults();
  QStringList texts;
  for (const observe::PresentFault& fault : faults) {
    texts << ToQt(fault.text) + (fault.waits ? tr(" (waits)") : QString());
  }
  QStringList shown;
  for (int row = 0; row < present_->count(); ++row) shown << present_->item(row)->text();
  if (texts != shown) {
    present_->clear();
    for (const QString& text : texts) present_->addItem(text);
  }
  for (int row = 0; row < present_->count(); ++row) {
    present_->item(row)->setData(Qt::UserRole, faults[static_cast<std::size_t>(row)].id);
  }
  end_->setEnabled(!faults.empty());
  endAll_->setEnabled(!faults.empty());
}

}  // namespace htr60::desktop
