#include "desktop/docks/record/record_pdf.h"

#include <QBuffer>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QTextOption>
#include <algorithm>
#include <array>
#include <functional>
#include <vector>

#include "desktop/figure/figure_widget.h"
#include "desktop/figure/tones.h"
#include "desktop/qt_text.h"

namespace htr60::desktop {
namespace {

using observe::Record;

// In 1/96 inch, the unit of all that is drawn here.
constexpr double kUnitsPerInch = 96;
constexpr int kDotsPerInch = 600;
constexpr double kWidth = 680;  // of what stands between the margins of A4
constexpr double kHeight = 1000;
constexpr double kMargin = 15;  // mm
constexpr double kPad = 4;
constexpr double kChartHeight = 230;
constexpr double kSignatureHeight = 90;
constexpr double kFooterHeight = 22;
constexpr int kTextPixels = 11;
constexpr int kTitlePixels = 20;
constexpr std::array<double, Record::kColumns> kColumns = {54, 106, 56, 58, 52, 58, 52, 40, 104, 100, 0};
constexpr std::array<double, Record::kColumns> kColumnsOfSeveral = {54, 84, 56, 58, 52, 58, 52, 40, 94, 60, 72};

QFont TextFont(int pixels = kTextPixels, bool bold = false) {
  QFont font;
  font.setPixelSize(pixels);
  font.setBold(bold);
  return font;
}

/// Lays the record out on pages. It is laid out twice: the footer tells how many pages there are.
class Sheet {
 public:
  Sheet(QPainter& painter, const Record& record, const observe::RecordHead& head, int pages,
        std::function<void()> newPage)
      : painter_(painter), record_(record), head_(head), pages_(pages), newPage_(std::move(newPage)) {
    const auto& widths = record.ColumnsShown() == Record::kColumns ? kColumnsOfSeveral : kColumns;
    widths_.assign(widths.begin(), widths.begin() + static_cast<std::ptrdiff_t>(record.ColumnsShown()));
  }

  int Draw() {
    Begin();
    DrawTitle();
    DrawBlock();
    DrawTable();
    for (const std::string& line : record_.Worst()) Line(ToQt(line) + QLatin1Char('.'));
    std::vector<observe::RecordChart> charts = record_.Charts();
    for (observe::RecordChart& chart : charts) DrawChart(chart);
    DrawSignatures();
    DrawFooter();
    return page_;
  }

 private:
  double Bottom() const { return kHeight - kFooterHeight; }

  void Begin() {
    ++page_;
    y_ = 0;
  }

  void NewPage() {
    DrawFooter();
    newPage_();
    Begin();
    painter_.setFont(TextFont());
    Text(QRectF(0, 0, kWidth, 16), QStringLiteral("Calibration record, ") + ToQt(head_.tag), Qt::AlignLeft);
    Text(QRectF(0, 0, kWidth, 16), ToQt(head_.simulated), Qt::AlignRight);
    y_ = 24;
  }

  void Need(double height) {
    if (y_ + height > Bottom()) NewPage();
  }

  void Text(const QRectF& room, const QString& text, Qt::Alignment alignment = Qt::AlignLeft) {
    painter_.drawText(room, static_cast<int>(alignment | Qt::AlignVCenter), text);
  }

  /// Words go to the next line whole, but for one that is longer than a line.
  static QTextOption Wrapped(bool number) {
    QTextOption option(number ? Qt::AlignRight : Qt::AlignLeft);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
  }

  double HeightOf(const QString& text, double width) const {
    const QRectF room(0, 0, width - 2 * kPad, kHeight);
    const QString measured = text.isEmpty() ? QStringLiteral(" ") : text;
    return painter_.boundingRect(room, measured, Wrapped(false)).height() + 2 * kPad;
  }

  void Cell(double x, double width, double height, const QString& text, bool number) {
    painter_.drawRect(QRectF(x, y_, width, height));
    painter_.drawText(QRectF(x + kPad, y_ + kPad, width - 2 * kPad, height), text, Wrapped(number));
  }

  void DrawTitle() {
    painter_.setFont(TextFont(kTitlePixels, true));
    Text(QRectF(0, 0, kWidth, 30), QStringLiteral("Calibration record"));
    if (!head_.simulated.empty()) {
      painter_.setFont(TextFont(kTextPixels + 2, true));
      const QString words = ToQt(head_.simulated);
      const double wide = painter_.fontMetrics().horizontalAdvance(words) + 16;
      const QRectF frame(kWidth - wide, 2, wide, 24);
      painter_.setPen(QPen(Qt::black, 1.5));
      painter_.drawRect(frame);
      painter_.drawText(frame, Qt::AlignCenter, words);
    }
    y_ = 40;
  }

  void DrawBlock() {
    const auto block = record_.Block(head_);
    constexpr double kCaption = 100;
    constexpr double kHalf = kWidth / 2;
    painter_.setPen(QPen(Qt::black, 0.7));
    for (std::size_t i = 0; i < block.size(); i += 2) {
      painter_.setFont(TextFont());
      double height = 0;
      for (std::size_t k = i; k < std::min(i + 2, block.size()); ++k) {
        height = std::max(height, HeightOf(ToQt(block[k].second), kHalf - kCaption));
      }
      Need(height);
      for (std::size_t k = i; k < std::min(i + 2, block.size()); ++k) {
        const double x = static_cast<double>(k - i) * kHalf;
        painter_.setFont(TextFont(kTextPixels, true));
        Cell(x, kCaption, height, ToQt(block[k].first), false);
        painter_.setFont(TextFont());
        Cell(x + kCaption, kHalf - kCaption, height, ToQt(block[k].second), false);
      }
      y_ += height;
    }
    y_ += 14;
  }

