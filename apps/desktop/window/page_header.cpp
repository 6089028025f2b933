#include "desktop/window/page_header.h"

#include <QGridLayout>

#include "desktop/qt_text.h"

namespace htr60::desktop {

PageHeader::PageHeader(QWidget* parent)
    : QWidget(parent),
      title_(new QLabel(this)),
      purpose_(new QLabel(this)),
      warning_(new ShapeSlot(this)),
      data_(new QLabel(this)) {
  for (QLabel* label : {title_, purpose_, data_}) label->setTextFormat(Qt::PlainText);
  title_->setObjectName(QStringLiteral("pageTitle"));
  purpose_->setObjectName(QStringLiteral("pagePurpose"));
  data_->setObjectName(QStringLiteral("dataLine"));
  QFont font = title_->font();
  font.setBold(true);
  font.setPointSizeF(font.pointSizeF() * 1.3);
  title_->setFont(font);
  data_->setAccessibleName(ToQt(presentation::kDataLineName));
  purpose_->setWordWrap(true);
  const int gap = fontMetrics().averageCharWidth();
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(gap, gap / 2, gap, gap / 2);
  grid->setHorizontalSpacing(gap);
  grid->setVerticalSpacing(gap / 4);
  grid->addWidget(title_, 0, 0);
  grid->addWidget(warning_, 0, 1);
  grid->addWidget(data_, 0, 2);
  grid->addWidget(purpose_, 1, 0, 1, 3);
  grid->setColumnStretch(0, 1);
  warning_->SetShape(Shape::kWarning, presentation::kLateName);
  warning_->hide();
}

void PageHeader::Apply(const presentation::Screen& screen) {
  title_->setText(ToQt(screen.title));
  purpose_->setText(ToQt(screen.purpose));
  data_->setText(ToQt(screen.dataLine));
  data_->setAccessibleDescription(data_->text());
  warning_->setVisible(screen.late);
}

}  // namespace htr60::desktop
