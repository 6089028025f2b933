#include "desktop/page/field_cell.h"

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>
#include <utility>

#include "desktop/edge.h"
#include "desktop/page/spots.h"
#include "desktop/qt_text.h"
#include "form/control_names.h"
#include "text/failure.h"

namespace htr60::desktop {
namespace {

constexpr int kTightCharacters = 8;

bool ReadsLikeANumber(PageContext context, std::string_view text) {
  try {
    context.control.codecs.ParseLocaleNumber(text);
    return true;
  } catch (const RuntimeFailure&) {
    return false;
  }
}

}  // namespace

FieldCell::FieldCell(PageContext context, const LayoutRow& row, bool second, int numberWidth, bool tight,
                     QWidget* parent)
    : QObject(parent),
      context_(context),
      row_(row),
      kind_(second ? row.secondKind : row.kind),
      control_(second ? row.second : row.control) {
  FieldWidth width = FieldWidth::Of(kind_, second ? row.secondWidth : row.width, numberWidth);
  if (tight) width.least = kTightCharacters;
  if (!IsButton()) shape_ = new ShapeSlot(parent);
  switch (kind_) {
    case RowKind::kList:
      MakeChoice(width, parent);
      break;
    case RowKind::kListBox:
      widget_ = new ReadList(width, parent);
      break;
    case RowKind::kMsg:
    case RowKind::kFixed: {
      auto* label = new PlainLabel({}, parent);
      label->setWordWrap(kind_ == RowKind::kMsg);
      widget_ = label;
      break;
    }
    case RowKind::kOpen:
    case RowKind::kWrite:
      MakeButton(parent);
      break;
    default:
      MakeEntry(width, parent);
      break;
  }
  if (control_) {
    widget_->setObjectName(QString::fromStdString(NameOf(control_)));
    BearSpot(*widget_, control_);
  }
  widget_->installEventFilter(this);
}

void FieldCell::MakeEntry(FieldWidth width, QWidget* parent) {
  const bool typed = kind_ == RowKind::kEdit || kind_ == RowKind::kNum;
  auto* entry = new TextEntry(width, !typed, parent);
  widget_ = entry;
  if (kind_ == RowKind::kNum || kind_ == RowKind::kValue) entry->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  if (!typed) return;
  const TextId field{control_};
  if (const int longest = context_.control.form.At(field).MaxLength(); longest > 0) entry->setMaxLength(longest);
  if (IsPassword()) {
    entry->setEchoMode(QLineEdit::Password);
    entry->setStyleSheet(QStringLiteral("lineedit-password-character: 42"));
  }
  Connect(entry, &QLineEdit::textEdited, this,
          [this, field](const QString& text) { context_.presented.Type(field, ToUtf8(text)); });
  connect(entry, &TextEntry::PastedCells, this, &FieldCell::PastedCells);
}

void FieldCell::MakeChoice(FieldWidth width, QWidget* parent) {
  widget_ = new ChoiceField(context_.presented.Keys(), control_, width, parent);
}

void FieldCell::MakeButton(QWidget* parent) {
  auto* button = new QPushButton(parent);
  button->setAutoDefault(false);
  button->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
  widget_ = button;
  Connect(button, &QPushButton::clicked, this, [this] { Q_EMIT Pressed(ButtonId{control_}); });
}

bool FieldCell::CanBeTypedIn() const { return kind_ == RowKind::kEdit || kind_ == RowKind::kNum; }

bool FieldCell::Shows() const { return !control_ || context_.control.form.Any(control_).Visible(); }

QString FieldCell::Text() const { return control_ ? ToQt(context_.control.form.TextOf(control_)) : QString(); }

void FieldCell::Refresh() {
  Form& form = context_.control.form;
  if (control_) widget_->setEnabled(form.Any(control_).Enabled());
  switch (kind_) {
    case RowKind::kList:
      static_cast<ChoiceField*>(widget_)->Show(Text());
      break;
    case RowKind::kListBox:
      static_cast<ReadList*>(widget_)->Show(Role(), form.At(ListBoxId{control_}).Rows());
      break;
    case RowKind::kMsg:
    case RowKind::kFixed:
      static_cast<QLabel*>(widget_)->setText(control_ ? Text() : caption_);
      break;
    case RowKind::kOpen:
    case RowKind::kWrite: {
      const QString own = Text();
      static_cast<QPushButton*>(widget_)->setText(WithMnemonic(ToUtf8(own.isEmpty() ? caption_ : own), mnemonic_));
      break;
    }
    default: {
      auto* entry = static_cast<TextEntry*>(widget_);
      const bool label = kind_ == RowKind::kLabel;
      const bool number = label ? ReadsLikeANumber(context_, ToUtf8(Text())) : kind_ == RowKind::kValue;
      entry->Show(Text(), number);
      if (label) entry->setAlignment((number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
      break;
    }
  }
  RefreshState();
}

void FieldCell::RefreshState() {
  if (shape_ == nullptr || !control_) return;
  const presentation::ScreenRow* row = context_.presented.Row(control_);
  const Shape before = shape_->Current();
  Shape shape = Shape::kNone;
  words_.clear();
  hint_.clear();
  alert_ = false;
  if (row != nullptr) {
    using presentation::FieldState;
    if (row->state) shape = ShapeOf(*row->state);
    if (shape == Shape::kNone) shape = ShapeOf(row->mark);
    alert_ = row->state == FieldState::kDiffers || row->state == FieldState::kReplaced;
    words_ = ToQt(row->words);
    hint_ = ToQt(row->hint);
    const QString name = ToQt(row->name);
    if (widget_->accessibleName() != name) widget_->setAccessibleName(name);
    SetPale(row->pale);
  }
  shape_->SetShape(shape);
  QStringList marks;
  for (const QString& mark : {words_, hint_, row_.control == control_ ? ToQt(row_.note) : QString()}) {
    if (!mark.isEmpty()) marks << mark;
  }
  const QString description = marks.join(QStringLiteral("; "));
  if (widget_->accessibleDescription() != description) widget_->setAccessibleDescription(description);
  if (shape_->Current() == Shape::kFault && before != Shape::kFault && kind_ == RowKind::kMsg) {
    QAccessibleEvent alert(widget_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
  }
}

// What is stale is drawn as what is disabled: pale, and still to be read and copied.
void FieldCell::SetPale(bool pale) {
  if (std::exchange(pale_, pale) == pale) return;
  QPalette palette = widget_->palette();
  const QPalette::ColorGroup source = pale ? QPalette::Disabled : QPalette::Active;
  const QPalette plain = QApplication::palette(widget_);
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
    palette.setBrush(group, QPalette::Text, plain.brush(source, QPalette::Text));
    palette.setBrush(group, QPalette::WindowText, plain.brush(source, QPalette::WindowText));
  }
  widget_->setPalette(palette);
}

void FieldCell::SetCaption(const QString& caption) { caption_ = caption; }

void FieldCell::SetMnemonic(char letter) {
  if (std::exchange(mnemonic_, letter) != letter) Refresh();
}

QString FieldCell::ToolTip() const {
  if (IsPassword()) return {};
  QStringList lines;
  if (const auto* entry = qobject_cast<TextEntry*>(widget_); entry != nullptr && entry->CutOff()) lines << Text();
  if (const auto* choice = qobject_cast<ChoiceField*>(widget_); choice != nullptr && choice->CutOff()) lines << Text();
  if (wordsFit_ && !wordsFit_()) {
    if (!words_.isEmpty()) lines << words_;
    if (!hint_.isEmpty()) lines << hint_;
  }
  return lines.join(u'\n');
}

bool FieldCell::eventFilter(QObject* watched, QEvent* event) {
  const bool taken = event->type() == QEvent::ToolTip && GuardedTakes([&] {
                       const QString text =
                           ToolTip().toHtmlEscaped().replace(QStringLiteral("\n"), QStringLiteral("<br>"));
                       if (text.isEmpty()) return false;
                       QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text, widget_);
                       return true;
                     });
  if (taken) return true;
  return QObject::eventFilter(watched, event);
}

}  // namespace htr60::desktop