  void DrawHeads() {
    painter_.setFont(TextFont(kTextPixels - 1, true));
    const auto heads = Record::Heads();
    double height = 0;
    for (std::size_t i = 0; i < widths_.size(); ++i) height = std::max(height, HeightOf(ToQt(heads[i]), widths_[i]));
    double x = 0;
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      painter_.fillRect(QRectF(x, y_, widths_[i], height), QColor(0xE8, 0xE8, 0xE8));
      Cell(x, widths_[i], height, ToQt(heads[i]), false);
      x += widths_[i];
    }
    y_ += height;
  }

  void DrawTable() {
    DrawHeads();
    for (std::size_t step = 0; step < record_.Steps().size(); ++step) {
      painter_.setFont(TextFont(kTextPixels - 1));
      const auto cells = record_.Cells(step);
      double height = 0;
      for (std::size_t i = 0; i < widths_.size(); ++i) height = std::max(height, HeightOf(ToQt(cells[i]), widths_[i]));
      if (y_ + height > Bottom()) {
        NewPage();
        DrawHeads();
        painter_.setFont(TextFont(kTextPixels - 1));
      }
      double x = 0;
      for (std::size_t i = 0; i < widths_.size(); ++i) {
        Cell(x, widths_[i], height, ToQt(cells[i]), Record::IsNumber(i));
        x += widths_[i];
      }
      y_ += height;
    }
    if (record_.Steps().empty()) Line(QStringLiteral("Nothing has been calibrated."));
    y_ += 10;
  }

  void Line(const QString& text) {
    painter_.setFont(TextFont());
    const double height = HeightOf(text, kWidth);
    Need(height);
    painter_.drawText(QRectF(0, y_, kWidth, height), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap, text);
    y_ += height;
  }

  // The drawing of the screen, in ink on paper.
  void DrawChart(observe::RecordChart& chart) {
    Need(kChartHeight + 10);
    FigureWidget figure(false, nullptr);
    figure.setFont(TextFont());
    QPalette paper = *PaletteOf(QStringLiteral("light"));
    paper.setColor(QPalette::Window, Qt::white);
    figure.setPalette(paper);
    figure.resize(static_cast<int>(kWidth), static_cast<int>(kChartHeight));
    figure.Show(std::move(chart.figure));
    painter_.save();
    painter_.translate(0, y_ + 6);
    painter_.setFont(figure.font());
    figure.PaintOn(painter_);
    painter_.restore();
    y_ += kChartHeight + 10;
  }

  void DrawSignatures() {
    Need(kSignatureHeight);
    painter_.setFont(TextFont());
    painter_.setPen(QPen(Qt::black, 0.7));
    const double line = y_ + kSignatureHeight - 24;
    constexpr double kHalf = kWidth / 2;
    double x = 0;
    for (const char* who : {"Performed by, date, signature", "Checked by, date, signature"}) {
      painter_.drawLine(QPointF(x, line), QPointF(x + kHalf - 30, line));
      Text(QRectF(x, line + 2, kHalf - 30, 18), QLatin1String(who));
      x += kHalf;
    }
    Text(QRectF(0, line - 20, kHalf - 30, 18), ToQt(record_.Operators()));
    y_ += kSignatureHeight;
  }

  void DrawFooter() {
    painter_.setFont(TextFont(kTextPixels - 1));
    painter_.setPen(QPen(Qt::black, 0.7));
    const QRectF foot(0, kHeight - 16, kWidth, 16);
    painter_.drawLine(QPointF(0, foot.top() - 2), QPointF(kWidth, foot.top() - 2));
    Text(foot, ToQt(head_.date));
    Text(foot, QStringLiteral("Page %1 of %2").arg(page_).arg(pages_), Qt::AlignRight);
  }

  QPainter& painter_;
  const Record& record_;
  const observe::RecordHead& head_;
  const int pages_;
  std::vector<double> widths_;
  std::function<void()> newPage_;
  int page_ = 0;
  double y_ = 0;
};

}  // namespace

QByteArray RecordPdf(const Record& record, const observe::RecordHead& head) {
  QImage nowhere(8, 8, QImage::Format_RGB32);
  QPainter measuring(&nowhere);
  const int pages = Sheet(measuring, record, head, 0, [] {}).Draw();
  measuring.end();
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&bytes);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(kMargin, kMargin, kMargin, kMargin), QPageLayout::Millimeter);
    writer.setResolution(kDotsPerInch);
    writer.setTitle(QStringLiteral("Calibration record ") + ToQt(head.tag));
    writer.setCreator(QStringLiteral("htr60"));
    QPainter painter(&writer);
    const double scale = std::min(kDotsPerInch / kUnitsPerInch, writer.width() / kWidth);
    painter.scale(scale, scale);
    Sheet(painter, record, head, pages, [&writer] { writer.newPage(); }).Draw();
  }
  return bytes.data();
}

}  // namespace htr60::desktop
