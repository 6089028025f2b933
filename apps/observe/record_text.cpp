#include <algorithm>
#include <array>
#include <cstdio>

#include "observe/csv.h"
#include "observe/record.h"
#include "text/xml_escape.h"

namespace htr60::observe {
namespace {

std::string Escaped(std::string_view text) {
  std::string escaped;
  AppendXmlEscaped(escaped, text);
  return escaped;
}

std::string Decimal(double number) {
  std::array<char, 32> text{};
  const int size = std::snprintf(text.data(), text.size(), "%.2f", number);
  return {text.data(), static_cast<std::size_t>(size)};
}

constexpr std::string_view kStyle =
    "body{font-family:sans-serif;font-size:10pt;margin:15mm}h1{font-size:16pt;margin:0 0 4mm}"
    ".simulated{border:2px solid;padding:1mm 3mm;font-weight:bold;float:right}"
    "table{border-collapse:collapse;width:100%;margin:0 0 5mm}td,th{border:1px solid #666;padding:1mm "
    "2mm;text-align:left}"
    ".number{text-align:right}.block td:nth-child(odd){background:#eee;width:18%}"
    ".sign{display:inline-block;width:45%;margin-top:15mm;border-top:1px solid;padding-top:1mm;margin-right:4%}"
    "@media print{tr{break-inside:avoid}}";

}  // namespace

std::string Record::Csv(const RecordHead& head) const {
  std::string text;
  if (!head.simulated.empty()) AddCsvLine(text, {head.simulated}, separator_);
  for (const auto& [caption, value] : Block(head)) AddCsvLine(text, {caption, value}, separator_);
  AddCsvLine(text, {}, separator_);
  const auto line = [&](const auto& cells, std::string_view page) {
    std::vector<std::string_view> row(cells.begin(), cells.end());
    row.insert(row.begin() + kOperator, page);
    AddCsvLine(text, row, separator_);
  };
  line(Heads(), "Page");
  for (std::size_t i = 0; i < steps_.size(); ++i) line(Cells(i), steps_[i].page);
  return text;
}

std::string Record::Html(const RecordHead& head) const {
  std::string html = "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\"><title>Calibration record " +
                     Escaped(head.tag) + "</title><style>" + std::string(kStyle) + "</style></head><body>\n";
  if (!head.simulated.empty()) html += "<div class=\"simulated\">" + Escaped(head.simulated) + "</div>";
  html += "<h1>Calibration record</h1>\n<table class=\"block\">";
  const auto block = Block(head);
  for (std::size_t i = 0; i < block.size(); i += 2) {
    html += "<tr>";
    for (std::size_t k = i; k < std::min(i + 2, block.size()); ++k) {
      html += "<td>" + Escaped(block[k].first) + "</td><td>" + Escaped(block[k].second) + "</td>";
    }
    html += "</tr>\n";
  }
  html += "</table>\n<table><thead><tr>";
  const std::size_t columns = ColumnsShown();
  const auto heads = Heads();
  for (std::size_t column = 0; column < columns; ++column) html += "<th>" + Escaped(heads[column]) + "</th>";
  html += "</tr></thead><tbody>\n";
  for (std::size_t step = 0; step < steps_.size(); ++step) {
    html += "<tr>";
    const auto cells = Cells(step);
    for (std::size_t column = 0; column < columns; ++column) {
      html += (IsNumber(column) ? "<td class=\"number\">" : "<td>") + Escaped(cells[column]) + "</td>";
    }
    html += "</tr>\n";
  }
  html += "</tbody></table>\n";
  for (const std::string& line : Worst()) html += "<p>" + Escaped(line) + ".</p>\n";
  for (const RecordChart& chart : Charts()) html += FigureSvg(chart.figure, 680, 240) + "\n";
  html += "<div class=\"sign\">Performed by, date</div><div class=\"sign\">Checked by, date</div>\n</body></html>\n";
  return html;
}

std::string FigureSvg(const Figure& figure, int width, int height) {
  constexpr double kLeft = 60;
  constexpr double kTop = 24;
  constexpr double kBottom = 44;
  const double right = width - 20.0;
  const double bottom = height - kBottom;
  const auto x = [&](double value) {
    return kLeft + (value - figure.x.from) / (figure.x.to - figure.x.from) * (right - kLeft);
  };
  const auto y = [&](double value) {
    return bottom - (value - figure.y.from) / (figure.y.to - figure.y.from) * (bottom - kTop);
  };
  std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + std::to_string(width) + "\" height=\"" +
                    std::to_string(height) +
                    "\" font-family=\"sans-serif\" font-size=\"11\" role=\"img\" aria-label=\"" +
                    Escaped(figure.sentence) + "\">";
  const auto line = [&](double x1, double y1, double x2, double y2, std::string_view style) {
    svg += "<line x1=\"" + Decimal(x1) + "\" y1=\"" + Decimal(y1) + "\" x2=\"" + Decimal(x2) + "\" y2=\"" +
           Decimal(y2) + "\" " + std::string(style) + "/>";
  };
  const auto text = [&](double at, double base, std::string_view anchor, std::string_view words) {
    svg += "<text x=\"" + Decimal(at) + "\" y=\"" + Decimal(base) + "\" text-anchor=\"" + std::string(anchor) + "\">" +
           Escaped(words) + "</text>";
  };
  for (const FigureBand& band : figure.bands) {
    svg += "<rect x=\"" + Decimal(kLeft) + "\" y=\"" + Decimal(y(band.to)) + "\" width=\"" + Decimal(right - kLeft) +
           "\" height=\"" + Decimal(y(band.from) - y(band.to)) + "\" fill=\"#d9e8f4\"/>";
  }
  for (const FigureTick& tick : figure.x.ticks) {
    line(x(tick.value), kTop, x(tick.value), bottom, "stroke=\"#ddd\"");
    text(x(tick.value), bottom + 14, "middle", tick.text);
  }
  for (const FigureTick& tick : figure.y.ticks) {
    line(kLeft, y(tick.value), right, y(tick.value), "stroke=\"#ddd\"");
    text(kLeft - 6, y(tick.value) + 4, "end", tick.text);
  }
  line(kLeft, kTop, kLeft, bottom, "stroke=\"black\"");
  line(kLeft, bottom, right, bottom, "stroke=\"black\"");
  text(kLeft - 50, 14, "start", figure.y.caption);
  text(right, bottom + 28, "end", figure.x.caption);
  for (const FigureLine& drawn : figure.lines) {
    for (std::size_t i = 1; i < drawn.points.size(); ++i) {
      line(x(drawn.points[i - 1].x), y(drawn.points[i - 1].y), x(drawn.points[i].x), y(drawn.points[i].y),
           "stroke=\"#666\" stroke-dasharray=\"4 3\"");
    }
  }
  for (const FigureMarker& marker : figure.markers) {
    const bool filled = marker.shape == MarkerShape::kFilledSquare;
    svg += "<rect x=\"" + Decimal(x(marker.at.x) - 4) + "\" y=\"" + Decimal(y(marker.at.y) - 4) +
           "\" width=\"8\" height=\"8\" stroke=\"#1f6fa8\" fill=\"" + (filled ? "#1f6fa8" : "white") + "\"/>";
  }
  const std::string remark = figure.remarks.empty() ? std::string() : figure.remarks.front();
  text(kLeft, height - 6.0, "start", remark);
  return svg + "</svg>";
}

}  // namespace htr60::observe
