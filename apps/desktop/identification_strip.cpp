#include "desktop/identification_strip.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QMenu>

#include "desktop/drawings.h"
#include "desktop/qt_text.h"

namespace htr60::desktop {
namespace {

struct Part {
  IdentityItem item;
  const char* name;   // for assistive technology and the tooltip
  const char* shown;  // before the text
};
constexpr Part kParts[] = {
    {IdentityItem::kTag, "Tag", ""},
    {IdentityItem::kManufacturer, "Manufacturer", ""},
    {IdentityItem::kSerialNumber, "Serial number", "SN "},
    {IdentityItem::kFirmware, "Firmware", "Firmware "},
    {IdentityItem::kMeasurement, "Measurement", ""},
    {IdentityItem::kWriteProtection, "Write protection", ""},
};

// The control that a row of some page declares for this part.
ControlId ControlOf(IdentityItem item, const PageRegistry& pages) {
  for (const PageUnit* unit : pages.units) {
    for (const PageLayout& page : unit->layouts) {
      for (const LayoutGroup& group : page.groups) {
        for (const LayoutRow& row : group.rows) {
          if (row.identity == item) return row.control;
        }
      }
    }
  }
  return {};
}

struct Shown {
  std::uint32_t sets = 0;
  QString text;
};

Shown ShownIn(Form& form, ControlId control) {
  Shown shown;
  if (!control) return shown;
  form.Visit(control, [&](auto& widget) {
    if constexpr (requires { widget.Sets(); }) shown = {widget.Sets(), ToQt(widget.Text())};
  });
  return shown;
}

}  // namespace

CopyLabel::CopyLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setTextInteractionFlags(Qt::TextSelectableByMouse);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void CopyLabel::SetFullText(const QString& text) {
  if (text == full_) return;
  full_ = text;
  updateGeometry();
  Fit();
}

QSize CopyLabel::sizeHint() const {
  return {fontMetrics().horizontalAdvance(full_) + fontMetrics().averageCharWidth(), fontMetrics().height()};
}

QSize CopyLabel::minimumSizeHint() const {
  return {qMin(sizeHint().width(), 8 * fontMetrics().averageCharWidth()), fontMetrics().height()};
}

void CopyLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  Fit();
}

void CopyLabel::Fit() { setText(fontMetrics().elidedText(full_, Qt::ElideRight, qMax(width(), 1))); }

void CopyLabel::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu(this);
  menu.addAction(tr("Copy"), this, [this] { QApplication::clipboard()->setText(full_); });
  menu.exec(event->globalPos());
}

IdentificationStrip::IdentificationStrip(UserCntrl& control, QWidget* parent)
    : QFrame(parent), form_(control.form), padlock_(new QLabel(this)) {
  setFrameShape(QFrame::NoFrame);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  const int gap = fontMetrics().averageCharWidth();
  auto* line = new QHBoxLayout(this);
  line->setContentsMargins(gap, gap / 2, gap, gap / 2);
  line->setSpacing(gap);

  auto* simulated = new QLabel(QStringLiteral("SIMULATED"), this);
  simulated->setObjectName(QStringLiteral("simulated"));
  simulated->setFrameShape(QFrame::Box);
  simulated->setContentsMargins(gap / 2, 1, gap / 2, 1);
  QFont bold = simulated->font();
  bold.setBold(true);
  simulated->setFont(bold);
  line->addWidget(simulated);

  const int side = fontMetrics().height();
  padlock_->setPixmap(Drawing(QStringLiteral("padlock"), side, devicePixelRatioF()));
  padlock_->setAccessibleName(tr("Write protection is on"));
  padlock_->hide();
  for (const Part& part : kParts) {
    auto* bar = new QFrame(this);
    bar->setFrameShape(QFrame::VLine);
    bar->setForegroundRole(QPalette::Mid);
    line->addWidget(bar);
    if (part.item == IdentityItem::kWriteProtection) line->addWidget(padlock_);
    auto* label = new CopyLabel(this);
    if (part.item == IdentityItem::kTag) label->setFont(bold);
    line->addWidget(label);
    items_.push_back({ControlOf(part.item, control.Pages()), label});
  }
  line->addStretch(1);
  Apply();
}

void IdentificationStrip::Apply() {
  for (std::size_t i = 0; i < items_.size(); ++i) {
    Item& item = items_[i];
    const Shown shown = ShownIn(form_, item.control);
    if (shown.sets == item.sets && !item.label->FullText().isEmpty()) continue;
    item.sets = shown.sets;
    const Part& part = kParts[i];
    // A list shows its first row or nothing before any answer: only what the program set counts.
    const QString text = shown.sets == 0 ? QString() : shown.text.trimmed();
    const QString name = tr(part.name);
    item.label->SetFullText(text.isEmpty() ? tr("%1: not read").arg(name) : tr(part.shown) + text);
    item.label->setToolTip(text.isEmpty() ? QString() : name + QStringLiteral(": ") + text);
    item.label->setAccessibleName(name);
    item.label->setAccessibleDescription(text.isEmpty() ? tr("not read") : text);
    if (part.item == IdentityItem::kTag) tag_ = text;
    if (part.item == IdentityItem::kWriteProtection) padlock_->setVisible(text == QLatin1String("Write Locked"));
  }
}

QString IdentificationStrip::Tag() const { return tag_; }

QStringList IdentificationStrip::Texts() const {
  QStringList texts;
  for (const Item& item : items_) texts << item.label->FullText();
  return texts;
}

}  // namespace htr60::desktop
