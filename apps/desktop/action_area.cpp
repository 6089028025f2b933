#include "desktop/action_area.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QKeyEvent>

#include "desktop/qt_text.h"

namespace htr60::desktop {
namespace {

constexpr int kMessageMs = 10'000;

// Enter never writes to the device, whatever keys the platform presses buttons with.
class WriteButton final : public QPushButton {
 public:
  using QPushButton::QPushButton;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return;
    QPushButton::keyPressEvent(event);
  }
};

// The one prominent button; while disabled it looks as any other.
void MakeProminent(QPushButton& button) {
  QPalette palette = button.palette();
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
    palette.setBrush(group, QPalette::Button, palette.brush(QPalette::Active, QPalette::Highlight));
    palette.setBrush(group, QPalette::ButtonText, palette.brush(QPalette::Active, QPalette::HighlightedText));
  }
  button.setPalette(palette);
  QFont font = button.font();
  font.setBold(true);
  button.setFont(font);
}

}  // namespace

ActionArea::ActionArea(QWidget* parent)
    : QWidget(parent),
      back_(new QPushButton(tr("&Back"), this)),
      message_(new QLabel(this)),
      save_(new QPushButton(tr("&Save"), this)),
      write_(new WriteButton(tr("&Write"), this)) {
  back_->setObjectName(QStringLiteral("cmdBack"));
  save_->setObjectName(QStringLiteral("cmdSave"));
  write_->setObjectName(QStringLiteral("cmdWriteParameter"));
  save_->setToolTip(tr("The device keeps every value: there is nothing to save here."));
  for (QPushButton* button : {back_, save_, write_}) button->setAutoDefault(false);
  MakeProminent(*write_);
  message_->setObjectName(QStringLiteral("messageLine"));
  message_->setTextFormat(Qt::PlainText);
  message_->setWordWrap(true);

  const int gap = fontMetrics().averageCharWidth();
  auto* line = new QHBoxLayout(this);
  line->setContentsMargins(gap, gap / 2, gap, gap / 2);
  line->setSpacing(gap);
  line->addWidget(back_);
  using Signal = void (ActionArea::*)();
  constexpr Signal kPressed[] = {&ActionArea::NotWrittenPressed, &ActionArea::SentPressed,
                                 &ActionArea::ConfirmedPressed};
  for (std::size_t i = 0; i < counts_.size(); ++i) {
    counts_[i] = new QToolButton(this);
    counts_[i]->setAutoRaise(true);
    counts_[i]->setFocusPolicy(Qt::NoFocus);  // not among the stops of Tab
    counts_[i]->hide();
    connect(counts_[i], &QToolButton::clicked, this, kPressed[i]);
    line->addWidget(counts_[i]);
  }
  line->addWidget(message_, 1);
  line->addWidget(save_);
  line->addWidget(write_);

  connect(back_, &QPushButton::clicked, this, &ActionArea::BackPressed);
  connect(write_, &QPushButton::clicked, this, &ActionArea::WritePressed);
  messageTimer_.setSingleShot(true);
  messageTimer_.setInterval(kMessageMs);
  connect(&messageTimer_, &QTimer::timeout, message_, &QLabel::clear);
}

void ActionArea::Apply(Form& form) {
  const struct {
    QPushButton* shown;
    const Button& button;
  } kButtons[] = {{back_, form.cmdBack}, {save_, form.cmdSave}, {write_, form.cmdWriteParameter}};
  for (const auto& [shown, button] : kButtons) {
    shown->setEnabled(button.Enabled());
    shown->setVisible(button.Visible());
  }
}

void ActionArea::ShowCounts(const StateCounts& counts) {
  const bool allConfirmed =
      counts.confirmed > 0 && counts.notWritten == 0 && counts.sent == 0 && counts.unconfirmed == 0;
  const QString texts[] = {counts.notWritten > 0 ? tr("%1 not written").arg(counts.notWritten) : QString(),
                           counts.sent > 0 ? tr("%1 sent").arg(counts.sent) : QString(),
                           allConfirmed ? tr("all confirmed") : QString()};
  for (std::size_t i = 0; i < counts_.size(); ++i) {
    counts_[i]->setText(texts[i]);
    counts_[i]->setVisible(!texts[i].isEmpty());
  }
}

QStringList ActionArea::Counts() const {
  QStringList texts;
  for (const QToolButton* count : counts_) {
    if (!count->isHidden()) texts << count->text();
  }
  return texts;
}

void ActionArea::ShowMessage(const QString& text) {
  message_->setText(text);
  messageTimer_.start();
  if (QAccessible::isActive()) {
    QAccessibleEvent event(message_, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
  }
}

}  // namespace htr60::desktop
