// What a step of the tour is in the words of someone who does it.
#include <QApplication>
#include <QMessageBox>
#include <QTabBar>

#include "desktop/qt_text.h"
#include "desktop/tour/tour.h"
#include "form/control_names.h"
#include "presentation/page_rows.h"

namespace htr60::desktop {
namespace {

QString Quoted(const QString& text) { return QStringLiteral("\"%1\"").arg(text); }

QString Plain(std::string_view caption) { return ToQt(presentation::Trimmed(caption)); }

}  // namespace

// Its caption; where several have the same, with its group.
QString Tour::NameOfField(ControlId control) const {
  const std::vector<presentation::ScreenRow>& rows = window_.Presented().Shown().rows;
  const presentation::ScreenRow* found = nullptr;
  int alike = 0;
  for (const presentation::ScreenRow& row : rows) {
    if (row.control == control) found = &row;
  }
  if (found == nullptr) {
    for (const presentation::ScreenButton& button : window_.Presented().Shown().buttons) {
      if (button.control == control) return Plain(button.caption);
    }
    return ToQt(NameOf(control));
  }
  for (const presentation::ScreenRow& row : rows) alike += row.caption == found->caption ? 1 : 0;
  QString caption = Plain(found->caption);
  if (caption.endsWith(u':')) caption.chop(1);
  const QString name = ToQt(found->name);
  const auto at = name.indexOf(caption);
  return alike > 1 && at > 2 ? caption + QStringLiteral(" of ") + name.left(at - 2) : caption;
}

QString Tour::Words(const TourStep& step) const {
  const QString text = ToQt(Localized(step.text));
  switch (step.what) {
    case TourDo::kNode:
      return QStringLiteral("Opens %1 in the tree").arg(text);
    case TourDo::kButton:
      return QStringLiteral("Presses %1").arg(NameOfField(step.control));
    case TourDo::kTab: {
      for (const QTabBar* strip : window_.findChildren<QTabBar*>(ToQt(NameOf(step.control)))) {
        if (strip->isVisible()) return QStringLiteral("Turns to the tab %1").arg(strip->tabText(step.number).trimmed());
      }
      return QStringLiteral("Turns to a tab");
    }
    case TourDo::kType:
      return QStringLiteral("Types %1 as %2").arg(text, NameOfField(step.control));
    case TourDo::kCode:
      return QStringLiteral("Types the access code");
    case TourDo::kPaste:
      return QStringLiteral("Pastes %1 rows into %2").arg(text.count(u'\n') + 1).arg(NameOfField(step.control));
    case TourDo::kChoose:
      return QStringLiteral("Chooses %1 as %2").arg(text, NameOfField(step.control));
    case TourDo::kWrite:
      return QStringLiteral("Presses Write");
    case TourDo::kRevert:
      return QStringLiteral("Presses Revert");
    case TourDo::kBox: {
      const auto* box = qobject_cast<const QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr) return QStringLiteral("Waits for a question and answers %1").arg(text);
      return QStringLiteral("Answers %1 to %2").arg(text, Quoted(box->text()));
    }
    case TourDo::kBar:
      return QStringLiteral("Answers %1").arg(Quoted(text));
    case TourDo::kMenu:
      return QStringLiteral("Chooses %1 in the menu").arg(text);
    case TourDo::kClose:
      return QStringLiteral("Closes the window");
    case TourDo::kWait:
      return QStringLiteral("Waits until everything is read");
    case TourDo::kPass:
      return QStringLiteral("Lets %1 s go by").arg(step.number);
    case TourDo::kExpect:
      return QStringLiteral("Sees %1 as %2").arg(text, NameOfField(step.control));
    case TourDo::kSmallest:
      return step.text.empty() ? QStringLiteral("Makes the window as small as it can be")
                               : QStringLiteral("Makes the window as large as before");
    case TourDo::kLarge:
      return step.text.empty() ? QStringLiteral("Makes the window large enough for a dock")
                               : QStringLiteral("Makes the window as large as before");
    case TourDo::kDock:
      return QStringLiteral("Chooses %1 in the menu").arg(text);
    case TourDo::kFault:
      return step.text == "none" ? QStringLiteral("Ends all faults") : QStringLiteral("Begins the fault %1").arg(text);
    case TourDo::kProcess:
      return QStringLiteral("Sets %1 to %2").arg(text).arg(step.number);
    case TourDo::kOperator:
      return QStringLiteral("Types %1 as the operator's name").arg(text);
    case TourDo::kRecord:
      return QStringLiteral("Saves the calibration record as %1").arg(text);
    case TourDo::kFollow:
      return QStringLiteral("Adds %1 to the trend").arg(NameOfField(step.control));
    case TourDo::kPicture:
      return QStringLiteral("Leaves the picture %1").arg(NameOfPicture(step));
  }
  return {};
}

}  // namespace htr60::desktop
